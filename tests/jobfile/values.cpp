// Texts of every awkward kind come back unchanged, and how they stand in the file.
#include <random>

#include "tests/jobfile/JobFolder.h"

namespace orvane::test {
namespace {

using namespace std::string_view_literals;

using JobFileValues = JobFolder;

struct Stored {
  const char* name;
  TextView value;
  TextView stored;
};

void PrintTo(const Stored& row, std::ostream* out) { *out << row.name; }

class JobFileValue : public JobFolder, public testing::WithParamInterface<Stored> {};

TEST_P(JobFileValue, StandsSoAndComesBack) {
  JobFile(published()).write(u"A", u"k", GetParam().value);
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=" + Text(GetParam().stored) + u"\r\n"));
  JobFile again(published());
  EXPECT_EQ(readText(again, u"A", u"k"), Text(GetParam().value));
}

constexpr Stored kStored[] = {
    {"Empty", u""sv, u""sv},
    {"Plain", u"Fattura n. 12"sv, u"Fattura n. 12"sv},
    {"LeadingBlank", u" a"sv, u"\" a\""sv},
    {"TrailingBlank", u"a "sv, u"\"a \""sv},
    {"OneBlank", u" "sv, u"\" \""sv},
    {"InnerBlanks", u"a  b"sv, u"a  b"sv},
    {"Quoted", u"\"a\""sv, u"\"\"a\"\""sv},
    {"OneQuote", u"\""sv, u"\"\"\""sv},
    {"LeadingQuote", u"\"a"sv, u"\"\"a\""sv},
    {"TrailingQuote", u"a\""sv, u"\"a\"\""sv},
    {"Apostrophes", u"'a'"sv, u"\"'a'\""sv},
    {"InnerQuotes", u"a\"b'c"sv, u"a\"b'c"sv},
    {"Lines", u"a\r\nb"sv, u"a\u241B000D\u241B000Ab"sv},
    {"Tab", u"\ta\t"sv, u"\"\u241B0009a\u241B0009\""sv},
    {"Nul", u"a\0b"sv, u"a\u241B0000b"sv},
    {"LastControl", u"\x1F"sv, u"\u241B001F"sv},
    {"DeleteAndC1", u"a\x7F\u0080z"sv, u"a\x7F\u0080z"sv},
    {"EscapeSign", u"\u241B"sv, u"\u241B241B"sv},
    {"EscapeSignAndDigits", u"\u241B0041"sv, u"\u241B241B0041"sv},
    {"NoBreakSpace", u"\u00A0a"sv, u"\"\u00A0a\""sv},
    {"MongolianSeparator", u"\u180Ea"sv, u"\"\u180Ea\""sv},
    {"NextLineFirst", u"\u0085a"sv, u"\"\u0085a\""sv},
    {"EmSpaceLast", u"a\u2003"sv, u"\"a\u2003\""sv},
    {"LineSeparatorFirst", u"\u2028a"sv, u"\"\u2028a\""sv},
    {"ParagraphSeparatorLast", u"a\u2029"sv, u"\"a\u2029\""sv},
    {"Semicolon", u";a"sv, u";a"sv},
    {"SectionLike", u"[B]"sv, u"[B]"sv},
    {"KeyLike", u"k=1"sv, u"k=1"sv},
    {"Astral", u"\U0001F4E0"sv, u"\U0001F4E0"sv},
    {"LoneSurrogate", u"a\xD800z"sv, u"a\xD800z"sv},
    {"ByteOrderMark", u"\uFEFF"sv, u"\"\uFEFF\""sv},
    {"LineSeparator", u"a\u2028b"sv, u"a\u2028b"sv},
};

INSTANTIATE_TEST_SUITE_P(Rows, JobFileValue, testing::ValuesIn(kStored),
                         [](const auto& row) { return std::string(row.param.name); });

struct Foreign {
  const char* name;
  TextView stored;
  TextView value;
};

void PrintTo(const Foreign& row, std::ostream* out) { *out << row.name; }

class ForeignValue : public JobFolder, public testing::WithParamInterface<Foreign> {};

TEST_P(ForeignValue, ReadsSo) {
  put(onDisk(u"[A]\r\nk=" + Text(GetParam().stored) + u"\r\n"));
  JobFile file(published());
  EXPECT_EQ(readText(file, u"A", u"k"), Text(GetParam().value));
}

constexpr Foreign kForeign[] = {
    {"QuotesComeOff", u"\"a\""sv, u"a"sv},
    {"ApostrophesComeOff", u"'a'"sv, u"a"sv},
    {"OnePairOnly", u"\"\"a\"\""sv, u"\"a\""sv},
    {"UnequalQuotesStay", u"\"a'"sv, u"\"a'"sv},
    {"OneQuoteStays", u"\""sv, u"\""sv},
    {"EmptyQuotes", u"\"\""sv, u""sv},
    {"SmallDigits", u"\u241B000a"sv, u"\n"sv},
    {"EscapeWithoutDigitsStays", u"\u241Bxyz"sv, u"\u241Bxyz"sv},
    {"EscapeBelowDigitsStays", u"\u241B00/0"sv, u"\u241B00/0"sv},
    {"EscapeBehindDigitsStays", u"\u241B000:"sv, u"\u241B000:"sv},
    {"EscapeBehindLettersStays", u"\u241B00g0"sv, u"\u241B00g0"sv},
    {"OuterBlanksOfEveryKind", u"\v\f\x1A\t a\t \x1A\f\v"sv, u"a"sv},
    {"EscapeAtTheEndStays", u"a\u241B00"sv, u"a\u241B00"sv},
    {"EscapeBeforeEscape", u"\u241B\u241B0041"sv,
     u"\u241B"
     u"A"sv},
};

INSTANTIATE_TEST_SUITE_P(Rows, ForeignValue, testing::ValuesIn(kForeign),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(JobFileValues, AnyUnitComesBackAtBothEnds) {
  JobFile file(published());
  file.together([&] {
    for (unsigned unit = 0; unit < 0x10000; unit += 16) {
      Text value;
      for (unsigned i = 0; i < 16; ++i) value += static_cast<char16_t>(unit + i);
      file.write(u"A", u"k" + fromUtf8(std::to_string(unit)), value);
    }
  });
  JobFile again(published());
  for (unsigned unit = 0; unit < 0x10000; unit += 16) {
    Text value;
    for (unsigned i = 0; i < 16; ++i) value += static_cast<char16_t>(unit + i);
    ASSERT_EQ(readText(again, u"A", u"k" + fromUtf8(std::to_string(unit))), value) << unit;
  }
}

TEST_F(JobFileValues, RandomTextsComeBack) {
  std::mt19937 random(7);
  const TextView alphabet = u" \"'\t\r\n\0[]=;\u241B00DAaz\u00A0\xD800\xDC00"sv;
  const auto pick = [&](std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
  };
  JobFile file(published());
  for (int trial = 0; trial < 500; ++trial) {
    Text value;
    for (std::size_t length = pick(12); length > 0; --length) value += alphabet[pick(alphabet.size())];
    file.write(u"A", u"k", value);
    JobFile again(published());
    ASSERT_EQ(readText(again, u"A", u"k"), value) << trial << ": " << toUtf8(value);
  }
}

TEST_F(JobFileValues, LongTextsComeBackWhole) {
  const Text value(1'000'000, u'\u00E8');
  JobFile(published()).write(u"A", u"k", value);
  JobFile again(published());
  EXPECT_EQ(readText(again, u"A", u"k"), value);
}

TEST_F(JobFileValues, AWriteMayTakeWhatAReadGave) {
  put(onDisk(u"[A]\r\nk=abc\r\n"));
  JobFile file(published());
  file.write(u"A", u"l", *file.read(u"A", u"k"));
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=abc\r\nl=abc\r\n"));
}

}  // namespace
}  // namespace orvane::test
