// The XML of the print document and of its parts, as whole texts.
#include "tests/support/JobTest.h"
#include "tests/unit/PrintDocument.h"

namespace orvane::test {
namespace {

constexpr char16_t kNoBytes[] = u"000;000;000;000;000;000;000;";
constexpr char16_t kEmptyFile[] = u"<Percorso/><Nome/>";

Text newPropertiesXml() {
  return u"<Proprieta><Versione/><Id/><Sigla/><DittaOrigine/><DittaDestinazione/><Ditta/><Suddivisione/>"
         u"<Data>0</Data><DataOriginale>0</DataOriginale><Descrizione/><Funzione/><Utente/>"
         u"<UtenteDescrizione/><Intestatario/><IntestatarioDescrizione/><Ip/><MacAddress/><FormatoPagina/>"
         u"<Priorita>0</Priorita><RighePagina>0</RighePagina><OttimizzaAreaPagina>0</OttimizzaAreaPagina>"
         u"<LetturaFacilitata>0</LetturaFacilitata><Collegato>0</Collegato><FileIntestazione>" +
         Text(kEmptyFile) + u"</FileIntestazione><FileCorpo>" + kEmptyFile + u"</FileCorpo><FileScript>" +
         kEmptyFile + u"</FileScript>" + codeXml(u"Tipo", u"0", u"Sconosciuto") +
         codeXml(u"Lingua", u"0", u"Italiano") + codeXml(u"Errore", u"0", u"Nessuno") +
         codeXml(u"Comando", u"0", u"Nessuno") + codeXml(u"Intestazione", u"0", u"Nessuna") +
         catalogXml(u"CatalogoSorgente", kNoBytes) + codeXml(u"Esito", u"0", u"Da elaborare") +
         codeXml(u"Bloccato", u"0", u"No") + u"</Proprieta>";
}

Text newDirectXml() {
  return u"<Diretta><FinePagina>0</FinePagina><RigheBianche>0</RigheBianche><NomeFileOutput/>"
         u"<FoglioBianco>0</FoglioBianco><FileDiretto>" +
         Text(kEmptyFile) + u"</FileDiretto>" + catalogXml(u"CatalogoDestinazione", kNoBytes) + u"</Diretta>";
}

Text newQueueXml() {
  return u"<Coda><Codice>0</Codice><Descrizione>In attesa di stampa</Descrizione>"
         u"<DataInserimento>0</DataInserimento><DataDaStampare>0</DataDaStampare>"
         u"<DataInStampa>0</DataInStampa><DataElaborazione>0</DataElaborazione></Coda>";
}

Text newLayoutXml() {
  return u"<LayoutPagina><AdattaAllaPagina>-1</AdattaAllaPagina><Ingrandibile>0</Ingrandibile>" +
         codeXml(u"PosizionePagina", u"0", u"Angolo superiore sinistro") + u"</LayoutPagina>";
}

class PrintXml : public JobTest {
 protected:
  const std::shared_ptr<VqDocStampa> stampa = factory.NuovoDocumentoStampa();
};

TEST_F(PrintXml, OfNewProperties) { EXPECT_EQ(Components::xmlOf(stampa->Proprieta), newPropertiesXml()); }

TEST_F(PrintXml, OfNewDirectOutput) { EXPECT_EQ(Components::xmlOf(stampa->Diretta), newDirectXml()); }

TEST_F(PrintXml, OfANewQueueRecord) { EXPECT_EQ(Components::xmlOf(stampa->Coda), newQueueXml()); }

TEST_F(PrintXml, OfANewLayout) { EXPECT_EQ(Components::xmlOf(stampa->LayoutPagina), newLayoutXml()); }

TEST_F(PrintXml, OfNoLinkedDocuments) {
  EXPECT_EQ(Components::xmlOf(stampa->Collegati), u"<Collegati><Copie>1</Copie></Collegati>");
}

TEST_F(PrintXml, OfANewDocument) {
  EXPECT_EQ(stampa->Xml(),
            u"<Stampa>VqDocStampa<StampanteOrigine/><StampanteAlternativa/><Stampante/><Numero>0</Numero>" +
                newDirectXml() + newQueueXml() + newPropertiesXml() +
                codeXml(u"Dimensione", u"0", u"Automatico") + codeXml(u"Orientamento", u"0", u"Automatico") +
                codeXml(u"Alimentazione", u"0", u"Manca la risora: 7400 OrvaneDocumenti") +
                codeXml(u"Pinzatura", u"0", u"Nessuna") +
                codeXml(u"FronteRetro", u"0", u"Manca la risora: 7600 OrvaneDocumenti") +
                codeXml(u"Fascicolazione", u"0", u"Fascicolazione automatica") + newLayoutXml() +
                u"<Collegati><Copie>1</Copie></Collegati></Stampa>");
}

TEST_F(PrintXml, OfADocumentWithEveryMemberSet) {
  const FixedClock clock(dateOf(2026, 11, 21, 12));
  stampa->Inizializza(u"123", folder.path());
  fill(*stampa);
  EXPECT_EQ(stampa->Xml(),
            u"<Stampa>VqDocStampa<StampanteOrigine>Origine</StampanteOrigine>"
            u"<StampanteAlternativa>Alternativa</StampanteAlternativa><Stampante>Laser</Stampante>"
            u"<Numero>42</Numero><Diretta><FinePagina>-1</FinePagina><RigheBianche>2</RigheBianche>"
            u"<NomeFileOutput>uscita.prn</NomeFileOutput><FoglioBianco>-1</FoglioBianco><FileDiretto>"
            u"<Percorso>C:\\Diretta</Percorso><Nome>7.vqd</Nome></FileDiretto>" +
                catalogXml(u"CatalogoDestinazione", u"255;000;000;000;000;000;000;") +
                u"</Diretta><Coda><Codice>1</Codice><Descrizione>In stampa</Descrizione>"
                u"<DataInserimento>46024.25</DataInserimento><DataDaStampare>0</DataDaStampare>"
                u"<DataInStampa>46347.5</DataInStampa><DataElaborazione>0</DataElaborazione></Coda>" +
                filledPropertiesXml(folder.path(), u"123.vqs", u"123") +
                codeXml(u"Dimensione", u"9", u"A4 (21 x 29,7 cm)") +
                codeXml(u"Orientamento", u"2", u"Orizzontale") +
                codeXml(u"Alimentazione", u"14", u"Alimentazione della carta dal cassetto collegato") +
                codeXml(u"Pinzatura", u"2", u"Doppia") +
                codeXml(u"FronteRetro", u"2", u"Fronteretro a calendario") +
                codeXml(u"Fascicolazione", u"1", u"Fascicolata") +
                u"<LayoutPagina><AdattaAllaPagina>0</AdattaAllaPagina><Ingrandibile>-1</Ingrandibile>" +
                codeXml(u"PosizionePagina", u"8", u"Centro pagina") +
                u"</LayoutPagina><Collegati><Copie>4</Copie></Collegati></Stampa>");
}

TEST_F(PrintXml, IsTheSameTwiceAndChangesNoFile) {
  stampa->Inizializza(u"123", folder.path());
  const std::string before = folder.read(u"123.vqs");
  const Text first = stampa->Xml();
  EXPECT_EQ(stampa->Xml(), first);
  EXPECT_EQ(folder.read(u"123.vqs"), before);
}

}  // namespace
}  // namespace orvane::test
