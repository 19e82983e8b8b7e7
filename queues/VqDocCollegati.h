// The documents that the server handles together with a document: one design for the three kinds.
#pragma once

#include "core/Component.h"
#include "core/KeyedCollection.h"
#include "typelib/enumerations.h"

namespace orvane {

class VqDocStampa;
class VqDocFax;
class VqDocEmail;
class TransmittedFax;

/// A document whose linked documents are being loaded, and those that led to it. Raises error 28 where it is
/// one of them, or where the stack does not suffice for another level; there is no other limit.
class LoadingChain {
 public:
  /// `jobFile` must outlive it.
  explicit LoadingChain(const Text& jobFile);
  ~LoadingChain();
  LoadingChain(const LoadingChain&) = delete;
  LoadingChain& operator=(const LoadingChain&) = delete;

 private:
  const Text& jobFile_;
  const std::size_t hash_;
  const LoadingChain* const outer_;
};

/// Lets go of a linked document. However many levels of links hang on it, that takes no more stack than one.
void releaseLinked(std::shared_ptr<void> document) noexcept;

/// Section "Collegati" of the owner's job file: where each linked document's own job file lies. Only `Copie`
/// is written when it is set; the list is written by `Salva` and read when the owner is loaded, when a listed
/// file that is gone is skipped. Keys are the documents' `Proprieta.Id`. `traits` says what differs between
/// the kinds.
template <class Document, class Traits>
class LinkedDocuments : public Component {
 public:
  using Pointer = std::shared_ptr<Document>;

  LinkedDocuments() : Component(u"Collegati", u"Collegati") {}
  ~LinkedDocuments() override { RemoveAll(); }

  Copies Copie{*this, Traits::kept};

  /// Forget the documents. Their job files stay, and the list in the owner's job file too, until `Salva`.
  void RemoveAll() { documents_.drain(releaseLinked); }

  /// Append a document under its Id. Error 457 where that Id is there, 91 for no document. A document that
  /// its queue state says is deleted is silently left out, where the kind is one that does so.
  void Add(Pointer document);

  /// By position from 0, or by Id: see `CollectionKey`. Null where there is none.
  Pointer Item(const Variant& KeyDocumento) const { return documents_.find(CollectionKey(KeyDocumento)); }
  bool Exists(const Variant& KeyDocumento) const { return Item(KeyDocumento) != nullptr; }
  std::int32_t Count() const { return documents_.size(); }

  /// Write the list: "NumeroCollegati" and, for each position from 0, "Percorso" and "Nome" with the
  /// position. Entries of an earlier, longer list stay behind, past the number. All of it is one replacement
  /// of the job file.
  void Salva();

  auto begin() const { return documents_.begin(); }
  auto end() const { return documents_.end(); }

 protected:
  void LeggiFile() override;

 private:
  friend VqDocStampa;
  friend VqDocEmail;
  friend TransmittedFax;
  void addListed(ProfileAccess& access, JobFile& file, std::int32_t position);
  void keepFirst(std::int32_t count) noexcept { documents_.keepFirst(count); }

  KeyedCollection<Document> documents_;
};

/// What keeps a kind out of the collection, and whether the collection has XML.
struct PrintLinks {
  static constexpr Kept kept = Kept::JobFileAndXml;
  template <class Document>
  static bool admits(const Document&) {
    return true;
  }
};

template <auto deleted>
struct TransmittedLinks {
  static constexpr Kept kept = Kept::JobFile;
  template <class Document>
  static bool admits(const Document& document) {
    return document.Coda.Codice.get() != deleted;
  }
};

using VqDocCollegatiStampa = LinkedDocuments<VqDocStampa, PrintLinks>;
using VqDocCollegatiFax = LinkedDocuments<VqDocFax, TransmittedLinks<vdcf_Eliminato>>;
using VqDocCollegatiEmail = LinkedDocuments<VqDocEmail, TransmittedLinks<vdce_Eliminato>>;

}  // namespace orvane
