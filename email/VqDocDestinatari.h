// The three lists of recipients of an e-mail.
#pragma once

#include "core/Component.h"

namespace orvane {

/// Names and addresses as the server separates them: the library neither splits nor checks them.
class Recipients : public Component {
 public:
  Stored<Text> NomiVisualizzati{*this, u"NomiVisualizzati"};
  Stored<Text> IndirizziEmail{*this, u"IndirizziEmail"};

 protected:
  using Component::Component;
};

class VqDocDestinatariA : public Recipients {
 public:
  VqDocDestinatariA() : Recipients(u"DestinatariA", u"A") {}
};

class VqDocDestinatariCc : public Recipients {
 public:
  VqDocDestinatariCc() : Recipients(u"DestinatariCc", u"Cc") {}
};

class VqDocDestinatariCcn : public Recipients {
 public:
  VqDocDestinatariCcn() : Recipients(u"DestinatariCcn", u"Ccn") {}
};

}  // namespace orvane
