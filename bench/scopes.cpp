// How often a job file is replaced by the operations that touch many keys, counted by the kernel, and their
// time.
#include <sys/inotify.h>
#include <unistd.h>

#include "bench/Bench.h"

namespace orvane::bench {

namespace {

// Names that files of a folder have been renamed to since the last call.
class Replaced {
 public:
  explicit Replaced(const std::string& folder) : watch_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    require(::inotify_add_watch(watch_, folder.c_str(), IN_MOVED_TO) >= 0, "a watch on " + folder);
  }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;
  ~Replaced() { ::close(watch_); }

  std::map<std::string, int> take() const {
    std::map<std::string, int> counts;
    alignas(inotify_event) char buffer[65536];
    for (ssize_t got; (got = ::read(watch_, buffer, sizeof buffer)) > 0;) {
      for (ssize_t at = 0; at < got;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        ++counts[event->name];
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      }
    }
    return counts;
  }

 private:
  int watch_;
};

struct Jobs {
  Jobs() : fax(fullFax(factory, folder.published(), u"fax")), print(factory.NuovoDocumentoStampa()) {
    print->Inizializza(u"stampa", folder.published());
    for (const char16_t* id : {u"a", u"b"}) {
      auto linked = factory.NuovoDocumentoStampa();
      linked->Inizializza(id, folder.published(), true);
      linked->Stampante = u"Laser";
      print->Collegati.Add(linked);
    }
    print->Collegati.Salva();
  }

  void changeState() {
    fax->Coda.Codice = fax->Coda.Codice == vdcf_InStampa ? vdcf_DaStampare : vdcf_InStampa;
  }

  // Another attachment each time, of a hundred.
  void save() {
    fax->Allegati.RemoveAll();
    fax->Allegati.Add(folder.published(), u"allegato" + fromUtf8(std::to_string(++saved % 100)));
    fax->Allegati.Salva();
  }

  // The destination is bound before: what counts is the duplication.
  void duplicate(benchmark::State& state, Watch& watch, const Replaced& replaced) {
    const auto copy = factory.NuovoDocumentoStampa();
    copy->Inizializza(u"copia" + fromUtf8(std::to_string(++copies)), folder.published());
    replaced.take();
    watch.time([&] { factory.DuplicaDocumentoStampa(print, copy); });
    report(state, replaced.take(), 3);
    require(copy->Collegati.Count() == 2, "both linked jobs are duplicated");
  }

  static void report(benchmark::State& state, const std::map<std::string, int>& counts, std::size_t files) {
    require(counts.size() == files, std::to_string(files) + " job files are replaced");
    for (const auto& [name, count] : counts) require(count == 1, name + " is replaced once");
    state.counters["files"] = static_cast<double>(files);
    state.counters["replaces"] = static_cast<double>(counts.size());
  }

  VqDocumenti factory;
  Folder folder{Place::Memory};
  std::shared_ptr<VqDocFax> fax;
  std::shared_ptr<VqDocStampa> print;
  int saved = 0;
  int copies = 0;
};

template <class Work>
void addScope(const std::string& name, Jobs& jobs, Work work) {
  add("scopes/" + name, [&jobs, work](benchmark::State& state) {
    const Replaced replaced(jobs.folder.path("."));
    work(jobs);
    Jobs::report(state, replaced.take(), 1);
    Watch watch(state);
    for (auto _ : state) watch.time([&] { work(jobs); });
  });
}

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  Jobs jobs;
  addScope("queue state", jobs, [](Jobs& j) { j.changeState(); });
  addScope("Salva", jobs, [](Jobs& j) { j.save(); });
  add("scopes/duplication with 2 linked jobs", [&](benchmark::State& state) {
    const Replaced replaced(jobs.folder.path("."));
    Watch watch(state);
    for (auto _ : state) jobs.duplicate(state, watch, replaced);
  });
  return run(argc, argv);
}
