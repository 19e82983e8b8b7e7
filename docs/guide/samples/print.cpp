// The samples of docs/guide/print.md.
#include "Sample.h"

namespace {

void options(orvane::VqDocStampa& stampa) {
  stampa.Stampante = u"Laser";
  stampa.Copie = 2;
  stampa.Dimensione.Codice = orvane::vdd_A4;
  stampa.Orientamento.Codice = orvane::vdo_Orizzontale;
  stampa.Alimentazione.Codice = orvane::vda_CassettoSuperiore;
  stampa.FronteRetro.Codice = orvane::vdfr_Verticale;
  stampa.Fascicolazione.Codice = orvane::vdf_Fascicolato;
  stampa.Pinzatura.Codice = orvane::vdpnz_Singola;
  stampa.LayoutPagina.AdattaAllaPagina = false;
}

void printers(orvane::VqDocStampa& stampa) {
  stampa.StampanteOrigine = u"Ufficio 1";
  stampa.StampanteAlternativa = u"Ufficio 2";  // the job file now has StampanteAlternativa=Ufficio 1
}

void pages(orvane::VqDocStampa& stampa, const orvane::Text& cartellaPagine) {
  auto pagina = stampa.Pagine.Nuova();
  pagina->FileIntestazione.Percorso = cartellaPagine;
  pagina->FileIntestazione.Nome = u"p001.dpg";
  pagina->Tipo = orvane::vdpt_Fronte;
  pagina->RighePagina = 66;
  pagina->Salva();            // writes p001.dpg
  stampa.Pagine.Add(pagina);  // numbers it: 1
  stampa.Pagine.Stato.Codice = orvane::vdps_DaScomporre;
}

void direct(orvane::VqDocStampa& stampa) {
  stampa.Diretta.FinePagina = true;
  auto& catalogo = stampa.Diretta.CatalogoDestinazione;
  catalogo.CompressoOn(0) = 27;
  catalogo.CompressoOn(1) = 15;  // CompressoOn=27;15;0;0;0;0;0;
}

void link(const orvane::VqDocumenti& fabbrica, orvane::VqDocStampa& stampa, const orvane::Text& cartella) {
  auto allegata = fabbrica.NuovoDocumentoStampa();
  allegata->Inizializza(u"123-1", cartella, true);  // 123-1.lvq
  allegata->Stampante = u"Etichette";
  stampa.Collegati.Add(allegata);
  stampa.Collegati.Salva();
}

void duplicate(const orvane::VqDocumenti& fabbrica, const std::shared_ptr<orvane::VqDocStampa>& stampa,
               const orvane::Text& cartella) {
  auto copia = fabbrica.NuovoDocumentoStampa();
  copia->Inizializza(u"124", cartella);
  fabbrica.DuplicaDocumentoStampa(stampa, copia);
}

}  // namespace

int main() {
  const auto cartella = sample::emptyFolder("print");
  orvane::VqDocumenti fabbrica;
  auto stampa = fabbrica.NuovoDocumentoStampa();
  stampa->Inizializza(u"123", cartella);
  options(*stampa);
  printers(*stampa);
  pages(*stampa, cartella);
  direct(*stampa);
  link(fabbrica, *stampa, cartella);
  duplicate(fabbrica, stampa, cartella);

  auto letta = fabbrica.NuovoDocumentoStampa();
  letta->Carica(cartella, u"124.vqs");
  sample::expect(letta->Copie == 2 && letta->Stampante == u"Laser", "the copy is printed alike");
  sample::expect(letta->Collegati.Count() == 1, "the copy has a linked job of its own");

  auto prima = fabbrica.NuovoDocumentoStampa();
  prima->Carica(cartella, u"123.vqs");
  sample::expect(prima->StampanteAlternativa == u"Ufficio 1", "the origin is kept for the fallback printer");
}
