#include "core/Text.h"

#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Encoding : Row {
  Text text;
  std::string bytes;
};

class TextInUtf8 : public testing::TestWithParam<Encoding> {};

TEST_P(TextInUtf8, EncodesAndReadsBack) {
  EXPECT_EQ(toUtf8(GetParam().text), GetParam().bytes);
  EXPECT_EQ(fromUtf8(GetParam().bytes), GetParam().text);
  EXPECT_TRUE(isUtf8(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(
    Edges, TextInUtf8,
    testing::Values(Encoding{"Empty", u"", ""}, Encoding{"Null", Text(1, u'\0'), std::string(1, '\0')},
                    Encoding{"LastOfOneByte", u"\u007F", "\x7F"},
                    Encoding{"FirstOfTwoBytes", Text(1, 0x80), "\xC2\x80"},
                    Encoding{"LastOfTwoBytes", u"\u07FF", "\xDF\xBF"},
                    Encoding{"FirstOfThreeBytes", u"\u0800", "\xE0\xA0\x80"},
                    Encoding{"LastBeforeSurrogates", u"\uD7FF", "\xED\x9F\xBF"},
                    Encoding{"FirstAfterSurrogates", u"\uE000", "\xEE\x80\x80"},
                    Encoding{"LastOfThreeBytes", u"\uFFFF", "\xEF\xBF\xBF"},
                    Encoding{"FirstOfFourBytes", u"\U00010000", "\xF0\x90\x80\x80"},
                    Encoding{"Last", u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
                    Encoding{"Mixed", u"aè€😀", "a\xC3\xA8\xE2\x82\xAC\xF0\x9F\x98\x80"},
                    Encoding{"LoneHighSurrogate", Text{0xD800, u'a'},
                             "\xED\xA0\x80"
                             "a"},
                    Encoding{"HighSurrogateAtTheEnd", Text{u'a', 0xDBFF}, "a\xED\xAF\xBF"},
                    Encoding{"LoneLowSurrogate", Text{0xDFFF}, "\xED\xBF\xBF"},
                    Encoding{"SurrogatesInWrongOrder", Text{0xDC00, 0xD800}, "\xED\xB0\x80\xED\xA0\x80"}),
    rowName);

struct Malformed : Row {
  std::string bytes;
  Text text;
};

class BytesThatAreNoUtf8 : public testing::TestWithParam<Malformed> {};

TEST_P(BytesThatAreNoUtf8, AreRecognisedAndReplaced) {
  EXPECT_FALSE(isUtf8(GetParam().bytes));
  EXPECT_EQ(fromUtf8(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, BytesThatAreNoUtf8,
    testing::Values(Malformed{"ContinuationAlone", "a\x80z", u"a\uFFFDz"},
                    Malformed{"LastContinuationAlone", "\xBF", u"\uFFFD"},
                    Malformed{"LeadAtTheEnd", "a\xC3", u"a\uFFFD"},
                    Malformed{"LeadBeforeAscii", "\xC3(", u"\uFFFD("},
                    Malformed{"ThreeBytesCutOff", "\xE2\x82", u"\uFFFD\uFFFD"},
                    Malformed{"FourBytesCutOff", "\xF0\x9F\x98", u"\uFFFD\uFFFD\uFFFD"},
                    Malformed{"OverlongNull", "\xC0\x80", u"\uFFFD\uFFFD"},
                    Malformed{"OverlongLastAscii", "\xC1\xBF", u"\uFFFD\uFFFD"},
                    Malformed{"OverlongThreeBytes", "\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
                    Malformed{"OverlongFourBytes", "\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Malformed{"PastTheLast", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Malformed{"LeadPastTheLast", "\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Malformed{"ByteFE", "\xFE", u"\uFFFD"}, Malformed{"ByteFF", "\xFF", u"\uFFFD"}),
    rowName);

TEST(Windows1252, ReadsEveryByteOfTheUpperControlsByItsTable) {
  std::string bytes;
  for (int byte = 0x80; byte <= 0x9F; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(fromWindows1252(bytes), Text(u"€") + char16_t{0x81} + u"‚ƒ„…†‡ˆ‰Š‹Œ" + char16_t{0x8D} + u"Ž" +
                                        char16_t{0x8F} + char16_t{0x90} + u"‘’“”•–—˜™š›œ" + char16_t{0x9D} +
                                        u"žŸ");
}

TEST(Windows1252, ReadsEveryOtherByteAsTheUnitOfItsValue) {
  for (int byte = 0; byte <= 0xFF; ++byte) {
    if (byte >= 0x80 && byte <= 0x9F) continue;
    EXPECT_EQ(fromWindows1252(std::string(1, static_cast<char>(byte))), Text(1, static_cast<char16_t>(byte)));
  }
}

TEST(CaseFolding, LowersAsciiAndLatin1LettersAndNothingElse) {
  for (std::uint32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const bool ascii = unit >= 'A' && unit <= 'Z';
    const bool latin1 = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
    const auto expected = static_cast<char16_t>(ascii || latin1 ? unit + 32 : unit);
    ASSERT_EQ(foldCase(static_cast<char16_t>(unit)), expected) << "unit " << unit;
  }
}

TEST(CaseFolding, MakesNamesEqualThatDifferInCase) {
  EXPECT_TRUE(equalIgnoringCase(u"PROPRIETÀ", u"Proprietà"));
  EXPECT_TRUE(equalIgnoringCase(u"", u""));
  EXPECT_FALSE(equalIgnoringCase(u"Copie", u"Copi"));
  EXPECT_FALSE(equalIgnoringCase(u"\u00D7", u"\u00F7"));  // signs of multiplication and division
}

}  // namespace
}  // namespace orvane::test
