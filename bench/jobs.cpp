// Whole jobs: compose a typical fax, load it back; one and two processes on one folder and on two.
#include <sys/wait.h>
#include <unistd.h>

#include "bench/Bench.h"

namespace orvane::bench {

namespace {

constexpr int kJobs = 50;  // a process and run
constexpr int kRuns = 4;

void compose(const VqDocumenti& factory, const Text& folder, const Text& id) {
  const auto fax = factory.NuovoDocumentoFax();
  fax->Inizializza(id, folder);
  VqDocProprieta& properties = fax->Proprieta;
  const Date today{45678.5};
  properties.Versione = u"1.0", properties.Sigla = u"FAT", properties.DittaOrigine = u"Rossi Spa";
  properties.DittaDestinazione = u"Bianchi Srl", properties.Data = today, properties.DataOriginale = today;
  properties.Descrizione = u"Fattura 123", properties.Utente = u"mrossi",
  properties.UtenteDescrizione = u"M. Rossi";
  properties.Ip = u"192.168.1.2", properties.Priorita = 3, properties.Lingua.Codice = 0;
  fax->NumeroFax.PrefissoInternazionale = u"0039", fax->NumeroFax.PrefissoLocale = u"06";
  fax->NumeroFax.Numero = u"612345", fax->Oggetto = u"Fattura", fax->Mittente = u"Rossi",
  fax->Destinatario = u"Bianchi";
  fax->SocietaDestinataria = u"Bianchi Srl", fax->CodiceSocietaDestinataria = u"B12";
  fax->Trasmissione.OraRichiestaInizio = today, fax->Trasmissione.OraRichiestaFine = today;
  fax->Frontespizio.Inviare = true, fax->Frontespizio.Nota(0) = u"Buongiorno,",
  fax->Frontespizio.Nota(1) = u"segue";
  fax->Cedolino.Stampare = true, fax->Cedolino.Stampante = u"Laser",
  fax->Account.IndirizzoEmail = u"m@rossi.it";
  fax->Orientamento.Codice = 0, fax->Coda.DataInserimento = today;
  fax->Allegati.Add(folder, u"uno.pdf"), fax->Allegati.Add(folder, u"due.pdf");
  fax->Allegati.Salva();
  fax->Coda.Codice = vdcf_DaTrasmettere;
  benchmark::DoNotOptimize(fax->Xml());
}

void loadBack(const VqDocumenti& factory, const Text& folder, const Text& id) {
  const auto fax = factory.NuovoDocumentoFax();
  fax->Carica(folder, id + u".vqf");
  require(fax->Allegati.Count() == 2 && fax->Oggetto == u"Fattura", "the job comes back");
}

void work(const Text& folder, int process, int run) {
  const VqDocumenti factory;
  for (int job = 0; job < kJobs; ++job) {
    const Text id = fromUtf8(std::to_string(process) + "-" + std::to_string(run) + "-" + std::to_string(job));
    compose(factory, folder, id);
    loadBack(factory, folder, id);
  }
}

// Each process is a new one, and each has begun when the clock starts.
class Worker {
 public:
  Worker(const Text& folder, int process, int run) {
    require(::pipe(start_) == 0, "a pipe");
    child_ = ::fork();
    if (child_ != 0) return;
    char go;
    const bool told = ::read(start_[0], &go, 1) == 1;
    if (told) work(folder, process, run);
    ::_exit(told ? 0 : 1);
  }
  void start() const { require(::write(start_[1], "g", 1) == 1, "the start"); }
  void wait() const {
    int status = 0;
    require(::waitpid(child_, &status, 0) == child_ && status == 0, "all jobs are done");
    ::close(start_[0]), ::close(start_[1]);
  }

 private:
  int start_[2];
  pid_t child_;
};

void addJobs(Place place, int processes, int folders) {
  const std::string name = "jobs/" + fileSystemOf(place) + "/" + std::to_string(processes) + " processes, " +
                           std::to_string(folders) + " folders";
  add(name, [=](benchmark::State& state) {
    const Folder made[2] = {Folder(place), Folder(place)};
    int run = 0;
    for (auto _ : state) {
      std::vector<Worker> workers;
      for (int p = 0; p < processes; ++p) workers.emplace_back(made[p % folders].published(), p, run);
      ++run;
      const auto begin = std::chrono::steady_clock::now();
      for (const Worker& worker : workers) worker.start();
      for (const Worker& worker : workers) worker.wait();
      state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    state.SetItemsProcessed(state.iterations() * processes * kJobs);
  })->Iterations(kRuns);
}

}  // namespace

}  // namespace orvane::bench

int main(int argc, char** argv) {
  using namespace orvane::bench;
  for (const Place place : kPlaces) {
    addJobs(place, 1, 1);
    addJobs(place, 2, 1);
    addJobs(place, 2, 2);
  }
  return run(argc, argv);
}
