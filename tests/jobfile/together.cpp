// Scopes: one snapshot for all reads, one replace for all writes.
#include <sys/stat.h>

#include <stdexcept>

#include "tests/jobfile/JobFolder.h"

namespace orvane::test {
namespace {

class JobFileTogether : public JobFolder {
 protected:
  ino_t inode() const {
    struct stat state {};
    ::stat(path().c_str(), &state);
    return state.st_ino;
  }
};

TEST_F(JobFileTogether, WritesLandInOneReplaceAtTheEnd) {
  put(onDisk(u"[A]\r\nk=0\r\n"));
  JobFile file(published());
  const ino_t before = inode();
  file.together([&] {
    file.write(u"A", u"k", u"1");
    file.write(u"B", u"l", u"2");
    EXPECT_EQ(inode(), before);
    EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=0\r\n"));
  });
  EXPECT_NE(inode(), before);
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n[B]\r\nl=2\r\n"));
}

TEST_F(JobFileTogether, ReadsSeeTheScopesWrites) {
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    EXPECT_EQ(readText(file, u"A", u"k"), u"1");
  });
}

TEST_F(JobFileTogether, ReadsAreOfOneMoment) {
  put(onDisk(u"[A]\r\nk=1\r\nl=1\r\n"));
  JobFile file(published());
  file.together([&] {
    EXPECT_EQ(readText(file, u"A", u"k"), u"1");
    put(onDisk(u"[A]\r\nk=2\r\nl=2\r\n"));
    EXPECT_EQ(readText(file, u"A", u"l"), u"1");
  });
  EXPECT_EQ(readText(file, u"A", u"l"), u"2");
}

TEST_F(JobFileTogether, LandingKeepsWhatOthersWroteMeanwhile) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"mine", u"1");
    JobFile(published()).write(u"A", u"theirs", u"2");
    file.write(u"A", u"k", u"3");
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=3\r\ntheirs=2\r\nmine=1\r\n"));
}

TEST_F(JobFileTogether, InnerScopesLandWithTheOutermost) {
  JobFile file(published());
  file.together([&] {
    file.together([&] { file.write(u"A", u"k", u"1"); });
    EXPECT_TRUE(names().empty());
    file.write(u"A", u"l", u"2");
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\nl=2\r\n"));
}

TEST_F(JobFileTogether, AnExceptionGoesOnAfterTheWritesBeforeItHaveLanded) {
  JobFile file(published());
  const auto work = [&] {
    file.write(u"A", u"k", u"1");
    throw std::runtime_error("stop");
  };
  EXPECT_THROW(file.together(work), std::runtime_error);
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

TEST_F(JobFileTogether, AnExceptionCaughtInsideIsNoEnd) {
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    try {
      file.together([&] {
        file.write(u"A", u"l", u"2");
        throw std::runtime_error("stop");
      });
    } catch (const std::runtime_error&) {
      EXPECT_TRUE(names().empty());
    }
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\nl=2\r\n"));
}

TEST_F(JobFileTogether, TheWorksExceptionWinsOverThatOfTheLanding) {
  std::filesystem::create_directory(path("gone"));
  JobFile file(published(u"gone\\job.vqs"));
  const auto work = [&] {
    file.write(u"A", u"k", u"1");
    std::filesystem::remove_all(path("gone"));
    throw std::runtime_error("stop");
  };
  EXPECT_THROW(file.together(work), std::runtime_error);
}

TEST_F(JobFileTogether, ALandingThatFailsRaisesAndForgets) {
  std::filesystem::create_directory(path("later"));
  JobFile file(published(u"later\\job.vqs"));
  bool worked = false;
  const auto work = [&] {
    file.write(u"A", u"k", u"1");
    std::filesystem::remove_all(path("later"));
    worked = true;
  };
  EXPECT_EQ(errorOf([&] { file.together(work); }), 76);
  EXPECT_TRUE(worked);
  std::filesystem::create_directory(path("later"));
  EXPECT_EQ(readText(file, u"A", u"k"), std::nullopt);
  file.write(u"A", u"l", u"2");
  EXPECT_EQ(bytes("later/job.vqs"), onDisk(u"[A]\r\nl=2\r\n"));
}

TEST_F(JobFileTogether, AFolderThatIsMissingIsSeenAtTheFirstWrite) {
  JobFile file(published(u"missing\\job.vqs"));
  bool wrote = false;
  const auto work = [&] {
    file.write(u"A", u"k", u"1");
    wrote = true;
  };
  EXPECT_EQ(errorOf([&] { file.together(work); }), 76);
  EXPECT_FALSE(wrote);
}

TEST_F(JobFileTogether, AWriteThatChangesNothingIsNotRefused) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  std::filesystem::permissions(path(), std::filesystem::perms::owner_read);
  JobFile file(published());
  int first = -1, second = -1;
  file.together([&] {
    first = errorOf([&] { file.write(u"A", u"k", u"1"); });
    second = errorOf([&] { file.write(u"A", u"k", u"2"); });
    EXPECT_EQ(readText(file, u"A", u"k"), u"1");
  });
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 70);
}

TEST_F(JobFileTogether, WhatHasLandedInTheMidstIsInTheFileForAll) {
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    file.landSoFar();
    EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
    JobFile(published()).write(u"A", u"theirs", u"2");
    EXPECT_EQ(readText(file, u"A", u"theirs"), u"2");
    file.write(u"A", u"l", u"3");
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\ntheirs=2\r\nl=3\r\n"));
}

TEST_F(JobFileTogether, ARefusedWriteLeavesTheOthers) {
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    EXPECT_EQ(errorOf([&] { file.write(u"A", u"a=b", u"1"); }), 5);
    file.write(u"A", u"l", u"2");
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\nl=2\r\n"));
}

TEST_F(JobFileTogether, WorksThatChangeNothingReplaceNothing) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  JobFile file(published());
  const ino_t before = inode();
  file.together([] {});
  file.together([&] { file.write(u"A", u"k", u"1"); });
  file.write(u"A", u"k", u"1");
  EXPECT_EQ(inode(), before);
}

TEST_F(JobFileTogether, WrittenThereAndBackReplacesTheFileWithItself) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"2");
    file.write(u"A", u"k", u"1");
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

TEST_F(JobFileTogether, GivesWhatTheWorkGives) {
  JobFile file(published());
  int value = 3;
  EXPECT_EQ(file.together([&] { return 2; }), 2);
  EXPECT_EQ(&file.together([&]() -> int& { return value; }), &value);
  EXPECT_EQ(*file.together([&] { return std::make_unique<int>(5); }), 5);
}

TEST_F(JobFileTogether, AFlushInsideIsDoneAfterTheLanding) {
  JobFile file(published());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    file.flush();
    EXPECT_TRUE(names().empty());
  });
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

}  // namespace
}  // namespace orvane::test
