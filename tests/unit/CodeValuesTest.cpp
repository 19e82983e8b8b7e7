#include "codes/CodeValues.h"

#include "codes/VqDocResDll.h"
#include "core/Numbers.h"
#include "tests/support/JobTest.h"
#include "tests/unit/AnyCode.h"

namespace orvane::test {
namespace {

struct CodeClass : Row {
  MakeCode make;
  Text section;
  Text element;
  std::int32_t base;
  std::int32_t initial;
};

// Written down once more, apart from the library's own table.
const CodeClass kFamily[] = {
    {"Lingua", makeCode<VqDocLingua>, u"Lingua", u"Lingua", 7800, 0},
    {"Orientamento", makeCode<VqDocOrientamento>, u"Orientamento", u"Orientamento", 7900, 0},
    {"Pinzatura", makeCode<VqDocPinzatura>, u"Pinzatura", u"Pinzatura", 9200, 0},
    {"Alimentazione", makeCode<VqDocAlimentazione>, u"Alimentazione", u"Alimentazione", 7400, 0},
    {"FronteRetro", makeCode<VqDocFronteRetro>, u"FronteRetro", u"FronteRetro", 7600, 0},
    {"Fascicolazione", makeCode<VqDocFascicolazione>, u"Fascicolazione", u"Fascicolazione", 7700, 0},
    {"SmtpAutentica", makeCode<VqDocSmtpAutentica>, u"Autenticazione", u"Autenticazione", 8900, 0},
    {"Intestazione", makeCode<VqDocIntestazione>, u"Intestazione", u"Intestazione", 8700, 0},
    {"Tipo", makeCode<VqDocTipo>, u"Tipo", u"Tipo", 8300, 0},
    {"Comando", makeCode<VqDocComando>, u"Comando", u"Comando", 9500, 0},
    {"PosizionePagina", makeCode<VqDocPosizionePagina>, u"PosizionePagina", u"PosizionePagina", 9000, 0},
    {"Dimensione", makeCode<VqDocDimensione>, u"Dimensione", u"Dimensione", 7500, 0},
    {"Esito", makeCode<VqDocEsito>, u"Esito", u"Esito", 9300, 0},
    {"FaxBaudRate", makeCode<VqDocFaxBaudRate>, u"FaxTrasmissione_BaudRate", u"BaudRate", 2000, 1},
    {"FaxBFT", makeCode<VqDocFaxBFT>, u"FaxTrasmissione_BFT", u"BFT", 400, 1},
    {"FaxCompressione", makeCode<VqDocFaxCompressione>, u"FaxTrasmissione_Compressione", u"Compressione",
     1500, 1},
    {"FaxECM", makeCode<VqDocFaxECM>, u"FaxTrasmissione_ECM", u"ECM", 1400, 1},
    {"FaxErrore", makeCode<VqDocFaxErrore>, u"FaxTrasmissione_Errore", u"Errore", 10000, 0},
    {"FaxRisoluzione", makeCode<VqDocFaxRisoluzione>, u"FaxTrasmissione_Risoluzione", u"Risoluzione", 300, 1},
    {"FaxTipoFax", makeCode<VqDocFaxTipoFax>, u"FaxTrasmissione_TipoFax", u"TipoFax", 600, 1},
    {"FaxTRMStatus", makeCode<VqDocFaxTRMStatus>, u"FaxTrasmissione_TRMStatus", u"TRMStatus", 1600, 0},
    {"FaxDispositivo", makeCode<VqDocFaxDispositivo>, u"FaxTrasmissione_Dispositivo", u"Dispositivo", 500, 1},
};

class CodeValues : public JobTest, public testing::WithParamInterface<CodeClass> {
 protected:
  const CodeClass& row = GetParam();
  std::unique_ptr<AnyCode> value = row.make();

  Text textOf(std::int32_t code) const { return Apartment::strings().LoadDllString(row.base + code); }
  Text lines(TextView code, TextView description) const {
    return u'[' + row.section + u"]\nCodice=" + Text(code) + u"\nDescrizione=" + Text(description) + u'\n';
  }
  Text xml(TextView code, TextView description) const {
    return u'<' + row.element + u"><Codice>" + Text(code) + u"</Codice><Descrizione>" + Text(description) +
           u"</Descrizione></" + row.element + u'>';
  }
};

TEST_P(CodeValues, BeginWithTheirDefault) {
  EXPECT_EQ(value->code(), row.initial);
  EXPECT_EQ(value->description(), textOf(row.initial));
}

TEST_P(CodeValues, WriteCodeAndDescriptionAtOnce) {
  bind(value->component());
  value->set(2);
  EXPECT_EQ(value->code(), 2);
  EXPECT_EQ(job().lines(), lines(u"2", textOf(2)));
}

TEST_P(CodeValues, WriteNothingOnBinding) {
  bind(value->component());
  EXPECT_EQ(job().lines(), u"");
}

TEST_P(CodeValues, WriteNowhereBeforeBinding) {
  value->set(2);
  EXPECT_EQ(value->code(), 2);
  EXPECT_EQ(folder.files(), std::vector<Text>());
}

TEST_P(CodeValues, ReadTheCodeAndComputeTheDescription) {
  loadFrom(value->component(), lines(u"2", u"altro testo"));
  EXPECT_EQ(value->code(), 2);
  EXPECT_EQ(value->description(), textOf(2));
  EXPECT_EQ(job().lines(), lines(u"2", u"altro testo"));
}

TEST_P(CodeValues, ReadTheirDefaultWhereTheKeyIsMissing) {
  value->set(2);
  loadFrom(value->component(), u"[Altra]\nCodice=3\n");
  EXPECT_EQ(value->code(), row.initial);
}

TEST_P(CodeValues, RoundAStoredFractionToEven) {
  loadFrom(value->component(), lines(u"2.5", u""));
  EXPECT_EQ(value->code(), 2);
}

TEST_P(CodeValues, OverflowOnReadingWhatIsNoLong) {
  EXPECT_EQ(errorOf([&] { loadFrom(value->component(), lines(u"2147483648", u"")); }), 6);
}

TEST_P(CodeValues, RenderCodeAndDescription) {
  value->set(2);
  EXPECT_EQ(Components::xmlOf(value->component()), xml(u"2", textOf(2)));
}

TEST_P(CodeValues, KeepACodeThatHasNoText) {
  bind(value->component());
  value->set(98765);
  const Text missing = u"Manca la risora: " + decimalText(row.base + 98765) + u" OrvaneDocumenti";
  EXPECT_EQ(value->description(), missing);
  EXPECT_EQ(job().lines(), lines(u"98765", missing));
  EXPECT_EQ(Components::xmlOf(value->component()), xml(u"98765", missing));
}

TEST_P(CodeValues, OverflowNearTheLargestCodeButKeepIt) {
  bind(value->component());
  EXPECT_EQ(errorOf([&] { value->set(2147483647); }), 6);
  EXPECT_EQ(value->code(), 2147483647);
  EXPECT_EQ(errorOf([&] { (void)value->description(); }), 6);
  EXPECT_EQ(job().lines(), u'[' + row.section + u"]\nCodice=2147483647\n");
}

TEST_P(CodeValues, DescribeTheLastCodeBeforeTheOverflow) {
  value->set(2147483647 - row.base);
  EXPECT_EQ(value->description(), u"Manca la risora: 2147483647 OrvaneDocumenti");
  EXPECT_EQ(errorOf([&] { value->set(2147483647 - row.base + 1); }), 6);
}

INSTANTIATE_TEST_SUITE_P(Family, CodeValues, testing::ValuesIn(kFamily), rowName);

class FaxErrors : public JobTest {};
class Codes : public JobTest {};

TEST_F(FaxErrors, DescribeTheMagnitudeOfTheirCode) {
  VqDocFaxErrore errore;
  errore.Codice = -20;
  EXPECT_EQ(errore.Descrizione(), u"Not enough memory to allocate a memory block.");
  errore.Codice = 20;
  EXPECT_EQ(errore.Descrizione(), u"Not enough memory to allocate a memory block.");
}

TEST_F(FaxErrors, WriteTheCodeWithItsSign) {
  VqDocFaxErrore errore;
  bind(errore);
  errore.Codice = -1;
  EXPECT_EQ(job().lines(), u"[FaxTrasmissione_Errore]\nCodice=-1\nDescrizione=No dial tone detected.\n");
}

TEST_F(FaxErrors, OverflowNearTheSmallestCodeToo) {
  VqDocFaxErrore errore;
  EXPECT_EQ(errorOf([&] { errore.Codice = -2147483647; }), 6);
  EXPECT_EQ(errorOf([&] { errore.Codice = -2147483647 - 1; }), 6);
}

TEST_F(Codes, TakeAnotherCode) {
  VqDocLingua from, to;
  from.Codice = vdl_Tedesco;
  bind(to);
  to.Codice = from.Codice;
  EXPECT_EQ(to.Descrizione(), u"Tedesco");
  EXPECT_EQ(job().value(u"Lingua", u"Codice"), u"3");
}

}  // namespace
}  // namespace orvane::test
