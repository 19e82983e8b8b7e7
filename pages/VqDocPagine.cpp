#include "pages/VqDocPagine.h"

#include "core/Error.h"

namespace orvane {

void VqDocPagine::ImpostaFile(const std::shared_ptr<JobFile>& file) {
  Component::ImpostaFile(file);
  bind(file, Stato);
}

void VqDocPagine::LeggiFile() {
  jobFile()->together([&] {
    Component::LeggiFile();
    load(Stato);
  });
}

void VqDocPagine::Carica(TextView PercorsoPagine) {
  LeggiFile();
  FileSystem& fileSystem = Apartment::fileSystem();
  if (!fileSystem.folderExists(PercorsoPagine)) return;
  const Text folder = fileSystem.folderPath(PercorsoPagine);
  for (Text& name : fileSystem.files(folder)) {
    if (!name.ends_with(u".dpg")) continue;
    auto page = Nuova();
    page->FileIntestazione = {folder, std::move(name)};
    page->LeggiFile();
    Add(std::move(page));
  }
}

void VqDocPagine::RemoveLast() {
  if (pages_.empty()) return;
  if (pages_.size() == 1) throw Error(ErrorNumber::InvalidCall);
  pages_.erase(pages_.end() - 2);
}

void VqDocPagine::Add(std::shared_ptr<VqDocPagina> DocPagina) {
  if (!DocPagina) throw Error(ErrorNumber::ObjectNotSet);
  DocPagina->ImpostaNumero(Count() + 1);
  pages_.push_back(std::move(DocPagina));
}

std::shared_ptr<VqDocPagina> VqDocPagine::Item(std::int32_t KeyNumeroPagina) const {
  return KeyNumeroPagina >= 1 && KeyNumeroPagina <= Count()
             ? pages_[static_cast<std::size_t>(KeyNumeroPagina - 1)]
             : nullptr;
}

}  // namespace orvane
