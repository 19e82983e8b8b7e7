#include "core/Units.h"

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

// Neighbours in value, so that a borrow between places would show.
constexpr char16_t kUnits[] = {0, 1, 0x1F, 0x20, 0x21, u'=', u'>', 0x7FFF, 0x8000, 0xFFFF};

// Every text of `length` units of those, cut to its end from a text that goes on with what is looked for.
template <class Check>
void forEachText(std::size_t length, Check check) {
  const std::size_t count = std::size(kUnits);
  std::size_t texts = 1;
  for (std::size_t i = 0; i < length; ++i) texts *= count;
  for (std::size_t number = 0; number < texts; ++number) {
    Text text(length, u'\0');
    std::size_t rest = number;
    for (char16_t& unit : text) unit = kUnits[rest % count], rest /= count;
    check(TextView(text + u"=\x01====").substr(0, length));
  }
}

TEST(Units, FindsTheFirstPlaceOfAUnitWhateverStandsBesideIt) {
  for (std::size_t length = 0; length <= 5; ++length) {
    forEachText(length, [](TextView text) {
      for (std::size_t at = 0; at <= text.size(); ++at) {
        const std::size_t expected = std::min(text.find(u'=', at), text.size());
        ASSERT_EQ(findUnit(text, u'=', at), expected) << "from " << at;
      }
    });
  }
}

TEST(Units, MarksTheFirstUnitBelowALimit) {
  forEachText(4, [](TextView text) {
    for (const char16_t limit : {0x01, 0x20, 0x8000}) {
      const auto first = std::find_if(text.begin(), text.end(), [&](char16_t unit) { return unit < limit; });
      const std::size_t found =
          findMarked(text, 0, [&](std::uint64_t four) { return marksBelow(four, limit); });
      ASSERT_EQ(found, static_cast<std::size_t>(first - text.begin())) << static_cast<int>(limit);
    }
  });
}

TEST(Units, ComparesTextsOfAnyLengthUnitByUnit) {
  const Text long_ = u"Intestatario";
  for (std::size_t length = 0; length <= long_.size(); ++length) {
    const Text text = long_.substr(0, length);
    EXPECT_TRUE(same(text, TextView(long_).substr(0, length)));
    for (std::size_t at = 0; at < length; ++at) {
      Text other = text;
      other[at] = u'X';
      EXPECT_FALSE(same(text, other)) << length << ", " << at;
    }
    EXPECT_FALSE(same(text, text + u'x'));
  }
}

}  // namespace
}  // namespace orvane::test
