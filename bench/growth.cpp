// What grows with what is there: reading a folder of pages, making one more job in a folder of jobs, loading
// a list of attachments.
#include <unistd.h>

#include "bench/Bench.h"

namespace orvane::bench {

namespace {

Text number(int value) { return fromUtf8(std::to_string(value)); }

void addPages(int count) {
  add("growth/pages/" + std::to_string(count), [count](benchmark::State& state) {
    const VqDocumenti factory;
    const Folder folder(Place::Memory);
    VqDocPagina page;
    for (int i = 0; i < count; ++i) {
      page.FileIntestazione = {folder.published(), u"pagina" + number(100000 + i) + u".dpg"};
      page.Salva();
    }
    Watch watch(state);
    for (auto _ : state) {
      VqDocPagine pages;
      watch.time([&] { pages.Carica(folder.published()); });
      require(pages.Count() == count, "every page is read");
    }
  });
}

void addJobsThere(int count) {
  add("growth/jobs there/" + std::to_string(count), [count](benchmark::State& state) {
    const VqDocumenti factory;
    const Folder folder(Place::Disk);
    for (int i = 0; i < count; ++i) writeFile(folder.path("lavoro" + std::to_string(i) + ".vqf"), "\xFF\xFE");
    ::sync();                                      // what is made now need not wait for what was made before
    std::vector<std::shared_ptr<VqDocFax>> faxes;  // released in the end: what counts is the making
    Watch watch(state);
    for (auto _ : state) {
      faxes.push_back(factory.NuovoDocumentoFax());
      const Text id = u"nuovo" + number(static_cast<int>(faxes.size()));
      watch.time([&] { faxes.back()->Inizializza(id, folder.published()); });
    }
  })->Iterations(200);
}

void addAttachments(int count) {
  add("growth/attachments/" + std::to_string(count), [count](benchmark::State& state) {
    const VqDocumenti factory;
    const Folder folder(Place::Memory);
    fullFax(factory, folder.published(), u"1", count);
    Watch watch(state);
    for (auto _ : state) {
      const auto fax = factory.NuovoDocumentoFax();
      watch.time([&] { fax->Carica(folder.published(), u"1.vqf"); });
      require(fax->Allegati.Count() == count, "every attachment is read");
    }
  });
}

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  for (const int count : {10, 100, 1000, 10000}) addPages(count);
  for (const int count : {10, 100, 1000, 10000, 100000}) addJobsThere(count);
  for (const int count : {10, 100, 1000, 10000}) addAttachments(count);
  return run(argc, argv);
}
