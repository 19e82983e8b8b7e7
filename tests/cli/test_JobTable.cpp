#include "cli/JobTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "cli/Json.h"
#include "cli/Session.h"

namespace orvane::cli {
namespace {

TEST(DisplayWidth, CountsTheColumnsOfATerminal) {
  EXPECT_EQ(displayWidth(""), 0u);
  EXPECT_EQ(displayWidth("perch\u00E9"), 6u);
  EXPECT_EQ(displayWidth("e\u0301"), 1u) << "a combining mark";
  EXPECT_EQ(displayWidth("\u65E5\U0001F600"), 4u) << "wide letters";
  EXPECT_EQ(displayWidth("\u2026"), 1u);
}

TEST(Fitted, FillsOrCutsToTheWidth) {
  EXPECT_EQ(fitted("abc", 5), "abc  ");
  EXPECT_EQ(fitted("abcde", 5), "abcde");
  EXPECT_EQ(fitted("abcdef", 5), "abcd\u2026");
  EXPECT_EQ(fitted("\u65E5\u65E5\u65E5", 4), "\u65E5\u2026 ") << "no letter is cut in half";
}

TEST(AgeText, HasOneUnit) {
  const Date now{46000};
  const auto ago = [&](double days) { return ageText({now.days - days}, now); };
  EXPECT_EQ(ago(3.9), "3d");
  EXPECT_EQ(ago(1), "1d");
  EXPECT_EQ(ago(23.0 / 24), "23h");
  EXPECT_EQ(ago(59.0 / 1440), "59m");
  EXPECT_EQ(ago(59.0 / 86400), "59s");
  EXPECT_EQ(ago(-1), "0s") << "a clock of another machine";
  EXPECT_EQ(ageText({}, now), "-");
}

TEST(JobTable, HasRoomForEveryStateWhereTheTerminalIsWide) {
  const Session session(Purpose::Look);  // without it codes have no texts
  for (const JobKind& kind : allJobKinds()) {
    const QueueInfo& queue = queueOf(kind);
    for (const EnumMember& state : queue.states->members) {
      JobRow row;
      row.kind = &kind;
      row.stateText = toUtf8(describe(*queue.names, state.value));
      std::ostringstream out;
      JobTable(out, 140, Date{}).print(row);
      EXPECT_NE(out.str().find("  " + row.stateText + "  "), std::string::npos) << out.str();
    }
  }
}

TEST(JsonText, EscapesWhatCouldEndATextOrBeginATag) {
  EXPECT_EQ(jsonText("a\"b\\c\n"), "\"a\\\"b\\\\c\\u000a\"");
  EXPECT_EQ(jsonText("</script>&"), "\"\\u003c/script\\u003e\\u0026\"");
  EXPECT_EQ(jsonText("\u00E8\U0001F600"), "\"\u00E8\U0001F600\"");
  EXPECT_EQ(jsonText(toUtf8(Text(1, char16_t{0xD800}))), "\"\\ud800\"") << "a lone surrogate is no UTF-8";
  EXPECT_EQ(jsonText(toUtf8(Text(1, char16_t{0xDFFF}))), "\"\\udfff\"");
}

TEST(JsonDate, IsACalendarDateWhereThereIsOne) {
  EXPECT_EQ(jsonDate({46347}), "\"2026-11-21T00:00:00\"");
  EXPECT_EQ(jsonDate({46347.75}), "\"2026-11-21T18:00:00\"");
  EXPECT_EQ(jsonDate({}), "null");
  EXPECT_EQ(jsonDate({1e9}), "1000000000");
  EXPECT_EQ(jsonDate({std::numeric_limits<double>::infinity()}), "null");
}

}  // namespace
}  // namespace orvane::cli
