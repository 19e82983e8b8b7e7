#include <gtest/gtest.h>

#include "cli/Failure.h"
#include "cli/ValueText.h"

namespace orvane::cli {
namespace {

TypeInfo enumType(TextView name) { return {TypeKind::Enum, findEnumeration(name), nullptr}; }

TEST(ParseValue, ReadsEveryKindOfValue) {
  EXPECT_EQ(std::get<Text>(parseValue("è", {TypeKind::String})), u"è");
  EXPECT_EQ(std::get<std::int32_t>(parseValue("-7", {TypeKind::Long})), -7);
  EXPECT_EQ(std::get<std::uint8_t>(parseValue("255", {TypeKind::Byte})), 255);
  EXPECT_EQ(std::get<Currency>(parseValue("4.2333", {TypeKind::Currency})).tenThousandths, 42333);
  EXPECT_EQ(std::get<Date>(parseValue("1900-01-01", {TypeKind::Date})).days, 2);
  EXPECT_EQ(std::get<std::int32_t>(parseValue("VDD_A4", enumType(u"enmVqDocDimensione"))), 9);
}

TEST(ParseValue, KnowsTruthInItalianAndEnglish) {
  for (const char* word : {"true", "True", "si", "SI", "sì", "SÌ", "vero", "yes", "1", "-1"}) {
    EXPECT_TRUE(std::get<bool>(parseValue(word, {TypeKind::Boolean}))) << word;
  }
  for (const char* word : {"false", "FALSO", "no", "0"}) {
    EXPECT_FALSE(std::get<bool>(parseValue(word, {TypeKind::Boolean}))) << word;
  }
}

TEST(ParseValue, JoinsCodesThatAreFlags) {
  const TypeInfo validity = enumType(u"enmVqDocPagValidita");
  EXPECT_EQ(std::get<std::int32_t>(parseValue("vdpv_Fax+vdpv_Email", validity)), 5);
  EXPECT_EQ(std::get<std::int32_t>(parseValue("1+8", validity)), 9);
}

TEST(ParseValue, RefusesObjectsAndArrays) {
  EXPECT_THROW(parseValue("x", {TypeKind::Array}), Failure);
  EXPECT_THROW(parseValue("x", {TypeKind::Class}), Failure);
}

TEST(ValueText, WritesForPeopleOrAsTheJobFile) {
  const TypeInfo size = enumType(u"enmVqDocDimensione");
  EXPECT_EQ(valueText(std::int32_t{9}, size, Form::Readable), "vdd_A4");
  EXPECT_EQ(valueText(std::int32_t{9}, size, Form::Raw), "9");
  EXPECT_EQ(valueText(std::int32_t{99}, size, Form::Readable), "99");
  EXPECT_EQ(valueText(true, {TypeKind::Boolean}, Form::Readable), "true");
  EXPECT_EQ(valueText(true, {TypeKind::Boolean}, Form::Raw), "-1");
  EXPECT_EQ(valueText(Date{46347.5}, {TypeKind::Date}, Form::Readable), "2026-11-21 12:00:00");
  EXPECT_EQ(valueText(Date{46347.5}, {TypeKind::Date}, Form::Raw), "46347.5");
  EXPECT_EQ(valueText(Currency{42333}, {TypeKind::Currency}, Form::Readable), "4.2333");
}

TEST(ValueText, JoinsTheItemsOfAnArray) {
  const VariantArray array{Variant(u"a"), Variant(std::int32_t{2}), Variant()};
  EXPECT_EQ(valueText(array, {TypeKind::Array}, Form::Readable), "a, 2, ");
}

TEST(Printable, ShowsControlCharacters) { EXPECT_EQ(printable("a\r\n\t\x1B\x7Fè"), "a\\r\\n\\t\\x1B\\x7Fè"); }

}  // namespace
}  // namespace orvane::cli
