// The samples of docs/guide/email.md.
#include "Sample.h"

namespace {

void compose(orvane::VqDocEmail& email) {
  email.Oggetto = u"Fattura n. 12";
  email.Account.NomeVisualizzato = u"Amministrazione";
  email.Account.IndirizzoEmail = u"amministrazione@example.com";
  email.Account.Smtp.MailServer = u"mail.example.com";
  email.Account.Smtp.MailPort = 587;  // starts at 0, not at a standard port
  email.Account.Smtp.Autenticazione.Codice = orvane::vdsmtpa_AutoLogin;
  email.A.NomiVisualizzati = u"Anna Verdi";
  email.A.IndirizziEmail = u"anna.verdi@example.com";
  email.Ccn.IndirizziEmail = u"archivio@example.com";
  email.Messaggio.Nota(0) = u"Gentile cliente,";
  email.Messaggio.Nota(1) = u"in allegato la fattura.";
}

void attach(orvane::VqDocEmail& email, const orvane::Text& cartella) {
  email.Allegati.FilePdf.Percorso = cartella;
  email.Allegati.FilePdf.Nome = u"fattura.pdf";
  email.Allegati.Add(cartella, u"condizioni.pdf");
  email.Allegati.Salva();  // until now the job file has none of them
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("email");
  orvane::VqDocumenti fabbrica;
  auto email = fabbrica.NuovoDocumentoEmail();
  email->Inizializza(u"77", cartella);
  compose(*email);
  attach(*email, cartella);
  email->Coda.Codice = orvane::vdce_DaTrasmettere;

  auto letta = fabbrica.NuovoDocumentoEmail();
  letta->Carica(cartella, u"77.vqe");
  sample::expect(letta->Allegati.Count() == 1, "one file is attached");
  sample::expect(!letta->Allegati.VerificaEsistenzaFile(), "the attached file is missing");
  sample::expect(letta->Messaggio.Nota(1) == u"in allegato la fattura.", "the message comes back");
}
