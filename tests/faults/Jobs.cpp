#include "tests/faults/Jobs.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace orvane::test {

namespace fs = std::filesystem;

Content withoutTemporaries(Content content) {
  std::erase_if(content, [](const auto& file) { return file.first.ends_with(".tmp"); });
  return content;
}

Jobs::Jobs() {
  folder_.write(u"body.txt", "some body\n");
  {
    const auto five = make();
    five->Inizializza(u"5", folder());
    five->Proprieta.FileCorpo.Percorso = folder();
    five->Proprieta.FileCorpo.Nome = u"body.txt";
    for (const TextView id : {u"6", u"7"}) {
      const auto linked = make();
      linked->Inizializza(id, folder(), true);
      five->Collegati.Add(linked);
    }
    five->Collegati.Salva();
    make()->Inizializza(u"100", folder());
  }
  first_ = content();
}

void Jobs::release() {
  job.reset();
  other.reset();
}

void Jobs::reset() {
  release();
  for (const auto& entry : fs::directory_iterator(folder_.native())) fs::remove_all(entry.path());
  for (const auto& [name, bytes] : first_) folder_.write(fs::path(name).u16string(), bytes);
}

Content Jobs::content() const {
  Content found;
  for (const auto& entry : fs::directory_iterator(folder_.native())) {
    const std::string name = entry.path().filename().string();
    if (name == ".orvane.lock" || entry.is_directory()) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    found[name] = {std::istreambuf_iterator<char>(stream), {}};
  }
  return found;
}

std::shared_ptr<VqDocStampa> Jobs::load(TextView name) const {
  auto document = make();
  document->Carica(folder(), name);
  return document;
}

std::vector<Operation> operations() {
  const auto loadFive = [](Jobs& jobs) { jobs.job = jobs.load(u"5.vqs"); };
  const auto let = [](Jobs& jobs) { jobs.job->Copie = 9; };
  const auto loadFlushed = [](Jobs& jobs) {
    jobs.job = jobs.load(u"5.vqs");
    Apartment::profileAccess().open(jobs.job->Proprieta.FileIntestazione.File())->flushEveryWrite(true);
  };
  return {{"Let", loadFive, let},
          {"FlushedLet", loadFlushed, let, true, true},
          {"FlushedLetInPlace",
           [loadFlushed](Jobs& jobs) {
             loadFlushed(jobs);
             for (const int copies : {77'777, 8}) jobs.job->Copie = copies;
           },
           let, true, true},
          {"FlushedLets", loadFlushed,
           [](Jobs& jobs) {
             for (const int copies : {6, 77'777, 8, 9}) jobs.job->Copie = copies;
           },
           false, true},
          {"LetThroughALink",
           [](Jobs& jobs) {
             fs::rename(jobs.native("5.vqs"), jobs.native("target.vqs"));
             fs::create_symlink("target.vqs", jobs.native("5.vqs"));
             jobs.job = jobs.load(u"5.vqs");
           },
           let},
          {"QueueState", loadFive, [](Jobs& jobs) { jobs.job->Coda.Codice = vdcs_InStampa; }},
          {"Inizializza", [](Jobs& jobs) { jobs.job = jobs.make(); },
           [](Jobs& jobs) { jobs.job->Inizializza(u"8", jobs.folder()); }},
          {"Carica", [](Jobs& jobs) { jobs.job = jobs.make(); },
           [](Jobs& jobs) { jobs.job->Carica(jobs.folder(), u"5.vqs"); }},
          {"Salva",
           [](Jobs& jobs) {
             jobs.job = jobs.load(u"100.vqs");
             const auto five = jobs.load(u"5.vqs");
             jobs.job->Collegati.RemoveAll();
             for (const auto& linked : five->Collegati) jobs.job->Collegati.Add(linked);
           },
           [](Jobs& jobs) { jobs.job->Collegati.Salva(); }},
          {"Duplication",
           [](Jobs& jobs) {
             jobs.job = jobs.load(u"5.vqs");
             jobs.other = jobs.load(u"100.vqs");
           },
           [](Jobs& jobs) { jobs.factory.DuplicaDocumentoStampa(jobs.job, jobs.other); }, false, false, 4}};
}

std::size_t openDescriptors() {
  const fs::directory_iterator all("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

}  // namespace orvane::test
