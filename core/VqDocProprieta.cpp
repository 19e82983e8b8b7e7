#include "core/VqDocProprieta.h"

#include "core/Guid.h"

namespace orvane {

VqDocProprieta::VqDocProprieta() : Component(u"Proprieta", u"Proprieta") {}

VqDocProprieta::~VqDocProprieta() = default;

const Text& VqDocProprieta::Identity::get() const {
  if (text_.empty()) text_ = u"GUID_" + newGuid().substr(1, 36);
  return text_;
}

void VqDocProprieta::ImpostaFile(const std::shared_ptr<JobFile>& file) {
  Component::ImpostaFile(file);
  bind(file, Tipo, Lingua, Errore, Comando, CatalogoSorgente, Intestazione, Esito);
}

void VqDocProprieta::LeggiFile() {
  Component::LeggiFile();
  findBodyFile(u".bvq", FileCorpo);
  findBodyFile(u".svq", FileScript);
  load(Tipo, Esito, Lingua, Errore, Comando, Intestazione, CatalogoSorgente);
}

void VqDocProprieta::renderParts(XmlWriter& xml) const {
  renderFile(xml, u"FileIntestazione", FileIntestazione);
  renderFile(xml, u"FileCorpo", FileCorpo);
  renderFile(xml, u"FileScript", FileScript);
  render(xml, Tipo, Lingua, Errore, Comando, Intestazione, CatalogoSorgente, Esito, Bloccato);
}

std::shared_ptr<JobFile> VqDocProprieta::headerFile() const {
  const bool unnamed = FileIntestazione.Percorso.empty() && FileIntestazione.Nome.empty();
  ProfileAccess& access = Apartment::profileAccess();
  return unnamed ? ProfileAccess::noFile() : access.open(FileIntestazione.File());
}

void VqDocProprieta::findBodyFile(const char16_t* extension, VqDocFile& reference) const {
  const VqDocFile file{bodyFolder(), Id.get() + extension};
  if (Apartment::fileSystem().fileExists(file.File())) reference = file;
}

}  // namespace orvane
