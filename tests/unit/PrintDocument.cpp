#include "tests/unit/PrintDocument.h"

#include "core/FileSystem.h"

namespace orvane::test {

void fill(VqDocProprieta& proprieta) {
  proprieta.Versione = u"1.2";
  proprieta.Sigla = u"FT";
  proprieta.DittaOrigine = u"Rossi & figli";
  proprieta.DittaDestinazione = u"Bianchi <SpA>";
  proprieta.Suddivisione = u"Vendite";
  proprieta.Data = dateOf(2009, 1, 1);
  proprieta.DataOriginale = dateOf(1899, 12, 31, 12);
  proprieta.Descrizione = u"Perché \"no\"";
  proprieta.Funzione = u"Fatture";
  proprieta.Utente = u"mrossi";
  proprieta.UtenteDescrizione = u"Mario Rossi";
  proprieta.Intestatario = u"gb";
  proprieta.IntestatarioDescrizione = u"Gino Bianchi";
  proprieta.Ip = u"10.0.0.7";
  proprieta.MacAddress = u"00-11-22-33-44-55";
  proprieta.FormatoPagina = u"Modulo";
  proprieta.Priorita = 7;
  proprieta.RighePagina = 66;
  proprieta.OttimizzaAreaPagina = true;
  proprieta.LetturaFacilitata = true;
  proprieta.Collegato = true;
  proprieta.TentativiElaborazione = 3;
  proprieta.Lingua.Codice = vdl_Inglese;
  proprieta.Errore.Descrizione = u"Carta finita";
  proprieta.Comando.Codice = vdc_Fax_Annulla;
  proprieta.Intestazione.Codice = vdi_Prestampata;
  proprieta.Esito.Codice = vde_Fallito;
  proprieta.Bloccato.Codice = vdb_Server;
  proprieta.CatalogoSorgente.Tipo.Codice = vdtc_Ebcdic;
  proprieta.CatalogoSorgente.CompressoOn(0) = 27;
  proprieta.CatalogoSorgente.CompressoOn(1) = 15;
}

void fill(VqDocStampa& stampa) {
  fill(stampa.Proprieta);
  stampa.Copie = 5;
  stampa.StampanteOrigine = u"Origine";
  stampa.StampanteAlternativa = u"Alternativa";
  stampa.Stampante = u"Laser";
  stampa.Numero = 42;
  stampa.Coda.Codice = vdcs_InStampa;
  stampa.Coda.DataInserimento = dateOf(2026, 1, 2, 6);
  stampa.Dimensione.Codice = vdd_A4;
  stampa.Orientamento.Codice = vdo_Orizzontale;
  stampa.Alimentazione.Codice = vda_CassettoCollegato;
  stampa.Pinzatura.Codice = vdpnz_Doppia;
  stampa.FronteRetro.Codice = vdfr_Verticale;
  stampa.Fascicolazione.Codice = vdf_Fascicolato;
  stampa.LayoutPagina.AdattaAllaPagina = false;
  stampa.LayoutPagina.Ingrandibile = true;
  stampa.LayoutPagina.PosizionePagina.Codice = vdpp_CentroPagina;
  stampa.Diretta.FinePagina = true;
  stampa.Diretta.RigheBianche = 2;
  stampa.Diretta.NomeFileOutput = u"uscita.prn";
  stampa.Diretta.FoglioBianco = true;
  stampa.Diretta.FileDiretto = {u"C:\\Diretta", u"7.vqd"};
  stampa.Diretta.CatalogoDestinazione.CompressoOn(0) = 255;
  stampa.Collegati.Copie = 4;
}

Text catalogXml(TextView element, TextView compressoOn) {
  Text out = u'<' + Text(element) + u'>';
  for (const auto* function : {u"Grassetto", u"Compresso", u"DoppiaAltezza", u"Ripassa", u"Dodicesimi",
                               u"LetterQuality", u"Sottolineato", u"CustomA", u"CustomB", u"CustomC"}) {
    for (const auto* state : {u"On", u"Off"}) {
      const Text name = Text(u"StrAsc") + function + state;
      const bool set = name == u"StrAscCompressoOn";
      const Text bytes = set ? Text(compressoOn) : u"000;000;000;000;000;000;000;";
      out += u'<' + name + u'>' + bytes + u"</" + name + u'>';
    }
  }
  return out + u"</" + Text(element) + u'>';
}

Text codeXml(TextView name, TextView code, TextView text) {
  return u'<' + Text(name) + u"><Codice>" + Text(code) + u"</Codice><Descrizione>" + Text(text) +
         u"</Descrizione></" + Text(name) + u'>';
}

Text filledPropertiesXml(TextView folder, TextView fileName, TextView id) {
  return u"<Proprieta><Versione>1.2</Versione><Id>" + Text(id) +
         u"</Id><Sigla>FT</Sigla><DittaOrigine>Rossi &amp; figli</DittaOrigine>"
         u"<DittaDestinazione>Bianchi &lt;SpA&gt;</DittaDestinazione><Ditta>Bianchi &lt;SpA&gt;</Ditta>"
         u"<Suddivisione>Vendite</Suddivisione><Data>39814</Data><DataOriginale>1.5</DataOriginale>"
         u"<Descrizione>Perché \"no\"</Descrizione><Funzione>Fatture</Funzione><Utente>mrossi</Utente>"
         u"<UtenteDescrizione>Mario Rossi</UtenteDescrizione><Intestatario>gb</Intestatario>"
         u"<IntestatarioDescrizione>Gino Bianchi</IntestatarioDescrizione><Ip>10.0.0.7</Ip>"
         u"<MacAddress>00-11-22-33-44-55</MacAddress><FormatoPagina>Modulo</FormatoPagina>"
         u"<Priorita>7</Priorita><RighePagina>66</RighePagina>"
         u"<OttimizzaAreaPagina>-1</OttimizzaAreaPagina><LetturaFacilitata>-1</LetturaFacilitata>"
         u"<Collegato>-1</Collegato><FileIntestazione><Percorso>" +
         Text(folder) + u"</Percorso><Nome>" + Text(fileName) +
         u"</Nome></FileIntestazione><FileCorpo><Percorso/><Nome/></FileCorpo>"
         u"<FileScript><Percorso/><Nome/></FileScript>" +
         codeXml(u"Tipo", u"2", u"Stampa") + codeXml(u"Lingua", u"1", u"Inglese") +
         codeXml(u"Errore", u"-1", u"Carta finita") + codeXml(u"Comando", u"1", u"Annulla fax") +
         codeXml(u"Intestazione", u"2", u"Prestampata") +
         catalogXml(u"CatalogoSorgente", u"027;015;000;000;000;000;000;") +
         codeXml(u"Esito", u"2", u"Fallito") + codeXml(u"Bloccato", u"1", u"Si, dal server") +
         u"</Proprieta>";
}

}  // namespace orvane::test
