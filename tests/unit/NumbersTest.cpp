#include "core/Numbers.h"

#include <unistd.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/KeyedCollection.h"
#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Rounding : Row {
  double number;
  std::int32_t rounded;
};

class RoundToLong : public testing::TestWithParam<Rounding> {};

TEST_P(RoundToLong, TakesTheNearestAndHalvesToEven) {
  EXPECT_EQ(roundToLong(GetParam().number), GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(Edges, RoundToLong,
                         testing::Values(Rounding{"Half", 0.5, 0},
                                         Rounding{"JustBelowHalf", 0.49999999999999994, 0},
                                         Rounding{"OneAndAHalf", 1.5, 2}, Rounding{"TwoAndAHalf", 2.5, 2},
                                         Rounding{"ThreeAndAHalf", 3.5, 4}, Rounding{"MinusHalf", -0.5, 0},
                                         Rounding{"MinusOneAndAHalf", -1.5, -2},
                                         Rounding{"MinusTwoAndAHalf", -2.5, -2},
                                         Rounding{"Largest", 2147483647.0, 2147483647},
                                         Rounding{"DownToLargest", 2147483647.4999998, 2147483647},
                                         Rounding{"Smallest", -2147483648.0, -2147483647 - 1},
                                         Rounding{"HalfBelowSmallest", -2147483648.5, -2147483647 - 1}),
                         rowName);

TEST(RoundToLong, OverflowsPastThirtyTwoBits) {
  for (const double number : {2147483647.5, 2147483648.0, -2147483649.0, 1e300, -1e300, kInfinity, -kInfinity,
                              std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(errorOf([&] { roundToLong(number); }), 6) << number;
  }
}

TEST(CurrencyConversion, KeepsFourDecimals) {
  EXPECT_EQ(toCurrency(1.5).tenThousandths, 15000);
  EXPECT_EQ(toCurrency(-0.0001).tenThousandths, -1);
  EXPECT_EQ(toCurrency(0.00004).tenThousandths, 0);
  EXPECT_EQ(toDouble(Currency{-12345}), -1.2345);
}

TEST(CurrencyConversion, RoundsHalvesToEven) {
  EXPECT_EQ(toCurrency(0.03125).tenThousandths, 312);  // 312.5 exactly
  EXPECT_EQ(toCurrency(0.09375).tenThousandths, 938);  // 937.5 exactly
}

TEST(CurrencyConversion, OverflowsPastSixtyFourBits) {
  EXPECT_EQ(errorOf([] { toCurrency(922337203685477.5); }), 0);
  EXPECT_EQ(errorOf([] { toCurrency(922337203685478.0); }), 6);
  EXPECT_EQ(errorOf([] { toCurrency(-922337203685478.0); }), 6);
  EXPECT_EQ(errorOf([] { toCurrency(std::nan("")); }), 6);
}

struct Spelling : Row {
  double number;
  Text text;
};

class NumberText : public testing::TestWithParam<Spelling> {};

TEST_P(NumberText, IsShortAndReadsBack) {
  EXPECT_EQ(numberText(GetParam().number), GetParam().text);
  EXPECT_EQ(parseNumber(GetParam().text), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, NumberText,
    testing::Values(Spelling{"Zero", 0, u"0"}, Spelling{"MinusZero", -0.0, u"0"},
                    Spelling{"MinusOne", -1, u"-1"}, Spelling{"Tenth", 0.1, u"0.1"},
                    Spelling{"Third", 1.0 / 3, u"0.3333333333333333"},
                    Spelling{"Sum", 0.1 + 0.2, u"0.30000000000000004"}, Spelling{"Day", 39814, u"39814"},
                    Spelling{"Noon", 39814.5, u"39814.5"}, Spelling{"HundredThousand", 100000, u"100000"},
                    Spelling{"MinusTwoMillions", -2000000, u"-2000000"},
                    Spelling{"LargestLong", 2147483647, u"2147483647"},
                    Spelling{"SmallestLong", -2147483648.0, u"-2147483648"},
                    Spelling{"LongestPlain", 999999999999999, u"999999999999999"},
                    Spelling{"ThousandBillions", 1e15, u"1e+15"}, Spelling{"Huge", 1e300, u"1e+300"},
                    Spelling{"Tiny", 1e-300, u"1e-300"},
                    Spelling{"Largest", 1.7976931348623157e308, u"1.7976931348623157e+308"},
                    Spelling{"Smallest", 5e-324, u"5e-324"}),
    rowName);

struct Parsing : Row {
  Text text;
  std::optional<double> number;
};

class ParseNumber : public testing::TestWithParam<Parsing> {};

TEST_P(ParseNumber, ReadsAWholeTextOrNothing) { EXPECT_EQ(parseNumber(GetParam().text), GetParam().number); }

TEST(ParseLong, ReachesTheEdges) {
  for (const double number :
       {999999999.0, 1000000000.0, 2147483647.0, 2147483647.4, -2147483648.0, 2.5, 3.5, -0.0}) {
    EXPECT_EQ(parseLong(numberText(number)), roundToLong(number)) << number;
  }
  for (const double number : {2147483647.5, 2147483648.0, -2147483649.0, 9999999999.0}) {
    EXPECT_EQ(errorOf([&] { parseLong(numberText(number)); }), 6) << number;
  }
}

TEST_P(ParseNumber, IsRoundedToALong) {
  const auto text = GetParam().text;
  const auto number = GetParam().number;
  const int expected = number ? errorOf([&] { roundToLong(*number); }) : 0;
  EXPECT_EQ(errorOf([&] { parseLong(text); }), expected);
  if (expected != 0) return;
  EXPECT_EQ(parseLong(text), number ? std::optional(roundToLong(*number)) : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Accepts, ParseNumber,
    testing::Values(Parsing{"Digits", u"42", 42}, Parsing{"Blanks", u" \t42 \t", 42},
                    Parsing{"Plus", u"+42", 42}, Parsing{"Minus", u"-42", -42},
                    Parsing{"LeadingZeros", u"007", 7}, Parsing{"PointFirst", u".5", 0.5},
                    Parsing{"PointLast", u"5.", 5}, Parsing{"Exponent", u"1e5", 100000},
                    Parsing{"CapitalExponent", u"1E-05", 0.00001}, Parsing{"TooLarge", u"1e999", kInfinity},
                    Parsing{"TooSmall", u"-1e999", -kInfinity},
                    Parsing{"TooManyDigits", Text(400, u'9'), kInfinity}, Parsing{"TooTiny", u"1e-999", 0},
                    Parsing{"TooTinyInDigits", u"0." + Text(400, u'0') + u"1", 0}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Refuses, ParseNumber,
    testing::Values(
        Parsing{"Empty", u"", {}}, Parsing{"Blank", u" \t ", {}}, Parsing{"Word", u"tre", {}},
        Parsing{"Inf", u"inf", {}}, Parsing{"MinusInfinity", u"-infinity", {}}, Parsing{"Nan", u"nan", {}},
        Parsing{"NanWithPlus", u"+nan", {}}, Parsing{"TailAfterDigits", u"42a", {}},
        Parsing{"BlankInside", u"4 2", {}}, Parsing{"Comma", u"1,5", {}}, Parsing{"TwoPoints", u"1.2.3", {}},
        Parsing{"Hexadecimal", u"0x10", {}}, Parsing{"SignAlone", u"-", {}}, Parsing{"PointAlone", u".", {}},
        Parsing{"TwoMinuses", u"--1", {}}, Parsing{"PlusMinus", u"+-1", {}}, Parsing{"TwoPluses", u"++1", {}},
        Parsing{"PlusAlone", u"+", {}}, Parsing{"PlusPoint", u"+.", {}}, Parsing{"ExponentAlone", u"e5", {}},
        Parsing{"ForeignDigits", u"\u0661", {}}, Parsing{"NullInside", Text{u'1', u'\0'}, {}}),
    rowName);

TEST(DecimalText, HoldsEveryWholeNumber) {
  EXPECT_EQ(decimalText(0), u"0");
  EXPECT_EQ(decimalText(-7), u"-7");
  EXPECT_EQ(decimalText(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
  EXPECT_EQ(decimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

class DisplayText : public testing::TestWithParam<Spelling> {};

TEST_P(DisplayText, HasAtMostFifteenDigits) {
  EXPECT_EQ(displayText(GetParam().number, u","), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Edges, DisplayText,
                         testing::Values(Spelling{"Zero", 0, u"0"}, Spelling{"MinusZero", -0.0, u"0"},
                                         Spelling{"One", 1, u"1"}, Spelling{"Half", -0.5, u"-0,5"},
                                         Spelling{"Sum", 0.1 + 0.2, u"0,3"},
                                         Spelling{"Third", 1.0 / 3, u"0,333333333333333"},
                                         Spelling{"TwoThirds", 2.0 / 3, u"0,666666666666667"},
                                         Spelling{"NearlyOne", 1 - 1e-16, u"1"},
                                         Spelling{"DayAndAThird", 39814 + 1.0 / 3, u"39814,3333333333"},
                                         Spelling{"FifteenDigits", 123456789012345, u"123456789012345"},
                                         Spelling{"SixteenDigits", 1234567890123456, u"1,23456789012346E+15"},
                                         Spelling{"NearlyThousandBillions", 999999999999999.9, u"1E+15"},
                                         Spelling{"ThousandBillions", 1e15, u"1E+15"},
                                         Spelling{"Huge", 1e300, u"1E+300"},
                                         Spelling{"Infinity", kInfinity, u"1,#INF"},
                                         Spelling{"MinusInfinity", -kInfinity, u"-1,#INF"},
                                         Spelling{"NotANumber", std::nan(""), u"1,#QNAN"},
                                         Spelling{"MinusNotANumber", -std::nan(""), u"-1,#IND"}),
                         rowName);

// Fifteen decimals at most, whatever the number of zeros among them.
INSTANTIATE_TEST_SUITE_P(
    Small, DisplayText,
    testing::Values(Spelling{"ThreeDecimals", 0.075, u"0,075"},
                    Spelling{"HundredThousandth", 0.00001, u"0,00001"},
                    Spelling{"SmallWithDigits", 0.000012345, u"0,000012345"},
                    Spelling{"Billionth", 1e-12, u"0,000000000001"},
                    Spelling{"LastDecimal", 1e-15, u"0,000000000000001"},
                    Spelling{"PastTheLastDecimal", 1e-16, u"1E-16"},
                    Spelling{"TwoLastDecimals", 1.5e-14, u"0,000000000000015"},
                    Spelling{"OneOfTwoPastTheLast", 1.5e-15, u"1,5E-15"},
                    Spelling{"FifteenDecimals", -0.0123456789012345 * 10, u"-0,123456789012345"},
                    Spelling{"SixteenDecimals", -0.0123456789012345, u"-1,23456789012345E-02"},
                    Spelling{"Hour", 1.0 / 24, u"4,16666666666667E-02"},
                    Spelling{"Minute", 1.0 / 1440, u"6,94444444444444E-04"},
                    Spelling{"SeventyFiveOf999", 75.0 / 999, u"7,50750750750751E-02"},
                    Spelling{"Tiny", 1e-300, u"1E-300"}),
    rowName);

TEST(DisplayTextOfASingle, HasAtMostSevenDigitsAndDecimals) {
  const std::pair<float, TextView> rows[] = {
      {0.1F, u"0,1"},           {1 / 3.0F, u"0,3333333"}, {1 / 24.0F, u"4,166667E-02"},
      {0.00001F, u"0,00001"},   {1e-7F, u"0,0000001"},    {1e-8F, u"1E-08"},
      {9999999.0F, u"9999999"}, {1e7F, u"1E+07"},         {16777216.0F, u"1,677722E+07"}};
  for (const auto& [number, text] : rows) EXPECT_EQ(displayText(number, u","), text) << number;
}

class UserSeparator : public testing::Test {
 protected:
  void SetUp() override {
    if (const char* set = std::getenv("LC_ALL")) before_ = set;
  }
  void TearDown() override { before_ ? use(before_->c_str()) : void(unsetenv("LC_ALL")); }
  static void use(const char* locale) { setenv("LC_ALL", locale, 1); }

 private:
  std::optional<std::string> before_;
};

TEST_F(UserSeparator, IsAPointWithoutRegionalSettings) {
  use("C");
  EXPECT_EQ(decimalSeparator(), u".");
}

TEST_F(UserSeparator, IsAPointWhereTheSettingsNameNoKnownRegion) {
  use("nowhere_NO.WHERE");
  EXPECT_EQ(decimalSeparator(), u".");
}

TEST_F(UserSeparator, FollowsTheUserInTextsAndKeysWithoutTouchingTheProgram) {
  const TemporaryFolder settings;
  const std::string made = settings.native(u"it_IT.UTF-8");
  if (std::system(("localedef --no-archive -i it_IT -f UTF-8 " + made).c_str()) != 0)
    GTEST_SKIP() << "this machine cannot make Italian regional settings";
  const auto follows = [&] {
    setenv("LOCPATH", settings.native().c_str(), 1);
    use("it_IT.UTF-8");
    const bool keys = CollectionKey(u"3,5").position == 3 && CollectionKey(u"3.5").text == u"3.5";
    return keys && displayText(1.5, decimalSeparator()) == u"1,5" &&
           std::localeconv()->decimal_point == std::string(".");
  };
  // In a process of its own: the C library keeps what it has read of LOCPATH for good.
  EXPECT_EXIT(_exit(follows() ? 0 : 1), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace orvane::test
