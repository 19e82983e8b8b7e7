// The parsed image is kept, and never trusted when the file may have changed.
#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

class JobFileImage : public MeetingFolder {
 protected:
  void overwrite(const std::string& content) const {
    const int file = ::open(path().c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(file, content.data(), content.size(), 0), static_cast<ssize_t>(content.size()));
    ::close(file);
  }

  // As if last changed `age` ago.
  void setAge(std::chrono::nanoseconds age) const {
    const auto time = std::chrono::system_clock::now().time_since_epoch() - age;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const timespec then{seconds.count(), std::chrono::nanoseconds(time - seconds).count()};
    const timespec times[] = {then, then};
    ASSERT_EQ(::utimensat(AT_FDCWD, path().c_str(), times, 0), 0);
  }
};

TEST_F(JobFileImage, TellsWhetherTheFileIsThere) {
  JobFile file(published());
  EXPECT_FALSE(file.exists());
  file.together([&] {
    file.write(u"A", u"k", u"1");
    EXPECT_FALSE(file.exists());
  });
  EXPECT_TRUE(file.exists());
  std::filesystem::remove(path());
  EXPECT_FALSE(file.exists());
  EXPECT_FALSE(JobFile(u"").exists());
}

// Changes of one size, many in each tick of the clock that file systems take their times from.
int ticks() { return (kSanitized ? 1'000 : 2'000) * soakFactor(); }

TEST_F(JobFileImage, AForeignChangeInPlaceOfTheSameSizeIsNoticedAtOnce) {
  JobFile file(published());
  for (int trial = 0; trial < ticks(); ++trial) {
    file.write(u"A", u"k", trial % 2 ? u"1" : u"2");
    overwrite(onDisk(u"[A]\r\nk=3\r\n"));
    ASSERT_EQ(readText(file, u"A", u"k"), u"3") << trial;
  }
  std::printf("ticks: %d foreign changes, each noticed at once\n", ticks());
}

TEST_F(JobFileImage, TwoForeignChangesInPlaceAreNoticedAtOnce) {
  put(onDisk(u"[A]\r\nk=0\r\n"));
  JobFile file(published());
  for (int trial = 0; trial < ticks(); ++trial) {
    const Text value(1, static_cast<char16_t>(u'0' + trial % 10));
    overwrite(onDisk(u"[A]\r\nk=" + value + u"\r\n"));
    ASSERT_EQ(readText(file, u"A", u"k"), value) << trial;
  }
  std::printf("ticks: %d foreign changes between readings, each noticed at once\n", ticks());
}

TEST_F(JobFileImage, AnotherWritersReplaceOfTheSameSizeIsNoticedAtOnce) {
  JobFile file(published());
  JobFile other(published());
  for (int trial = 0; trial < ticks(); ++trial) {
    file.write(u"A", u"k", trial % 2 ? u"1" : u"2");
    other.write(u"A", u"k", trial % 2 ? u"3" : u"4");
    ASSERT_EQ(readText(file, u"A", u"k"), trial % 2 ? u"3" : u"4") << trial;
  }
  std::printf("ticks: %d writes of another writer, each noticed at once\n", ticks());
}

TEST_F(JobFileImage, AChangeWithItsTimePutBackIsNoticed) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  setAge(std::chrono::hours(1));
  struct stat before {};
  ::stat(path().c_str(), &before);
  JobFile file(published());
  EXPECT_EQ(readText(file, u"A", u"k"), u"1");
  overwrite(onDisk(u"[A]\r\nk=2\r\n"));
  const timespec times[] = {before.st_atim, before.st_mtim};
  ::utimensat(AT_FDCWD, path().c_str(), times, 0);
  EXPECT_EQ(readText(file, u"A", u"k"), u"2");
}

TEST_F(JobFileImage, ADeletedFileReadsAsEmptyAndIsMadeAnew) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  std::filesystem::remove(path());
  EXPECT_EQ(readText(file, u"A", u"k"), std::nullopt);
  file.write(u"A", u"l", u"2");
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nl=2\r\n"));
}

TEST_F(JobFileImage, AFileDeletedUnseenComesBackWithTheNewValueOnly) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  std::filesystem::remove(path());
  file.write(u"A", u"l", u"2");
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nl=2\r\n"));
}

TEST_F(JobFileImage, AWriteBuildsOnWhatTheFileHoldsNow) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  put(onDisk(u"[A]\r\nk=2\r\n; a server was here\r\n"));
  file.write(u"A", u"l", u"3");
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=2\r\n; a server was here\r\nl=3\r\n"));
}

TEST(JobFileStamp, IsSettledAfterATickOrTwoSeconds) {
  constexpr std::int64_t kMillisecond = 1'000'000;
  Stamp stamp{.exists = true, .modified = 5'000 * kMillisecond + 1};
  EXPECT_FALSE(isSettled(stamp, stamp.modified));
  EXPECT_FALSE(isSettled(stamp, stamp.modified + 50 * kMillisecond));
  EXPECT_TRUE(isSettled(stamp, stamp.modified + 51 * kMillisecond));
  EXPECT_FALSE(isSettled(stamp, stamp.modified - 1'000 * kMillisecond));
  stamp.modified = 5'000 * kMillisecond;
  EXPECT_FALSE(isSettled(stamp, stamp.modified + 1'999 * kMillisecond));
  EXPECT_TRUE(isSettled(stamp, stamp.modified + 2'001 * kMillisecond));
}

TEST_F(JobFileImage, TimesOfOneFileOnlyGrow) {
  const std::int64_t later = presentTime() + 3'600'000'000'000;
  put("");
  setAge(-std::chrono::hours(1));
  JobFile(published()).write(u"A", u"k", u"1");
  struct stat state {};
  ::stat(path().c_str(), &state);
  EXPECT_GE(state.st_mtim.tv_sec, later / 1'000'000'000);
}

TEST_F(JobFileImage, AnUnsettledFileIsReadAgainUntilItIsOld) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  DiskFile disk(published());
  EXPECT_FALSE(isSettled(disk.stamp(), presentTime()));
  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  EXPECT_TRUE(isSettled(disk.stamp(), presentTime()));
}

}  // namespace
}  // namespace orvane::test
