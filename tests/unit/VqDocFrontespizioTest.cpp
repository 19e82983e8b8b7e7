#include "fax/VqDocFrontespizio.h"

#include "fax/VqDocCedolino.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class VqDocFrontespizioTest : public JobTest {
 protected:
  VqDocFrontespizioTest() { bind(cover); }
  VqDocFrontespizio cover;
};

TEST_F(VqDocFrontespizioTest, HasTenNotesFromZero) {
  EXPECT_EQ(cover.LBoundNota(), 0);
  EXPECT_EQ(cover.UBoundNota(), 9);
}

TEST_F(VqDocFrontespizioTest, NoteOfAFreshPageIsNineLineBreaks) {
  Text breaks;
  for (int i = 0; i < 9; ++i) breaks += u"\r\n";
  EXPECT_EQ(cover.Note(), breaks);
}

TEST_F(VqDocFrontespizioTest, NoteJoinsTheNotesInOrder) {
  cover.Nota(0) = u"prima";
  cover.Nota(2) = u"terza";
  cover.Nota(9) = u"ultima";
  EXPECT_EQ(cover.Note(), u"prima\r\n\r\nterza\r\n\r\n\r\n\r\n\r\n\r\n\r\nultima");
}

TEST_F(VqDocFrontespizioTest, OneNoteWritesItsKeyAlone) {
  cover.Nota(3) = u"testo";
  EXPECT_EQ(job().lines(), u"[Frontespizio]\nNota_3=testo\n");
}

TEST_F(VqDocFrontespizioTest, IndexTenRaisesSubscriptOutOfRangeAndChangesNothing) {
  EXPECT_EQ(errorOf([&] { cover.Nota(10) = u"x"; }), 9);
  EXPECT_EQ(errorOf([&] { (void)cover.Nota(10).get(); }), 9);
  EXPECT_EQ(errorOf([&] { cover.Nota(255) = u"x"; }), 9);
  EXPECT_FALSE(job().hasSection(u"Frontespizio"));
}

TEST_F(VqDocFrontespizioTest, ValuesAreReadBack) {
  loadFrom(cover, u"[Frontespizio]\nInviare=-1\nNota_0=a\nNota_9=b\n");
  EXPECT_TRUE(cover.Inviare.get());
  EXPECT_EQ(cover.Nota(0).get(), u"a");
  EXPECT_EQ(cover.Nota(5).get(), u"");
  EXPECT_EQ(cover.Nota(9).get(), u"b");
}

TEST_F(VqDocFrontespizioTest, XmlHasTheFlagThenEveryNote) {
  cover.Inviare = true;
  cover.Nota(0) = u"<a>";
  cover.Nota(9) = u"b";
  EXPECT_EQ(
      Components::xmlOf(cover),
      u"<Frontespizio><Inviare>-1</Inviare><Nota_0>&lt;a&gt;</Nota_0><Nota_1/><Nota_2/><Nota_3/><Nota_4/>"
      u"<Nota_5/><Nota_6/><Nota_7/><Nota_8/><Nota_9>b</Nota_9></Frontespizio>");
}

TEST_F(VqDocFrontespizioTest, XmlSaysZeroUntilThePageIsToBeSent) {
  EXPECT_TRUE(Components::xmlOf(cover).starts_with(u"<Frontespizio><Inviare>0</Inviare><Nota_0/>"));
}

class VqDocCedolinoTest : public JobTest {
 protected:
  VqDocCedolinoTest() { bind(slip); }
  VqDocCedolino slip;
};

TEST_F(VqDocCedolinoTest, EveryAssignmentIsWritten) {
  slip.Stampare = true;
  slip.Stampante = u"\\\\server\\laser";
  slip.StampanteOrigine = u"LPT1";
  EXPECT_EQ(job().lines(), u"[Cedolino]\nStampare=-1\nStampante=\\\\server\\laser\nStampanteOrigine=LPT1\n");
}

TEST_F(VqDocCedolinoTest, ValuesAreReadBack) {
  loadFrom(slip, u"[Cedolino]\nStampare=-1\nStampante=A\nStampanteOrigine=B\n");
  EXPECT_TRUE(slip.Stampare.get());
  EXPECT_EQ(slip.Stampante.get(), u"A");
  EXPECT_EQ(slip.StampanteOrigine.get(), u"B");
}

TEST_F(VqDocCedolinoTest, XmlSaysZeroUntilItIsToBePrinted) {
  EXPECT_EQ(Components::xmlOf(slip),
            u"<Cedolino><Stampare>0</Stampare><Stampante/><StampanteOrigine/></Cedolino>");
}

TEST_F(VqDocCedolinoTest, XmlHasThePrintersInTheirOrder) {
  slip.Stampare = true;
  slip.StampanteOrigine = u"B";
  slip.Stampante = u"A";
  EXPECT_EQ(Components::xmlOf(slip),
            u"<Cedolino><Stampare>-1</Stampare><Stampante>A</Stampante><StampanteOrigine>B</StampanteOrigine>"
            u"</Cedolino>");
}

}  // namespace
}  // namespace orvane::test
