// The samples of docs/guide/publication-preview.md.
#include "Sample.h"

namespace {

void preview(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella) {
  auto anteprima = fabbrica.NuovoDocumentoAnteprima();
  anteprima->Inizializza(u"9", orvane::vdt_Email, cartella);  // 9.vqa
  auto email = std::get<std::shared_ptr<orvane::VqDocEmail>>(anteprima->Documento());
  email->Oggetto = u"Saluti";
  anteprima->Proprieta().Utente = u"mrossi";  // the inner document's properties
  anteprima->Coda.Codice = orvane::vdca_DaGenerare;
}

void publication(const orvane::VqDocumenti& fabbrica, const orvane::Text& cartella) {
  auto pubblicazione = fabbrica.NuovoDocumentoPbl();
  pubblicazione->Inizializza(u"10", orvane::vdt_Stampa, cartella);  // 10.vqpb
  pubblicazione->Pubblicazione.FilePbl.Percorso = cartella;
  pubblicazione->Pubblicazione.FilePbl.Nome = u"listino.pdf";
  pubblicazione->Pubblicazione.Salva();
  pubblicazione->Coda.Codice = orvane::vdcp_DaConvertire;
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("publication_preview");
  orvane::VqDocumenti fabbrica;
  preview(fabbrica, cartella);
  publication(fabbrica, cartella);

  auto anteprima = fabbrica.NuovoDocumentoAnteprima();
  anteprima->Carica(cartella, u"9.vqa");
  sample::expect(std::get<std::shared_ptr<orvane::VqDocEmail>>(anteprima->Documento())->Oggetto == u"Saluti",
                 "the preview loads the e-mail in it");
  auto pubblicazione = fabbrica.NuovoDocumentoPbl();
  pubblicazione->Carica(cartella, u"10.vqpb");
  sample::expect(pubblicazione->Pubblicazione.FilePbl.Nome == u"listino.pdf", "the file to publish is kept");
}
