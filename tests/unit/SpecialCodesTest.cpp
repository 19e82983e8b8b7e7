// The code-value classes that differ from the family by more than their row.
#include "codes/CodeValues.h"

#include "pages/VqDocCatalogo.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class FaxColour : public JobTest {
 protected:
  VqDocFaxColore colore;
};

TEST_F(FaxColour, BeginsUnchangedAndInTrueColour) {
  EXPECT_EQ(colore.CodiceGestione.get(), 1);
  EXPECT_EQ(colore.DescrizioneGestione(), u"NOCHANGE");
  EXPECT_EQ(colore.CodiceTipo.get(), 1);
  EXPECT_EQ(colore.DescrizioneTipo(), u"TRUECOLOR");
}

TEST_F(FaxColour, WritesEachCodeUnderItsOwnKeys) {
  bind(colore);
  colore.CodiceTipo = vdfttc_GrayScale;
  EXPECT_EQ(job().lines(), u"[FaxTrasmissione_Colore]\nCodiceTipo=2\nDescrizioneTipo=GRAYSCALE\n");
  colore.CodiceGestione = vdftgc_Enable;
  EXPECT_EQ(job().lines(),
            u"[FaxTrasmissione_Colore]\nCodiceTipo=2\nDescrizioneTipo=GRAYSCALE\n"
            u"CodiceGestione=3\nDescrizioneGestione=ENABLE\n");
}

TEST_F(FaxColour, ReadsBothCodes) {
  loadFrom(colore, u"[FaxTrasmissione_Colore]\nCodiceGestione=2\nCodiceTipo=2\n");
  EXPECT_EQ(colore.DescrizioneGestione(), u"DISABLED");
  EXPECT_EQ(colore.DescrizioneTipo(), u"GRAYSCALE");
}

TEST_F(FaxColour, ReadsOneWhereBothKeysAreMissing) {
  colore.CodiceGestione = 2;
  colore.CodiceTipo = 2;
  loadFrom(colore, u"");
  EXPECT_EQ(colore.CodiceGestione.get(), 1);
  EXPECT_EQ(colore.CodiceTipo.get(), 1);
}

TEST_F(FaxColour, RendersBothCodes) {
  colore.CodiceGestione = vdftgc_Disable;
  EXPECT_EQ(Components::xmlOf(colore),
            u"<Colore><CodiceGestione>2</CodiceGestione><DescrizioneGestione>DISABLED</DescrizioneGestione>"
            u"<CodiceTipo>1</CodiceTipo><DescrizioneTipo>TRUECOLOR</DescrizioneTipo></Colore>");
}

class FaxPage : public JobTest {
 protected:
  VqDocFaxPagina pagina;
};

TEST_F(FaxPage, BeginsUnchanged) {
  EXPECT_EQ(pagina.CodiceWidth.get(), 1);
  EXPECT_EQ(pagina.DescrizioneWidth(), u"NOCHANGE");
  EXPECT_EQ(pagina.CodiceLength.get(), 1);
  EXPECT_EQ(pagina.DescrizioneLength(), u"NOCHANGE");
}

TEST_F(FaxPage, WritesTheWidthWhenItIsRead) {
  bind(pagina);
  pagina.CodiceWidth = vdftpw_2048;
  EXPECT_EQ(job().lines(), u"");
  EXPECT_EQ(pagina.CodiceWidth.get(), vdftpw_2048);
  EXPECT_EQ(job().lines(), u"[FaxTrasmissione_Pagina]\nCodiceLarghezza=3\nDescrizioneLarghezza=2048\n");
}

TEST_F(FaxPage, WritesTheWidthAtEveryReading) {
  bind(pagina);
  EXPECT_EQ(pagina.CodiceWidth.get(), vdftpw_NoChange);
  writeJobFile(jobName(), u"[FaxTrasmissione_Pagina]\nCodiceLarghezza=6\n");
  const enmVqDocFaxTrasmissionePageWidth width = pagina.CodiceWidth;
  EXPECT_EQ(width, vdftpw_NoChange);
  EXPECT_EQ(job().value(u"FaxTrasmissione_Pagina", u"CodiceLarghezza"), u"1");
}

TEST_F(FaxPage, WritesTheWidthWhenItIsCompared) {
  bind(pagina);
  pagina.CodiceWidth = vdftpw_2048;
  EXPECT_TRUE(pagina.CodiceWidth == vdftpw_2048);
  EXPECT_EQ(job().value(u"FaxTrasmissione_Pagina", u"CodiceLarghezza"), u"3");
}

TEST_F(FaxPage, WritesTheWidthWhenAnotherTakesIt) {
  bind(pagina);
  pagina.CodiceWidth = vdftpw_2048;
  VqDocFaxPagina other;
  other.CodiceWidth = pagina.CodiceWidth;
  EXPECT_EQ(other.CodiceWidth.number(), vdftpw_2048);
  EXPECT_EQ(job().value(u"FaxTrasmissione_Pagina", u"CodiceLarghezza"), u"3");
}

TEST_F(FaxPage, WritesTheWidthWhenItIsComparedWithAnother) {
  bind(pagina);
  pagina.CodiceWidth = vdftpw_2048;
  const VqDocFaxPagina other;
  EXPECT_TRUE(other.CodiceWidth != pagina.CodiceWidth);
  EXPECT_EQ(job().value(u"FaxTrasmissione_Pagina", u"CodiceLarghezza"), u"3");
}

TEST_F(FaxPage, OverflowsWhenAWidthNearTheLargestIsReadButWritesIt) {
  bind(pagina);
  EXPECT_EQ(errorOf([&] { pagina.CodiceWidth = 2147483647; }), 0);
  EXPECT_EQ(errorOf([&] { (void)pagina.CodiceWidth.get(); }), 6);
  EXPECT_EQ(job().lines(), u"[FaxTrasmissione_Pagina]\nCodiceLarghezza=2147483647\n");
}

TEST_F(FaxPage, WritesNothingWhenTheWidthIsDescribedOrRendered) {
  bind(pagina);
  pagina.CodiceWidth = vdftpw_864;
  EXPECT_EQ(pagina.DescrizioneWidth(), u"864");
  EXPECT_NE(Components::xmlOf(pagina).find(u"<CodiceWidth>6</CodiceWidth>"), Text::npos);
  EXPECT_EQ(job().lines(), u"");
}

TEST_F(FaxPage, WritesTheLengthAtOnce) {
  bind(pagina);
  pagina.CodiceLength = vdftpl_B4;
  EXPECT_EQ(job().lines(), u"[FaxTrasmissione_Pagina]\nCodiceLunghezza=3\nDescrizioneLunghezza=B4\n");
}

TEST_F(FaxPage, ReadsItalianKeysWithoutWriting) {
  const Text lines = u"[FaxTrasmissione_Pagina]\nCodiceLarghezza=5\nCodiceLunghezza=4\n";
  loadFrom(pagina, lines);
  EXPECT_EQ(pagina.DescrizioneWidth(), u"1216");
  EXPECT_EQ(pagina.DescrizioneLength(), u"UNLIMITED");
  EXPECT_EQ(job().lines(), lines);
}

TEST_F(FaxPage, ReadsOneWhereBothKeysAreMissing) {
  pagina.CodiceWidth = 3;
  pagina.CodiceLength = 3;
  loadFrom(pagina, u"");
  EXPECT_EQ(pagina.CodiceWidth.get(), 1);
  EXPECT_EQ(pagina.CodiceLength.get(), 1);
}

TEST_F(FaxPage, RendersEnglishNames) {
  pagina.CodiceWidth = vdftpw_1728;
  pagina.CodiceLength = vdftpl_A4;
  EXPECT_EQ(Components::xmlOf(pagina),
            u"<Pagina><CodiceWidth>2</CodiceWidth><DescrizioneWidth>1728</DescrizioneWidth>"
            u"<CodiceLength>2</CodiceLength><DescrizioneLength>A4</DescrizioneLength></Pagina>");
}

class PageState : public JobTest {
 protected:
  VqDocPagineStato stato;
};

TEST_F(PageState, BeginsWithNothingComposed) {
  EXPECT_EQ(stato.Descrizione(), u"Da scomporre");
  EXPECT_EQ(stato.PagineScomposte.get(), 0);
}

TEST_F(PageState, WritesCodeAndNumberOfPages) {
  bind(stato);
  stato.Codice = vdps_Scomposte;
  stato.PagineScomposte = -3;
  EXPECT_EQ(job().lines(), u"[Stato]\nCodice=1\nDescrizione=Scomposte\nPagineScomposte=-3\n");
}

TEST_F(PageState, ReadsCodeAndNumberOfPages) {
  loadFrom(stato, u"[Stato]\nPagineScomposte=12\nCodice=2\n");
  EXPECT_EQ(stato.Descrizione(), u"Generate");
  EXPECT_EQ(stato.PagineScomposte.get(), 12);
}

TEST_F(PageState, ReadsZeroWhereItsKeysAreMissing) {
  stato.Codice = 1;
  stato.PagineScomposte = 5;
  loadFrom(stato, u"[Stato]\nDescrizione=Scomposte\n");
  EXPECT_EQ(stato.Codice.get(), vdps_DaScomporre);
  EXPECT_EQ(stato.PagineScomposte.get(), 0);
}

class CatalogKind : public JobTest {};

TEST_F(CatalogKind, IsKeptInTheSectionOfItsCatalog) {
  VqDocCatalogoSorgente sorgente;
  bind(sorgente);
  sorgente.Tipo.Codice = vdtc_Ebcdic;
  EXPECT_EQ(job().lines(), u"[Catalogo sorgente]\nCodice=1\nDescrizione=EBCDIC\n");
}

TEST_F(CatalogKind, IsReadFromTheSectionOfItsCatalog) {
  VqDocCatalogoDestinaz destinazione;
  loadFrom(destinazione, u"[Catalogo sorgente]\nCodice=7\n[CatalogoDestinazione]\nCodice=1\n");
  EXPECT_EQ(destinazione.Tipo.Codice.get(), vdtc_Ebcdic);
}

TEST_F(CatalogKind, HasAnElementOfItsOwn) {
  VqDocTipoCatalogo tipo(u"Catalogo sorgente");
  EXPECT_EQ(Components::xmlOf(tipo),
            u"<TipoCatalogo><Codice>0</Codice><Descrizione>ASCII</Descrizione></TipoCatalogo>");
}

class Lock : public JobTest {
 protected:
  VqDocBloccato bloccato;
};

TEST_F(Lock, DescribesItsCode) {
  EXPECT_EQ(bloccato.Descrizione(), u"No");
  bloccato.Codice = vdb_Utente;
  EXPECT_EQ(bloccato.Descrizione(), u"Si, dall'utente");
}

TEST_F(Lock, NeverTouchesTheJobFile) {
  bind(bloccato);
  bloccato.Codice = vdb_Server;
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

TEST_F(Lock, StaysAsItIsWhenTheRestIsRead) {
  bloccato.Codice = vdb_Server;
  loadFrom(bloccato, u"[Bloccato]\nCodice=2\n");
  EXPECT_EQ(bloccato.Codice.get(), vdb_Server);
}

TEST_F(Lock, IsInTheXml) {
  bloccato.Codice = vdb_Server;
  EXPECT_EQ(Components::xmlOf(bloccato),
            u"<Bloccato><Codice>1</Codice><Descrizione>Si, dal server</Descrizione></Bloccato>");
}

}  // namespace
}  // namespace orvane::test
