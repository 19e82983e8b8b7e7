#include "pages/VqDocDiretta.h"

#include "core/Paths.h"
#include "core/VqDocProprieta.h"

namespace orvane {

void VqDocDiretta::ImpostaFile(const std::shared_ptr<JobFile>& file) {
  Component::ImpostaFile(file);
  bind(file, CatalogoDestinazione);
}

void VqDocDiretta::LeggiFile() {
  Component::LeggiFile();
  const Text& id = properties_.Id;
  const VqDocFile prepared{joinPath(properties_.FileIntestazione.Percorso, id), id + u".vqd"};
  if (Apartment::fileSystem().fileExists(prepared.File())) FileDiretto = prepared;
  load(CatalogoDestinazione);
}

void VqDocDiretta::renderParts(XmlWriter& xml) const {
  renderFile(xml, u"FileDiretto", FileDiretto);
  render(xml, CatalogoDestinazione);
}

}  // namespace orvane
