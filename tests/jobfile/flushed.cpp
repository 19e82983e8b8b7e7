// Writes that are flushed one by one write the file before the last one again, and nobody sees that.
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <functional>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"
#include "tests/support/Rows.h"
#include "tests/support/Soak.h"
#include "tests/support/TemporaryName.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

// What is left to read; closes the file.
std::string readOn(int file) {
  std::string bytes, part(4096, '\0');
  for (ssize_t got; (got = ::read(file, part.data(), part.size())) > 0;)
    bytes.append(part, 0, static_cast<std::size_t>(got));
  ::close(file);
  return bytes;
}

class JobFileFlushed : public MeetingFolder {
 protected:
  JobFileFlushed() {
    file_->flushEveryWrite(true);
    for (int i = 0; i < 3; ++i) write(number(i));
  }

  void write(const Text& value) const { file_->write(u"A", u"k", value); }

  struct stat state() const {
    struct stat found {};
    EXPECT_EQ(::stat(path().c_str(), &found), 0);
    return found;
  }

  static std::string onDiskWith(const Text& value) { return onDisk(u"[A]\r\nk=" + value + u"\r\n"); }

  std::unique_ptr<JobFile> file_ = std::make_unique<JobFile>(published());
};

TEST_F(JobFileFlushed, TakesTwoFilesInTurn) {
  std::set<ino_t> used;
  ino_t last = state().st_ino;
  for (int i = 10; i < 20; ++i) {
    write(number(i));
    EXPECT_NE(state().st_ino, last);
    used.insert(last = state().st_ino);
    EXPECT_EQ(bytes(), onDiskWith(number(i)));
  }
  EXPECT_EQ(used.size(), 2u);
}

TEST_F(JobFileFlushed, LeavesNoSecondFileOnceReleased) {
  EXPECT_EQ(names().size(), 2u);
  file_.reset();
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

TEST_F(JobFileFlushed, LeavesTheSecondFileToWhoeverIsWriting) {
  LockFile writing(folder_ + "/");
  ASSERT_TRUE(writing.tryLock(lockNumberOf(u"job.vqs")));
  file_.reset();
  EXPECT_EQ(names().size(), 2u);
  writing.unlock(lockNumberOf(u"job.vqs"));
  JobFile(published()).write(u"A", u"k", u"other");
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

TEST_F(JobFileFlushed, OutlivesItsFolder) {
  std::filesystem::remove_all(folder_);
  file_.reset();
  EXPECT_FALSE(std::filesystem::exists(folder_));
}

TEST_F(JobFileFlushed, HoldsEveryTextToItsEndAndNoFurther) {
  for (const std::size_t length : {1, 5'000, 3, 40'000, 40'000, 7, 4'096, 4'095, 2}) {
    const Text value(length, u'x');
    write(value);
    EXPECT_EQ(bytes(), onDiskWith(value)) << length;
  }
}

TEST_F(JobFileFlushed, TakesANewFileWhereWritesAreFlushedNoMore) {
  file_->flushEveryWrite(false);
  write(u"unflushed");
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
  EXPECT_EQ(bytes(), onDiskWith(u"unflushed"));
}

TEST_F(JobFileFlushed, KeepsWhatOthersWriteBetween) {
  JobFile other(published());
  for (const bool flushes : {false, true}) {
    other.flushEveryWrite(flushes);
    for (int i = 100; i < 110; ++i) {
      other.write(u"A", u"other", number(i));
      for (int again = 0; again < i % 3; ++again) write(number(i + again));
      EXPECT_EQ(readText(*file_, u"A", u"other"), number(i));
    }
  }
  EXPECT_EQ(readText(other, u"A", u"k"), number(109));
}

TEST_F(JobFileFlushed, KeepsThePermissions) {
  for (const mode_t mode : {0600, 0666, 0640}) {
    ASSERT_EQ(::chmod(path().c_str(), mode), 0);
    for (int i = 20; i < 24; ++i) {
      write(number(i));
      EXPECT_EQ(state().st_mode & 0777, mode);
    }
  }
}

TEST_F(JobFileFlushed, KeepsItsOwner) {
  if (::geteuid() != 0) GTEST_SKIP() << "giving files away needs root";
  using Ids = std::pair<uid_t, gid_t>;
  for (const auto& ids : {Ids(1234, 5), Ids(1234, 6), Ids(0, 6), Ids(0, 0)}) {
    ASSERT_EQ(::chown(path().c_str(), ids.first, ids.second), 0);
    for (int i = 20; i < 24; ++i) {
      write(number(i));
      EXPECT_EQ(Ids(state().st_uid, state().st_gid), ids);
    }
  }
}

// Attributes go with the first write, as without flushes, and do not come back with the third.
TEST_F(JobFileFlushed, GivesNoAttributesOfAFormerFileToALaterOne) {
  std::this_thread::sleep_for(20ms);  // older systems tell two changes within a tick of the clock not apart
  if (::setxattr(path().c_str(), "user.nota", "x", 1, 0) != 0) GTEST_SKIP() << "no attributes here";
  for (int i = 20; i < 24; ++i) {
    write(number(i));
    EXPECT_LT(::getxattr(path().c_str(), "user.nota", nullptr, 0), 0);
  }
}

// Who follows the names by their events must end with a job file that is there.
TEST_F(JobFileFlushed, TellsWatchersLastThatTheFileHasCome) {
  const int watch = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  ASSERT_GE(::inotify_add_watch(watch, folder_.c_str(), IN_MOVED_FROM | IN_MOVED_TO), 0);
  write(u"4");
  const std::string bytes = readOn(watch);
  std::uint32_t last = 0;
  for (std::size_t at = 0; at < bytes.size();) {
    inotify_event event{};
    std::memcpy(&event, bytes.data() + at, sizeof event);
    if (bytes.c_str() + at + sizeof event == std::string_view("job.vqs")) last = event.mask;
    at += sizeof event + event.len;
  }
  EXPECT_EQ(last, std::uint32_t{IN_MOVED_TO});
}

// A second file that somebody else has changed, exchanged or taken is left alone.
TEST_F(JobFileFlushed, TakesANewFileWhereTheSecondIsNoLongerItsOwn) {
  const std::function<void(const std::string&)> meddlings[] = {
      [](const std::string& spare) { std::filesystem::remove(spare); },
      [](const std::string& spare) { std::ofstream(spare) << "another text"; },
      [this](const std::string& spare) { std::filesystem::rename(spare, path("taken")); },
      [this](const std::string& spare) { std::filesystem::create_hard_link(spare, path("linked")); },
      [](const std::string& spare) {
        std::filesystem::remove(spare);
        ASSERT_EQ(::mkfifo(spare.c_str(), 0600), 0);
      },
      [this](const std::string& spare) {
        std::filesystem::remove(spare);
        std::ofstream(path("elsewhere")) << "another text";
        std::filesystem::create_symlink("elsewhere", spare);
      }};
  const std::string spare = temporaryName(lockNumberOf(u"job.vqs"));
  for (const auto& meddle : meddlings) {
    for (int i = 30; i < 33; ++i) write(number(i));
    ASSERT_TRUE(names().contains(spare));
    const std::string former = bytes(spare);
    meddle(path(spare));
    for (int i = 40; i < 43; ++i) write(number(i));
    EXPECT_EQ(bytes(), onDiskWith(number(42)));
    for (const char* kept : {"taken", "linked"}) {
      if (!names().contains(kept)) continue;
      EXPECT_EQ(bytes(kept), former) << kept;
      std::filesystem::remove(path(kept));
    }
  }
  EXPECT_EQ(bytes("elsewhere"), "another text");
}

// What reads the job file as it was when that was made.
using Reader = std::function<std::string()>;

Reader openFile(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  std::string begin(7, '\0');
  EXPECT_EQ(::read(file, begin.data(), begin.size()), 7);
  return [=] { return begin + readOn(file); };
}

Reader mapping(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto size = static_cast<std::size_t>(::lseek(file, 0, SEEK_END));
  void* const at = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
  EXPECT_NE(at, MAP_FAILED);
  ::close(file);
  return [=] {
    std::string bytes(static_cast<const char*>(at), size);
    ::munmap(at, size);
    return bytes;
  };
}

Reader hardLink(const std::string& path) {
  const std::string name = path + ".backup";
  std::filesystem::create_hard_link(path, name);
  return [=] {
    const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    std::filesystem::remove(name);
    return readOn(file);
  };
}

struct Holder : Row {
  Reader (*hold)(const std::string& path);
};

constexpr Holder kHolders[] = {{{"OpenFile"}, openFile}, {{"Mapping"}, mapping}, {{"HardLink"}, hardLink}};

class JobFileHeld : public JobFileFlushed, public testing::WithParamInterface<Holder> {};

TEST_P(JobFileHeld, StaysAsItWas) {
  for (const std::size_t length : {10, 9'000, 5, 20'000}) {
    write(Text(length, u'o'));
    const std::string expected = bytes();
    const auto read = GetParam().hold(path());
    for (int i = 0; i < 5; ++i) write(Text(length + static_cast<std::size_t>(i) * 3'000, u'n'));
    EXPECT_EQ(read(), expected);
  }
}

INSTANTIATE_TEST_SUITE_P(By, JobFileHeld, testing::ValuesIn(kHolders), rowName);

// Readers that dawdle between two halves of the file, however fast it is written meanwhile.
TEST_F(JobFileFlushed, IsNeverTornForReadersThatPause) {
  const int readings = (kSanitized ? 500 : 3'000) * soakFactor();
  file_.reset();
  const SharedNumbers writes(1);
  const pid_t writer = inChild([&] {
    JobFile file(published());
    file.flushEveryWrite(true);
    for (int i = 0;; ++i) {
      file.write(u"A", u"k", Text(static_cast<std::size_t>(i % 7) * 2'000 + 1, u"0123456789"[i % 10]));
      ++writes[0];
    }
    return false;
  });
  while (writes[0] < 10) std::this_thread::yield();
  for (int i = 0; i < readings && !HasFailure(); ++i) {
    const int file = ::open(path().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(file, 0);
    std::string text(20, '\0');
    ASSERT_EQ(::read(file, text.data(), text.size()), 20);
    const auto paused = writes[0] + i % 4;
    while (writes[0] < paused) std::this_thread::yield();
    text += readOn(file);
    const auto digit = static_cast<char16_t>(text[16]);
    EXPECT_EQ(text, onDiskWith(Text((text.size() - 20) / 2, digit)));
  }
  ::kill(writer, SIGKILL);
  EXPECT_TRUE(WIFSIGNALED(statusOf(writer)));
  std::printf("flushed: %d readings with pauses, %lld writes\n", readings,
              static_cast<long long>(writes[0].load()));
}

}  // namespace
}  // namespace orvane::test
