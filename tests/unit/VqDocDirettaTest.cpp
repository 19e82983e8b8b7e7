#include "pages/VqDocDiretta.h"

#include "core/VqDocProprieta.h"
#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"

namespace orvane::test {
namespace {

class VqDocDirettaTest : public JobTest {
 protected:
  VqDocDirettaTest() { bind(direct); }

  // The prepared file is looked for under the document's Id, in the folder of its header.
  void load(TextView lines = u"[Proprieta]\nId=9\n") {
    properties.FileIntestazione = {folder.path(), u"job.ini"};
    loadFrom(properties, lines);
    Components::load(direct);
  }

  VqDocProprieta properties;
  VqDocDiretta direct{properties};
};

TEST_F(VqDocDirettaTest, StartsWithNothingSet) {
  EXPECT_FALSE(direct.FinePagina.get());
  EXPECT_FALSE(direct.FoglioBianco.get());
  EXPECT_EQ(direct.RigheBianche.get(), 0);
  EXPECT_EQ(direct.NomeFileOutput.get(), u"");
  EXPECT_EQ(direct.FileDiretto.File(), u"\\");
}

TEST_F(VqDocDirettaTest, EveryAssignmentIsWritten) {
  direct.FinePagina = true;
  direct.FoglioBianco = true;
  direct.RigheBianche = -3;
  direct.NomeFileOutput = u"LPT1";
  EXPECT_EQ(job().lines(),
            u"[Diretta]\nFinePagina=-1\nFoglioBianco=-1\nRigheBianche=-3\nNomeFileOutput=LPT1\n");
}

TEST_F(VqDocDirettaTest, ValuesAreReadBackWithTheCatalog) {
  load(
      u"[Diretta]\nFinePagina=-1\nFoglioBianco=-1\nRigheBianche=4\nNomeFileOutput=a.prn\n"
      u"[CatalogoDestinazione]\nCompressoOn=15;0;0;0;0;0;0;\n");
  EXPECT_TRUE(direct.FinePagina.get() && direct.FoglioBianco.get());
  EXPECT_EQ(direct.RigheBianche.get(), 4);
  EXPECT_EQ(direct.NomeFileOutput.get(), u"a.prn");
  EXPECT_EQ(direct.CatalogoDestinazione.CompressoOn(0).get(), 15);
}

TEST_F(VqDocDirettaTest, PreparedFileIsFoundUnderTheIdTwice) {
  folder.write(u"9\\9.vqd", "");
  load();
  EXPECT_EQ(direct.FileDiretto.Percorso, folder.file(u"9"));
  EXPECT_EQ(direct.FileDiretto.Nome, u"9.vqd");
}

TEST_F(VqDocDirettaTest, FileReferenceStaysWhereNoFileIsPrepared) {
  direct.FileDiretto = {u"C:\\Prima", u"x.vqd"};
  load();
  EXPECT_EQ(direct.FileDiretto.File(), u"C:\\Prima\\x.vqd");
}

TEST_F(VqDocDirettaTest, FileReferenceStaysWhereTheIdCanNameNoFile) {
  direct.FileDiretto = {u"C:\\Prima", u"x.vqd"};
  for (const TextView id : {u"a\xD800", u"a\u241B0000b"}) {
    load(u"[Proprieta]\nId=" + Text(id) + u"\n[Diretta]\nRigheBianche=4\n");
    EXPECT_EQ(direct.FileDiretto.File(), u"C:\\Prima\\x.vqd");
    EXPECT_EQ(direct.RigheBianche.get(), 4);
  }
}

TEST_F(VqDocDirettaTest, CatalogIsLoadedWithAndWithoutThePreparedFile) {
  folder.write(u"9\\9.vqd", "");
  load(u"[Proprieta]\nId=9\n[CatalogoDestinazione]\nCustomCOff=1;1;1;1;1;1;1;\n");
  EXPECT_EQ(direct.CatalogoDestinazione.StrAscCustomCOff(), u"001;001;001;001;001;001;001;");
}

TEST_F(VqDocDirettaTest, XmlHasItsOwnOrderThenFileAndCatalog) {
  direct.FinePagina = true;
  direct.RigheBianche = 7;
  direct.NomeFileOutput = u"LPT1";
  direct.FileDiretto = {u"C:\\D", u"d.vqd"};
  EXPECT_EQ(toUtf8(Components::xmlOf(direct)),
            "<Diretta><FinePagina>-1</FinePagina><RigheBianche>7</RigheBianche>"
            "<NomeFileOutput>LPT1</NomeFileOutput><FoglioBianco>0</FoglioBianco>"
            "<FileDiretto><Percorso>C:\\D</Percorso><Nome>d.vqd</Nome></FileDiretto>" +
                expectedXml("Catalogo.new", {{"catalog", "CatalogoDestinazione"}}) + "</Diretta>");
}

}  // namespace
}  // namespace orvane::test
