// Stands in for the output server: server_stand_in FOLDER [--once | --seconds N]
//
// Takes the jobs of all six kinds that clients queue in FOLDER through the states of their queues, one state
// at a time, and writes into them what a server writes: outcome, error, transmission record. Nothing is
// printed or sent. What fails, fails by rule: a print without a printer, a fax whose number has a sum of
// digits that three divides (the line is busy), an e-mail to nobody. With --once it ends when there is
// nothing left to do, with
// --seconds after that time, else never.
#include <orvane.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kPause{20};
constexpr std::int32_t kMostAttempts = 3;

// The queue of one kind of job. The states up to the end are entered in the order of their codes.
template <class Document>
struct Channel {
  using Coda = decltype(Document::Coda);
  using State = typename decltype(Coda::Codice)::Value;

  const char* extension;
  std::shared_ptr<Document> (orvane::VqDocumenti::*make)() const;
  orvane::QueueDate Coda::*queued;  // set once the client has entered state 0
  State working;                    // the state in which the job is worked on
  State done;
  State refused;
};

// ---- the work: each writes what its channel reports, and returns the error that stopped it ----

orvane::enmVqDocErrore work(orvane::VqDocStampa& stampa) {
  return stampa.Stampante.get().empty() ? orvane::vdec_StampanteNonInstallata : orvane::vdec_Nessuno;
}

bool isBusy(const orvane::Text& number) {
  const int sum = std::accumulate(number.begin(), number.end(), 0, [](int total, char16_t unit) {
    return total + (unit >= u'0' && unit <= u'9' ? unit - u'0' : 0);
  });
  return sum % 3 == 0;
}

orvane::enmVqDocErrore work(orvane::TransmittedFax& fax) {
  const bool busy = isBusy(fax.NumeroFax.Numero);
  fax.Trasmissione.OraInizio = orvane::Apartment::now();
  fax.Trasmissione.Tentativi = busy ? kMostAttempts : 1;
  fax.Trasmissione.TrasmessoConECM = !busy;
  fax.Trasmissione.TRMStatus.Codice = busy ? orvane::vdftstrms_BUSY : orvane::vdftstrms_NORMAL;
  fax.Trasmissione.Errore.Codice = busy ? orvane::vdftec_FER_BUSY : orvane::vdftec_NoErrors;
  fax.Trasmissione.OraFine = orvane::Apartment::now();
  return busy ? orvane::vdec_Trasmissione : orvane::vdec_Nessuno;
}

orvane::enmVqDocErrore work(orvane::VqDocEmail& email) {
  const bool toNobody = email.A.IndirizziEmail.get().empty();
  email.Trasmissione.Tentativi = toNobody ? kMostAttempts : 1;
  return toNobody ? orvane::vdec_Trasmissione : orvane::vdec_Nessuno;
}

orvane::enmVqDocErrore work(const orvane::WrappingDocument&) { return orvane::vdec_Nessuno; }

// ---- one step of one job ----

orvane::VqDocProprieta& propertiesOf(orvane::Document& document) { return document.Proprieta; }
orvane::VqDocProprieta& propertiesOf(const orvane::WrappingDocument& document) {
  return document.Proprieta();
}

// True where the work went well. A client that sees the state of the end finds outcome and error written.
template <class Document>
bool workAndReport(Document& document) {
  const orvane::enmVqDocErrore error = work(document);
  orvane::VqDocProprieta& properties = propertiesOf(document);
  properties.TentativiElaborazione = 1;
  properties.Errore.Codice = error;
  properties.Esito.Codice = error == orvane::vdec_Nessuno ? orvane::vde_Ok : orvane::vde_Fallito;
  return error == orvane::vdec_Nessuno;
}

// A job that is finished, discarded, deleted or waits for its client is none of ours; nor is one in state 0
// that nobody has entered yet: its client is still composing it.
template <class Document>
bool isOurs(const Channel<Document>& channel, const Document& document) {
  const auto state = document.Coda.Codice.get();
  return state >= 0 && state < channel.done && (state > 0 || (document.Coda.*channel.queued).get().days != 0);
}

// Loads the job, because its client may have written it since the last step, and enters its next state. False
// where it has none.
template <class Document>
bool step(const orvane::VqDocumenti& factory, const Channel<Document>& channel, const fs::path& job) {
  const auto document = (factory.*channel.make)();
  document->Carica(job.parent_path().u16string(), job.filename().u16string());
  if (!isOurs(channel, *document)) return false;
  const auto state = document->Coda.Codice.get();
  const bool refused = state == channel.working && !workAndReport(*document);
  document->Coda.Codice = refused ? channel.refused : state + 1;
  std::cout << job.filename().string() << ": " << orvane::toUtf8(document->Coda.Descrizione()) << std::endl;
  return true;
}

// ---- the folder ----

// Taken at once, because the folder changes while its jobs are worked on.
std::vector<fs::path> filesOf(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
  return files;
}

// True where a job has moved. A job that cannot be worked on does not keep the others waiting.
template <class Document>
bool stepAll(const orvane::VqDocumenti& factory, const Channel<Document>& channel,
             const std::vector<fs::path>& files) {
  bool moved = false;
  for (const auto& file : files) {
    if (file.extension() != channel.extension) continue;
    try {
      moved |= step(factory, channel, file);
    } catch (const orvane::Error& error) {
      std::cerr << file.string() << ": " << error.what() << " (" << error.number() << ")\n";
    }
  }
  return moved;
}

bool stepFolder(const orvane::VqDocumenti& factory, const fs::path& folder) {
  using namespace orvane;
  static const Channel<VqDocStampa> prints{".vqs",
                                           &VqDocumenti::NuovoDocumentoStampa,
                                           &VqDocCodaStampa::DataDaStampare,
                                           vdcs_InStampa,
                                           vdcs_Stampato,
                                           vdcs_Respinto};
  static const Channel<VqDocFax> faxes{".vqf",
                                       &VqDocumenti::NuovoDocumentoFax,
                                       &VqDocCodaFax::DataDaConvertire,
                                       vdcf_InTrasmissione,
                                       vdcf_Trasmesso,
                                       vdcf_Respinto};
  static const Channel<VqDocPFax> printerFaxes{".vqpf",
                                               &VqDocumenti::NuovoDocumentoPFax,
                                               &VqDocCodaPFax::DataDaStampare,
                                               vdcpf_InStampa,
                                               vdcpf_Stampato,
                                               vdcpf_Respinto};
  static const Channel<VqDocEmail> emails{".vqe",
                                          &VqDocumenti::NuovoDocumentoEmail,
                                          &VqDocCodaEmail::DataDaConvertire,
                                          vdce_InTrasmissione,
                                          vdce_Trasmesso,
                                          vdce_Respinto};
  static const Channel<VqDocPbl> publications{".vqpb",
                                              &VqDocumenti::NuovoDocumentoPbl,
                                              &VqDocCodaPbl::DataDaConvertire,
                                              vdcp_InPubblicazione,
                                              vdcp_Pubblicato,
                                              vdcp_Respinto};
  static const Channel<VqDocAnteprima> previews{".vqa",
                                                &VqDocumenti::NuovoDocumentoAnteprima,
                                                &VqDocCodaAnteprima::DataDaGenerare,
                                                vdca_InGenerazione,
                                                vdca_Generato,
                                                vdca_Respinto};
  const auto files = filesOf(folder);
  const auto all = [&](const auto&... channel) { return (stepAll(factory, channel, files) | ...); };
  return all(prints, faxes, printerFaxes, emails, publications, previews);
}

struct Options {
  fs::path folder;
  bool once = false;
  std::chrono::seconds duration = std::chrono::hours(24 * 365);
};

[[noreturn]] void refuseOptions() {
  throw std::invalid_argument("usage: server_stand_in FOLDER [--once | --seconds N]");
}

std::chrono::seconds secondsOf(const std::string& word) {
  const bool isNumber = !word.empty() && word.size() < 9 && word.find_first_not_of("0123456789") == word.npos;
  if (!isNumber) refuseOptions();
  return std::chrono::seconds(std::stoi(word));
}

Options optionsOf(const std::vector<std::string>& words) {
  if (words.size() == 1) return {words[0]};
  if (words.size() == 2 && words[1] == "--once") return {words[0], true};
  if (words.size() == 3 && words[1] == "--seconds") return {words[0], false, secondsOf(words[2])};
  refuseOptions();
}

void serve(const Options& options) {
  const orvane::VqDocumenti factory;
  const fs::path folder = fs::absolute(options.folder);
  const auto end = std::chrono::steady_clock::now() + options.duration;
  while (stepFolder(factory, folder) || !options.once) {
    if (std::chrono::steady_clock::now() >= end) return;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    serve(optionsOf({arguments + 1, arguments + count}));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "server_stand_in: " << error.what() << '\n';
  }
  return 1;
}
