#include "core/FileSystem.h"

#include <fstream>

#include "tests/support/JobTest.h"
#include "tests/support/PlainUser.h"
#include "tests/support/PresentFolder.h"

namespace orvane::test {
namespace {

class FileSystemTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  const std::shared_ptr<FileSystem> files = systemFileSystem();
};

TEST_F(FileSystemTest, TellsFoldersFromFiles) {
  folder.write(u"Corpi\\a.bvq", "x");
  EXPECT_TRUE(files->folderExists(folder.file(u"Corpi")));
  EXPECT_FALSE(files->folderExists(folder.file(u"Corpi\\a.bvq")));
  EXPECT_TRUE(files->fileExists(folder.file(u"Corpi\\a.bvq")));
  EXPECT_FALSE(files->fileExists(folder.file(u"Corpi")));
}

TEST_F(FileSystemTest, FindsNothingUnderAnEmptyOrMissingName) {
  EXPECT_FALSE(files->folderExists(u""));
  EXPECT_FALSE(files->fileExists(u""));
  EXPECT_FALSE(files->folderExists(folder.file(u"nessuna")));
  EXPECT_FALSE(files->fileExists(folder.file(u"nessuno")));
}

TEST_F(FileSystemTest, FindsNothingUnderATextThatNamesNoFile) {
  for (const Text& name : {Text(u"a\0b", 3), Text{u'a', char16_t{0xD83D}}}) {
    EXPECT_FALSE(files->folderExists(folder.file(name)));
    EXPECT_FALSE(files->fileExists(folder.file(name)));
  }
}

TEST_F(FileSystemTest, TakesAFolderWithABackslashAtItsEnd) {
  EXPECT_TRUE(files->folderExists(folder.path() + u'\\'));
}

TEST_F(FileSystemTest, CopiesTheContent) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  folder.write(u"da.bvq", bytes);
  files->copyFile(folder.file(u"da.bvq"), folder.file(u"città.bvq"));
  EXPECT_EQ(folder.read(u"città.bvq"), bytes);
}

TEST_F(FileSystemTest, ReplacesTheTargetAsAWholeAndLeavesNothingElse) {
  folder.write(u"da", "breve");
  folder.write(u"a", "un contenuto molto lungo");
  files->copyFile(folder.file(u"da"), folder.file(u"a"));
  EXPECT_EQ(folder.read(u"a"), "breve");
  EXPECT_EQ(folder.files(), (std::vector<Text>{u"a", u"da"}));
}

TEST_F(FileSystemTest, LeavesTheOldFileToWhoeverReadsIt) {
  folder.write(u"da", "nuovo");
  folder.write(u"a", "vecchio");
  std::ifstream reader(folder.native(u"a"));
  files->copyFile(folder.file(u"da"), folder.file(u"a"));
  std::string seen;
  reader >> seen;
  EXPECT_EQ(seen, "vecchio");
}

TEST_F(FileSystemTest, RaisesFileNotFoundForAMissingSource) {
  EXPECT_EQ(errorOf([&] { files->copyFile(folder.file(u"no"), folder.file(u"a")); }), 53);
  EXPECT_EQ(errorOf([&] { files->copyFile(u"", folder.file(u"a")); }), 53);
  EXPECT_EQ(errorOf([&] { files->copyFile(folder.path(), folder.file(u"a")); }), 53);
}

TEST_F(FileSystemTest, RaisesPathNotFoundForAMissingTargetFolder) {
  folder.write(u"da", "x");
  EXPECT_EQ(errorOf([&] { files->copyFile(folder.file(u"da"), folder.file(u"Corpi\\a")); }), 76);
}

TEST_F(FileSystemTest, RaisesPermissionDeniedWhereTheFolderRefuses) {
  folder.write(u"da", "x");
  folder.write(u"chiusa\\b", "y");
  std::filesystem::permissions(folder.native(), std::filesystem::perms{0755});
  std::filesystem::permissions(folder.native(u"chiusa"), std::filesystem::perms{0555});
  int number = 0;
  {
    const PlainUser user;
    number = errorOf([&] { files->copyFile(folder.file(u"da"), folder.file(u"chiusa\\a")); });
  }
  std::filesystem::permissions(folder.native(u"chiusa"), std::filesystem::perms{0755});
  EXPECT_EQ(number, 70);
}

TEST_F(FileSystemTest, KeepsTheTargetWhereTheCopyFails) {
  folder.write(u"da", "x");
  folder.write(u"a\\dentro", "y");  // a folder stands in the target's place
  EXPECT_NE(errorOf([&] { files->copyFile(folder.file(u"da"), folder.file(u"a")); }), 0);
  EXPECT_EQ(folder.files(), (std::vector<Text>{u"da"}));
  EXPECT_TRUE(folder.has(u"a\\dentro"));
}

TEST_F(FileSystemTest, TellsTheOwnPathOfAFolderHoweverItIsNamed) {
  folder.write(u"a\\b\\x", "");
  std::filesystem::create_directory_symlink("a/b", folder.native(u"legame"));
  const PresentFolder present(folder.native());
  const Text own = folder.published();
  const std::pair<Text, Text> rows[] = {{u"a", own + u"\\a"},
                                        {u".", own},
                                        {u"a\\", own + u"\\a"},
                                        {u"a//", own + u"\\a"},
                                        {u".\\a/.", own + u"\\a"},
                                        {u"a\\..", own},
                                        {u"a\\\\b", own + u"\\a\\b"},
                                        {u"legame", own + u"\\legame"},
                                        {own, own},
                                        {folder.path() + u"/a/", own + u"\\a"},
                                        {u"/", u"\\"},
                                        {u"legame\\..", own + u"\\a"}};
  for (const auto& [name, path] : rows) {
    EXPECT_EQ(files->folderPath(name), path) << toUtf8(name);
    EXPECT_TRUE(files->folderExists(path)) << toUtf8(name);
  }
}

TEST_F(FileSystemTest, LeavesTheNameOfAFolderWhoseOwnPathCannotBePublished) {
  for (const char* name : {"a\\b", "\xFF"}) {
    std::filesystem::create_directories(folder.native() / name / "dentro");
    const PresentFolder present(folder.native() / name);
    EXPECT_EQ(files->folderPath(u"dentro"), u"dentro");
  }
}

TEST_F(FileSystemTest, LeavesTheNameOfAFolderWhereThePresentOneIsGone) {
  const std::filesystem::path gone = folder.native(u"via");
  std::filesystem::create_directory(gone);
  const PresentFolder present(gone);
  std::filesystem::remove(gone);
  EXPECT_EQ(files->folderPath(u"."), u".");
}

TEST_F(FileSystemTest, ListsFilesInTheOrderOfTheirUnits) {
  for (const auto* name : {u"b.dpg", u"A.dpg", u"é.dpg", u"a.dpg", u"10.dpg", u"9.dpg"})
    folder.write(name, "");
  folder.write(u"Corpi\\nascosto", "");
  EXPECT_EQ(files->files(folder.path()),
            (std::vector<Text>{u"10.dpg", u"9.dpg", u"A.dpg", u"a.dpg", u"b.dpg", u"é.dpg"}));
}

TEST_F(FileSystemTest, ListsOnlyLinksThatLeadToFiles) {
  folder.write(u"vero", "");
  std::filesystem::create_symlink("vero", folder.native(u"buono"));
  std::filesystem::create_symlink("nessuno", folder.native(u"rotto"));
  std::filesystem::create_symlink("cerchio", folder.native(u"cerchio"));
  EXPECT_EQ(files->files(folder.path()), (std::vector<Text>{u"buono", u"vero"}));
}

TEST_F(FileSystemTest, ListsNoFileThatItsNameDoesNotLeadTo) {
  folder.write(u"a\\b.dpg", "x");
  for (const char* name : {"\xFF.dpg", "\xED\xA0\x80.dpg", "a\\b.dpg", "c.dpg", "\xEF\xBF\xBD.dpg"}) {
    std::ofstream(folder.native() / name).put('x');
  }
  EXPECT_EQ(files->files(folder.path()), (std::vector<Text>{u"c.dpg", u"\uFFFD.dpg"}));
}

TEST_F(FileSystemTest, RaisesPathNotFoundForTheListOfAMissingFolder) {
  EXPECT_EQ(errorOf([&] { files->files(folder.file(u"nessuna")); }), 76);
}

TEST_F(FileSystemTest, ReadsNoMoreThanAskedFor) {
  folder.write(u"a", "0123456789");
  EXPECT_EQ(files->readBytes(folder.file(u"a"), 4), "0123");
  EXPECT_EQ(files->readBytes(folder.file(u"a"), 100), "0123456789");
  EXPECT_EQ(files->readBytes(folder.file(u"a"), 0), "");
}

TEST_F(FileSystemTest, RaisesFileNotFoundForReadingWhatIsNoFile) {
  EXPECT_EQ(errorOf([&] { files->readBytes(folder.file(u"no"), 1); }), 53);
  EXPECT_EQ(errorOf([&] { files->readBytes(folder.path(), 1); }), 53);
}

}  // namespace
}  // namespace orvane::test
