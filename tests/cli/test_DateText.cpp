#include <gtest/gtest.h>

#include "cli/DateText.h"
#include "core/FileSystem.h"

namespace orvane::cli {
namespace {

struct DateCase {
  double days;
  const char* text;
};

constexpr DateCase kDates[] = {{46347, "2026-11-21"},
                               {46347.5, "2026-11-21 12:00:00"},
                               {46347.604166666664, "2026-11-21 14:30:00"},
                               {1, "1899-12-31"},
                               {0.25, "1899-12-30 06:00:00"},
                               {-1, "1899-12-29"},
                               {-1.25, "1899-12-29 06:00:00"},
                               {60, "1900-02-28"},
                               {36585, "2000-02-29"},
                               {-657434, "0100-01-01"},
                               {2958465, "9999-12-31"}};

TEST(DateText, WritesCalendarDates) {
  for (const DateCase& row : kDates) EXPECT_EQ(dateText({row.days}), row.text) << row.days;
}

TEST(DateText, ReadsBackWhatItWrites) {
  for (const DateCase& row : kDates) {
    const auto date = parseDate(row.text);
    ASSERT_TRUE(date) << row.text;
    EXPECT_NEAR(date->days, row.days, 1e-9) << row.text;
  }
}

TEST(DateText, RoundsToTheSecondAndIntoTheNextDay) {
  EXPECT_EQ(dateText({46347.9999999}), "2026-11-22");
  EXPECT_EQ(dateText({46347 + 0.6 / 86400}), "2026-11-21 00:00:01");
}

TEST(DateText, IsEmptyForADateThatIsNotSet) { EXPECT_EQ(dateText({0}), ""); }

TEST(DateText, IsTheSerialNumberOutsideTheCalendar) {
  EXPECT_EQ(dateText({2958466}), "2958466");
  EXPECT_EQ(dateText({-657435}), "-657435");
}

TEST(ParseDate, TakesShorterFormsAndSerialNumbers) {
  EXPECT_EQ(parseDate(""), Date{0});
  EXPECT_EQ(parseDate("46347.5"), Date{46347.5});
  EXPECT_EQ(parseDate("2026-1-2"), dateOf(2026, 1, 2));
  EXPECT_EQ(parseDate("2026-11-21 9:05"), dateOf(2026, 11, 21, 9, 5));
  EXPECT_EQ(parseDate("2026-11-21T09:05:59"), dateOf(2026, 11, 21, 9, 5, 59));
}

TEST(ParseDate, RefusesWhatIsNoDate) {
  for (const char* text :
       {"domani", "2026-02-29", "2026-13-01", "2026-00-01", "2026-06-31", "0099-01-01", "2026-11-21 24:00",
        "2026-11-21 10:60", "2026-11-21 10", "21/11/2026", "2026-11-21 "}) {
    EXPECT_FALSE(parseDate(text)) << text;
  }
}

}  // namespace
}  // namespace orvane::cli
