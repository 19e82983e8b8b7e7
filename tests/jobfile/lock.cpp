// The lock that keeps two writers of one job file apart.
#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

// A writer in another language: knows the protocol, not the library.
class Outsider {
 public:
  static constexpr off_t kFirstPlace = 0;
  static constexpr off_t kLastPlace = 0xFFFFE;
  static constexpr off_t kWriter = 0xFFFFF;

  Outsider(const std::string& folder, std::uint32_t number, off_t byte = kWriter)
      : file_(::open((folder + "/.orvane.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)),
        offset_(off_t{number} * 0x100000 + byte) {}
  Outsider(const Outsider&) = delete;
  Outsider& operator=(const Outsider&) = delete;
  ~Outsider() { ::close(file_); }
  bool lock() const { return set(F_WRLCK); }
  bool unlock() const { return set(F_UNLCK); }

 private:
  bool set(short type) const {
    struct flock range {};
    range.l_type = type;
    range.l_start = offset_;
    range.l_len = 1;
    return ::fcntl(file_, F_OFD_SETLK, &range) == 0;
  }

  int file_;
  off_t offset_;
};

const std::uint32_t kNumber = lockNumberOf(u"job.vqs");

using JobFileLock = JobFolder;

// `other` holds its lock, and gives it back after that time.
template <class Write>
void expectToWaitFor(const Outsider& other, Write write, std::chrono::milliseconds held = 100ms) {
  std::atomic<bool> released = false;
  std::thread holder([&] {
    std::this_thread::sleep_for(held);
    released = true;
    other.unlock();
  });
  write();
  EXPECT_TRUE(released);
  holder.join();
}

TEST(JobFileLockNumber, IsThatOfTheDocumentedExample) {
  EXPECT_EQ(lockNumberOf(u""), 0x811C9DC5u);
  EXPECT_EQ(lockNumberOf(u"123.vqf"), lockNumberOf(u"123.VQF"));
  EXPECT_EQ(lockNumberOf(u"\u00C8.vqs"), lockNumberOf(u"\u00E8.vqs"));
  EXPECT_EQ(lockNumberOf(u"123.vqf"), 0x054B85E8u);
}

TEST_F(JobFileLock, AWriteWaitsForAnotherHolder) {
  JobFile file(published());
  const Outsider other(folder_, kNumber);
  ASSERT_TRUE(other.lock());
  expectToWaitFor(other, [&] { file.write(u"A", u"k", u"1"); });
}

TEST_F(JobFileLock, AWriteWaitsForWhoeverQueuesBeforeIt) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  std::this_thread::sleep_for(20ms);  // what it has seen of the queue counts for 10
  const Outsider other(folder_, kNumber, Outsider::kFirstPlace);
  ASSERT_TRUE(other.lock());
  expectToWaitFor(
      other, [&] { file.write(u"A", u"k", u"2"); }, 300ms);
}

TEST_F(JobFileLock, ANewcomerWaitsForThoseWhoQueue) {
  LockFile file(folder_ + "/");
  const Outsider other(folder_, kNumber, Outsider::kLastPlace);
  ASSERT_TRUE(other.lock());
  EXPECT_FALSE(file.tryLock(kNumber));
  other.unlock();
  EXPECT_TRUE(file.tryLock(kNumber));
}

TEST_F(JobFileLock, OneThatNeverRestsSoonSeesWhoQueues) {
  LockFile file(folder_ + "/");
  ASSERT_TRUE(file.tryLock(kNumber));
  file.unlock(kNumber);
  const Outsider other(folder_, kNumber, Outsider::kLastPlace);
  ASSERT_TRUE(other.lock());
  const auto begin = std::chrono::steady_clock::now();
  while (file.tryLock(kNumber)) {
    file.unlock(kNumber);
    ASSERT_LT(std::chrono::steady_clock::now() - begin, 60s);
  }
  EXPECT_FALSE(file.tryLock(kNumber));
}

TEST_F(JobFileLock, TheQueueIsInTheOrderOfPlaces) {
  LockFile first(folder_ + "/");
  LockFile second(folder_ + "/");
  const Outsider writer(folder_, kNumber);
  ASSERT_TRUE(writer.lock());
  LockFile::Place early{1000};
  LockFile::Place late{1001};
  EXPECT_FALSE(second.tryLockInTurn(kNumber, late));
  EXPECT_FALSE(first.tryLockInTurn(kNumber, early));
  writer.unlock();
  EXPECT_FALSE(second.tryLockInTurn(kNumber, late));
  EXPECT_TRUE(first.tryLockInTurn(kNumber, early));
  first.unlock(kNumber);
  EXPECT_TRUE(second.tryLockInTurn(kNumber, late));
}

TEST_F(JobFileLock, TheFirstPlaceOfAllIsFirstInTurn) {
  LockFile file(folder_ + "/");
  LockFile::Place first{0};
  EXPECT_TRUE(file.tryLockInTurn(kNumber, first));
}

TEST_F(JobFileLock, APlaceIsHeldUntilItIsLeft) {
  const Outsider writer(folder_, kNumber);
  const Outsider rival(folder_, kNumber, 1000);
  ASSERT_TRUE(writer.lock());
  LockFile file(folder_ + "/");
  LockFile::Place place{1000};
  EXPECT_FALSE(file.tryLockInTurn(kNumber, place));
  EXPECT_FALSE(rival.lock());
  file.leave(kNumber, place);
  EXPECT_TRUE(rival.lock());
}

TEST_F(JobFileLock, IsOneByteOnceHad) {
  const Outsider writer(folder_, kNumber);
  const Outsider first(folder_, kNumber, Outsider::kFirstPlace);
  const Outsider last(folder_, kNumber, Outsider::kLastPlace);
  LockFile file(folder_ + "/");
  ASSERT_TRUE(file.tryLock(kNumber));
  EXPECT_FALSE(writer.lock());
  EXPECT_TRUE(first.lock());
  EXPECT_TRUE(last.lock());
  file.unlock(kNumber);
  EXPECT_TRUE(writer.lock());
}

TEST_F(JobFileLock, AWriteThatNeverGetsTheLockIsError70AfterTenSeconds) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  const Outsider other(folder_, kNumber);
  ASSERT_TRUE(other.lock());
  JobFile file(published());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), 70);
  const auto waited = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(waited, 10s);
  EXPECT_LT(waited, 60s);
  EXPECT_TRUE(LockFile(folder_ + "/").tryLock(lockNumberOf(u"other.vqs")));
  ASSERT_TRUE(other.unlock());
  EXPECT_TRUE(LockFile(folder_ + "/").tryLock(kNumber)) << "a place in the queue is kept";
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

TEST_F(JobFileLock, ReadersDoNotWait) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  const Outsider other(folder_, kNumber);
  ASSERT_TRUE(other.lock());
  JobFile file(published());
  EXPECT_EQ(readText(file, u"A", u"k"), u"1");
}

TEST_F(JobFileLock, FilesOfOneFolderDoNotWaitForEachOther) {
  const Outsider other(folder_, lockNumberOf(u"other.vqs"));
  ASSERT_TRUE(other.lock());
  JobFile(published()).write(u"A", u"k", u"1");
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

TEST_F(JobFileLock, IsFreeBetweenWritesAndWhileAScopeWorks) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  const Outsider other(folder_, kNumber);
  file.together([&] {
    file.write(u"A", u"k", u"2");
    EXPECT_TRUE(other.lock());
    EXPECT_TRUE(other.unlock());
  });
}

TEST_F(JobFileLock, ADeletedLockFileIsMadeAnew) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  std::filesystem::remove(path(".orvane.lock"));
  const Outsider other(folder_, kNumber);
  ASSERT_TRUE(other.lock());
  std::thread holder([&] {
    std::this_thread::sleep_for(100ms);
    put(onDisk(u"[A]\r\nk=1\r\ntheirs=1\r\n"));
    other.unlock();
  });
  file.write(u"A", u"mine", u"1");
  holder.join();
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\ntheirs=1\r\nmine=1\r\n"));
}

TEST_F(JobFileLock, AFolderMovedAwayAndMadeAnewHasALockOfItsOwn) {
  std::filesystem::create_directory(path("jobs"));
  JobFile file(published(u"jobs\\job.vqs"));
  file.write(u"A", u"k", u"1");
  std::filesystem::rename(path("jobs"), path("old"));
  std::filesystem::create_directory(path("jobs"));
  file.write(u"A", u"l", u"2");
  EXPECT_EQ(bytes("jobs/job.vqs"), onDisk(u"[A]\r\nl=2\r\n"));
  EXPECT_TRUE(std::filesystem::exists(path("jobs/.orvane.lock")));
}

TEST(Temporaries, AreKnownByTheirNames) {
  EXPECT_TRUE(isTemporaryName(u".orvane-054b85e8.tmp"));
  for (const char16_t* name : {u".orvane-054b85e8", u"orvane-054b85e8.tmp", u".orvane.lock", u"1.vqs", u""})
    EXPECT_FALSE(isTemporaryName(name)) << toUtf8(name);
}

TEST_F(JobFileLock, TriedOnceIsHadOrNot) {
  LockFile other(folder_ + "/");
  FolderLock folder(folder_ + "/");
  ASSERT_TRUE(other.tryLock(1));
  EXPECT_FALSE(folder.tryLock(1));
  other.unlock(1);
  ASSERT_TRUE(folder.tryLock(1));
  EXPECT_FALSE(other.tryLock(1));
  folder.unlock(1);
  EXPECT_TRUE(other.tryLock(1));
}

TEST_F(JobFileLock, IsOpenToWhoeverMayWriteInTheFolder) {
  ::chmod(folder_.c_str(), 0770);
  const mode_t mask = ::umask(0077);
  JobFile(published()).write(u"A", u"k", u"1");
  ::umask(mask);
  struct stat state {};
  ASSERT_EQ(::stat(path(".orvane.lock").c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0660u);
}

// Job files of one folder that a thread has opened share its lock file; one of them may then be handed to
// another thread.
TEST_F(JobFileLock, ThreadsWithOneLockFileTakeTurns) {
  FolderLock folder(folder_ + "/");
  folder.lock(1);
  std::atomic<bool> had = false;
  std::thread other([&] {
    folder.lock(2);
    had = true;
    folder.unlock(2);
  });
  std::this_thread::sleep_for(50ms);
  EXPECT_FALSE(had);
  EXPECT_FALSE(folder.tryLock(1));
  EXPECT_FALSE(folder.tryLock(3)) << "it serves one at a time";
  folder.unlock(1);
  other.join();
  EXPECT_TRUE(had);
}

// Whose lock file is of another device, as that of a folder that leads elsewhere now.
TEST_F(JobFileLock, IsThatOfTheFolderAsItIsNow) {
  if (!std::filesystem::exists("/dev/shm")) GTEST_SKIP() << "there is no second device here";
  std::string elsewhere = "/dev/shm/orvane-XXXXXX";
  ASSERT_TRUE(::mkdtemp(elsewhere.data()));
  std::filesystem::create_directory(path("here"));
  std::filesystem::create_symlink(path("here"), path("jobs"));
  JobFile file(published(u"jobs\\job.vqs"));
  file.write(u"A", u"k", u"1");
  std::filesystem::remove(path("jobs"));
  std::filesystem::create_symlink(elsewhere, path("jobs"));
  const Outsider other(elsewhere, kNumber);
  ASSERT_TRUE(other.lock());
  expectToWaitFor(other, [&] { file.write(u"A", u"k", u"2"); });
  std::filesystem::remove_all(elsewhere);
}

TEST_F(JobFileLock, AForkedChildDoesNotShareItsParentsLock) {
  JobFile file(published());
  file.write(u"A", u"k", u"0");
  constexpr int kWrites = 300;
  const auto count = [&](TextView key) {
    for (int i = 1; i <= kWrites; ++i) file.write(u"A", key, fromUtf8(std::to_string(i)));
  };
  const pid_t child = inChild([&] { return count(u"child"), true; });
  count(u"parent");
  EXPECT_EQ(statusOf(child), 0);
  EXPECT_EQ(readText(file, u"A", u"child"), u"300");
  EXPECT_EQ(readText(file, u"A", u"parent"), u"300");
}

TEST_F(JobFileLock, ThreadsOfOneProcessLoseNothing) {
  constexpr int kWrites = 300;
  std::vector<std::thread> threads;
  for (char16_t name = u'a'; name < u'e'; ++name) {
    threads.emplace_back([this, name] {
      JobFile file(published());
      for (int i = 1; i <= kWrites; ++i) file.write(u"A", Text(1, name), fromUtf8(std::to_string(i)));
    });
  }
  for (std::thread& thread : threads) thread.join();
  JobFile file(published());
  for (char16_t name = u'a'; name < u'e'; ++name) EXPECT_EQ(readText(file, u"A", Text(1, name)), u"300");
}

}  // namespace
}  // namespace orvane::test
