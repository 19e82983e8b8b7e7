#include "pages/VqDocCatalogo.h"

#include "pages/VqDocFile.h"
#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

class VqDocCatalogoTest : public JobTest {
 protected:
  VqDocCatalogoTest() { bind(catalog); }
  void load(TextView lines) { loadFrom(catalog, lines); }
  VqDocCatalogoDestinaz catalog;
};

TEST_F(VqDocCatalogoTest, NewCatalogHasSevenZeroBytesInEachFunction) {
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"000;000;000;000;000;000;000;");
  EXPECT_EQ(catalog.StrChrCompressoOn(), Text(7, u'\0'));
  EXPECT_EQ(catalog.CustomCOff(6).get(), 0);
  EXPECT_EQ(catalog.Tipo.Codice.number(), 0);
}

TEST_F(VqDocCatalogoTest, OneByteWritesAllSevenWithASemicolonAtTheEnd) {
  catalog.CompressoOn(0) = 27;
  EXPECT_EQ(job().lines(), u"[CatalogoDestinazione]\nCompressoOn=27;0;0;0;0;0;0;\n");
}

TEST_F(VqDocCatalogoTest, FileHasDecimalsWithoutZerosAndDigitsHaveThree) {
  catalog.GrassettoOff(0) = 27;
  catalog.GrassettoOff(1) = 5;
  catalog.GrassettoOff(6) = 255;
  EXPECT_EQ(job().value(u"CatalogoDestinazione", u"GrassettoOff"), u"27;5;0;0;0;0;255;");
  EXPECT_EQ(catalog.StrAscGrassettoOff(), u"027;005;000;000;000;000;255;");
  EXPECT_EQ(catalog.StrChrGrassettoOff(), Text(u"\x1B\x05\0\0\0\0\u00FF", 7));
}

TEST_F(VqDocCatalogoTest, CharactersAreThoseThatAFileOfTheBytesReadsAs) {
  const VqDocFile file{folder.path(), u"codici.txt"};
  for (int first = 0; first < 256; first += 7) {
    std::string bytes;
    for (std::uint8_t i = 0; i < 7; ++i) {
      bytes += static_cast<char>(first + i);
      catalog.RipassaOn(i) = static_cast<std::uint8_t>(first + i);
    }
    folder.write(u"codici.txt", bytes);
    EXPECT_EQ(catalog.StrChrRipassaOn(), file.ReadStream()) << first;
  }
}

TEST_F(VqDocCatalogoTest, BytesPastTheAsciiOnesAreCharactersOfWindows1252) {
  const std::uint8_t bytes[] = {128, 129, 141, 150, 159, 160, 255};
  for (std::uint8_t i = 0; i < 7; ++i) catalog.CustomBOn(i) = bytes[i];
  EXPECT_EQ(catalog.StrChrCustomBOn(), u"\u20AC\u0081\u008D\u2013\u0178\u00A0\u00FF");
}

TEST_F(VqDocCatalogoTest, IndexPastSixRaisesSubscriptOutOfRangeAndStoresNothing) {
  for (const std::uint8_t index : {std::uint8_t{7}, std::uint8_t{255}}) {
    EXPECT_EQ(errorOf([&] { catalog.RipassaOn(index) = 1; }), 9);
    EXPECT_EQ(errorOf([&] { (void)catalog.RipassaOn(index).get(); }), 9);
  }
  EXPECT_EQ(catalog.StrAscRipassaOn(), u"000;000;000;000;000;000;000;");
  EXPECT_FALSE(job().hasSection(u"CatalogoDestinazione"));
}

TEST_F(VqDocCatalogoTest, WrittenBytesComeBack) {
  for (std::uint8_t i = 0; i < 7; ++i) catalog.CustomAOn(i) = static_cast<std::uint8_t>(250 - i);
  VqDocCatalogoDestinaz again;
  bind(again);
  Components::load(again);
  EXPECT_EQ(again.StrAscCustomAOn(), u"250;249;248;247;246;245;244;");
}

TEST_F(VqDocCatalogoTest, MissingKeySetsAllBytesButTheLast) {
  for (std::uint8_t i = 0; i < 7; ++i) catalog.DodicesimiOff(i) = 9;
  load(u"[Altro]\n");
  EXPECT_EQ(catalog.StrAscDodicesimiOff(), u"000;000;000;000;000;000;009;");
}

TEST_F(VqDocCatalogoTest, LastPieceIsNeverRead) {
  load(u"[CatalogoDestinazione]\nCompressoOn=1;2;3;4;5;6;7\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;002;003;004;005;006;000;");
}

TEST_F(VqDocCatalogoTest, AllSevenAreReadWhereASemicolonEndsThem) {
  load(u"[CatalogoDestinazione]\nCompressoOn=1;2;3;4;5;6;7;\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;002;003;004;005;006;007;");
}

TEST_F(VqDocCatalogoTest, FewerPiecesLeaveTheOtherBytes) {
  for (std::uint8_t i = 0; i < 7; ++i) catalog.CompressoOn(i) = 9;
  load(u"[CatalogoDestinazione]\nCompressoOn=1;2;x\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;002;009;009;009;009;009;");
}

TEST_F(VqDocCatalogoTest, EmptyTextLeavesAllBytes) {
  catalog.CompressoOn(0) = 9;
  load(u"[CatalogoDestinazione]\nCompressoOn=\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"009;000;000;000;000;000;000;");
}

TEST_F(VqDocCatalogoTest, PiecesPast255CharactersAreNotRead) {
  load(u"[CatalogoDestinazione]\nCompressoOn=1;" + Text(252, u'0') + u"2;3;4;\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;000;000;000;000;000;000;");
  load(u"[CatalogoDestinazione]\nCompressoOn=1;" + Text(251, u'0') + u"2;3;4;\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;002;000;000;000;000;000;");
}

TEST_F(VqDocCatalogoTest, PieceAfterTheSeventhSemicolonMayBeAnything) {
  load(u"[CatalogoDestinazione]\nCompressoOn=1;2;3;4;5;6;7;8\n");
  EXPECT_EQ(catalog.StrAscCompressoOn(), u"001;002;003;004;005;006;007;");
}

struct BadCode {
  const char* rule;
  const char16_t* text;
  int error;
};
class BadCodeTest : public VqDocCatalogoTest, public testing::WithParamInterface<BadCode> {};

TEST_P(BadCodeTest, FailsToLoad) {
  const Text lines = u"[CatalogoDestinazione]\nLetterQualityOn=" + Text(GetParam().text) + u'\n';
  EXPECT_EQ(errorOf([&] { load(lines); }), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Catalog, BadCodeTest,
                         testing::Values(BadCode{"WordIsTypeMismatch", u"1;due;3;", 13},
                                         BadCode{"EmptyPieceIsTypeMismatch", u"1;;3;", 13},
                                         BadCode{"NumberAboveAByteIsOverflow", u"256;", 6},
                                         BadCode{"HalfAboveAByteIsOverflow", u"255.5;", 6},
                                         BadCode{"NegativeNumberIsOverflow", u"-1;", 6},
                                         BadCode{"EighthPieceIsSubscriptOutOfRange", u"1;2;3;4;5;6;7;8;", 9}),
                         [](const auto& test) { return test.param.rule; });

TEST_F(VqDocCatalogoTest, KindIsKeptInTheSectionOfTheCatalog) {
  catalog.Tipo.Codice = vdtc_Ebcdic;
  EXPECT_EQ(job().lines(), u"[CatalogoDestinazione]\nCodice=1\nDescrizione=EBCDIC\n");
}

TEST_F(VqDocCatalogoTest, KindIsReadBackWithTheCodes) {
  load(u"[CatalogoDestinazione]\nCodice=1\nSottolineatoOn=1;1;1;1;1;1;1;\n");
  EXPECT_EQ(catalog.Tipo.Codice.number(), 1);
  EXPECT_EQ(catalog.StrAscSottolineatoOn(), u"001;001;001;001;001;001;001;");
}

TEST_F(VqDocCatalogoTest, SourceCatalogKeepsASectionWithABlankAndAnElementWithout) {
  VqDocCatalogoSorgente source;
  bind(source);
  source.DoppiaAltezzaOn(1) = 14;
  source.Tipo.Codice = vdtc_Ascii;
  EXPECT_EQ(job().lines(),
            u"[Catalogo sorgente]\nDoppiaAltezzaOn=0;14;0;0;0;0;0;\nCodice=0\nDescrizione=ASCII\n");
  EXPECT_TRUE(Components::xmlOf(source).starts_with(u"<CatalogoSorgente><StrAscGrassettoOn>"));
}

TEST_F(VqDocCatalogoTest, XmlHasTheTwentyFunctionsInTheirOrderAndNoKind) {
  fill(catalog);
  catalog.Tipo.Codice = vdtc_Ebcdic;
  EXPECT_EQ(toUtf8(Components::xmlOf(catalog)),
            expectedXml("Catalogo.set", {{"catalog", "CatalogoDestinazione"}}));
}

TEST_F(VqDocCatalogoTest, XmlOfTheSourceCatalogDiffersInItsNameAlone) {
  VqDocCatalogoSorgente source;
  fill(source);
  EXPECT_EQ(toUtf8(Components::xmlOf(source)),
            expectedXml("Catalogo.set", {{"catalog", "CatalogoSorgente"}}));
}

TEST_F(VqDocCatalogoTest, EveryFunctionHasItsOwnKey) {
  fill(catalog);
  const JobContent content = job();
  ASSERT_EQ(content.sections.size(), 1u);
  Text keys;
  for (const JobKey& key : content.sections[0].keys) keys += key.name + u'=' + key.value.substr(0, 2) + u' ';
  EXPECT_EQ(keys,
            u"GrassettoOn=1; GrassettoOff=2; CompressoOn=3; CompressoOff=4; DoppiaAltezzaOn=5; "
            u"DoppiaAltezzaOff=6; RipassaOn=7; RipassaOff=8; DodicesimiOn=9; DodicesimiOff=10 "
            u"LetterQualityOn=11 LetterQualityOff=12 SottolineatoOn=13 SottolineatoOff=14 CustomAOn=15 "
            u"CustomAOff=16 CustomBOn=17 CustomBOff=18 CustomCOn=19 CustomCOff=20 ");
}

}  // namespace
}  // namespace orvane::test
