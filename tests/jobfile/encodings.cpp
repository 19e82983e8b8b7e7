// What other programs may have written: every encoding is read, none is lost by a write.
#include <random>

#include "core/ProfileText.h"
#include "tests/jobfile/JobFolder.h"

namespace orvane::test {
namespace {

using namespace std::string_literals;

using JobFileEncodings = JobFolder;

std::string bigEndian(TextView text) {
  std::string bytes = onDisk(text);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

struct Encoded {
  const char* name;
  std::string content;
};

void PrintTo(const Encoded& row, std::ostream* out) { *out << row.name; }

class JobFileEncoding : public JobFolder, public testing::WithParamInterface<Encoded> {};

constexpr TextView kText = u"[Citt\u00E0]\r\nNome=Forl\u00EC \u20AC\r\n";

TEST_P(JobFileEncoding, IsReadAndWrittenAsUtf16) {
  put(GetParam().content);
  JobFile file(published());
  EXPECT_EQ(readText(file, u"citt\u00C0", u"nome"), u"Forl\u00EC \u20AC");
  EXPECT_EQ(bytes(), GetParam().content);
  file.write(u"Citt\u00E0", u"Altro", u"1");
  EXPECT_EQ(bytes(), onDisk(Text(kText) + u"Altro=1\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Encodings, JobFileEncoding,
                         testing::Values(Encoded{"Utf16", onDisk(kText)},
                                         Encoded{"Utf16BigEndian", bigEndian(kText)},
                                         Encoded{"Utf8", toUtf8(kText)},
                                         Encoded{"Utf8WithMark", "\xEF\xBB\xBF" + toUtf8(kText)},
                                         Encoded{"Windows1252", "[Citt\xE0]\r\nNome=Forl\xEC \x80\r\n"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(JobFileEncodings, NothingIsWrittenToChangeTheEncodingAlone) {
  put("[A]\r\nk=1\r\n");
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  file.together([&] { file.write(u"A", u"k", u"1"); });
  EXPECT_EQ(bytes(), "[A]\r\nk=1\r\n");
}

TEST_F(JobFileEncodings, ALineThatIsNoUtf8DoesNotSpoilAMarkedFile) {
  put("\xEF\xBB\xBF[A]\r\nk=\xC3\xA8\r\nl=\xE8\r\n");
  JobFile file(published());
  EXPECT_EQ(readText(file, u"A", u"k"), u"\u00E8");
  EXPECT_EQ(readText(file, u"A", u"l"), u"\u00E8");
}

TEST_F(JobFileEncodings, AnOddLastByteSurvives) {
  put(onDisk(u"[A]\r\nk=1\r\n") + "x");
  JobFile file(published());
  EXPECT_EQ(readText(file, u"A", u"k"), u"1");
  file.write(u"A", u"k", u"2");
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=2\r\nx"));
}

TEST_F(JobFileEncodings, MarksAloneAreEmptyFiles) {
  for (const std::string mark : {"", "\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"}) {
    put(mark);
    JobFile(published()).write(u"A", u"k", u"1");
    EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
  }
}

std::string garbage(std::mt19937& random) {
  const std::string alphabet = "[]=;\r\n\0 \t\"Aak\xFF\xFE\xC3\xA8\x1B$"s;
  std::string content;
  for (auto length = random() % 200; length > 0; --length) content += alphabet[random() % alphabet.size()];
  const std::string marks[] = {"", "\xFF\xFE", "\xFE\xFF", "\xEF\xBB\xBF"};
  return marks[random() % 4] + content;
}

TEST_F(JobFileEncodings, GarbageNeverFailsAndTakesWrites) {
  std::mt19937 random(11);
  for (int trial = 0; trial < 300; ++trial) {
    const std::string content = garbage(random);
    put(content);
    JobFile file(published());
    file.write(u"A", u"k", u"v w");
    JobFile again(published());
    ASSERT_EQ(readText(again, u"A", u"k"), u"v w") << testing::PrintToString(content);
  }
}

TEST(ProfileTextIndex, KnowsNamesOfAnyLanguage) {
  ProfileText text;
  EXPECT_TRUE(text.set(u"\u03A9\u0414", u"\u6F22\u5B57", u"1"));
  EXPECT_EQ(text.find(u"\u03A9\u0414", u"\u6F22\u5B57"), TextView(u"1"));
  EXPECT_EQ(text.find(u"\u03C9\u0434", u"\u6F22\u5B57"), std::nullopt) << "only Latin letters fold";
}

// Of one section those that differ in the bit of the case, of its neighbour those that differ in the number
// of the section.
TEST(ProfileTextIndex, TellsNamesOfOneHashApart) {
  ProfileText text;
  text.parse("[A]\r\n[B]\r\nc=1\r\n");
  EXPECT_TRUE(text.set(u"A", u"b", u"2"));
  EXPECT_TRUE(text.set(u"A", u"x^", u"3"));
  EXPECT_TRUE(text.set(u"A", u"x~", u"4"));
  EXPECT_EQ(text.find(u"B", u"c"), TextView(u"1"));
  EXPECT_EQ(text.find(u"A", u"b"), TextView(u"2"));
  EXPECT_EQ(text.find(u"A", u"x^"), TextView(u"3"));
  EXPECT_EQ(text.find(u"A", u"x~"), TextView(u"4"));
}

// Every edit leaves an index that a new reader of the same bytes would build.
TEST(ProfileTextIndex, AgreesWithANewReaderAfterAnyEdits) {
  std::mt19937 random(5);
  const Text names[] = {u"A", u"b", u"Cc", u"d", u"E"};
  const Text values[] = {u"", u"1", u"longer value", u"\u00E8\u00E8"};
  for (int trial = 0; trial < 2'000; ++trial) {
    ProfileText edited;
    edited.parse(garbage(random));
    for (int step = 0; step < 12; ++step) {
      const Text& section = names[random() % 5];
      const Text& key = names[random() % 5];
      const Text& value = values[random() % 4];
      edited.set(section, key, value);
      ASSERT_EQ(edited.find(section, key), TextView(value));
    }
    ProfileText parsed;
    parsed.parse(edited.bytes());
    for (const Text& section : names) {
      for (const Text& key : names) ASSERT_EQ(edited.find(section, key), parsed.find(section, key)) << trial;
    }
    ASSERT_EQ(parsed.bytes(), edited.bytes());
  }
}

}  // namespace
}  // namespace orvane::test
