// Flushed writes into the former file: what others do with it meanwhile, and what fails.
#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>

#include "tests/faults/StoreFixture.h"
#include "tests/jobfile/Processes.h"
#include "tests/support/TemporaryName.h"

namespace orvane::test {
namespace {

class FlushedStore : public Store {
 protected:
  FlushedStore() {
    file_->flushEveryWrite(true);
    for (const TextView value : {u"2", u"3", u"4"}) write(value);
  }

  std::string temporary() const { return path(temporaryName(number_).c_str()); }

  // The kinds of changes that the next write makes.
  std::vector<DiskEvent::Kind> eventsOfAWrite() const {
    const SystemCalls calls;
    write(u"next");
    std::vector<DiskEvent::Kind> kinds;
    for (const DiskEvent& event : calls.events()) kinds.push_back(event.kind);
    return kinds;
  }

  void write(TextView value) const { file_->write(u"A", u"k", value); }

  // What another process does just before the two names are exchanged.
  int errorOfAWrite(const std::function<void()>& meanwhile) const {
    return errorWith({.at = 0, .name = "renameat2", .meanwhile = meanwhile}, [&] { write(u"5"); });
  }

  // Another moves the file away, then, and puts something of his in its place. Neither is ever written or
  // kept.
  void expectToLeaveAlone(const std::function<void()>& puts) {
    EXPECT_EQ(errorOfAWrite([&] {
                std::filesystem::rename(path(), path("moved.vqs"));
                puts();
              }),
              0);
    EXPECT_FALSE(std::filesystem::exists(temporary())) << "another's file would be kept";
    for (const TextView value : {u"6", u"7", u"8"}) write(value);
    EXPECT_EQ(readJobFile(folder_.file(u"moved.vqs")).value(u"A", u"k"), u"4");
    EXPECT_EQ(valueNow(), u"8");
    EXPECT_EQ(namesLeft(), (std::set<std::string>{"job.vqs", "moved.vqs"}));
  }

  std::set<std::string> namesLeft() {
    file_.reset();
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.native()))
      names.insert(entry.path().filename());
    names.erase(".orvane.lock");
    return names;
  }

  std::unique_ptr<JobFile> file_ = std::make_unique<JobFile>(name_);
};

TEST_F(FlushedStore, CreatesAndRemovesNoFile) {
  using Event = DiskEvent;
  const std::vector all{Event::Truncate, Event::Write, Event::SyncFile, Event::Exchange, Event::SyncFolder};
  EXPECT_EQ(eventsOfAWrite(), all);
  write(u"5");
  EXPECT_EQ(eventsOfAWrite(), all);
}

// What was exchanged and is not known to be on the device must not be overwritten.
TEST_F(FlushedStore, CreatesAFileAfterAWriteThatFailedOnTheDisk) {
  int failedOnDisk = 0;
  for (int at = 0; at < 40; ++at) {
    for (const TextView value : {u"2", u"3", u"4"}) write(value);
    bool changed = false;
    {
      const SystemCalls calls({.at = at, .code = EIO, .onward = true});
      changed = errorOf([&] { write(u"5"); }) != 0 && !calls.events().empty();
    }
    if (!changed) continue;
    ++failedOnDisk;
    const auto events = eventsOfAWrite();
    EXPECT_EQ(std::ranges::count(events, DiskEvent::Create), 1) << at;
  }
  EXPECT_GE(failedOnDisk, 5);
}

// What has another time may be another's.
TEST_F(FlushedStore, ExchangesNoFileWithoutAnExactTime) {
  EXPECT_EQ(errorWith({.at = 0, .code = EPERM, .name = "futimens"}, [&] { write(u"5"); }), 0);
  EXPECT_EQ(std::ranges::count(eventsOfAWrite(), DiskEvent::Exchange), 0);
}

// The system tells the lease's owner by a signal, which would end a program that does not expect it.
TEST_F(FlushedStore, OutlivesWhoeverOpensTheTemporary) {
  const SystemCalls calls({.at = 0, .name = "futimens", .meanwhile = [&] {
                             EXPECT_LT(::open(temporary().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC), 0);
                             EXPECT_EQ(errno, EWOULDBLOCK);
                           }});
  EXPECT_EQ(errorOf([&] { write(u"5"); }), 0);
  EXPECT_EQ(calls.count(), 1);
}

// A process that is forked meanwhile has the file open too, and with it the lease.
TEST_F(FlushedStore, KeepsNoReaderWaitingWhereTheProgramForks) {
  pid_t child = 0;
  EXPECT_EQ(
      errorWith(
          {.at = 0, .name = "futimens", .meanwhile = [&] { child = inChild([] { return ::pause() == 0; }); }},
          [&] { write(u"5"); }),
      0);
  const SystemCalls calls({.name = "open"});
  EXPECT_EQ(JobFile(name_).read(u"A", u"k"), TextView(u"5"));
  EXPECT_EQ(calls.count(), 1);
  ::kill(child, SIGKILL);
  EXPECT_TRUE(WIFSIGNALED(statusOf(child)));
}

// Pages that wait in a pipe belong to nobody's open file.
TEST_F(FlushedStore, LeavesTheTextInPipesAsItIs) {
  int pipe[2];
  ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
  const int file = ::open(path().c_str(), O_RDONLY | O_CLOEXEC);
  const std::string expected = folder_.read(u"job.vqs");
  EXPECT_EQ(::splice(file, nullptr, pipe[1], nullptr, 1 << 16, 0), static_cast<ssize_t>(expected.size()));
  ::close(file);
  for (const TextView value : {u"5", u"6", u"7", u"8"}) write(value);
  std::string found(expected.size(), '\0');
  EXPECT_EQ(::read(pipe[0], found.data(), found.size()), static_cast<ssize_t>(found.size()));
  EXPECT_EQ(found, expected);
  for (const int end : pipe) ::close(end);
}

// Nobody may see the text of a job in a file that more may read.
TEST_F(FlushedStore, GivesATextToNoFileWithOtherPermissions) {
  ::chmod(path().c_str(), 0600);
  const Fault fault{.at = 0, .name = "rename", .meanwhile = [&] { EXPECT_EQ(modeOf(temporary()), 0600u); }};
  const SystemCalls calls(fault);
  EXPECT_EQ(errorOf([&] { write(u"5"); }), 0);
  EXPECT_EQ(calls.count(), 1);
}

TEST_F(FlushedStore, NeverWritesAFileThatWasLinkedMeanwhile) {
  EXPECT_EQ(errorOfAWrite([&] { std::filesystem::create_hard_link(path(), path("backup.vqs")); }), 0);
  write(u"6");
  write(u"7");
  EXPECT_EQ(readJobFile(folder_.file(u"backup.vqs")).value(u"A", u"k"), u"4");
  EXPECT_EQ(valueNow(), u"7");
  EXPECT_EQ(namesLeft(), (std::set<std::string>{"backup.vqs", "job.vqs"}));
}

TEST_F(FlushedStore, ReplacesAFileThatWasPutThereMeanwhile) {
  expectToLeaveAlone([&] { std::filesystem::copy_file(path("moved.vqs"), path()); });
}

TEST_F(FlushedStore, NeverWritesAFileThatWasMovedMeanwhile) {
  expectToLeaveAlone([&] { std::filesystem::create_symlink("moved.vqs", path()); });
}

TEST_F(FlushedStore, SucceedsWhereTheFormerFileIsTakenAwayMeanwhile) {
  const SystemCalls calls(
      {.at = 0, .name = "lstat", .meanwhile = [&] { EXPECT_TRUE(std::filesystem::remove(temporary())); }});
  EXPECT_EQ(errorOf([&] { write(u"5"); }), 0);
  EXPECT_EQ(valueNow(), u"5");
  EXPECT_EQ(calls.count(), 1);
}

TEST_F(FlushedStore, LeavesAFolderThatWasPutThereMeanwhile) {
  EXPECT_EQ(errorOfAWrite([&] {
              std::filesystem::remove(path());
              std::filesystem::create_directory(path());
            }),
            75);
  EXPECT_TRUE(std::filesystem::is_directory(path()));
  EXPECT_EQ(namesLeft(), std::set<std::string>{"job.vqs"});
}

TEST_F(FlushedStore, MakesAFileAnewThatWasTakenAwayMeanwhile) {
  EXPECT_EQ(errorOfAWrite([&] { std::filesystem::remove(path()); }), 0);
  EXPECT_EQ(valueNow(), u"5");
  EXPECT_EQ(namesLeft(), std::set<std::string>{"job.vqs"});
}

TEST_F(FlushedStore, WritesAnotherFileWhereTheNamesCannotBeExchanged) {
  for (const char* call : {"renameat2", "statfs"}) {
    EXPECT_EQ(errorWith({.at = 0, .code = ENOSYS, .name = call}, [&] { write(u"5"); }), 0);
    EXPECT_EQ(errorOf([&] { write(u"6"); }), 0);
    EXPECT_EQ(valueNow(), u"6") << call;
  }
  EXPECT_EQ(namesLeft(), std::set<std::string>{"job.vqs"});
}

// Of a file system whose files others may open elsewhere, no lease tells.
TEST_F(Store, ExchangesNamesOnLocalFileSystemsOnly) {
  const std::string mount = path("mount");
  std::filesystem::create_directory(mount);
  if (::mount("ramfs", mount.c_str(), "ramfs", 0, nullptr) != 0) GTEST_SKIP() << "mounting needs root";
  const SystemCalls calls({.name = "renameat2"});
  {
    JobFile file(folder_.file(u"mount\\job.vqs"));
    file.flushEveryWrite(true);
    for (const TextView value : {u"1", u"2", u"3"}) file.write(u"A", u"k", value);
  }
  EXPECT_EQ(calls.count(), 0);
  EXPECT_EQ(::umount(mount.c_str()), 0);
}

}  // namespace
}  // namespace orvane::test
