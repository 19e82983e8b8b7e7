#include "pages/VqDocCatalogo.h"

namespace orvane {

VqDocCatalogo::VqDocCatalogo(Name section, TextView element) : Component(section, element), Tipo(section) {}

VqDocCatalogo::~VqDocCatalogo() = default;

void VqDocCatalogo::ImpostaFile(const std::shared_ptr<JobFile>& file) {
  Component::ImpostaFile(file);
  bind(file, Tipo);
}

void VqDocCatalogo::LeggiFile() {
  load(Tipo);
  Component::LeggiFile();
}

void VqDocCatalogo::copyCodes(const VqDocCatalogo& from) {
  const Property* source = from.firstProperty();
  for (Property* target = firstProperty(); target != nullptr; target = nextProperty(*target)) {
    static_cast<ControlCode&>(*target).assign(static_cast<const ControlCode&>(*source).bytes());
    source = nextProperty(*source);
  }
}

}  // namespace orvane
