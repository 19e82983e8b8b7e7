#include "core/VqDocProprieta.h"

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

class VqDocProprietaTest : public JobTest {
 protected:
  VqDocProprieta proprieta;

  // As a document does it: the header names the job file, the rest is bound to it.
  void bindWithHeader() {
    proprieta.FileIntestazione = {folder.path(), u"job.ini"};
    bind(proprieta);
  }
  void load(TextView lines) {
    writeJobFile(jobName(), lines);
    bindWithHeader();
    Components::load(proprieta);
  }
};

TEST_F(VqDocProprietaTest, HasAnIdentityOfItsOwn) {
  const VqDocProprieta other;
  EXPECT_EQ(proprieta.Guid.get().size(), 41u);
  EXPECT_TRUE(proprieta.Guid.get().starts_with(u"GUID_"));
  EXPECT_EQ(proprieta.Guid.get().find_first_of(u"{}"), Text::npos);
  EXPECT_NE(proprieta.Guid.get(), other.Guid.get());
}

TEST_F(VqDocProprietaTest, BeginsEmpty) {
  EXPECT_EQ(proprieta.Id.get(), u"");
  EXPECT_EQ(proprieta.Priorita.get(), 0);
  EXPECT_EQ(proprieta.Data.get(), Date{});
  EXPECT_FALSE(proprieta.Collegato.get());
}

TEST_F(VqDocProprietaTest, TakesTheCompanyTheDocumentIsForBeforeItsOrigin) {
  EXPECT_EQ(proprieta.Ditta(), u"");
  proprieta.DittaOrigine = u"A";
  EXPECT_EQ(proprieta.Ditta(), u"A");
  proprieta.DittaDestinazione = u"B";
  EXPECT_EQ(proprieta.Ditta(), u"B");
}

TEST_F(VqDocProprietaTest, WritesNothingOnBinding) {
  bindWithHeader();
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

TEST_F(VqDocProprietaTest, WritesNowhereBeforeBinding) {
  proprieta.Sigla = u"FT";
  proprieta.OttimizzaAreaPagina = true;
  EXPECT_EQ(proprieta.Sigla.get(), u"FT");
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

TEST_F(VqDocProprietaTest, WritesEveryKindOfValueAtOnce) {
  bindWithHeader();
  proprieta.Priorita = 7;
  proprieta.Data = dateOf(2009, 1, 1);
  proprieta.Utente = u"rossi";
  proprieta.Collegato = true;
  EXPECT_EQ(job().lines(), u"[Proprieta]\nPriorita=7\nData=39814\nUtente=rossi\nCollegato=-1\n");
}

TEST_F(VqDocProprietaTest, AcceptsAnyValue) {
  bindWithHeader();
  proprieta.Priorita = -2147483647 - 1;
  proprieta.Data = Date{-657434};
  proprieta.Descrizione = u"";
  EXPECT_EQ(job().lines(), u"[Proprieta]\nPriorita=-2147483648\nData=-657434\nDescrizione=\n");
}

TEST_F(VqDocProprietaTest, WritesTwoFlagsToTheFileThatTheHeaderNamesNow) {
  bindWithHeader();
  proprieta.FileIntestazione.Nome = u"altro.vqs";
  proprieta.OttimizzaAreaPagina = true;
  proprieta.LetturaFacilitata = true;
  proprieta.Collegato = true;
  EXPECT_EQ(job(u"altro.vqs").lines(), u"[Proprieta]\nOttimizzaAreaPagina=-1\nLetturaFacilitata=-1\n");
  EXPECT_EQ(job().lines(), u"[Proprieta]\nCollegato=-1\n");
}

// Only a header that names neither folder nor file swallows what is written.
TEST_F(VqDocProprietaTest, WritesThemNowhereButToAHeaderOfHalfAName) {
  proprieta.OttimizzaAreaPagina = true;
  proprieta.FileIntestazione.Percorso = folder.path();
  EXPECT_EQ(errorOf([&] { proprieta.OttimizzaAreaPagina = false; }), 52);
}

TEST_F(VqDocProprietaTest, ReadsEmptyValuesWithoutItsSection) {
  proprieta.Sigla = u"FT";
  proprieta.Priorita = 3;
  proprieta.Data = Date{1};
  proprieta.Collegato = true;
  load(u"[Altra]\nSigla=XX\n");
  EXPECT_EQ(proprieta.Sigla.get(), u"");
  EXPECT_EQ(proprieta.Priorita.get(), 0);
  EXPECT_EQ(proprieta.Data.get(), Date{});
  EXPECT_FALSE(proprieta.Collegato.get());
}

TEST_F(VqDocProprietaTest, ReadsItsIdentifierButKeepsItsIdentity) {
  const Text guid = proprieta.Guid;
  load(u"[Proprieta]\nId=123\nGuid=GUID_altro\n");
  EXPECT_EQ(proprieta.Id.get(), u"123");
  EXPECT_EQ(proprieta.Guid.get(), guid);
}

TEST_F(VqDocProprietaTest, RoundsStoredFractionsToEven) {
  load(u"[Proprieta]\nPriorita=2.5\nRighePagina=3.5\n");
  EXPECT_EQ(proprieta.Priorita.get(), 2);
  EXPECT_EQ(proprieta.RighePagina.get(), 4);
}

TEST_F(VqDocProprietaTest, OverflowsOnReadingWhatIsNoLong) {
  EXPECT_EQ(errorOf([&] { load(u"[Proprieta]\nSigla=FT\nPriorita=1e10\n"); }), 6);
  EXPECT_EQ(proprieta.Sigla.get(), u"FT");
}

TEST_F(VqDocProprietaTest, CutsTextsOnReading) {
  load(u"[Proprieta]\nDescrizione=" + Text(300, u'x') + u'\n');
  EXPECT_EQ(proprieta.Descrizione.get(), Text(255, u'x'));
}

TEST_F(VqDocProprietaTest, WritesTheRetriesButNeverReadsThem) {
  bindWithHeader();
  proprieta.TentativiElaborazione = 4;
  EXPECT_EQ(job().lines(), u"[Proprieta]\nTentativiElaborazione=4\n");
  VqDocProprieta other;
  bind(other);
  Components::load(other);
  EXPECT_EQ(other.TentativiElaborazione.get(), 0);
}

TEST_F(VqDocProprietaTest, KeepsTheRetriesThatItHasOnReading) {
  proprieta.TentativiElaborazione = 4;
  load(u"[Proprieta]\nTentativiElaborazione=9\n");
  EXPECT_EQ(proprieta.TentativiElaborazione.get(), 4);
}

TEST_F(VqDocProprietaTest, HasNoReferenceToAMissingBodyFile) {
  load(u"[Proprieta]\nId=123\n");
  EXPECT_EQ(proprieta.FileCorpo.Percorso, u"");
  EXPECT_EQ(proprieta.FileCorpo.Nome, u"");
  EXPECT_EQ(proprieta.FileScript.Nome, u"");
}

TEST_F(VqDocProprietaTest, FindsItsBodyFileBesideTheJobFile) {
  folder.write(u"Corpi\\123.bvq", "corpo");
  load(u"[Proprieta]\nId=123\n");
  EXPECT_EQ(proprieta.FileCorpo.Percorso, folder.file(u"Corpi"));
  EXPECT_EQ(proprieta.FileCorpo.Nome, u"123.bvq");
  EXPECT_EQ(proprieta.FileScript.Nome, u"");
}

TEST_F(VqDocProprietaTest, FindsItsScriptFileBesideTheJobFile) {
  folder.write(u"Corpi\\123.svq", "script");
  load(u"[Proprieta]\nId=123\n");
  EXPECT_EQ(proprieta.FileScript.File(), folder.file(u"Corpi\\123.svq"));
  EXPECT_EQ(proprieta.FileCorpo.Nome, u"");
}

TEST_F(VqDocProprietaTest, HasNoBodyFileUnderAnIdThatNoFileCanHave) {
  load(u"[Proprieta]\nId=a\u241B0000b\nUtente=MR\n");
  EXPECT_EQ(proprieta.Id.get(), Text(u"a\0b", 3));
  EXPECT_EQ(proprieta.Utente.get(), u"MR");
  EXPECT_EQ(proprieta.FileCorpo.Nome, u"");
}

TEST_F(VqDocProprietaTest, KeepsAReferenceWhereTheFileIsMissing) {
  proprieta.FileCorpo = {u"C:\\Altrove", u"x.bvq"};
  load(u"[Proprieta]\nId=123\n");
  EXPECT_EQ(proprieta.FileCorpo.File(), u"C:\\Altrove\\x.bvq");
}

TEST_F(VqDocProprietaTest, LeavesTheLockOutOfTheJobFile) {
  bindWithHeader();
  proprieta.Bloccato.Codice = vdb_Utente;
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

struct Part : Row {
  void (*set)(VqDocProprieta&);
  Text lines;
};

class PropertiesParts : public VqDocProprietaTest, public testing::WithParamInterface<Part> {};

TEST_P(PropertiesParts, AreBoundAndReadWithTheirOwner) {
  bindWithHeader();
  GetParam().set(proprieta);
  EXPECT_EQ(job().lines(), GetParam().lines);
  VqDocProprieta other;
  bind(other);
  Components::load(other);
  proprieta.FileIntestazione = {};
  EXPECT_EQ(Components::xmlOf(other), Components::xmlOf(proprieta));
}

INSTANTIATE_TEST_SUITE_P(
    All, PropertiesParts,
    testing::Values(Part{"Tipo", [](VqDocProprieta& p) { p.Tipo.Codice = vdt_Email; },
                         u"[Tipo]\nCodice=3\nDescrizione=Email\n"},
                    Part{"Esito", [](VqDocProprieta& p) { p.Esito.Codice = vde_Ok; },
                         u"[Esito]\nCodice=1\nDescrizione=Ok\n"},
                    Part{"Lingua", [](VqDocProprieta& p) { p.Lingua.Codice = vdl_Rumeno; },
                         u"[Lingua]\nCodice=4\nDescrizione=Rumeno\n"},
                    Part{"Errore", [](VqDocProprieta& p) { p.Errore.Descrizione = u"x"; },
                         u"[Errore]\nCodice=-1\nDescrizione=x\n"},
                    Part{"Comando", [](VqDocProprieta& p) { p.Comando.Codice = vdc_Fax_Reinvia; },
                         u"[Comando]\nCodice=2\nDescrizione=Reinvia fax\n"},
                    Part{"Intestazione", [](VqDocProprieta& p) { p.Intestazione.Codice = vdi_DaIntestare; },
                         u"[Intestazione]\nCodice=1\nDescrizione=Da intestare\n"},
                    Part{"CatalogoSorgente",
                         [](VqDocProprieta& p) { p.CatalogoSorgente.CustomCOff(6) = 255; },
                         u"[Catalogo sorgente]\nCustomCOff=0;0;0;0;0;0;255;\n"}),
    rowName);

}  // namespace
}  // namespace orvane::test
