#include "email/VqDocDestinatari.h"

#include "email/VqDocMessaggio.h"
#include "email/VqDocTrasmissioneEmail.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

template <class List>
struct Names;
template <>
struct Names<VqDocDestinatariA> {
  static inline const Text section = u"DestinatariA", element = u"A";
};
template <>
struct Names<VqDocDestinatariCc> {
  static inline const Text section = u"DestinatariCc", element = u"Cc";
};
template <>
struct Names<VqDocDestinatariCcn> {
  static inline const Text section = u"DestinatariCcn", element = u"Ccn";
};

template <class List>
class VqDocDestinatariTest : public JobTest {
 protected:
  VqDocDestinatariTest() { bind(list); }
  List list;
};
using Lists = testing::Types<VqDocDestinatariA, VqDocDestinatariCc, VqDocDestinatariCcn>;
TYPED_TEST_SUITE(VqDocDestinatariTest, Lists);

TYPED_TEST(VqDocDestinatariTest, ListsAreWrittenAsTheyComeToTheirOwnSection) {
  this->list.NomiVisualizzati = u"Mario; Anna;";
  this->list.IndirizziEmail = u"m@x.it,a@y.it";
  EXPECT_EQ(this->job().lines(), u'[' + Names<TypeParam>::section +
                                     u"]\nNomiVisualizzati=Mario; Anna;\nIndirizziEmail=m@x.it,a@y.it\n");
}

TYPED_TEST(VqDocDestinatariTest, ListsAreReadBack) {
  this->loadFrom(this->list, u'[' + Names<TypeParam>::section + u"]\nNomiVisualizzati=n\nIndirizziEmail=i\n");
  EXPECT_EQ(this->list.NomiVisualizzati.get(), u"n");
  EXPECT_EQ(this->list.IndirizziEmail.get(), u"i");
}

TYPED_TEST(VqDocDestinatariTest, XmlHasNamesThenAddressesUnderItsOwnElement) {
  this->list.IndirizziEmail = u"<m@x.it>";
  const Text& element = Names<TypeParam>::element;
  EXPECT_EQ(Components::xmlOf(this->list), u'<' + element +
                                               u"><NomiVisualizzati/><IndirizziEmail>&lt;m@x.it&gt;" +
                                               u"</IndirizziEmail></" + element + u'>');
}

class VqDocMessaggioTest : public JobTest {
 protected:
  VqDocMessaggioTest() { bind(message); }
  VqDocMessaggio message;
};

TEST_F(VqDocMessaggioTest, HasThirtyNotesFromZero) {
  EXPECT_EQ(message.LBoundNota(), 0);
  EXPECT_EQ(message.UBoundNota(), 29);
}

TEST_F(VqDocMessaggioTest, IndexOutsideRaisesSubscriptOutOfRangeAndStoresNothing) {
  for (const std::int32_t index : {-1, 30, 1000000}) {
    EXPECT_EQ(errorOf([&] { message.Nota(index) = u"x"; }), 9) << index;
    EXPECT_EQ(errorOf([&] { (void)message.Nota(index).get(); }), 9) << index;
  }
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(VqDocMessaggioTest, OneNoteWritesItsKeyAlone) {
  message.Nota(29) = u"fine";
  EXPECT_EQ(job().lines(), u"[Messaggio]\nNota_29=fine\n");
}

TEST_F(VqDocMessaggioTest, NotesAreReadBackIntoTheirSlots) {
  loadFrom(message, u"[Messaggio]\nNota_0=a\nNota_10=b\nNota_29=c\n");
  EXPECT_EQ(message.Nota(0).get() + message.Nota(10).get() + message.Nota(29).get(), u"abc");
  EXPECT_EQ(message.Nota(1).get(), u"");
}

TEST_F(VqDocMessaggioTest, OnlyKeysOfTheThirtySlotsAreReadEachUpTo255Characters) {
  message.Nota(1) = u"prima";
  const Text line(300, u'n');
  loadFrom(message, u"[Messaggio]\nNota_00=a\nNota_2=" + line + u"\nNota_30=b\n");
  EXPECT_EQ(message.Nota(0).get() + message.Nota(1).get(), u"");
  EXPECT_EQ(message.Nota(2).get(), line.substr(0, 255));
}

TEST_F(VqDocMessaggioTest, XmlOfANewMessageHasThirtyEmptyNotes) {
  Text notes;
  for (int i = 0; i < 30; ++i) notes += u"<Nota_" + fromUtf8(std::to_string(i)) + u"/>";
  EXPECT_EQ(Components::xmlOf(message), u"<Messaggio>" + notes + u"</Messaggio>");
}

class VqDocTrasmissioneEmailTest : public JobTest {
 protected:
  VqDocTrasmissioneEmailTest() { bind(record); }
  VqDocTrasmissioneEmail record;
};

TEST_F(VqDocTrasmissioneEmailTest, RetriesAreWrittenAsADateAndReadAsANumber) {
  record.Tentativi = 3;
  EXPECT_EQ(job().lines(), u"[TrasmissioneEmail]\nTentativi=3\n");
  VqDocTrasmissioneEmail again;
  bind(again);
  Components::load(again);
  EXPECT_EQ(again.Tentativi.get(), 3);
}

TEST_F(VqDocTrasmissioneEmailTest, NegativeRetriesAreAccepted) {
  record.Tentativi = -2;
  VqDocTrasmissioneEmail again;
  bind(again);
  Components::load(again);
  EXPECT_EQ(again.Tentativi.get(), -2);
}

TEST_F(VqDocTrasmissioneEmailTest, StoredRetriesAreRoundedHalvesToEven) {
  loadFrom(record, u"[TrasmissioneEmail]\nTentativi=2.5\n");
  EXPECT_EQ(record.Tentativi.get(), 2);
  loadFrom(record, u"[TrasmissioneEmail]\nTentativi=3.5\n");
  EXPECT_EQ(record.Tentativi.get(), 4);
}

TEST_F(VqDocTrasmissioneEmailTest, NextAttemptIsNeverWritten) {
  record.ProssimoTentativo = Date{39814};
  EXPECT_TRUE(folder.files().empty());
}

TEST_F(VqDocTrasmissioneEmailTest, NextAttemptKeepsItsValueWhenTheJobIsRead) {
  record.ProssimoTentativo = Date{39814};
  loadFrom(record, u"[TrasmissioneEmail]\nTentativi=1\nProssimoTentativo=5\n");
  EXPECT_EQ(record.ProssimoTentativo.get().days, 39814);
  EXPECT_EQ(record.Tentativi.get(), 1);
}

TEST_F(VqDocTrasmissioneEmailTest, XmlIsNamedTrasmissione) {
  record.Tentativi = 3;
  record.ProssimoTentativo = Date{39814.5};
  EXPECT_EQ(
      Components::xmlOf(record),
      u"<Trasmissione><Tentativi>3</Tentativi><ProssimoTentativo>39814.5</ProssimoTentativo></Trasmissione>");
}

}  // namespace
}  // namespace orvane::test
