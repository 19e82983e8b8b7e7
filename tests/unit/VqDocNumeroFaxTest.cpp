#include "fax/VqDocNumeroFax.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class VqDocNumeroFaxTest : public JobTest {
 protected:
  VqDocNumeroFaxTest() { bind(number); }
  VqDocNumeroFax number;
};

struct Composition {
  const char* rule;
  const char16_t *international, *local, *number, *result;
};
class NumeroEstesoTest : public VqDocNumeroFaxTest, public testing::WithParamInterface<Composition> {};

TEST_P(NumeroEstesoTest, IsComposedOfTheParts) {
  number.PrefissoInternazionale = GetParam().international;
  number.PrefissoLocale = GetParam().local;
  number.Numero = GetParam().number;
  EXPECT_EQ(number.NumeroEsteso(), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Number, NumeroEstesoTest,
    testing::Values(Composition{"AllPartsAreJoined", u"39", u"06", u"1234567", u"39-06-1234567"},
                    Composition{"LocalPrefixAndNumberAreJoined", u"", u"06", u"1234567", u"06-1234567"},
                    Composition{"NumberStandsAlone", u"", u"", u"1234567", u"1234567"},
                    Composition{"InternationalWithoutLocalIsAnErrorBeforeTheNumber", u"39", u"", u"1234567",
                                u"Errore1234567"},
                    Composition{"BlanksAreParts", u" ", u" ", u" ", u" - - "},
                    Composition{"EmptyIsAnError", u"", u"", u"", u"Errore"},
                    Composition{"PrefixesWithoutNumberAreAnErrorAlone", u"39", u"06", u"", u"Errore"},
                    Composition{"LocalPrefixWithoutNumberIsAnErrorAlone", u"", u"06", u"", u"Errore"},
                    Composition{"InternationalAloneIsOneErrorOnly", u"39", u"", u"", u"Errore"}),
    [](const auto& test) { return test.param.rule; });

TEST_F(VqDocNumeroFaxTest, StartsEmpty) {
  EXPECT_EQ(number.Numero.get() + number.PrefissoLocale.get() + number.PrefissoInternazionale.get(), u"");
}

TEST_F(VqDocNumeroFaxTest, EveryPartIsWrittenUnderItsName) {
  number.Numero = u"1234567";
  number.PrefissoLocale = u"06";
  number.PrefissoInternazionale = u"39";
  EXPECT_EQ(job().lines(), u"[NumeroFax]\nNumero=1234567\nPrefissoLocale=06\nPrefissoInternazionale=39\n");
}

TEST_F(VqDocNumeroFaxTest, PartsAreReadBackAsTextsOfUpTo255Characters) {
  const Text digits(300, u'1');
  loadFrom(number, u"[NumeroFax]\nNumero=" + digits + u"\nPrefissoLocale=06\nPrefissoInternazionale=0039\n");
  EXPECT_EQ(number.Numero.get(), digits.substr(0, 255));
  EXPECT_EQ(number.PrefissoLocale.get(), u"06");
  EXPECT_EQ(number.PrefissoInternazionale.get(), u"0039");
}

TEST_F(VqDocNumeroFaxTest, XmlBeginsWithTheComposedNumber) {
  number.Numero = u"1234567";
  number.PrefissoLocale = u"06";
  number.PrefissoInternazionale = u"39";
  EXPECT_EQ(Components::xmlOf(number),
            u"<NumeroFax><NumeroEsteso>39-06-1234567</NumeroEsteso>"
            u"<PrefissoInternazionale>39</PrefissoInternazionale><PrefissoLocale>06</PrefissoLocale>"
            u"<Numero>1234567</Numero></NumeroFax>");
}

TEST_F(VqDocNumeroFaxTest, XmlOfAnEmptyNumberSaysErrore) {
  EXPECT_EQ(Components::xmlOf(number),
            u"<NumeroFax><NumeroEsteso>Errore</NumeroEsteso><PrefissoInternazionale/><PrefissoLocale/>"
            u"<Numero/></NumeroFax>");
}

}  // namespace
}  // namespace orvane::test
