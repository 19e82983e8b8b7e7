#include "pages/VqDocFile.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

struct FileXml : Owner {
  static Text of(const VqDocFile& file, TextView name) {
    XmlWriter xml(u".");
    renderFile(xml, name, file);
    return xml.result();
  }
};

TEST(VqDocFileTest, StartsEmptyAndItsFullNameIsABackslash) {
  const VqDocFile file;
  EXPECT_EQ(file.Percorso, u"");
  EXPECT_EQ(file.Nome, u"");
  EXPECT_EQ(file.File(), u"\\");
}

TEST(VqDocFileTest, FullNameJoinsFolderAndNameByABackslash) {
  EXPECT_EQ((VqDocFile{u"C:\\Lavori", u"a.txt"}.File()), u"C:\\Lavori\\a.txt");
}

TEST(VqDocFileTest, BackslashStandsBeforeTheNameEvenWithoutAFolder) {
  EXPECT_EQ((VqDocFile{u"", u"a.txt"}.File()), u"\\a.txt");
}

TEST(VqDocFileTest, BackslashStandsAfterTheFolderEvenWithoutAName) {
  EXPECT_EQ((VqDocFile{u"C:\\Lavori", u""}.File()), u"C:\\Lavori\\");
}

TEST(VqDocFileTest, XmlHoldsFolderThenNameUnderTheGivenElement) {
  EXPECT_EQ(FileXml::of({u"C:\\A & B", u"<1>.tif"}, u"FileTif"),
            u"<FileTif><Percorso>C:\\A &amp; B</Percorso><Nome>&lt;1&gt;.tif</Nome></FileTif>");
}

TEST(VqDocFileTest, XmlOfAnEmptyReferenceHasTwoEmptyElements) {
  EXPECT_EQ(FileXml::of({}, u"FilePdf"), u"<FilePdf><Percorso/><Nome/></FilePdf>");
}

class ReadStreamTest : public JobTest {
 protected:
  VqDocFile file{folder.path(), u"corpo.txt"};
};

TEST_F(ReadStreamTest, ReadsTheWholeOfASmallFile) {
  folder.write(u"corpo.txt", "0123456789");
  EXPECT_EQ(file.ReadStream(), u"0123456789");
}

TEST_F(ReadStreamTest, ReadsAtMostTheBytesAskedFor) {
  folder.write(u"corpo.txt", "0123456789");
  EXPECT_EQ(file.ReadStream(4), u"0123");
  EXPECT_EQ(file.ReadStream(0), u"");
}

TEST_F(ReadStreamTest, ReadsAtMostAMebibyteWithoutArgument) {
  folder.write(u"corpo.txt", std::string(1048577, 'x'));
  EXPECT_EQ(file.ReadStream().size(), 1048576u);
  EXPECT_EQ(file.ReadStream(1048577).size(), 1048577u);
}

TEST_F(ReadStreamTest, GivesOneCharacterAByte) {
  folder.write(u"corpo.txt", {"a\0\xE0\r\n\xFF", 6});
  EXPECT_EQ(file.ReadStream(), Text(u"a\0\u00E0\r\n\u00FF", 6));
}

TEST_F(ReadStreamTest, GivesNothingForAnEmptyFile) {
  folder.write(u"corpo.txt", "");
  EXPECT_EQ(file.ReadStream(), u"");
}

TEST_F(ReadStreamTest, RaisesFileNotFoundForAMissingFile) {
  EXPECT_EQ(errorOf([&] { file.ReadStream(); }), 53);
  file.Nome = u"\xD800";
  EXPECT_EQ(errorOf([&] { file.ReadStream(); }), 53);
}

TEST_F(ReadStreamTest, RaisesInvalidCallForANegativeCount) {
  folder.write(u"corpo.txt", "0123456789");
  EXPECT_EQ(errorOf([&] { file.ReadStream(-1); }), 5);
}

}  // namespace
}  // namespace orvane::test
