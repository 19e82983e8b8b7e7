// The samples of docs/guide/fax.md.
#include "Sample.h"

namespace {

void compose(orvane::VqDocFax& fax) {
  fax.NumeroFax.PrefissoInternazionale = u"39";
  fax.NumeroFax.PrefissoLocale = u"06";
  fax.NumeroFax.Numero = u"1234567";  // NumeroFax.NumeroEsteso() is now 39-06-1234567
  fax.Oggetto = u"Offerta n. 12";
  fax.Destinatario = u"Anna Verdi";
  fax.SocietaDestinataria = u"Verdi S.p.A.";
  fax.Frontespizio.Inviare = true;
  fax.Frontespizio.Nota(0) = u"Gentile cliente,";
  fax.Trasmissione.Risoluzione.Codice = orvane::vdftr_196;
  fax.Coda.Codice = orvane::vdcf_DaConvertire;
}

void outcome(const orvane::VqDocFax& fax) {
  std::cout << orvane::toUtf8(fax.Coda.Descrizione()) << ", " << fax.Trasmissione.Tentativi.get()
            << " attempts\n"
            << orvane::toUtf8(fax.Trasmissione.TRMStatus.Descrizione()) << '\n'
            << orvane::toUtf8(fax.Trasmissione.Errore.Descrizione()) << '\n';
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("fax");
  orvane::VqDocumenti fabbrica;
  auto fax = fabbrica.NuovoDocumentoFax();
  fax->Inizializza(u"55", cartella);
  compose(*fax);

  auto letto = fabbrica.NuovoDocumentoFax();
  letto->Carica(cartella, u"55.vqf");
  outcome(*letto);
  sample::expect(letto->NumeroFax.NumeroEsteso() == u"39-06-1234567", "the number is composed of its parts");
  sample::expect(letto->Dimensione.Codice == orvane::vdd_A4, "a fax is A4");
}
