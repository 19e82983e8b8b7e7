#include "cli/Progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orvane::cli {
namespace {

using namespace std::chrono_literals;

constexpr const char* kWiped = "\r\x1B[K";

std::string shown(std::size_t width, Progress::Clock::duration patience, std::size_t steps,
                  std::size_t total) {
  std::ostringstream terminal;
  {
    Progress progress(
        terminal, width, [total] { return total; }, patience);
    for (std::size_t i = 0; i < steps; ++i) progress.step();
  }
  return terminal.str();
}

TEST(Progress, ShowsHowManyAreDone) {
  EXPECT_EQ(shown(24, 0ms, 1, 4), std::string("\r[###...........] 1 of 4\x1B[K") + kWiped);
}

TEST(Progress, ShowsNothingWithoutATerminal) { EXPECT_EQ(shown(0, 0ms, 3, 3), ""); }

TEST(Progress, ShowsNothingOfWhatIsDoneSoon) { EXPECT_EQ(shown(80, 1h, 1000, 1000), ""); }

TEST(Progress, StaysWithinANarrowTerminal) {
  EXPECT_EQ(shown(6, 0ms, 1, 1000), std::string("\r 1 of\x1B[K") + kWiped);
}

TEST(Progress, CountsOnWhereMoreIsDoneThanThereWas) {
  EXPECT_NE(shown(80, 0ms, 1, 0).find("1 of 1"), std::string::npos);
}

TEST(Progress, IsDrawnTenTimesASecondAtMost) {
  const std::string text = shown(80, 0ms, 1000, 1000);
  EXPECT_EQ(text.find("of 1000", text.find("of 1000") + 1), std::string::npos);
}

}  // namespace
}  // namespace orvane::cli
