// What all documents do alike: bind to a job file, load from one, render themselves.
#pragma once

#include "core/VqDocProprieta.h"
#include "pages/VqDocPagine.h"

namespace orvane {

/// What one kind of document is called.
struct DocumentKind {
  enmVqDocTipo type;
  Name section;                     ///< of the document's own values in the job file
  TextView element;                 ///< root of its XML
  TextView className;               ///< the text of the root
  const char16_t* extension;        ///< of a job of its own
  const char16_t* linkedExtension;  ///< of a job that is linked to another
};

/// A document owns its components for its whole life. It is new until `Inizializza` or `Carica` binds it,
/// once, to its job file; before, its members work and nothing is written. When a document is released, a job
/// file that it changed is flushed to the device. All members are used on the thread whose factory made the
/// document.
class Document : public Fields, protected Owner {
 public:
  VqDocPagine Pagine;
  VqDocProprieta Proprieta;
  ReadOnly<bool, Document> Inizializzato;  ///< bound to a job file

  /// Bind to the job file `Id` with the kind's extension (the linked one where `Collegato`) in an existing
  /// folder, and write identity and kind into it. Error 445 where bound already, 76 where the folder is empty
  /// or missing; then nothing changes. Where the job file may not be written (error 70) `Id` has its new
  /// value and `Proprieta` alone is bound; on a full device (61), which shows only when all is written, all
  /// components are. Either way the document is not initialised, and can be bound elsewhere.
  void Inizializza(TextView Id, TextView PercorsoDocumenti, bool Collegato = false);

  /// Bind to an existing job file and read everything back, from one reading of the file. Error 445 where
  /// bound already, 76 where the folder is empty or missing, 53 where the file is, 28 where its linked
  /// documents lead back to it or are too many levels deep for the stack. After an error what had been read
  /// stays, but for linked documents that it added, and it can be tried again, with this file or another.
  void Carica(TextView Percorso, TextView NomeFile);

  /// The document as XML text, without a line break at its end. Changes nothing, in any state.
  Text Xml() const;

  const DocumentKind& kind() const { return kind_; }

 protected:
  explicit Document(const DocumentKind& kind) : Fields(kind.section), kind_(kind) {}

  /// The components of the kind, in the order of binding, of loading and of the XML. `Pagine` come last, in
  /// binding by the base; what loading reads of them is the kind's to say.
  virtual void bindComponents(const std::shared_ptr<JobFile>& file) = 0;
  virtual void loadComponents(const std::shared_ptr<JobFile>& file) = 0;
  virtual void renderComponents(XmlWriter& xml) const = 0;

  /// How many linked documents there are; and takes those behind the first `count` out.
  virtual std::int32_t links() const = 0;
  virtual void keepLinks(std::int32_t count) noexcept = 0;

  /// What a kind does once `Inizializza` has bound its components.
  virtual void initialised() {}

  /// The document's own values go to the file that `Proprieta.FileIntestazione` names at the time of the
  /// call.
  std::shared_ptr<JobFile> jobFile() const override { return Proprieta.headerFile(); }

 private:
  friend class WrappingDocument;
  friend class VqDocumenti;
  void InizializzaDocumento(TextView id, TextView folder, TextView fileName, bool linked);
  void NodoXml(XmlWriter& xml) const;

  const DocumentKind& kind_;
  // Held for life, so that the kept image of the file lives as long.
  std::shared_ptr<JobFile> file_ = ProfileAccess::noFile();
};

/// The checks that every binding begins with: error 445 where bound, 76 where the folder is empty or missing.
void checkBinding(bool initialised, TextView folder);

/// The checks of loading before the disk is looked at, and the job file to look at: error 445 where bound, 76
/// where the folder is empty, 53 where the name is.
std::shared_ptr<JobFile> fileToLoad(bool initialised, TextView folder, TextView fileName);

/// The checks by that look: error 76 where the folder is missing, 53 where the file is.
void checkPresent(JobFile& file, TextView folder);

/// Does `work` with the job file to load, behind all checks and on the same look at the disk.
template <class Work>
decltype(auto) loading(bool initialised, TextView folder, TextView fileName, Work&& work) {
  const auto file = fileToLoad(initialised, folder, fileName);
  return file->together([&] {
    checkPresent(*file, folder);
    Apartment::profileAccess().keep(file);
    return work(file);
  });
}

}  // namespace orvane
