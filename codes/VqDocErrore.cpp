#include "codes/VqDocErrore.h"

namespace orvane {

Text VqDocErrore::CodiceProperty::description() const {
  return get() == vdec_Personalizzato ? record_.custom_ : Code::description();
}

VqDocErrore::DescrizioneProperty& VqDocErrore::DescrizioneProperty::operator=(Text text) {
  record_.custom_ = std::move(text);
  record_.Codice = vdec_Personalizzato;
  return *this;
}

void VqDocErrore::LeggiFile() {
  Component::LeggiFile();
  if (Codice.get() == vdec_Personalizzato) {
    custom_ = Apartment::profileAccess().LeggiTesto(*jobFile(), section(), kNames.descriptionKey);
  }
}

}  // namespace orvane
