#include "pages/VqDocPagina.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

// Only a collection reads a page's header, so loading goes through one.
class VqDocPaginaTest : public JobTest {
 protected:
  VqDocPaginaTest() { page.FileIntestazione = {folder.path(), u"p001.dpg"}; }

  std::shared_ptr<VqDocPagina> loadedPage() {
    pages.Carica(folder.path());
    return pages.Item(1);
  }
  std::shared_ptr<VqDocPagina> loadedFrom(TextView lines) {
    writeJobFile(folder.file(u"p001.dpg"), lines);
    return loadedPage();
  }

  VqDocPagina page;
  VqDocPagine pages;
};

TEST_F(VqDocPaginaTest, NewPageHasNoValues) {
  EXPECT_EQ(page.Numero.get(), 0);
  EXPECT_EQ(page.Tipo, vdpt_Fronte);
  EXPECT_EQ(page.Validita, vdpv_Nessuna);
  EXPECT_EQ(page.RighePagina, 0);
  EXPECT_EQ(page.AltezzaRiga.tenThousandths, 0);
  EXPECT_EQ(page.Lingua.Codice.number(), 0);
}

TEST_F(VqDocPaginaTest, NewPageHasNoFlagsTextsFilesOrArrays) {
  EXPECT_FALSE(page.OttimizzaArea || page.LetturaFacilitata || page.NuovoFoglio);
  EXPECT_EQ(page.Script + page.Suddivisione, u"");
  EXPECT_EQ(page.FileUtente.Nome + page.FileTxt.Nome + page.FileVvq.Nome + page.FileBmp.Nome, u"");
  EXPECT_TRUE(page.ArrayTxt.items.empty() && page.ArrayScriptA.items.empty() &&
              page.ArrayScriptB.items.empty());
}

TEST_F(VqDocPaginaTest, NothingIsWrittenBeforeSalva) {
  page.RighePagina = 66;
  page.Tipo = vdpt_Retro;
  page.Lingua.Codice = vdl_Inglese;
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(VqDocPaginaTest, SalvaWritesTheWholeHeaderInItsOrder) {
  page.RighePagina = 66;
  page.AltezzaRiga = {42500};
  page.NuovoFoglio = true;
  page.Tipo = vdpt_Frontespizio;
  page.LetturaFacilitata = true;
  page.Suddivisione = u"Vendite";
  page.Lingua.Codice = vdl_Tedesco;
  page.FileUtente = {u"C:\\Utenti", u"u.txt"};
  page.FileTxt = {u"C:\\Testi", u"t.txt"};
  page.Validita = static_cast<enmVqDocPagValidita>(vdpv_Fax | vdpv_Email);
  page.Salva();
  EXPECT_EQ(job(u"p001.dpg").lines(),
            u"[Proprieta]\nRighePagina=66\nAltezzaRiga=4.25\nNuovoFoglio=-1\nTipo=2\nOttimizzaArea=0\n"
            u"LetturaFacilitata=-1\nSuddivisione=Vendite\n"
            u"[Lingua]\nCodice=3\nDescrizione=Tedesco\n"
            u"[FileUtente]\nNome=u.txt\nPercorso=C:\\Utenti\n"
            u"[FileTesto]\nNome=t.txt\nPercorso=C:\\Testi\n"
            u"[Validita]\nCodice=5\n");
}

TEST_F(VqDocPaginaTest, SalvaLeavesOutScriptArraysVectorAndPicture) {
  page.Salva();
  const JobContent before = job(u"p001.dpg");
  page.Script = u"script";
  page.ArrayTxt = {u"a"};
  page.FileVvq.Nome = u"v.vvq";
  page.FileBmp.Nome = u"b.bmp";
  page.Salva();
  EXPECT_EQ(job(u"p001.dpg").lines(), before.lines());
}

TEST_F(VqDocPaginaTest, SavedValuesComeBack) {
  page.RighePagina = -3;
  page.AltezzaRiga = {-12345};
  page.OttimizzaArea = true;
  page.Suddivisione = u"Acquisti";
  page.Salva();
  const auto again = loadedPage();
  EXPECT_EQ(again->RighePagina, -3);
  EXPECT_EQ(again->AltezzaRiga.tenThousandths, -12345);
  EXPECT_TRUE(again->OttimizzaArea);
  EXPECT_EQ(again->Suddivisione, u"Acquisti");
}

TEST_F(VqDocPaginaTest, SavedCodesComeBack) {
  page.Tipo = vdpt_Retro;
  page.Lingua.Codice = vdl_Rumeno;
  page.Validita = vdpv_Anteprima;
  page.Salva();
  const auto again = loadedPage();
  EXPECT_EQ(again->Tipo, vdpt_Retro);
  EXPECT_EQ(again->Lingua.Codice.number(), 4);
  EXPECT_EQ(again->Validita, vdpv_Anteprima);
}

TEST_F(VqDocPaginaTest, LoadedPageHasTheDefaultsWhereItsHeaderHasNoKeys) {
  const auto again = loadedFrom(u"[Altro]\nChiave=1\n");
  EXPECT_EQ(again->RighePagina, 0);
  EXPECT_EQ(again->AltezzaRiga.tenThousandths, 0);
  EXPECT_EQ(again->FileUtente.Nome, u"");
  EXPECT_FALSE(again->NuovoFoglio);
}

TEST_F(VqDocPaginaTest, UserFileIsLookedForBesideTheHeaderWhereverItWasSaved) {
  page.FileUtente = {u"C:\\Altrove", u"u.txt"};
  page.Salva();
  const auto again = loadedPage();
  EXPECT_EQ(again->FileUtente.Nome, u"u.txt");
  EXPECT_EQ(again->FileUtente.Percorso, folder.published());
}

TEST_F(VqDocPaginaTest, UserFolderIsSetEvenWithoutAUserFile) {
  EXPECT_EQ(loadedFrom(u"[Altro]\n")->FileUtente.Percorso, folder.published());
}

TEST_F(VqDocPaginaTest, SavedTextFileIsNotReadBack) {
  page.FileTxt = {u"C:\\Testi", u"t.txt"};
  page.Salva();
  const auto again = loadedPage();
  EXPECT_EQ(again->FileTxt.Nome, u"");
  EXPECT_EQ(again->FileTxt.Percorso, u"");
}

TEST_F(VqDocPaginaTest, ExistingCompanionsAreFoundAndMissingOnesLeftUntouched) {
  folder.write(u"p001.vvq", "");
  folder.write(u"p001.txt", "");
  const auto again = loadedFrom(u"[Altro]\n");
  EXPECT_EQ(again->FileVvq.File(), folder.published(u"p001.vvq"));
  EXPECT_EQ(again->FileTxt.File(), folder.published(u"p001.txt"));
  EXPECT_EQ(again->FileBmp.File(), u"\\");
}

TEST_F(VqDocPaginaTest, PictureIsFoundByItsExtension) {
  folder.write(u"p001.bmp", "");
  EXPECT_EQ(loadedFrom(u"[Altro]\n")->FileBmp.File(), folder.published(u"p001.bmp"));
}

TEST_F(VqDocPaginaTest, CompanionsAreNamedUpToTheLastPointOfTheHeader) {
  folder.write(u"p.1.vvq", "");
  folder.write(u"p.vvq", "");
  writeJobFile(folder.file(u"p.1.dpg"), u"[Altro]\n");
  EXPECT_EQ(loadedPage()->FileVvq.Nome, u"p.1.vvq");
}

TEST_F(VqDocPaginaTest, StoredNumbersAreRoundedHalvesToEven) {
  const auto again = loadedFrom(u"[Proprieta]\nRighePagina=2.5\n[Validita]\nCodice=3.5\n");
  EXPECT_EQ(again->RighePagina, 2);
  EXPECT_EQ(again->Validita, 4);
}

TEST_F(VqDocPaginaTest, TextsAreReadUpTo255Characters) {
  page.Suddivisione = Text(300, u's');
  page.FileUtente.Nome = Text(300, u'n');
  page.Salva();
  const auto again = loadedPage();
  EXPECT_EQ(again->Suddivisione, Text(255, u's'));
  EXPECT_EQ(again->FileUtente.Nome, Text(255, u'n'));
}

TEST_F(VqDocPaginaTest, NumberThatDoesNotFitIsAnOverflow) {
  EXPECT_EQ(errorOf([&] { loadedFrom(u"[Proprieta]\nRighePagina=3000000000\n"); }), 6);
}

TEST_F(VqDocPaginaTest, LanguageWithoutADescriptionIsAnOverflowInSavingAndInLoading) {
  page.RighePagina = 66;
  EXPECT_EQ(errorOf([&] { page.Lingua.Codice = INT32_MAX; }), 6);
  EXPECT_EQ(errorOf([&] { page.Salva(); }), 6);
  EXPECT_EQ(job(u"p001.dpg").lines(u"Lingua"), u"[Lingua]\nCodice=2147483647\n");
  EXPECT_EQ(job(u"p001.dpg").value(u"Proprieta", u"RighePagina"), u"66");
  EXPECT_FALSE(job(u"p001.dpg").hasSection(u"FileUtente"));
  EXPECT_EQ(errorOf([&] { loadedPage(); }), 6);
}

TEST_F(VqDocPaginaTest, CodesOfNoMemberAreKept) {
  const auto again = loadedFrom(u"[Proprieta]\nTipo=-7\n[Validita]\nCodice=255\n");
  EXPECT_EQ(static_cast<std::int32_t>(again->Tipo), -7);
  EXPECT_EQ(static_cast<std::int32_t>(again->Validita), 255);
}

TEST_F(VqDocPaginaTest, DistruggiArrayEmptiesAllThree) {
  page.ArrayTxt = {u"a", 1};
  page.ArrayScriptA = {true};
  page.ArrayScriptB = {2.5};
  page.DistruggiArray();
  EXPECT_EQ(page.ArrayTxt, VariantArray());
  EXPECT_EQ(page.ArrayScriptA, VariantArray());
  EXPECT_EQ(page.ArrayScriptB, VariantArray());
}

TEST_F(VqDocPaginaTest, ArraysAreHeldByValue) {
  VariantArray lines{u"una", u"due"};
  page.ArrayTxt = lines;
  lines.items[0] = u"altra";
  EXPECT_EQ(page.ArrayTxt, (VariantArray{u"una", u"due"}));
}

}  // namespace
}  // namespace orvane::test
