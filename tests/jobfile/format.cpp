// What a write makes of a job file, byte by byte.
#include "tests/jobfile/JobFolder.h"

namespace orvane::test {
namespace {

using JobFileFormat = JobFolder;

TEST_F(JobFileFormat, FirstWriteCreatesTheFile) {
  JobFile(published()).write(u"Stampa", u"Copie", u"2");
  EXPECT_EQ(bytes(), onDisk(u"[Stampa]\r\nCopie=2\r\n"));
}

TEST_F(JobFileFormat, ConstructionAndReadingTouchNothing) {
  JobFile file(published());
  EXPECT_EQ(readText(file, u"Stampa", u"Copie"), std::nullopt);
  EXPECT_TRUE(names().empty());
  EXPECT_FALSE(std::filesystem::exists(path(".orvane.lock")));
}

struct Edit {
  const char* name;
  const char16_t* before;
  const char16_t* section;
  const char16_t* key;
  const char16_t* value;
  const char16_t* after;
};

void PrintTo(const Edit& edit, std::ostream* out) { *out << edit.name; }

class JobFileEdit : public JobFolder, public testing::WithParamInterface<Edit> {};

TEST_P(JobFileEdit, LeavesEverythingElseInPlace) {
  const Edit& edit = GetParam();
  put(onDisk(edit.before));
  JobFile file(published());
  file.write(edit.section, edit.key, edit.value);
  EXPECT_EQ(bytes(), onDisk(edit.after));
  EXPECT_EQ(readText(file, edit.section, edit.key), edit.value);
}

constexpr Edit kEdits[] = {
    {"ChangedValue", u"[A]\r\nk=1\r\nl=2\r\n", u"A", u"k", u"99", u"[A]\r\nk=99\r\nl=2\r\n"},
    {"NamesWithoutCase", u"[Stampa]\r\nCOPIE=1\r\n", u"STAMPA", u"copie", u"2", u"[Stampa]\r\nCOPIE=2\r\n"},
    {"AccentedNamesWithoutCase", u"[Citt\u00E0]\r\nk=1\r\n", u"CITT\u00C0", u"K", u"2",
     u"[Citt\u00E0]\r\nk=2\r\n"},
    {"NewKey", u"[A]\r\nk=1\r\n[B]\r\nm=1\r\n", u"A", u"l", u"2", u"[A]\r\nk=1\r\nl=2\r\n[B]\r\nm=1\r\n"},
    {"NewKeyBeforeBlankLines", u"[A]\r\nk=1\r\n\r\n  \r\n[B]\r\n", u"A", u"l", u"2",
     u"[A]\r\nk=1\r\nl=2\r\n\r\n  \r\n[B]\r\n"},
    {"NewKeyBehindComment", u"[A]\r\n; note\r\n[B]\r\n", u"A", u"l", u"2",
     u"[A]\r\n; note\r\nl=2\r\n[B]\r\n"},
    {"NewKeyInEmptySection", u"[A]\r\n[B]\r\n", u"A", u"l", u"2", u"[A]\r\nl=2\r\n[B]\r\n"},
    {"NewKeyBehindOpenLine", u"[A]\r\nk=1", u"A", u"l", u"2", u"[A]\r\nk=1\r\nl=2\r\n"},
    {"NewKeyBehindOpenHeader", u"[A]", u"A", u"l", u"2", u"[A]\r\nl=2\r\n"},
    {"NewKeyBehindOpenBlanks", u"[A]\r\nk=1\r\n  ", u"A", u"l", u"2", u"[A]\r\nk=1\r\nl=2\r\n  "},
    {"NewSection", u"[A]\r\nk=1\r\n", u"B", u"l", u"2", u"[A]\r\nk=1\r\n[B]\r\nl=2\r\n"},
    {"NewSectionBehindOpenLine", u"[A]\r\nk=1", u"B", u"l", u"2", u"[A]\r\nk=1\r\n[B]\r\nl=2\r\n"},
    {"NewSectionBehindBlankLines", u"[A]\r\nk=1\r\n\r\n", u"B", u"l", u"2",
     u"[A]\r\nk=1\r\n\r\n[B]\r\nl=2\r\n"},
    {"EmptyFile", u"", u"A", u"k", u"1", u"[A]\r\nk=1\r\n"},
    {"EmptyValue", u"[A]\r\nk=1\r\n", u"A", u"k", u"", u"[A]\r\nk=\r\n"},
    {"ValueFromEmptyOpenLine", u"[A]\r\nk=", u"A", u"k", u"1", u"[A]\r\nk=1"},
    {"LineEndsOfOthers", u"[A]\nk=1\nl=2\r[B]\r\nm=3\n", u"A", u"k", u"9", u"[A]\nk=9\nl=2\r[B]\r\nm=3\n"},
    {"NewLinesAmongOtherLineEnds", u"[A]\nk=1\n[B]\n", u"A", u"l", u"2", u"[A]\nk=1\nl=2\r\n[B]\n"},
    {"BlanksAroundNames", u" [ A ] \r\n\t k\t = 1 \r\n", u"A", u"k", u"9", u" [ A ] \r\n\t k\t = 9 \r\n"},
    {"FirstSectionOfAName", u"[A]\r\nk=1\r\n[B]\r\n[a]\r\nk=2\r\nl=3\r\n", u"A", u"l", u"9",
     u"[A]\r\nk=1\r\nl=9\r\n[B]\r\n[a]\r\nk=2\r\nl=3\r\n"},
    {"FirstKeyOfAName", u"[A]\r\nk=1\r\nK=2\r\n", u"A", u"k", u"9", u"[A]\r\nk=9\r\nK=2\r\n"},
    {"UnknownLines", u"preamble\r\nk=0\r\n[A\r\n[A]\r\nno sign\r\n=none\r\n;k=5\r\nk=1\r\n[]\r\nk=7\r\n",
     u"A", u"k", u"9", u"preamble\r\nk=0\r\n[A\r\n[A]\r\nno sign\r\n=none\r\n;k=5\r\nk=9\r\n[]\r\nk=7\r\n"},
    {"CommentBehindHeader", u"[A] ; see [B]\r\nk=1\r\n", u"A", u"k", u"9", u"[A] ; see [B]\r\nk=9\r\n"},
    {"BehindOtherControls", u"[A]\r\nk=1\t\x01x\r\nl=2\r\n", u"A", u"l", u"9",
     u"[A]\r\nk=1\t\x01x\r\nl=9\r\n"},
    {"HeaderWithSignInIt", u"[A=B]\r\nk=1\r\n", u"A=B", u"k", u"9", u"[A=B]\r\nk=9\r\n"},
    {"HeaderThatIsNone", u"[A]\r\n[;B]\r\nk=1\r\n[[B]\r\n[]x\r\nk=2\r\n", u"A", u"k", u"9",
     u"[A]\r\nk=9\r\n[;B]\r\nk=1\r\n[[B]\r\n[]x\r\nk=2\r\n"},
    {"HeaderWithATab", u"[A]\r\nk=1\r\n[A\tB]\r\nk=2\r\n", u"A", u"l", u"9",
     u"[A]\r\nk=1\r\nl=9\r\n[A\tB]\r\nk=2\r\n"},
    {"HeaderBehindEndOfText", u"\x1A[A]\r\nk=1\r\n", u"A", u"k", u"9", u"\x1A[A]\r\nk=9\r\n"},
    {"BracketAtTheEnd", u"[A]\r\nk=1\r\n[", u"A", u"k", u"9", u"[A]\r\nk=9\r\n["},
    {"HeaderLeftOpen", u"[A]\r\n[B\r\nk=1\r\n", u"A", u"k", u"9", u"[A]\r\n[B\r\nk=9\r\n"},
    {"SignInValue", u"[A]\r\nk=a=b\r\n", u"A", u"k", u"c=d", u"[A]\r\nk=c=d\r\n"},
    {"BracketInKey", u"[A]\r\n", u"A", u"k(0)]", u"1", u"[A]\r\nk(0)]=1\r\n"},
    {"PathsAreNotEscaped", u"", u"A", u"k", u"C:\\Lavori\\a;b%20\"c\"d",
     u"[A]\r\nk=C:\\Lavori\\a;b%20\"c\"d\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Edits, JobFileEdit, testing::ValuesIn(kEdits),
                         [](const auto& edit) { return std::string(edit.param.name); });

TEST_F(JobFileFormat, SectionsGrowEachBeforeTheNext) {
  JobFile file(published());
  for (const char16_t* key : {u"a", u"b"}) {
    for (const char16_t* section : {u"X", u"Y", u"Z"}) file.write(section, key, u"1");
  }
  EXPECT_EQ(bytes(), onDisk(u"[X]\r\na=1\r\nb=1\r\n[Y]\r\na=1\r\nb=1\r\n[Z]\r\na=1\r\nb=1\r\n"));
}

TEST_F(JobFileFormat, NamesThatCannotStandAreError5AndReadAsAbsent) {
  put(onDisk(u"[A]\r\n;k=1\r\n[k=2\r\n=3\r\na\tb=4\r\n"));
  JobFile file(published());
  for (const char16_t* key :
       {u"", u";k", u"[k", u"a=b", u"a\tb", u"a\rb", u"a\nb", u" k", u"k ", u"\u00A0k"}) {
    EXPECT_EQ(errorOf([&] { file.write(u"A", key, u"1"); }), 5) << toUtf8(key);
    EXPECT_EQ(readText(file, u"A", key), std::nullopt) << toUtf8(key);
  }
  for (const char16_t* section : {u"", u"A]", u";A", u"[A", u" A", u"A ", u"A\n"}) {
    EXPECT_EQ(errorOf([&] { file.write(section, u"k", u"1"); }), 5) << toUtf8(section);
    EXPECT_EQ(readText(file, section, u"k"), std::nullopt) << toUtf8(section);
  }
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\n;k=1\r\n[k=2\r\n=3\r\na\tb=4\r\n"));
}

TEST_F(JobFileFormat, AnEmptyNameReadsNothingAndTakesNoWrites) {
  JobFile file{Text()};
  file.write(u"A", u"k", u"1");
  file.together([&] { file.write(u"A", u"l", u"1"); });
  file.flush();
  EXPECT_EQ(readText(file, u"A", u"k"), std::nullopt);
}

}  // namespace
}  // namespace orvane::test
