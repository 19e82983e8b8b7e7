#include "fax/VqDocTrasmissioneFax.h"

#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

class VqDocTrasmissioneFaxTest : public JobTest {
 protected:
  VqDocTrasmissioneFaxTest() { bind(record); }
  VqDocTrasmissioneFax record;
};

TEST_F(VqDocTrasmissioneFaxTest, ParametersStartAtOneAndResultsAtZero) {
  for (const CodeProperty* code : std::initializer_list<const CodeProperty*>{
           &record.TipoFax.Codice, &record.Dispositivo.Codice, &record.Compressione.Codice,
           &record.BaudSend.Codice, &record.ECM.Codice, &record.BFT.Codice, &record.Pagina.CodiceWidth,
           &record.Pagina.CodiceLength, &record.Risoluzione.Codice, &record.Colore.CodiceGestione,
           &record.Colore.CodiceTipo}) {
    EXPECT_EQ(code->number(), 1);
  }
  EXPECT_EQ(record.TRMStatus.Codice.number(), 0);
  EXPECT_EQ(record.Errore.Codice.number(), 0);
}

TEST_F(VqDocTrasmissioneFaxTest, TimesStartUnset) {
  EXPECT_EQ(record.OraFine.get().days, 0);
  EXPECT_EQ(record.OraInizio.get().days, 0);
  EXPECT_EQ(record.ProssimoTentativo.get().days, 0);
  EXPECT_EQ(record.Tentativi.get(), 0);
}

TEST_F(VqDocTrasmissioneFaxTest, OwnValuesAreWrittenToTheirSection) {
  record.OraFine = Date{4.25};
  record.OraInizio = Date{3};
  record.OraRichiestaFine = Date{2};
  record.OraRichiestaInizio = Date{1.5};
  record.Tentativi = -2;
  record.TrasmessoConECM = true;
  EXPECT_EQ(job().lines(),
            u"[TrasmissioneFax]\nOraFine=4.25\nOraInizio=3\nOraRichiestaFine=2\n"
            u"OraRichiestaInizio=1.5\nTentativi=-2\nTrasmessoConECM=-1\n");
}

TEST_F(VqDocTrasmissioneFaxTest, NextAttemptIsNeverWritten) {
  record.ProssimoTentativo = Date{39814};
  EXPECT_EQ(record.ProssimoTentativo.get().days, 39814);
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(VqDocTrasmissioneFaxTest, NextAttemptIsNotReadBack) {
  loadFrom(record, u"[TrasmissioneFax]\nProssimoTentativo=39814\nOraInizio=39813\n");
  EXPECT_EQ(record.ProssimoTentativo.get().days, 0);
  EXPECT_EQ(record.OraInizio.get().days, 39813);
}

TEST_F(VqDocTrasmissioneFaxTest, OwnValuesAreReadBack) {
  loadFrom(record,
           u"[TrasmissioneFax]\nOraFine=4\nOraRichiestaFine=2\nOraRichiestaInizio=1.5\nTentativi=7\n"
           u"TrasmessoConECM=-1\n");
  EXPECT_EQ(record.OraFine.get().days, 4);
  EXPECT_EQ(record.OraRichiestaFine.get().days + record.OraRichiestaInizio.get().days, 3.5);
  EXPECT_EQ(record.Tentativi.get(), 7);
  EXPECT_TRUE(record.TrasmessoConECM.get());
}

TEST_F(VqDocTrasmissioneFaxTest, CodesAreReadBackFromTheirOwnSections) {
  loadFrom(record,
           u"[FaxTrasmissione_TipoFax]\nCodice=2\n[FaxTrasmissione_BaudRate]\nCodice=15\n"
           u"[FaxTrasmissione_Errore]\nCodice=-20\n[FaxTrasmissione_Pagina]\nCodiceLarghezza=3\n");
  EXPECT_EQ(record.TipoFax.Codice.number(), 2);
  EXPECT_EQ(record.BaudSend.Codice.number(), 15);
  EXPECT_EQ(record.Errore.Descrizione(), u"Not enough memory to allocate a memory block.");
  EXPECT_EQ(record.Pagina.CodiceWidth.number(), 3);
}

TEST_F(VqDocTrasmissioneFaxTest, CodesFallBackToTheirDefaultsWithoutSections) {
  fill(record);
  loadFrom(record, u"[Altro]\n");
  EXPECT_EQ(record.ECM.Codice.number() + record.BFT.Codice.number() + record.Compressione.Codice.number(), 3);
  EXPECT_EQ(record.TRMStatus.Codice.number() + record.Errore.Codice.number(), 0);
}

TEST_F(VqDocTrasmissioneFaxTest, XmlOfANewRecord) {
  EXPECT_EQ(toUtf8(Components::xmlOf(record)), expectedXml("TrasmissioneFax.new"));
}

TEST_F(VqDocTrasmissioneFaxTest, XmlOfAFilledRecord) {
  fill(record);
  EXPECT_EQ(toUtf8(Components::xmlOf(record)), expectedXml("TrasmissioneFax.set"));
}

}  // namespace
}  // namespace orvane::test
