#include "codes/VqDocErrore.h"

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

class VqDocErroreTest : public JobTest {
 protected:
  VqDocErrore errore;
};

TEST_F(VqDocErroreTest, BeginsWithNone) {
  EXPECT_EQ(errore.Codice.get(), vdec_Nessuno);
  EXPECT_EQ(errore.Descrizione.get(), u"Nessuno");
}

TEST_F(VqDocErroreTest, WritesCodeAndDescription) {
  bind(errore);
  errore.Codice = vdec_StampanteNonInstallata;
  EXPECT_EQ(job().lines(), u"[Errore]\nCodice=1\nDescrizione=Stampante non installata o non attivata\n");
}

TEST_F(VqDocErroreTest, TurnsToACustomTextWhenItsDescriptionIsSet) {
  bind(errore);
  errore.Codice = vdec_DocumentoVuoto;
  errore.Descrizione = u"x";
  EXPECT_EQ(errore.Codice.get(), vdec_Personalizzato);
  EXPECT_EQ(errore.Descrizione.get(), u"x");
  EXPECT_EQ(job().lines(), u"[Errore]\nCodice=-1\nDescrizione=x\n");
}

TEST_F(VqDocErroreTest, OverwritesACustomTextWithTheTextOfACode) {
  bind(errore);
  errore.Descrizione = u"testo del cliente";
  errore.Codice = vdec_AnnullatoDaUtente;
  EXPECT_EQ(errore.Descrizione.get(), u"Annullato dall'utente");
  EXPECT_EQ(job().lines(), u"[Errore]\nCodice=9\nDescrizione=Annullato dall'utente\n");
}

TEST_F(VqDocErroreTest, GivesTheLastCustomTextForItsCode) {
  bind(errore);
  errore.Descrizione = u"x";
  errore.Codice = vdec_Nessuno;
  errore.Codice = vdec_Personalizzato;
  EXPECT_EQ(errore.Descrizione.get(), u"x");
  EXPECT_EQ(job().value(u"Errore", u"Descrizione"), u"x");
}

TEST_F(VqDocErroreTest, HasAnEmptyCustomTextAtFirst) {
  errore.Codice = vdec_Personalizzato;
  EXPECT_EQ(errore.Descrizione.get(), u"");
}

TEST_F(VqDocErroreTest, HasTheMissingTextForACodeOutsideTheList) {
  errore.Codice = 12;
  EXPECT_EQ(errore.Descrizione.get(), u"Manca la risora: 11012 OrvaneDocumenti");
  errore.Codice = -2;
  EXPECT_EQ(errore.Descrizione.get(), u"Manca la risora: 10998 OrvaneDocumenti");
}

TEST_F(VqDocErroreTest, OverflowsNearTheLargestCodeButKeepsAndWritesIt) {
  bind(errore);
  EXPECT_EQ(errorOf([&] { errore.Codice = 2147483647; }), 6);
  EXPECT_EQ(errore.Codice.number(), 2147483647);
  EXPECT_EQ(job().lines(), u"[Errore]\nCodice=2147483647\n");
}

TEST_F(VqDocErroreTest, ReadsACustomText) {
  loadFrom(errore, u"[Errore]\nCodice=-1\nDescrizione=Carta finita\n");
  EXPECT_EQ(errore.Codice.get(), vdec_Personalizzato);
  EXPECT_EQ(errore.Descrizione.get(), u"Carta finita");
}

TEST_F(VqDocErroreTest, ReadsAnEmptyCustomTextWhereItIsMissing) {
  errore.Descrizione = u"vecchio";
  loadFrom(errore, u"[Errore]\nCodice=-1\n");
  EXPECT_EQ(errore.Descrizione.get(), u"");
}

TEST_F(VqDocErroreTest, ComputesTheTextOfACodeThatItReads) {
  loadFrom(errore, u"[Errore]\nCodice=8\nDescrizione=altro\n");
  EXPECT_EQ(errore.Descrizione.get(), u"Documento fuori tempo massimo per l'elaborazione");
}

TEST_F(VqDocErroreTest, KeepsItsCustomTextWhenItReadsAnotherCode) {
  errore.Descrizione = u"x";
  loadFrom(errore, u"[Errore]\nCodice=8\nDescrizione=altro\n");
  errore.Codice = vdec_Personalizzato;
  EXPECT_EQ(errore.Descrizione.get(), u"x");
}

TEST_F(VqDocErroreTest, ReadsNoneWhereItsSectionIsMissing) {
  errore.Codice = 5;
  loadFrom(errore, u"[Altra]\nCodice=9\n");
  EXPECT_EQ(errore.Codice.get(), vdec_Nessuno);
  EXPECT_EQ(errore.Descrizione.get(), u"Nessuno");
}

TEST_F(VqDocErroreTest, RendersCodeAndDescription) {
  EXPECT_EQ(Components::xmlOf(errore),
            u"<Errore><Codice>0</Codice><Descrizione>Nessuno</Descrizione></Errore>");
  errore.Descrizione = u"a < b";
  EXPECT_EQ(Components::xmlOf(errore),
            u"<Errore><Codice>-1</Codice><Descrizione>a &lt; b</Descrizione></Errore>");
}

struct JobError : Row {
  std::int32_t member;
  std::int32_t number;
  Text text;
};

class JobErrors : public JobTest, public testing::WithParamInterface<JobError> {};

TEST_P(JobErrors, HaveTheirNumberAndText) {
  VqDocErrore errore;
  errore.Codice = GetParam().member;
  EXPECT_EQ(errore.Codice.number(), GetParam().number);
  EXPECT_EQ(errore.Descrizione.get(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, JobErrors,
    testing::Values(
        JobError{"Nessuno", vdec_Nessuno, 0, u"Nessuno"},
        JobError{"StampanteNonInstallata", vdec_StampanteNonInstallata, 1,
                 u"Stampante non installata o non attivata"},
        JobError{"DocumentoVuoto", vdec_DocumentoVuoto, 2, u"Documento vuoto o nessuna pagina valida"},
        JobError{"UtenteNonConnesso", vdec_UtenteNonConnesso, 3,
                 u"Il documento ha come destinazione un indirizzo MacAddress non connesso"},
        JobError{"ConversionePdfTimeOut", vdec_ConversionePdfTimeOut, 5,
                 u"Impossibile trovare il PDF del documento in tempo utile"},
        JobError{"AllegatoNonTrovato", vdec_AllegatoNonTrovato, 6,
                 u"Il PDF allegato del documento non è stato ritrovato. Il documento sarà rigenerato"},
        JobError{"FileTifNonTrovato", vdec_FileTifNonTrovato, 7,
                 u"Il file TIF del documento non è stato trovato. Il documento sarà rigenerato"},
        JobError{"FuoriTempoMassimo", vdec_FuoriTempoMassimo, 8,
                 u"Documento fuori tempo massimo per l'elaborazione"},
        JobError{"AnnullatoDaUtente", vdec_AnnullatoDaUtente, 9, u"Annullato dall'utente"},
        JobError{"Trasmissione", vdec_Trasmissione, 10,
                 u"Generico di trasmissione. Vedere l'errore di trasmissione ed il TRMStatus per i dettagli"},
        JobError{"FileScriptNonValido", vdec_FileScriptNonValido, 11,
                 u"Impossibile importare il file script del documento"}),
    rowName);

}  // namespace
}  // namespace orvane::test
