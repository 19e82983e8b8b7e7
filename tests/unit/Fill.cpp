#include "tests/unit/Fill.h"

namespace orvane::test {

void fill(VqDocCatalogo& c) {
  c.GrassettoOn(0) = 1, c.GrassettoOff(0) = 2, c.CompressoOn(0) = 3, c.CompressoOff(0) = 4;
  c.DoppiaAltezzaOn(0) = 5, c.DoppiaAltezzaOff(0) = 6, c.RipassaOn(0) = 7, c.RipassaOff(0) = 8;
  c.DodicesimiOn(0) = 9, c.DodicesimiOff(0) = 10, c.LetterQualityOn(0) = 11, c.LetterQualityOff(0) = 12;
  c.SottolineatoOn(0) = 13, c.SottolineatoOff(0) = 14, c.CustomAOn(0) = 15, c.CustomAOff(0) = 16;
  c.CustomBOn(0) = 17, c.CustomBOff(0) = 18, c.CustomCOn(0) = 19, c.CustomCOff(0) = 20;
}

void fill(VqDocTrasmissioneFax& record) {
  record.TipoFax.Codice = vdfttf_COLOR;
  record.Dispositivo.Codice = vdftd_CLASS2_0;
  record.Compressione.Codice = vdftc_2DMMR;
  record.BaudSend.Codice = vdftbr_33600;
  record.ECM.Codice = vdftbecm_Enable;
  record.BFT.Codice = vdftbft_Disable;
  record.Pagina.CodiceWidth = vdftpw_2048;
  record.Pagina.CodiceLength = vdftpl_Unlimited;
  record.Risoluzione.Codice = vdftr_98;
  record.Colore.CodiceGestione = vdftgc_Enable;
  record.Colore.CodiceTipo = vdfttc_GrayScale;
  record.TRMStatus.Codice = vdftstrms_BUSY;
  record.Errore.Codice = vdftec_FER_NO_DIALTONE;
  record.OraFine = Date{39804};
  record.OraInizio = Date{39803};
  record.OraRichiestaFine = Date{39802};
  record.OraRichiestaInizio = Date{39801};
  record.Tentativi = 7;
  record.ProssimoTentativo = Date{39805};
  record.TrasmessoConECM = true;
}

void fill(VqDocAccount& account) {
  account.NomeVisualizzato = u"Mario Rossi";
  account.IndirizzoEmail = u"mario@esempio.it";
  account.IndirizzoEmailDiRisposta = u"risposte@esempio.it";
  account.Notificare = true;
  account.ConfermaLetturaOutlookExpress = true;
  account.Smtp.MailServer = u"smtp.esempio.it";
  account.Smtp.MailPort = 25;
  account.Smtp.MailDomain = u"esempio.it";
  account.Smtp.NomeAccount = u"mario";
  account.Smtp.PasswordAccount = u"segreta";
  account.Smtp.Autenticazione.Codice = vdsmtpa_CramMd5;
}

void fill(VqDocLayoutPagina& layout) {
  layout.AdattaAllaPagina = false;
  layout.Ingrandibile = true;
  layout.PosizionePagina.Codice = vdpp_CentroPagina;
}

void fill(VqDocCedolino& slip) {
  slip.Stampare = true;
  slip.Stampante = u"Laser";
  slip.StampanteOrigine = u"LPT1";
}

void fill(VqDocAllegati& attachments) {
  attachments.FilePdf = {u"C:\\Pdf", u"d.pdf"};
  attachments.Add(u"C:\\Allegati", u"a.txt");
  attachments.Add(u"C:\\Allegati", u"b & c.txt");
}

namespace {

void fillTexts(VqDocProprieta& p) {
  p.Versione = u"1.2";
  p.Sigla = u"FT";
  p.DittaOrigine = u"Origine";
  p.DittaDestinazione = u"Destinazione";
  p.Suddivisione = u"Vendite";
  p.Descrizione = u"Ordine & <conferma>";
  p.Funzione = u"StampaOrdini";
  p.Utente = u"MR";
  p.UtenteDescrizione = u"Mario Rossi";
  p.Intestatario = u"C01";
  p.IntestatarioDescrizione = u"Cliente S.p.A.";
  p.Ip = u"10.0.0.7";
  p.MacAddress = u"00-11-22-33-44-55";
  p.FormatoPagina = u"Modulo";
}

// What the documents have in common beside their properties.
template <class Kind>
void fillPaper(Kind& document) {
  document.Dimensione.Codice = vdd_A3;
  document.Orientamento.Codice = vdo_Orizzontale;
  document.Collegati.Copie = 5;
  document.Pagine.CopieDelegabili = true;
  document.Pagine.Add(document.Pagine.Nuova());
}

void fillTransmitted(TransmittedFax& fax) {
  fax.NumeroFax.PrefissoInternazionale = u"39";
  fax.NumeroFax.PrefissoLocale = u"06";
  fax.NumeroFax.Numero = u"1234567";
  fax.Frontespizio.Inviare = true;
  for (std::int32_t i = 0; i < 10; ++i) fax.Frontespizio.Nota(i) = u"riga " + fromUtf8(std::to_string(i));
  fax.Oggetto = u"Conferma d'ordine";
  fax.Mittente = u"Mario";
  fax.Destinatario = u"Anna";
  fax.SocietaDestinataria = u"Bianchi & C.";
  fax.CodiceSocietaDestinataria = u"B02";
  fill(fax.Proprieta);
  fill(fax.Trasmissione);
  fill(fax.Cedolino);
  fill(fax.Account);
  fillPaper(fax);
}

}  // namespace

void fill(VqDocProprieta& p) {
  fillTexts(p);
  p.Data = Date{39814};
  p.DataOriginale = Date{39783};
  p.Priorita = -7;
  p.RighePagina = 66;
  p.OttimizzaAreaPagina = true;
  p.LetturaFacilitata = true;
  p.Collegato = true;
  p.TentativiElaborazione = 3;
  p.FileCorpo = {u"C:\\Corpi", u"c.bvq"};
  p.FileScript = {u"C:\\Script", u"s.svq"};
  p.Lingua.Codice = vdl_Tedesco;
  p.Errore.Descrizione = u"Toner finito";
  p.Comando.Codice = vdc_Fax_Reinvia;
  p.Intestazione.Codice = vdi_Prestampata;
  p.Esito.Codice = vde_Fallito;
  p.Bloccato.Codice = vdb_Utente;
  fill(p.CatalogoSorgente);
}

void fill(VqDocStampa& stampa, FixedClock& clock) {
  stampa.StampanteOrigine = u"Origine";
  stampa.StampanteAlternativa = u"Alternativa";
  stampa.Stampante = u"Laser";
  stampa.Numero = -12;
  stampa.Copie = 3;
  stampa.Alimentazione.Codice = vda_CassettoInferiore;
  stampa.Pinzatura.Codice = vdpnz_Doppia;
  stampa.FronteRetro.Codice = vdfr_Verticale;
  stampa.Fascicolazione.Codice = vdf_NonFascicolato;
  stampa.Diretta.FinePagina = true;
  stampa.Diretta.FoglioBianco = true;
  stampa.Diretta.RigheBianche = 4;
  stampa.Diretta.NomeFileOutput = u"LPT2";
  stampa.Diretta.FileDiretto = {u"C:\\Diretta", u"d.vqd"};
  fill(stampa.Diretta.CatalogoDestinazione);
  fill(stampa.Proprieta);
  fill(stampa.LayoutPagina);
  fillPaper(stampa);
  fill(stampa.Coda, clock, 5);
}

void fill(VqDocFax& fax, FixedClock& clock) {
  fillTransmitted(fax);
  fill(fax.LayoutPagina);
  fill(fax.Allegati);
  fax.FileTif = {u"C:\\Tif", u"f.tif"};
  fill(fax.Coda, clock, 12);
}

void fill(VqDocPFax& fax, FixedClock& clock) {
  fillTransmitted(fax);
  fill(fax.Coda, clock, 5);
}

void fill(VqDocEmail& email, FixedClock& clock) {
  email.Oggetto = u"Listino <2009>";
  email.A.NomiVisualizzati = u"Anna";
  email.A.IndirizziEmail = u"anna@esempio.it";
  email.Cc.NomiVisualizzati = u"Bruno";
  email.Cc.IndirizziEmail = u"bruno@esempio.it";
  email.Ccn.NomiVisualizzati = u"Carla";
  email.Ccn.IndirizziEmail = u"carla@esempio.it";
  for (std::int32_t i = 0; i < 30; ++i) email.Messaggio.Nota(i) = u"riga " + fromUtf8(std::to_string(i));
  email.Trasmissione.Tentativi = 7;
  email.Trasmissione.ProssimoTentativo = Date{39805};
  fill(email.Proprieta);
  fill(email.Account);
  fill(email.LayoutPagina);
  fill(email.Cedolino);
  fill(email.Allegati);
  fillPaper(email);
  fill(email.Coda, clock, 9);
}

}  // namespace orvane::test
