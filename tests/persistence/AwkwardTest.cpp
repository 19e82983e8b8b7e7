// Awkward values through every member of their type at once: each document's texts, whole numbers and dates.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "tests/persistence/Cases.h"

namespace orvane::test {
namespace {

template <class Type>
std::vector<const KeptMember*> membersOf(const Kind& kind) {
  std::vector<const KeptMember*> some;
  for (const KeptMember& member : keptMembers()) {
    const bool isCode = !member.description.empty();
    if (kind.isIn(member.kinds) && std::holds_alternative<Type>(member.value) && !isCode)
      some.push_back(&member);
  }
  return some;
}

template <class Value>
struct Case {
  const Kind& kind;
  Value value;
  friend std::ostream& operator<<(std::ostream& out, const Case& c) {
    return out << c.kind.name << ' ' << c.value.name;
  }
};

// The kinds that have members of the type; of publications and previews, those of a print document.
template <class Type>
bool isWorthwhile(const Kind& kind) {
  return (kind.inner == 0 || innerKind(kind).set == kStampa) && !membersOf<Type>(kind).empty();
}

template <class Type, class Value, std::size_t Size>
std::vector<Case<Value>> inEveryKind(const Value (&values)[Size]) {
  std::vector<Case<Value>> cases;
  for (const Kind& kind : kinds()) {
    if (!isWorthwhile<Type>(kind)) continue;
    for (const Value& value : values) cases.push_back({kind, value});
  }
  return cases;
}

constexpr auto caseName = [](const auto& info) { return info.param.kind.name + info.param.value.name; };

Text control(const Text& digits) { return u'\x241B' + digits; }

Text repeated(std::size_t length, char16_t last) { return Text(length - 1, u'x') + last; }

struct AwkwardText {
  const char* name;
  Text value;
  Text stored;
};

const AwkwardText kTexts[] = {
    {"Empty", u"", u""},
    {"Blank", u" ", u"\" \""},
    {"LeadingBlanks", u"  a", u"\"  a\""},
    {"TrailingBlank", u"a ", u"\"a \""},
    {"InnerBlanks", u"a  b", u"a  b"},
    {"Quoted", u"\"a\"", u"\"\"a\"\""},
    {"OneQuote", u"\"", u"\"\"\""},
    {"LeadingQuote", u"\"a", u"\"\"a\""},
    {"TrailingQuote", u"a\"", u"\"a\"\""},
    {"InnerQuote", u"a\"b", u"a\"b"},
    {"SingleQuoted", u"'a'", u"\"'a'\""},
    {"Apostrophe", u"dell'utente", u"dell'utente"},
    {"Tabulator", u"a\tb", u"a" + control(u"0009") + u"b"},
    {"LineEnds", u"a\r\nb\nc", u"a" + control(u"000D") + control(u"000A") + u"b" + control(u"000A") + u"c"},
    {"LeadingLineEnd", u"\r\n[x]", control(u"000D") + control(u"000A") + u"[x]"},
    {"Nul", Text(u"a\0b", 3), u"a" + control(u"0000") + u"b"},
    {"EndOfFileMark", u"a\x1A", u"\"a" + control(u"001A") + u"\""},
    {"TrailingTabulator", u"a\t", u"\"a" + control(u"0009") + u"\""},
    {"EscapeItself",
     u"\x241B"
     u"0041",
     control(u"241B") + u"0041"},
    {"Equals", u"=", u"="},
    {"Assignment", u"a=b=c", u"a=b=c"},
    {"Section", u"[x]", u"[x]"},
    {"Comment", u";x", u";x"},
    {"Hash", u"#x", u"#x"},
    {"Percent", u"%TEMP%", u"%TEMP%"},
    {"Backslashes", u"\\\\server\\a\\", u"\\\\server\\a\\"},
    {"Accents", u"perch\xE9", u"perch\xE9"},
    {"Euro", u"\x20AC 5", u"\x20AC 5"},
    {"Emoji", u"\xD83D\xDE00!", u"\xD83D\xDE00!"},
    {"LoneHighSurrogate", u"a\xD83D", u"a\xD83D"},
    {"LoneLowSurrogate", u"\xDE00z", u"\xDE00z"},
    {"NoCharacter", u"\xFFFF\xFFFE", u"\xFFFF\xFFFE"},
    {"ByteOrderMark",
     u"a\xFEFF"
     u"b",
     u"a\xFEFF"
     u"b"},
    {"HardBlank",
     u"\xA0"
     u"a",
     u"\"\xA0"
     u"a\""},
    {"Length255", repeated(255, u'y'), repeated(255, u'y')},
    {"Length256", repeated(256, u'y'), repeated(256, u'y')},
    {"Length300", repeated(300, u'y'), repeated(300, u'y')},
    {"CutBeforeABlank", repeated(255, u'y') + u' ', u'"' + repeated(255, u'y') + u" \""},
};

class Texts : public testing::TestWithParam<Case<AwkwardText>> {};

TEST_P(Texts, ComeBackUpTo255Units) {
  const AwkwardText& text = GetParam().value;
  const Job job(GetParam().kind);
  const auto members = membersOf<Text>(GetParam().kind);
  for (const KeptMember* member : members) job.assign(member->path, text.value, member->written);
  const ObjectRef loaded = job.loaded();
  for (const KeptMember* member : members) {
    EXPECT_EQ(toUtf8(job.storedForm(member->section, member->key)), toUtf8(text.stored)) << member->path;
    EXPECT_EQ(getAt(loaded, member->path), Variant(text.value.substr(0, 255))) << member->path;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Texts, testing::ValuesIn(inEveryKind<Text>(kTexts)), caseName);

struct AwkwardLong {
  const char* name;
  std::int32_t value;
};

constexpr AwkwardLong kLongs[] = {
    {"One", 1}, {"MinusOne", -1}, {"Most", 2147483647}, {"Least", -2147483647 - 1}};

// Copies are at least one.
std::int32_t kept(const std::string& path, std::int32_t value) {
  return path.ends_with("Copie") ? std::max(value, 1) : value;
}

class Longs : public testing::TestWithParam<Case<AwkwardLong>> {};

TEST_P(Longs, AreWrittenInDigitsAndComeBack) {
  const Job job(GetParam().kind);
  const auto members = membersOf<std::int32_t>(GetParam().kind);
  const std::int32_t value = GetParam().value.value;
  for (const KeptMember* member : members) job.assign(member->path, value, member->written);
  const ObjectRef loaded = job.loaded();
  for (const KeptMember* member : members) {
    const std::int32_t expected = kept(member->path, value);
    EXPECT_EQ(toUtf8(job.storedForm(member->section, member->key)), std::to_string(expected)) << member->path;
    EXPECT_EQ(getAt(loaded, member->path), Variant(expected)) << member->path;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Longs, testing::ValuesIn(inEveryKind<std::int32_t>(kLongs)), caseName);

struct AwkwardDate {
  const char* name;
  double value;
};

constexpr AwkwardDate kDates[] = {
    {"Tenth", 0.1},
    {"Third", 1.0 / 3},
    {"Negative", -1.25},
    {"FirstDay", -657434},
    {"LastSecond", 2958465.9999884258},
    {"Second", 39814.0 + 1.0 / 86400},
    {"Huge", 1e300},
    {"NegativeHuge", -1.7976931348623157e308},
    {"Tiny", 5e-324},
    {"Sum", 0.1 + 0.2},
};

double parsed(const Text& stored) {
  const std::string text = toUtf8(stored);
  double number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_EQ(end.ptr, text.data() + text.size()) << text << " is no number with a point";
  return number;
}

class Dates : public testing::TestWithParam<Case<AwkwardDate>> {};

TEST_P(Dates, ComeBackToTheLastBit) {
  const Job job(GetParam().kind);
  const auto members = membersOf<Date>(GetParam().kind);
  const Date value{GetParam().value.value};
  for (const KeptMember* member : members) job.assign(member->path, value, member->written);
  const ObjectRef loaded = job.loaded();
  for (const KeptMember* member : members) {
    EXPECT_EQ(parsed(job.storedForm(member->section, member->key)), value.days) << member->path;
    EXPECT_EQ(getAt(loaded, member->path), Variant(value)) << member->path;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Dates, testing::ValuesIn(inEveryKind<Date>(kDates)), caseName);

struct EndlessDate {
  const char* name;
  double value;
  const char* stored;
};

constexpr EndlessDate kEndless[] = {
    {"Infinity", std::numeric_limits<double>::infinity(), "1.#INF"},
    {"MinusInfinity", -std::numeric_limits<double>::infinity(), "-1.#INF"},
    {"NotANumber", std::numeric_limits<double>::quiet_NaN(), "1.#QNAN"},
    {"MinusNotANumber", -std::numeric_limits<double>::quiet_NaN(), "-1.#IND"}};

class EndlessDates : public testing::TestWithParam<Case<EndlessDate>> {};

TEST_P(EndlessDates, ComeBackAsThemselves) {
  const Job job(GetParam().kind);
  const auto members = membersOf<Date>(GetParam().kind);
  const EndlessDate& date = GetParam().value;
  for (const KeptMember* member : members) job.assign(member->path, Date{date.value}, member->written);
  const ObjectRef loaded = job.loaded();
  for (const KeptMember* member : members) {
    EXPECT_EQ(toUtf8(job.storedForm(member->section, member->key)), date.stored) << member->path;
    const double days = std::get<Date>(getAt(loaded, member->path)).days;
    EXPECT_EQ(std::isnan(days), std::isnan(date.value)) << member->path;
    EXPECT_TRUE(days == date.value || std::isnan(days)) << member->path << ' ' << days;
    EXPECT_EQ(std::signbit(days), std::signbit(date.value)) << member->path;
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EndlessDates, testing::ValuesIn(inEveryKind<Date>(kEndless)), caseName);

constexpr auto valueName = [](const auto& info) { return std::string(info.param.name); };

struct AwkwardCurrency {
  const char* name;
  std::int64_t tenThousandths;
  const char* stored;
  friend std::ostream& operator<<(std::ostream& out, const AwkwardCurrency& c) { return out << c.stored; }
};

class Currencies : public testing::TestWithParam<AwkwardCurrency> {};

TEST_P(Currencies, ComeBackToTheLastDecimal) {
  const Job job(kinds().back());
  const Currency value{GetParam().tenThousandths};
  job.assign("AltezzaRiga", value, Written::BySalva);
  EXPECT_EQ(toUtf8(job.storedForm(u"Proprieta", u"AltezzaRiga")), GetParam().stored);
  EXPECT_EQ(getAt(job.loaded(), "AltezzaRiga"), Variant(value));
}

INSTANTIATE_TEST_SUITE_P(Values, Currencies,
                         testing::Values(AwkwardCurrency{"Smallest", 1, "1e-04"},
                                         AwkwardCurrency{"Tenth", 1000, "0.1"},
                                         AwkwardCurrency{"Negative", -12345, "-1.2345"},
                                         AwkwardCurrency{"Large", 123456789012345, "12345678901.2345"}),
                         valueName);

TEST(Booleans, ComeBackFalseToo) {
  for (const Kind& kind : kinds()) {
    const Job job(kind);
    for (const KeptMember* member : membersOf<bool>(kind)) {
      const bool value = !std::get<bool>(member->value);
      job.assign(member->path, member->value, member->written);
      job.assign(member->path, value, member->written);
      EXPECT_EQ(toUtf8(job.content().value(member->section, member->key)), value ? "-1" : "0")
          << kind.name << ' ' << member->path;
      EXPECT_EQ(getAt(job.loaded(), member->path), Variant(value)) << kind.name << ' ' << member->path;
    }
  }
}

}  // namespace
}  // namespace orvane::test
