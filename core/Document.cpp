#include "core/Document.h"

#include "core/Error.h"
#include "core/Paths.h"

namespace orvane {

void checkBinding(bool initialised, TextView folder) {
  if (initialised) throw Error(ErrorNumber::NotSupportedAction);
  if (folder.empty() || !Apartment::fileSystem().folderExists(folder)) throw Error(ErrorNumber::PathNotFound);
}

std::shared_ptr<JobFile> fileToLoad(bool initialised, TextView folder, TextView fileName) {
  // What is in a folder shows that the folder is there, unless the name leads out of it.
  const bool shows = !fileName.empty() && fileName.find_first_of(u"\\/") == TextView::npos;
  if (!shows || initialised || folder.empty()) checkBinding(initialised, folder);
  if (fileName.empty()) throw Error(ErrorNumber::FileNotFound);
  return Apartment::profileAccess().probe(joinPath(folder, fileName));
}

void checkPresent(JobFile& file, TextView folder) {
  const FileSystem& fileSystem = Apartment::fileSystem();
  try {
    if (file.exists()) return;
  } catch (const Error&) {
    // Reading raises it again, unless it is, say, a folder of that name.
    if (fileSystem.fileExists(file.fullName())) return;
  }
  checkBinding(false, folder);
  throw Error(ErrorNumber::FileNotFound);
}

void Document::Inizializza(TextView Id, TextView PercorsoDocumenti, bool Collegato) {
  InizializzaDocumento(Id, PercorsoDocumenti, {}, Collegato);
}

void Document::InizializzaDocumento(TextView id, TextView folder, TextView fileName, bool linked) {
  checkBinding(Inizializzato, folder);
  const Text identity(id);  // which may be a text of this very document
  const Text own = identity + (linked ? kind_.linkedExtension : kind_.extension);
  Proprieta.FileIntestazione = {Text(folder), fileName.empty() ? own : Text(fileName)};
  file_ = Apartment::profileAccess().open(Proprieta.FileIntestazione.File());
  file_->together([&] {
    bind(file_, Proprieta);
    Proprieta.ImpostaId(identity);
    Proprieta.Tipo.Codice = kind_.type;
    bindComponents(file_);
    bind(file_, Pagine);
    initialised();
  });
  Inizializzato = true;
}

void Document::Carica(TextView Percorso, TextView NomeFile) {
  const std::int32_t before = links();
  try {
    loading(Inizializzato, Percorso, NomeFile, [&](const std::shared_ptr<JobFile>& file) {
      Proprieta.FileIntestazione = {Text(Percorso), Text(NomeFile)};
      file_ = file;
      bindAndLoad(file_, Proprieta);
      loadFields(*file_);
      loadComponents(file_);
    });
  } catch (...) {
    keepLinks(before);
    throw;
  }
  Inizializzato = true;
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
