#include "core/Guid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace orvane::test {
namespace {

// The text with every hexadecimal digit turned to 'H'.
Text shapeOf(Text guid) {
  const auto isDigit = [](char16_t unit) { return TextView(u"0123456789ABCDEF").find(unit) != Text::npos; };
  std::replace_if(guid.begin(), guid.end(), isDigit, u'H');
  return guid;
}

TEST(Guids, StandInRegistryFormat) {
  EXPECT_EQ(shapeOf(newGuid()), u"{HHHHHHHH-HHHH-HHHH-HHHH-HHHHHHHHHHHH}");
}

TEST(Guids, DifferFromEachOther) {
  std::set<Text> seen;
  for (int i = 0; i < 1000; ++i) seen.insert(newGuid());
  EXPECT_EQ(seen.size(), 1000u);
}

TEST(Guids, AreMarkedAsRandom) {
  const Text guid = newGuid();
  EXPECT_EQ(guid[15], u'4');
  EXPECT_NE(TextView(u"89AB").find(guid[20]), TextView::npos);
}

}  // namespace
}  // namespace orvane::test
