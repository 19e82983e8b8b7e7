#include "core/ProfileAccess.h"

#include <cmath>
#include <limits>

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

class ProfileAccessTest : public JobTest {
 protected:
  ProfileAccess& access = Apartment::profileAccess();
  const std::shared_ptr<JobFile> file = access.open(jobName());

  void store(TextView value) const { writeJobFile(jobName(), u"[S]\nK=" + Text(value) + u'\n'); }
};

TEST_F(ProfileAccessTest, KeepsNothingOfAFileLookedAtUntilItIsKept) {
  const Text name = folder.file(u"altro.vqs");
  const auto looked = access.probe(name);
  EXPECT_NE(access.probe(name), looked);
  access.keep(looked);
  EXPECT_EQ(access.probe(name), looked);
  EXPECT_EQ(access.open(name), looked);
}

TEST_F(ProfileAccessTest, SharesTheFileOfALoadedDocument) {
  VqDocStampa document;
  EXPECT_EQ(errorOf([&] { document.Carica(folder.path(), u"altro.vqs"); }), 53);
  writeJobFile(folder.file(u"altro.vqs"), u"[Stampa]\nNumero=7\n");
  document.Carica(folder.path(), u"altro.vqs");
  const auto shared = access.probe(folder.file(u"altro.vqs"));
  EXPECT_EQ(access.probe(folder.file(u"altro.vqs")), shared);
}

TEST_F(ProfileAccessTest, GivesTheDefaultForAKeyNeverWritten) {
  EXPECT_EQ(access.LeggiTesto(*file, u"S", u"K", u"x"), u"x");
  EXPECT_EQ(access.LeggiNumero(*file, u"S", u"K", 1.5), 1.5);
  EXPECT_EQ(access.LeggiData(*file, u"S", u"K"), Date{});
  EXPECT_TRUE(access.LeggiBooleano(*file, u"S", u"K", true));
}

TEST_F(ProfileAccessTest, CutsLongTextsOnReadingOnly) {
  Text text(255, u'a');
  text += Text(45, u'b');
  access.ScriviTesto(*file, u"S", u"K", text);
  EXPECT_EQ(job().value(u"S", u"K"), text);
  EXPECT_EQ(access.LeggiTesto(*file, u"S", u"K"), Text(255, u'a'));
}

TEST_F(ProfileAccessTest, WritesEveryKindInItsForm) {
  access.ScriviTesto(*file, u"S", u"Testo", u"perché \"no\"");
  access.ScriviNumero(*file, u"S", u"Numero", 0.1);
  access.ScriviData(*file, u"S", u"Data", Date{39814.5});
  access.ScriviBooleano(*file, u"S", u"Vero", true);
  access.ScriviBooleano(*file, u"S", u"Falso", false);
  EXPECT_EQ(job().lines(), u"[S]\nTesto=perché \"no\"\nNumero=0.1\nData=39814.5\nVero=-1\nFalso=0\n");
}

TEST_F(ProfileAccessTest, ReadsADateAsANumberToo) {
  access.ScriviData(*file, u"S", u"K", Date{-1.25});
  EXPECT_EQ(access.LeggiNumero(*file, u"S", u"K"), -1.25);
  EXPECT_EQ(access.LeggiData(*file, u"S", u"K"), Date{-1.25});
}

TEST_F(ProfileAccessTest, SharesAFileWhileItIsHeld) { EXPECT_EQ(access.open(jobName()), file); }

TEST_F(ProfileAccessTest, WritesNothingUnderAnEmptyName) {
  JobFile& nowhere = *ProfileAccess::noFile();
  access.ScriviTesto(nowhere, u"S", u"K", u"x");
  EXPECT_EQ(access.LeggiTesto(nowhere, u"S", u"K", u"default"), u"default");
}

TEST_F(ProfileAccessTest, RaisesPathNotFoundWhereTheFolderIsMissing) {
  const auto lost = access.open(folder.file(u"nessuna\\job.ini"));
  EXPECT_EQ(errorOf([&] { access.ScriviNumero(*lost, u"S", u"K", 1); }), 76);
  EXPECT_EQ(access.LeggiNumero(*lost, u"S", u"K", 7), 7);
}

// Other words for them are foreign, and read as the default like any word.
TEST_F(ProfileAccessTest, ReadsTheWordsOfNumbersThatAreNotFinite) {
  for (const double days : {kInfinity, -kInfinity, kNotANumber, -kNotANumber}) {
    access.ScriviData(*file, u"S", u"K", Date{days});
    const double read = access.LeggiData(*file, u"S", u"K").days;
    EXPECT_EQ(std::isnan(read), std::isnan(days)) << days;
    EXPECT_EQ(read > 0, days > 0) << days;
    EXPECT_EQ(std::signbit(read), std::signbit(days)) << days;
    EXPECT_EQ(access.LeggiIntero(*file, u"S", u"K", 7), 7) << days;
  }
  for (const TextView word : {u"inf", u"-inf", u"nan", u"1.#inf", u"1.#INFO", u"+1.#INF", u"1.#IND"}) {
    store(word);
    EXPECT_EQ(access.LeggiData(*file, u"S", u"K", Date{9}), Date{9}) << toUtf8(word);
    EXPECT_EQ(access.LeggiIntero(*file, u"S", u"K", 9), 9) << toUtf8(word);
  }
}

struct Stored : Row {
  Text stored;
  double number;
  bool truth;
};

class StoredValues : public ProfileAccessTest, public testing::WithParamInterface<Stored> {};

// 9 and True are the defaults, so a row shows whether they were taken.
TEST_P(StoredValues, ReadAsNumberAndTruth) {
  store(GetParam().stored);
  EXPECT_EQ(access.LeggiNumero(*file, u"S", u"K", 9), GetParam().number);
  EXPECT_EQ(access.LeggiBooleano(*file, u"S", u"K", true), GetParam().truth);
}

INSTANTIATE_TEST_SUITE_P(Forms, StoredValues,
                         testing::Values(Stored{"MinusOne", u"-1", -1, true}, Stored{"Zero", u"0", 0, false},
                                         Stored{"Fraction", u"2.5", 2.5, true},
                                         Stored{"ZeroFraction", u"0.0", 0, false},
                                         Stored{"True", u"TRUE", 9, true},
                                         Stored{"False", u"false", 9, false}, Stored{"Word", u"tre", 9, true},
                                         Stored{"Nothing", u"", 9, true}, Stored{"Comma", u"1,5", 9, true},
                                         Stored{"ForeignInfinity", u"inf", 9, true},
                                         Stored{"Infinity", u"1.#INF", kInfinity, true},
                                         Stored{"MinusInfinity", u"-1.#INF", -kInfinity, true}),
                         rowName);

}  // namespace
}  // namespace orvane::test
