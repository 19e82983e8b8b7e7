#include <gtest/gtest.h>

#include "cli/PrettyXml.h"

namespace orvane::cli {
namespace {

TEST(PrettyXml, GivesEachElementALine) {
  EXPECT_EQ(prettyXml("<a>text<b/><c>1</c><d><e/></d></a>"),
            "<a>text\n  <b/>\n  <c>1</c>\n  <d>\n    <e/>\n  </d>\n</a>");
}

TEST(PrettyXml, LeavesASingleElementAndNothingAsTheyAre) {
  EXPECT_EQ(prettyXml("<a/>"), "<a/>");
  EXPECT_EQ(prettyXml("<a>x y</a>"), "<a>x y</a>");
  EXPECT_EQ(prettyXml(""), "");
}

}  // namespace
}  // namespace orvane::cli
