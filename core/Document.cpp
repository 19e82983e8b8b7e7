#include "core/Document.h"

#include "core/Error.h"
#include "core/Paths.h"

namespace orvane {

void checkBinding(bool initialised, TextView folder) {
  if (initialised) throw Error(ErrorNumber::NotSupportedAction);
  if (folder.empty() || !Apartment::fileSystem().folderExists(folder)) throw Error(ErrorNumber::PathNotFound);
}

void checkLoading(bool initialised, TextView folder, TextView fileName) {
  const auto isThere = [&] {
    return !fileName.empty() && Apartment::fileSystem().fileExists(joinPath(folder, fileName));
  };
  // What is in a folder shows that the folder is there, unless the name leads out of it.
  const bool shows = !initialised && !folder.empty() && fileName.find_first_of(u"\\/") == TextView::npos;
  if (shows && isThere()) return;
  checkBinding(initialised, folder);
  if (shows || !isThere()) throw Error(ErrorNumber::FileNotFound);
}

void Document::Inizializza(TextView Id, TextView PercorsoDocumenti, bool Collegato) {
  InizializzaDocumento(Id, PercorsoDocumenti, {}, Collegato);
}

void Document::InizializzaDocumento(TextView id, TextView folder, TextView fileName, bool linked) {
  checkBinding(Inizializzato, folder);
  const Text own = Text(id) + (linked ? kind_.linkedExtension : kind_.extension);
  file_ = bindHeader(folder, fileName.empty() ? own : fileName);
  file_->together([&] {
    bind(file_, Proprieta);
    Proprieta.ImpostaId(id);
    Proprieta.Tipo.Codice = kind_.type;
    bindComponents(file_);
    bind(file_, Pagine);
    initialised();
  });
  Inizializzato = true;
}

void Document::Carica(TextView Percorso, TextView NomeFile) {
  checkLoading(Inizializzato, Percorso, NomeFile);
  file_ = bindHeader(Percorso, NomeFile);
  file_->together([&] {
    bindAndLoad(file_, Proprieta);
    loadFields(*file_);
    loadComponents(file_);
    bind(file_, Pagine);
  });
  Inizializzato = true;
}

std::shared_ptr<JobFile> Document::bindHeader(TextView folder, TextView fileName) {
  Proprieta.FileIntestazione = {Text(folder), Text(fileName)};
  return Apartment::profileAccess().open(Proprieta.FileIntestazione.File());
}

Text Document::Xml() const {
  XmlWriter xml;
  NodoXml(xml);
  return xml.result();
}

void Document::NodoXml(XmlWriter& xml) const {
  xml.begin(kind_.element);
  xml.text(kind_.className);
  renderFields(xml);
  renderComponents(xml);
  xml.end(kind_.element);
}

}  // namespace orvane
