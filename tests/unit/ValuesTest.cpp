#include "core/Values.h"

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Conversion : Row {
  Variant value;
  std::int32_t asLong;
  Text asText;
};

class VariantConversion : public testing::TestWithParam<Conversion> {};

TEST_P(VariantConversion, ReadsAsWholeNumber) { EXPECT_EQ(toLong(GetParam().value), GetParam().asLong); }

TEST_P(VariantConversion, ReadsAsText) { EXPECT_EQ(toText(GetParam().value), GetParam().asText); }

INSTANTIATE_TEST_SUITE_P(Kinds, VariantConversion,
                         testing::Values(Conversion{"Empty", {}, 0, u""},
                                         Conversion{"True", true, -1, u"True"},
                                         Conversion{"False", false, 0, u"False"},
                                         Conversion{"Byte", std::uint8_t{255}, 255, u"255"},
                                         Conversion{"Integer", std::int16_t{-7}, -7, u"-7"},
                                         Conversion{"Long", std::int32_t{100000}, 100000, u"100000"},
                                         Conversion{"Single", 2.5f, 2, u"2.5"},
                                         Conversion{"SingleOfSevenDigits", 0.1f, 0, u"0.1"},
                                         Conversion{"LongSingle", 16777216.0f, 16777216, u"1.677722E+07"},
                                         Conversion{"Double", 3.5, 4, u"3.5"},
                                         Conversion{"Currency", Currency{-15000}, -2, u"-1.5"},
                                         Conversion{"Date", Date{39814.75}, 39815, u"39814.75"},
                                         Conversion{"Text", u"7.5", 8, u"7.5"},
                                         Conversion{"TextWithBlanks", u" 12 ", 12, u" 12 "}),
                         rowName);

struct Unreadable : Row {
  Variant value;
};

class VariantWithoutNumber : public testing::TestWithParam<Unreadable> {};

TEST_P(VariantWithoutNumber, IsAMismatchForEveryConversion) {
  const Variant& value = GetParam().value;
  EXPECT_EQ(errorOf([&] { toLong(value); }), 13);
  EXPECT_EQ(errorOf([&] { toByte(value); }), 13);
  EXPECT_EQ(errorOf([&] { toDouble(value); }), 13);
  EXPECT_EQ(errorOf([&] { toBoolean(value); }), 13);
  EXPECT_EQ(errorOf([&] { toCurrency(value); }), 13);
  EXPECT_EQ(errorOf([&] { toDate(value); }), 13);
}

INSTANTIATE_TEST_SUITE_P(Kinds, VariantWithoutNumber,
                         testing::Values(Unreadable{"Null", Null{}}, Unreadable{"Word", u"tre"},
                                         Unreadable{"EmptyText", u""},
                                         Unreadable{"Array", VariantArray{1, 2}},
                                         Unreadable{"Object", ObjectRef{}}, Unreadable{"Opaque", Opaque{}}),
                         rowName);

TEST(VariantConversions, HaveNoTextForWhatIsNoValue) {
  EXPECT_EQ(errorOf([] { toText(Null{}); }), 13);
  EXPECT_EQ(errorOf([] { toText(VariantArray{}); }), 13);
  EXPECT_EQ(errorOf([] { toText(ObjectRef{}); }), 13);
}

TEST(VariantConversions, OverflowWhereTheNumberDoesNotFit) {
  EXPECT_EQ(errorOf([] { toLong(3e9); }), 6);
  EXPECT_EQ(errorOf([] { toLong(u"1e999"); }), 6);
  EXPECT_EQ(errorOf([] { toCurrency(Variant(1e300)); }), 6);
}

TEST(VariantConversions, HoldBytesToTheirRange) {
  EXPECT_EQ(toByte(254.5), 254);
  EXPECT_EQ(errorOf([] { toByte(255.5); }), 6);
  EXPECT_EQ(errorOf([] { toByte(std::int32_t{256}); }), 6);
  EXPECT_EQ(errorOf([] { toByte(-1.0); }), 6);
}

TEST(VariantConversions, ReadTruthValues) {
  EXPECT_TRUE(toBoolean(u"TRUE"));
  EXPECT_FALSE(toBoolean(u"false"));
  EXPECT_TRUE(toBoolean(0.5));
  EXPECT_FALSE(toBoolean(u"0"));
}

TEST(VariantConversions, KeepCurrencyExact) {
  const Currency largest{9223372036854775807};
  EXPECT_EQ(toCurrency(Variant(largest)), largest);
  EXPECT_EQ(toCurrency(Variant(u"1.2345")), Currency{12345});
}

TEST(VariantArrays, BeginAtZeroAndCompareByValue) {
  const VariantArray array{1, u"due"};
  ASSERT_EQ(array.dimensions.size(), 1u);
  EXPECT_EQ(array.dimensions[0], (VariantArray::Dimension{0, 2}));
  EXPECT_EQ(array, (VariantArray{1, u"due"}));
  EXPECT_NE(array, (VariantArray{1, u"tre"}));
}

}  // namespace
}  // namespace orvane::test
