// The pages of a document.
#pragma once

#include <vector>

#include "pages/VqDocPagina.h"

namespace orvane {

/// Section "Pagine" of the job file; the pages themselves live in header files. It has no XML. Positions
/// count from 1.
class VqDocPagine : public Component, private Owner {
 public:
  VqDocPagine() : Component(u"Pagine", {}) {}

  /// Read limits, flag and page state from the job file, then append a page for every file of the folder
  /// whose name ends in ".dpg" (lower case only), in the order of `FileSystem::files`. Each page has the
  /// folder's own path, whatever led to it. What the collection held stays; a missing folder is no error.
  /// Error 6 for a stored number that does not fit.
  void Carica(TextView PercorsoPagine);

  /// The largest page, as the server computed it. The keys spell "Massima".
  Stored<std::int32_t> MaxAltezzaPagina{*this, u"MassimaAltezzaPagina", Kept::JobFile};
  Stored<std::int32_t> MaxLarghezzaPagina{*this, u"MassimaLarghezzaPagina", Kept::JobFile};
  Stored<std::int32_t> MaxAltezzaTeorica{*this, u"MassimaAltezzaTeorica", Kept::JobFile};
  Stored<std::int32_t> MaxAltezzaVirtuale{*this, u"MassimaAltezzaVirtuale", Kept::JobFile};
  /// The printer may make the copies itself.
  Stored<bool> CopieDelegabili{*this, u"CopieDelegabili", Kept::JobFile};

  bool Exists(std::int32_t KeyNumeroPagina) const { return Item(KeyNumeroPagina) != nullptr; }

  /// A new page, not added.
  std::shared_ptr<VqDocPagina> Nuova() const { return std::make_shared<VqDocPagina>(); }

  void RemoveAll() { pages_.clear(); }

  /// Removes the page before the last one. Clients count on it. Error 5 on a collection of one page; nothing
  /// on an empty one. The pages that stay keep their numbers.
  void RemoveLast();

  /// Number the page `Count` + 1 and append it. Error 91 for no page.
  void Add(std::shared_ptr<VqDocPagina> DocPagina);

  VqDocPagineStato Stato;

  /// The page at that position; null where there is none.
  std::shared_ptr<VqDocPagina> Item(std::int32_t KeyNumeroPagina) const;

  std::int32_t Count() const { return static_cast<std::int32_t>(pages_.size()); }

  auto begin() const { return pages_.begin(); }
  auto end() const { return pages_.end(); }

 protected:
  void ImpostaFile(const std::shared_ptr<JobFile>& file) override;
  void LeggiFile() override;

 private:
  std::vector<std::shared_ptr<VqDocPagina>> pages_;
};

}  // namespace orvane
