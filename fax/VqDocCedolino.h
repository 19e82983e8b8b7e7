// The payslip print that goes with a fax or an e-mail.
#pragma once

#include "core/Component.h"

namespace orvane {

/// Section "Cedolino". Printer names are free text.
class VqDocCedolino : public Component {
 public:
  VqDocCedolino() : Component(u"Cedolino", u"Cedolino") {}

  Stored<bool> Stampare{*this, u"Stampare"};
  Stored<Text> Stampante{*this, u"Stampante"};
  Stored<Text> StampanteOrigine{*this, u"StampanteOrigine"};  ///< the printer that the job came from
};

}  // namespace orvane
