// The lock that keeps two writers of one job file apart.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/jobfile/JobFolder.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

// A writer in another language: knows the protocol, not the library.
class Outsider {
 public:
  static constexpr off_t kGate = 0;
  static constexpr off_t kWriter = 1;

  Outsider(const std::string& folder, std::uint32_t number, off_t byte = kWriter)
      : file_(::open((folder + "/.orvane.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)),
        offset_(off_t{number} * 2 + byte) {}
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

using JobFileLock = JobFolder;

TEST(JobFileLockNumber, IsThatOfTheDocumentedExample) {
  EXPECT_EQ(lockNumberOf(u""), 0x811C9DC5u);
  EXPECT_EQ(lockNumberOf(u"123.vqf"), lockNumberOf(u"123.VQF"));
  EXPECT_EQ(lockNumberOf(u"\u00C8.vqs"), lockNumberOf(u"\u00E8.vqs"));
  EXPECT_EQ(lockNumberOf(u"123.vqf"), 0x054B85E8u);
}

TEST_F(JobFileLock, AWriteWaitsForAnotherHolder) {
  JobFile file(published());
  const Outsider other(folder_, lockNumberOf(u"job.vqs"));
  ASSERT_TRUE(other.lock());
  std::atomic<bool> released = false;
  std::thread holder([&] {
    std::this_thread::sleep_for(100ms);
    released = true;
    other.unlock();
  });
  file.write(u"A", u"k", u"1");
  EXPECT_TRUE(released);
  holder.join();
}

TEST_F(JobFileLock, AWriteWaitsForWhoeverCameFirstToTheGate) {
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  const Outsider other(folder_, lockNumberOf(u"job.vqs"), Outsider::kGate);
  ASSERT_TRUE(other.lock());
  std::atomic<bool> released = false;
  std::thread holder([&] {
    std::this_thread::sleep_for(100ms);
    released = true;
    other.unlock();
  });
  file.write(u"A", u"k", u"2");
  EXPECT_TRUE(released);
  holder.join();
}

TEST_F(JobFileLock, LeavesTheGateWhenItGivesUp) {
  const Outsider writer(folder_, lockNumberOf(u"job.vqs"));
  const Outsider gate(folder_, lockNumberOf(u"job.vqs"), Outsider::kGate);
  ASSERT_TRUE(writer.lock());
  LockFile file(folder_ + "/");
  bool queued = false;
  EXPECT_FALSE(file.tryLock(lockNumberOf(u"job.vqs"), queued));
  EXPECT_TRUE(queued);
  EXPECT_FALSE(gate.lock());
  file.leaveGate(lockNumberOf(u"job.vqs"));
  EXPECT_TRUE(gate.lock());
}

TEST_F(JobFileLock, IsOneByteOnceHad) {
  const Outsider writer(folder_, lockNumberOf(u"job.vqs"));
  const Outsider gate(folder_, lockNumberOf(u"job.vqs"), Outsider::kGate);
  LockFile file(folder_ + "/");
  bool queued = false;
  ASSERT_TRUE(file.tryLock(lockNumberOf(u"job.vqs"), queued));
  EXPECT_FALSE(writer.lock());
  EXPECT_TRUE(gate.lock());
  file.unlock(lockNumberOf(u"job.vqs"));
  EXPECT_TRUE(writer.lock());
}

TEST_F(JobFileLock, AWriteThatNeverGetsTheLockIsError70AfterTenSeconds) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  const Outsider other(folder_, lockNumberOf(u"job.vqs"));
  ASSERT_TRUE(other.lock());
  JobFile file(published());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), 70);
  const auto waited = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(waited, 10s);
  EXPECT_LT(waited, 13s);
  const Outsider gate(folder_, lockNumberOf(u"job.vqs"), Outsider::kGate);
  EXPECT_TRUE(gate.lock()) << "the place at the gate is kept";
  EXPECT_EQ(bytes(), onDisk(u"[A]\r\nk=1\r\n"));
}

TEST_F(JobFileLock, ReadersDoNotWait) {
  put(onDisk(u"[A]\r\nk=1\r\n"));
  const Outsider other(folder_, lockNumberOf(u"job.vqs"));
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
  const Outsider other(folder_, lockNumberOf(u"job.vqs"));
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
  const Outsider other(folder_, lockNumberOf(u"job.vqs"));
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

TEST_F(JobFileLock, IsOpenToWhoeverMayWriteInTheFolder) {
  ::chmod(folder_.c_str(), 0770);
  const mode_t mask = ::umask(0077);
  JobFile(published()).write(u"A", u"k", u"1");
  ::umask(mask);
  struct stat state {};
  ASSERT_EQ(::stat(path(".orvane.lock").c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0660u);
}

TEST_F(JobFileLock, AForkedChildDoesNotShareItsParentsLock) {
  JobFile file(published());
  file.write(u"A", u"k", u"0");
  constexpr int kWrites = 300;
  const auto count = [&](TextView key) {
    for (int i = 1; i <= kWrites; ++i) file.write(u"A", key, fromUtf8(std::to_string(i)));
  };
  const pid_t child = ::fork();
  if (child == 0) {
    count(u"child");
    ::_exit(0);
  }
  count(u"parent");
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
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
