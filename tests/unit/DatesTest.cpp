#include <cmath>
#include <ctime>

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Calendar : Row {
  Date date;
  double days;
};

class SerialNumbers : public testing::TestWithParam<Calendar> {};

TEST_P(SerialNumbers, CountDaysFromTheThirtiethOfDecember1899) {
  EXPECT_EQ(GetParam().date.days, GetParam().days);
}

INSTANTIATE_TEST_SUITE_P(Known, SerialNumbers,
                         testing::Values(Calendar{"Epoch", dateOf(1899, 12, 30), 0},
                                         Calendar{"NextNoon", dateOf(1899, 12, 31, 12), 1.5},
                                         Calendar{"SecondOfJanuaryNoon", dateOf(1900, 1, 2, 12), 3.5},
                                         Calendar{"NoLeapDayIn1900", dateOf(1900, 3, 1), 61},
                                         Calendar{"LeapDayIn2000", dateOf(2000, 2, 29), 36585},
                                         Calendar{"FirstOfJanuary2009", dateOf(2009, 1, 1), 39814},
                                         Calendar{"LastSecondOfADay", dateOf(2009, 1, 1, 23, 59, 59),
                                                  39814 + 86399 / 86400.0},
                                         Calendar{"NoLeapDayIn2100", dateOf(2100, 3, 1), 73110},
                                         Calendar{"LastDay", dateOf(9999, 12, 31), 2958465},
                                         Calendar{"FirstDay", dateOf(100, 1, 1), -657434}),
                         rowName);

// Before the epoch the fraction still counts forward from midnight.
INSTANTIATE_TEST_SUITE_P(BeforeTheEpoch, SerialNumbers,
                         testing::Values(Calendar{"DayBefore", dateOf(1899, 12, 29), -1},
                                         Calendar{"DayBeforeAtSix", dateOf(1899, 12, 29, 6), -1.25},
                                         Calendar{"EpochAtSix", dateOf(1899, 12, 30, 6), 0.25}),
                         rowName);

TEST(Clocks, ShowTheTimeThatATestSets) {
  FixedClock clock(dateOf(2026, 11, 21, 12));
  EXPECT_EQ(Apartment::now(), (Date{46347.5}));
  clock.set(Date{1.5});
  EXPECT_EQ(Apartment::now(), (Date{1.5}));
}

TEST(Clocks, OfTheSystemTellWholeSeconds) {
  const double seconds = systemClock()->now().days * 86400;
  EXPECT_NEAR(seconds, std::round(seconds), 1e-3);
}

TEST(Clocks, OfTheSystemAgreeWithTheCalendar) {
  const double before = systemClock()->now().days;
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  const Date expected = dateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                               local.tm_min, local.tm_sec);
  EXPECT_LE(before, expected.days);
  EXPECT_LT(expected.days - before, 60.0 / 86400);
}

}  // namespace
}  // namespace orvane::test
