// The program of docs/guide/first-job.md: make a print job, load it again, read what the server says.
#include "Sample.h"

namespace {

void compose(const orvane::Text& cartella) {
  orvane::VqDocumenti fabbrica;
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Inizializza(u"123", cartella);
  stampa->Stampante = u"Laser";
  stampa->Copie = 2;
  stampa->Dimensione.Codice = orvane::vdd_A4;
  stampa->Proprieta.Utente = u"mrossi";
  stampa->Coda.Codice = orvane::vdcs_DaStampare;
}

orvane::Text lookAgain(const orvane::Text& cartella) {
  orvane::VqDocumenti fabbrica;
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Carica(cartella, u"123.vqs");
  std::cout << orvane::toUtf8(stampa->Coda.Descrizione()) << '\n';
  if (stampa->Proprieta.Errore.Codice != orvane::vdec_Nessuno)
    std::cout << orvane::toUtf8(stampa->Proprieta.Errore.Descrizione.get()) << '\n';
  return stampa->Coda.Descrizione();
}

int tellFailure(const orvane::Text& cartella) {
  orvane::VqDocumenti fabbrica;
  auto stampa = fabbrica.NuovoDocumentoStampa();
  try {
    stampa->Carica(cartella, u"manca.vqs");
  } catch (const orvane::Error& errore) {
    std::cerr << errore.number() << ": " << errore.what() << '\n';  // 53: File not found
    return errore.number();
  }
  return 0;
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("first_job");
  compose(cartella);
  sample::expect(lookAgain(cartella) == u"In attesa di stampa", "the job waits to be printed");
  sample::expect(tellFailure(cartella) == 53, "a job that is missing is error 53");
}
