#include "core/VqDocStampa.h"

#include "tests/support/JobTest.h"
#include "tests/unit/PrintDocument.h"

namespace orvane::test {
namespace {

class VqDocStampaTest : public JobTest {
 protected:
  const std::shared_ptr<VqDocStampa> stampa = factory.NuovoDocumentoStampa();

  std::shared_ptr<VqDocStampa> loaded(TextView name) const {
    auto document = factory.NuovoDocumentoStampa();
    document->Carica(folder.path(), name);
    return document;
  }
};

TEST_F(VqDocStampaTest, BeginsNewWithOneCopy) {
  EXPECT_FALSE(stampa->Inizializzato);
  EXPECT_EQ(stampa->Copie.get(), 1);
  EXPECT_EQ(stampa->Numero.get(), 0);
  EXPECT_EQ(stampa->Stampante.get(), u"");
}

TEST_F(VqDocStampaTest, WorksBeforeBindingWithoutWriting) {
  stampa->Copie = 3;
  stampa->Stampante = u"Laser";
  EXPECT_EQ(stampa->Copie.get(), 3);
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

TEST_F(VqDocStampaTest, WritesIdentityAndKindOnInitialising) {
  stampa->Inizializza(u"123", folder.path());
  EXPECT_EQ(folder.files(), (std::vector<Text>{u"123.vqs"}));
  EXPECT_EQ(job(u"123.vqs").lines(), u"[Proprieta]\nId=123\n[Tipo]\nCodice=2\nDescrizione=Stampa\n");
  EXPECT_TRUE(stampa->Inizializzato);
  EXPECT_EQ(stampa->Proprieta.Id.get(), u"123");
  EXPECT_EQ(stampa->Proprieta.FileIntestazione.File(), folder.file(u"123.vqs"));
}

TEST_F(VqDocStampaTest, NamesALinkedJobWithItsOwnExtension) {
  stampa->Inizializza(u"123", folder.path(), true);
  EXPECT_EQ(folder.files(), (std::vector<Text>{u"123.lvq"}));
  EXPECT_FALSE(stampa->Proprieta.Collegato.get());
}

TEST_F(VqDocStampaTest, TakesAnEmptyIdToo) {
  stampa->Inizializza(u"", folder.path());
  EXPECT_EQ(stampa->Proprieta.FileIntestazione.Nome, u".vqs");
  EXPECT_EQ(job(u".vqs").value(u"Proprieta", u"Id"), u"");
}

TEST_F(VqDocStampaTest, SetsOneCopyOnInitialisingInTheObjectOnly) {
  stampa->Copie = 7;
  stampa->Inizializza(u"123", folder.path());
  EXPECT_EQ(stampa->Copie.get(), 1);
  EXPECT_FALSE(job(u"123.vqs").hasSection(u"Stampa"));
}

TEST_F(VqDocStampaTest, KeepsWhatAnExistingJobFileHolds) {
  writeJobFile(folder.file(u"123.vqs"), u"[Stampa]\nCopie=9\n");
  stampa->Inizializza(u"123", folder.path());
  EXPECT_EQ(job(u"123.vqs").value(u"Stampa", u"Copie"), u"9");
  EXPECT_EQ(stampa->Copie.get(), 1);
}

TEST_F(VqDocStampaTest, RefusesAFolderThatIsEmptyOrMissing) {
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"1", u""); }), 76);
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"1", folder.file(u"nessuna")); }), 76);
  EXPECT_FALSE(stampa->Inizializzato);
  EXPECT_EQ(stampa->Proprieta.Id.get(), u"");
}

TEST_F(VqDocStampaTest, CanBeInitialisedAfterARefusal) {
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"1", u""); }), 76);
  stampa->Inizializza(u"2", folder.path());
  EXPECT_TRUE(stampa->Inizializzato);
}

TEST_F(VqDocStampaTest, BindsOnlyOnce) {
  stampa->Inizializza(u"1", folder.path());
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"2", folder.path()); }), 445);
  EXPECT_EQ(errorOf([&] { stampa->Carica(folder.path(), u"1.vqs"); }), 445);
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"2", u""); }), 445);
  EXPECT_EQ(stampa->Proprieta.Id.get(), u"1");
}

TEST_F(VqDocStampaTest, BindsOnlyOnceByLoadingToo) {
  writeJobFile(folder.file(u"a.vqs"), u"[Proprieta]\nId=a\n");
  const auto document = loaded(u"a.vqs");
  EXPECT_TRUE(document->Inizializzato);
  EXPECT_EQ(errorOf([&] { document->Carica(folder.path(), u"a.vqs"); }), 445);
  EXPECT_EQ(errorOf([&] { document->Inizializza(u"b", folder.path()); }), 445);
}

TEST_F(VqDocStampaTest, RefusesToLoadFromAFolderThatIsEmptyOrMissing) {
  EXPECT_EQ(errorOf([&] { stampa->Carica(u"", u"a.vqs"); }), 76);
  EXPECT_EQ(errorOf([&] { stampa->Carica(folder.file(u"nessuna"), u""); }), 76);
  EXPECT_FALSE(stampa->Inizializzato);
}

TEST_F(VqDocStampaTest, RefusesToLoadAFileThatIsUnnamedOrMissing) {
  EXPECT_EQ(errorOf([&] { stampa->Carica(folder.path(), u""); }), 53);
  EXPECT_EQ(errorOf([&] { stampa->Carica(folder.path(), u"no.vqs"); }), 53);
  EXPECT_FALSE(stampa->Inizializzato);
}

TEST_F(VqDocStampaTest, StaysNewWhenTheFileCannotBeRead) {
  writeJobFile(folder.file(u"a.vqs"), u"[Stampa]\nNumero=1e10\n");
  EXPECT_EQ(errorOf([&] { stampa->Carica(folder.path(), u"a.vqs"); }), 6);
  EXPECT_FALSE(stampa->Inizializzato);
}

TEST_F(VqDocStampaTest, LoadsOneCopyAndEmptyPrintersWithoutItsSection) {
  writeJobFile(folder.file(u"a.vqs"), u"[Proprieta]\nId=a\n");
  const auto document = loaded(u"a.vqs");
  EXPECT_EQ(document->Copie.get(), 1);
  EXPECT_EQ(document->Numero.get(), 0);
  EXPECT_EQ(document->Stampante.get(), u"");
  EXPECT_EQ(document->StampanteOrigine.get(), u"");
  EXPECT_EQ(document->StampanteAlternativa.get(), u"");
}

TEST_F(VqDocStampaTest, LoadsNothingIntoTheFile) {
  writeJobFile(folder.file(u"a.vqs"), u"[Stampa]\nCopie=2\n");
  const std::string before = folder.read(u"a.vqs");
  loaded(u"a.vqs");
  EXPECT_EQ(folder.read(u"a.vqs"), before);
}

TEST_F(VqDocStampaTest, HoldsCopiesToOneOnAssigning) {
  stampa->Inizializza(u"1", folder.path());
  stampa->Copie = 0;
  EXPECT_EQ(stampa->Copie.get(), 1);
  stampa->Copie = 8;
  stampa->Copie = -5;
  EXPECT_EQ(stampa->Copie.get(), 1);
  EXPECT_EQ(job(u"1.vqs").value(u"Stampa", u"Copie"), u"1");
}

TEST_F(VqDocStampaTest, TakesCopiesAsTheyStandOnLoading) {
  writeJobFile(folder.file(u"a.vqs"), u"[Stampa]\nCopie=-3\n");
  EXPECT_EQ(loaded(u"a.vqs")->Copie.get(), -3);
}

TEST_F(VqDocStampaTest, WritesItsOwnValuesAtOnce) {
  stampa->Inizializza(u"1", folder.path());
  stampa->Copie = 2;
  stampa->Stampante = u"Laser";
  stampa->StampanteOrigine = u"Aghi";
  stampa->Numero = -100000;
  EXPECT_EQ(job(u"1.vqs").lines(u"Stampa"),
            u"[Stampa]\nCopie=2\nStampante=Laser\nStampanteOrigine=Aghi\nNumero=-100000\n");
}

TEST_F(VqDocStampaTest, WritesTheOriginInPlaceOfTheAlternativePrinter) {
  stampa->Inizializza(u"1", folder.path());
  stampa->StampanteOrigine = u"A";
  stampa->StampanteAlternativa = u"B";
  EXPECT_EQ(stampa->StampanteAlternativa.get(), u"B");
  EXPECT_EQ(job(u"1.vqs").value(u"Stampa", u"StampanteAlternativa"), u"A");
  EXPECT_EQ(loaded(u"1.vqs")->StampanteAlternativa.get(), u"A");
}

TEST_F(VqDocStampaTest, KeepsTheOriginOfTheTimeWhenTheAlternativeWasSet) {
  stampa->Inizializza(u"1", folder.path());
  stampa->StampanteOrigine = u"A";
  stampa->StampanteAlternativa = u"B";
  stampa->StampanteOrigine = u"C";
  EXPECT_EQ(job(u"1.vqs").value(u"Stampa", u"StampanteAlternativa"), u"A");
}

TEST_F(VqDocStampaTest, WritesItsOwnValuesToTheFileThatTheHeaderNamesNow) {
  stampa->Inizializza(u"1", folder.path());
  stampa->Proprieta.FileIntestazione.Nome = u"altro.vqs";
  stampa->Numero = 5;
  stampa->Dimensione.Codice = vdd_A3;
  EXPECT_EQ(job(u"altro.vqs").lines(), u"[Stampa]\nNumero=5\n");
  EXPECT_TRUE(job(u"1.vqs").hasSection(u"Dimensione"));
}

TEST_F(VqDocStampaTest, BindsPagesAndTheirState) {
  stampa->Inizializza(u"1", folder.path());
  stampa->Pagine.MaxAltezzaPagina = 100;
  stampa->Pagine.Stato.Codice = vdps_Scomposte;
  EXPECT_EQ(job(u"1.vqs").lines(u"Pagine"), u"[Pagine]\nMassimaAltezzaPagina=100\n");
  EXPECT_EQ(job(u"1.vqs").lines(u"Stato"), u"[Stato]\nCodice=1\nDescrizione=Scomposte\n");
}

TEST_F(VqDocStampaTest, LeavesThePagesUnreadOnLoading) {
  writeJobFile(folder.file(u"a.vqs"), u"[Pagine]\nMassimaAltezzaPagina=100\n[Stato]\nCodice=1\n");
  const auto document = loaded(u"a.vqs");
  EXPECT_EQ(document->Pagine.MaxAltezzaPagina.get(), 0);
  EXPECT_EQ(document->Pagine.Stato.Codice.get(), vdps_DaScomporre);
  document->Pagine.Carica(u"");
  EXPECT_EQ(document->Pagine.MaxAltezzaPagina.get(), 100);
}

TEST_F(VqDocStampaTest, ComesBackFromItsFileAsItWas) {
  const FixedClock clock(dateOf(2026, 11, 21, 12));
  stampa->Inizializza(u"123", folder.path());
  fill(*stampa);
  // What the file does not hold: the alternative printer, the lock, and the prepared file.
  stampa->StampanteAlternativa = stampa->StampanteOrigine;
  stampa->Proprieta.Bloccato.Codice = vdb_Nessuno;
  stampa->Diretta.FileDiretto = {};
  const auto document = loaded(u"123.vqs");
  EXPECT_EQ(document->Xml(), stampa->Xml());
  EXPECT_EQ(document->Copie.get(), 5);
  EXPECT_EQ(document->Coda.UltimaCodaCodice.get(), vdcs_InStampa);
  EXPECT_EQ(document->Proprieta.CatalogoSorgente.Tipo.Codice.get(), vdtc_Ebcdic);
}

TEST_F(VqDocStampaTest, FindsItsPreparedFileOnLoading) {
  writeJobFile(folder.file(u"7.vqs"), u"[Proprieta]\nId=7\n");
  folder.write(u"7\\7.vqd", "\x1B");
  EXPECT_EQ(loaded(u"7.vqs")->Diretta.FileDiretto.File(), folder.file(u"7\\7.vqd"));
}

}  // namespace
}  // namespace orvane::test
