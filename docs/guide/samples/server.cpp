// The server of docs/guide/writing-a-server.md: takes every print job that waits, and reports what came of
// it.
#include "Sample.h"

namespace {

bool print(const orvane::VqDocStampa& stampa) { return !stampa.Stampante.get().empty(); }

void report(orvane::VqDocStampa& stampa, bool printed) {
  stampa.Proprieta.Esito.Codice = printed ? orvane::vde_Ok : orvane::vde_Fallito;
  if (!printed) stampa.Proprieta.Errore.Codice = orvane::vdec_StampanteNonInstallata;
  stampa.Coda.Codice = printed ? orvane::vdcs_Stampato : orvane::vdcs_Respinto;
}

void work(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella, const orvane::Text& nomeFile) {
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Carica(cartella, nomeFile);
  if (stampa->Coda.Codice != orvane::vdcs_DaStampare || !stampa->Coda.DataDaStampare.get().days) return;
  stampa->Coda.Codice = orvane::vdcs_InStampa;
  report(*stampa, print(*stampa));
}

void scan(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella) {
  for (const auto& file : std::filesystem::directory_iterator(cartella)) {
    if (file.path().extension() != ".vqs") continue;  // no job: locks, temporaries, linked jobs, other kinds
    try {
      work(fabbrica, cartella, file.path().filename().u16string());
    } catch (const orvane::Error& errore) {
      std::cerr << file.path() << ": " << errore.number() << ' ' << errore.what() << '\n';
    }
  }
}

orvane::Text stateOf(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella,
                     const char16_t* name) {
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Carica(cartella, name);
  return stampa->Coda.Descrizione();
}

void compose(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella, const char16_t* id,
             const char16_t* printer) {
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Inizializza(id, cartella);
  stampa->Stampante = printer;
  stampa->Coda.Codice = orvane::vdcs_DaStampare;
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("server");
  orvane::VqDocumenti fabbrica;
  compose(fabbrica, cartella, u"1", u"Laser");
  compose(fabbrica, cartella, u"2", u"");
  fabbrica.NuovoDocumentoStampa()->Inizializza(u"3", cartella);
  scan(fabbrica, cartella);
  sample::expect(stateOf(fabbrica, cartella, u"1.vqs") == u"Stampato", "a job with a printer is printed");
  sample::expect(stateOf(fabbrica, cartella, u"2.vqs") == u"Respinto", "a job without one is rejected");
  sample::expect(stateOf(fabbrica, cartella, u"3.vqs") == u"In attesa di stampa",
                 "an unfinished job is left alone");
}
