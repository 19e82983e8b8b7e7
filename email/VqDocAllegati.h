// The files attached to a document.
#pragma once

#include "core/Component.h"
#include "core/KeyedCollection.h"
#include "pages/VqDocFile.h"

namespace orvane {

/// Section "Allegati". The list lives in the object; `Salva` writes it to the job file as a whole, and
/// loading the job replaces it by the list that the file holds. The key of an attachment is its full file
/// name.
class VqDocAllegati : public Component, private Owner {
 public:
  VqDocAllegati() : Component(u"Allegati", u"Allegati") {}

  VqDocFile FilePdf;  ///< the PDF of the document itself; not one of the attachments

  /// Attach a file, whether it exists or not. False, and nothing added, for an empty name; error 457 where it
  /// is attached already.
  bool Add(TextView Percorso, TextView Nome);

  std::int32_t Count() const { return files_.size(); }

  /// By position from 0, or by full file name: see `CollectionKey`. Null where there is none.
  std::shared_ptr<VqDocFile> Item(const Variant& KeyAllegato) const {
    return files_.find(CollectionKey(KeyAllegato));
  }
  bool Exists(const Variant& KeyAllegato) const { return Item(KeyAllegato) != nullptr; }

  /// Error 9 for a position, 5 for a name that finds nothing.
  void Remove(const Variant& KeyAllegato) { files_.remove(CollectionKey(KeyAllegato)); }
  void RemoveAll() { files_.clear(); }

  /// Write the list: "PdfPercorso", "PdfNome", "NumeroAllegati" and, for each position from 0, "Percorso" and
  /// "Nome" with the position. Entries of an earlier, longer list stay behind, past the number. All of it is
  /// one replacement of the job file.
  void Salva();

  /// True where every attached file exists, so also where there is none. `FilePdf` is not looked for.
  bool VerificaEsistenzaFile() const;

  auto begin() const { return files_.begin(); }
  auto end() const { return files_.end(); }

 protected:
  void LeggiFile() override;
  void renderParts(XmlWriter& xml) const override;

 private:
  KeyedCollection<VqDocFile> files_;
};

}  // namespace orvane
