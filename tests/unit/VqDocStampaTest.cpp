#include "core/VqDocStampa.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class VqDocStampaTest : public JobTest {
 protected:
  VqDocStampaTest() { stampa.Inizializza(u"123", folder.path()); }
  Text stored(TextView key) const { return job(u"123.vqs").value(u"Stampa", key); }
  static void load(VqDocStampa& document, const TemporaryFolder& folder, TextView lines) {
    writeJobFile(folder.file(u"job.vqs"), lines);
    document.Carica(folder.path(), u"job.vqs");
  }
  VqDocStampa stampa;
  VqDocStampa again;
};

TEST_F(VqDocStampaTest, NewDocumentHasOneCopyAndNoPrinters) {
  EXPECT_EQ(again.Copie.get(), 1);
  EXPECT_EQ(again.Numero.get(), 0);
  EXPECT_EQ(again.Stampante.get() + again.StampanteOrigine.get() + again.StampanteAlternativa.get(), u"");
}

TEST_F(VqDocStampaTest, CopiesBelowOneAreStoredAndWrittenAsOne) {
  for (const std::int32_t copies : {0, -5}) {
    stampa.Copie = 3;
    EXPECT_EQ(stored(u"Copie"), u"3");
    stampa.Copie = copies;
    EXPECT_EQ(stampa.Copie.get(), 1);
    EXPECT_EQ(stored(u"Copie"), u"1");
  }
}

TEST_F(VqDocStampaTest, BindingSetsOneCopyInTheObjectOnly) {
  again.Copie = 7;
  again.Inizializza(u"9", folder.path());
  EXPECT_EQ(again.Copie.get(), 1);
  EXPECT_FALSE(job(u"9.vqs").hasSection(u"Stampa"));
}

TEST_F(VqDocStampaTest, PrintersAndNumberAreWrittenUnderTheirNames) {
  stampa.Stampante = u"Laser";
  stampa.StampanteOrigine = u"A";
  stampa.Numero = -4;
  EXPECT_EQ(job(u"123.vqs").lines(u"Stampa"), u"[Stampa]\nStampante=Laser\nStampanteOrigine=A\nNumero=-4\n");
}

TEST_F(VqDocStampaTest, FallbackPrinterIsWrittenAsThePrinterOfOrigin) {
  stampa.StampanteOrigine = u"A";
  stampa.StampanteAlternativa = u"B";
  EXPECT_EQ(stampa.StampanteAlternativa.get(), u"B");
  EXPECT_EQ(stored(u"StampanteAlternativa"), u"A");
  again.Carica(folder.path(), u"123.vqs");
  EXPECT_EQ(again.StampanteAlternativa.get(), u"A");
}

TEST_F(VqDocStampaTest, FallbackPrinterHoldsTheOriginOfTheTimeItWasSet) {
  stampa.StampanteOrigine = u"A";
  stampa.StampanteAlternativa = u"B";
  stampa.StampanteOrigine = u"C";
  EXPECT_EQ(stored(u"StampanteAlternativa"), u"A");
}

TEST_F(VqDocStampaTest, FileWithoutTheSectionLoadsOneCopyAndNoPrinters) {
  load(again, folder, u"[Altro]\n");
  EXPECT_EQ(again.Copie.get(), 1);
  EXPECT_EQ(again.Numero.get(), 0);
  EXPECT_EQ(again.Stampante.get() + again.StampanteOrigine.get() + again.StampanteAlternativa.get(), u"");
}

TEST_F(VqDocStampaTest, LoadedCopiesAreNotHeldToOne) {
  load(again, folder, u"[Stampa]\nCopie=-3\nNumero=3.5\n");
  EXPECT_EQ(again.Copie.get(), -3);
  EXPECT_EQ(again.Numero.get(), 4);
}

TEST_F(VqDocStampaTest, PrintersAreReadUpTo255Characters) {
  stampa.Stampante = Text(300, u'x');
  again.Carica(folder.path(), u"123.vqs");
  EXPECT_EQ(again.Stampante.get(), Text(255, u'x'));
}

TEST_F(VqDocStampaTest, PreparedFileIsFoundByTheIdInTheFile) {
  folder.write(u"123\\123.vqd", "");
  again.Carica(folder.path(), u"123.vqs");
  EXPECT_EQ(again.Diretta.FileDiretto.File(), folder.file(u"123\\123.vqd"));
}

TEST_F(VqDocStampaTest, OwnValuesGoToTheFileThatTheHeaderNamesAtTheTime) {
  stampa.Proprieta.FileIntestazione.Nome = u"altro.vqs";
  stampa.Stampante = u"Laser";
  EXPECT_EQ(job(u"altro.vqs").lines(), u"[Stampa]\nStampante=Laser\n");
  EXPECT_FALSE(job(u"123.vqs").hasSection(u"Stampa"));
}

TEST_F(VqDocStampaTest, XmlOfANewDocumentBeginsWithItsClassAndPrinters) {
  EXPECT_TRUE(
      again.Xml().starts_with(u"<Stampa>VqDocStampa<StampanteOrigine/><StampanteAlternativa/><Stampante/"
                              u"><Numero>0</Numero><Diretta>"));
}

}  // namespace
}  // namespace orvane::test
