// The number that a fax is sent to.
#pragma once

#include "core/Component.h"

namespace orvane {

/// Section "NumeroFax". The three parts are free text.
class VqDocNumeroFax : public Component {
 public:
  VqDocNumeroFax() : Component(u"NumeroFax", u"NumeroFax") {}

  /// The parts joined by "-". An international prefix counts only together with a local one: without it, the
  /// word "Errore" stands in place of both, and the number follows; without a number, "Errore" stands alone.
  Text NumeroEsteso() const;

 private:
  ComputedElement<&VqDocNumeroFax::NumeroEsteso> extended_{*this, u"NumeroEsteso"};

 public:
  Stored<Text> PrefissoInternazionale{*this, u"PrefissoInternazionale"};
  Stored<Text> PrefissoLocale{*this, u"PrefissoLocale"};
  Stored<Text> Numero{*this, u"Numero"};
};

}  // namespace orvane
