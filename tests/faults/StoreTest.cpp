// What the store does when single calls fail, and when other processes act between two of its calls.
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <set>

#include "core/SystemError.h"
#include "tests/faults/InMemory.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/JobTest.h"
#include "tests/support/TemporaryName.h"

namespace orvane::test {
namespace {

class Store : public testing::Test {
 protected:
  Store() { JobFile(name_).write(u"A", u"k", u"1"); }

  std::string path(const char* name = "job.vqs") const { return folder_.native().string() + "/" + name; }
  std::string lockFolder() const { return folder_.native().string() + "/"; }

  Text valueNow() const { return readJobFile(name_).value(u"A", u"k"); }

  // In place and of the same size, as a server does that knows nothing of the protocol.
  void writeInPlace(char value) const {
    std::fstream stream(path(), std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(16);
    stream.put(value);
  }

  mode_t mode() const {
    struct stat state {};
    ::stat(path().c_str(), &state);
    return state.st_mode & 0777;
  }

  static int errorWith(const Fault& fault, const std::function<void()>& work) {
    const SystemCalls calls(fault);
    return errorOf(work);
  }

  InMemory inMemory_;
  TemporaryFolder folder_;
  const Text name_ = folder_.file(u"job.vqs");
  const std::uint32_t number_ = lockNumberOf(u"job.vqs");
};

TEST_F(Store, ReadsAFileAgainThatWasCutMeanwhile) {
  const SystemCalls calls({.at = 0, .code = kNothingDone, .name = "read"});
  EXPECT_EQ(JobFile(name_).read(u"A", u"k"), TextView(u"1"));
  EXPECT_GT(calls.count(), 1);
}

TEST_F(Store, ReadsAFileAgainThatWasChangedMeanwhile) {
  const SystemCalls calls({.at = 0, .name = "read", .meanwhile = [&] { writeInPlace('7'); }});
  JobFile file(name_);
  EXPECT_EQ(file.read(u"A", u"k"), TextView(u"7"));
  EXPECT_EQ(calls.count(), 2) << "the content of one reading may be of two moments";
}

TEST_F(Store, TakesAFileAsItIsThatNeverRests) {
  JobFile file(name_);
  EXPECT_EQ(errorWith({.at = 0, .code = kNothingDone, .onward = true, .name = "read"},
                      [&] { EXPECT_EQ(file.read(u"A", u"k"), std::nullopt); }),
            0);
  EXPECT_EQ(file.read(u"A", u"k"), TextView(u"1"));
}

TEST_F(Store, OpensAFileAgainThatWasAwayForAMoment) {
  const SystemCalls calls({.at = 0, .code = ENOENT, .name = "open"});
  EXPECT_EQ(JobFile(name_).read(u"A", u"k"), TextView(u"1"));
}

// What NFS tells of a file that another machine has replaced.
TEST_F(Store, ReadsAFileAgainThatWasReplacedElsewhere) {
  for (const char* call : {"open", "fstat", "read"}) {
    const SystemCalls calls({.at = 0, .code = ESTALE, .name = call});
    EXPECT_EQ(JobFile(name_).read(u"A", u"k"), TextView(u"1")) << call;
    EXPECT_GT(calls.count(), 1) << call;
  }
  JobFile file(name_);
  EXPECT_EQ(errorWith({.at = 1, .code = ESTALE, .name = "fstat"},
                      [&] { EXPECT_EQ(file.read(u"A", u"k"), TextView(u"1")); }),
            0);
}

TEST_F(Store, GivesUpAFileThatIsReplacedElsewhereForEver) {
  JobFile file(name_);
  EXPECT_EQ(
      errorWith({.at = 0, .code = ESTALE, .onward = true, .name = "read"}, [&] { file.read(u"A", u"k"); }),
      75);
}

TEST_F(Store, NeverTakesAFileForMissingThatHasAName) {
  JobFile file(name_);
  for (const int code : {ENOENT, ESTALE}) {
    const Fault fault{.at = 0, .code = code, .onward = true, .name = "open"};
    EXPECT_EQ(errorWith(fault, [&] { file.read(u"A", u"k"); }), 75) << code;
  }
}

TEST_F(Store, TakesNoNameForMissingThatCannotBeLookedAt) {
  const auto write = [&] { JobFile(folder_.file(Text(300, u'x'))).write(u"A", u"k", u"2"); };
  EXPECT_EQ(errorWith({.at = 0, .code = ENOENT, .name = "readlink"}, write), 52);
}

TEST_F(Store, TakesAWriteThatWritesNothingForAFullDevice) {
  const auto write = [&] { JobFile(name_).write(u"A", u"k", u"2"); };
  EXPECT_EQ(errorWith({.at = 0, .code = kNothingDone, .name = "write"}, write), 61);
  EXPECT_EQ(valueNow(), u"1");
}

TEST_F(Store, SaysWhyAKilledWritersTemporaryCannotBeRemoved) {
  folder_.write(fromUtf8(temporaryName(number_)), "left by a killed writer");
  const auto write = [&] { JobFile(name_).write(u"A", u"k", u"2"); };
  EXPECT_EQ(errorWith({.at = 0, .code = EIO, .onward = true, .name = "unlink"}, write), 57);
  EXPECT_EQ(valueNow(), u"1");
}

TEST_F(Store, GivesThePermissionsLaterWhereItCannotAtOnce) {
  ::chmod(path().c_str(), 0666);
  EXPECT_EQ(errorWith({.at = 0, .code = EPERM, .onward = true, .name = "fchmod"},
                      [&] { JobFile(name_).write(u"A", u"k", u"2"); }),
            0);
  EXPECT_EQ(valueNow(), u"2");
  EXPECT_EQ(mode(), 0666u);
}

TEST_F(Store, WritesWhereThePermissionsCannotBeKept) {
  JobFile file(name_);
  const mode_t mask = ::umask(0);
  file.write(u"A", u"k", u"2");
  ::chmod(path().c_str(), 0666);
  file.write(u"A", u"k", u"3");
  ::umask(0077);
  EXPECT_EQ(errorWith({.at = 0, .code = EPERM, .name = "chmod"}, [&] { file.write(u"A", u"k", u"4"); }), 0);
  ::umask(mask);
  EXPECT_EQ(valueNow(), u"4");
  EXPECT_EQ(mode(), 0600u);
}

class StoreOfOthers : public Store {
 protected:
  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "giving files away needs root";
    ASSERT_EQ(::chown(path().c_str(), 1234, 5678), 0);
  }

  std::pair<uid_t, gid_t> owner() const {
    struct stat state {};
    ::stat(path().c_str(), &state);
    return {state.st_uid, state.st_gid};
  }
};

TEST_F(StoreOfOthers, KeepsTheGroupWhereTheOwnerMayNotBeGiven) {
  JobFile file(name_);
  EXPECT_EQ(errorWith({.at = 0, .code = EPERM, .name = "fchown"}, [&] { file.write(u"A", u"k", u"2"); }), 0);
  EXPECT_EQ(owner(), std::pair(uid_t{0}, gid_t{5678}));
}

TEST_F(StoreOfOthers, WritesWhereNeitherMayBeGiven) {
  JobFile file(name_);
  const Fault fault{.at = 0, .code = EPERM, .onward = true, .name = "fchown"};
  EXPECT_EQ(errorWith(fault, [&] { file.write(u"A", u"k", u"2"); }), 0);
  EXPECT_EQ(owner(), std::pair(uid_t{0}, gid_t{0}));
  EXPECT_EQ(valueNow(), u"2");
}

TEST_F(Store, FlushesWhereFoldersHaveNoFlush) {
  JobFile file(name_);
  EXPECT_EQ(errorWith({.at = 1, .code = EINVAL, .name = "fsync"}, [&] { file.flush(); }), 0);
  EXPECT_EQ(errorWith({.at = 1, .code = EIO, .name = "fsync"}, [&] { file.flush(); }), 57);
}

TEST_F(Store, FlushesEveryWriteOfFilesThatAreOpenAlready) {
  ProfileAccess access;
  const auto file = access.open(name_);
  access.open(folder_.file(u"released.vqs"));
  const auto flushesOfAWrite = [&](TextView value) {
    const SystemCalls calls({.name = "fsync"});
    file->write(u"A", u"k", value);
    return calls.count();
  };
  EXPECT_EQ(flushesOfAWrite(u"2"), 0);
  access.flushEveryWrite(true);
  EXPECT_EQ(flushesOfAWrite(u"3"), 2) << "the file and its folder";
  access.flushEveryWrite(false);
  EXPECT_EQ(flushesOfAWrite(u"4"), 0);
}

// What the system answers while another has a lease of the file.
TEST_F(Store, WaitsForAFileThatIsLeased) {
  const SystemCalls calls({.at = 0, .code = EWOULDBLOCK, .name = "open"});
  EXPECT_EQ(JobFile(name_).read(u"A", u"k"), TextView(u"1"));
  EXPECT_EQ(calls.count(), 2);
}

TEST_F(Store, GivesUpAFileThatIsLeasedForEver) {
  JobFile file(name_);
  const Fault fault{.at = 0, .code = EWOULDBLOCK, .onward = true, .name = "open"};
  EXPECT_EQ(errorWith(fault, [&] { file.read(u"A", u"k"); }), 75);
}

class FlushedStore : public Store {
 protected:
  FlushedStore() {
    file_->flushEveryWrite(true);
    for (const TextView value : {u"2", u"3", u"4"}) write(value);
  }

  void write(TextView value) const { file_->write(u"A", u"k", value); }

  // What another process does just before the two names are exchanged.
  int errorOfAWrite(const std::function<void()>& meanwhile) const {
    return errorWith({.at = 0, .name = "renameat2", .meanwhile = meanwhile}, [&] { write(u"5"); });
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
  const SystemCalls calls;
  write(u"5");
  write(u"6");
  std::vector<DiskEvent::Kind> kinds;
  for (const DiskEvent& event : calls.events()) kinds.push_back(event.kind);
  using Event = DiskEvent;
  const std::vector each{Event::Write, Event::SyncFile, Event::Exchange, Event::SyncFolder};
  auto both = each;
  both.insert(both.end(), each.begin(), each.end());
  EXPECT_EQ(kinds, both);
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
  EXPECT_EQ(errorOfAWrite([&] {
              std::filesystem::rename(path(), path("moved.vqs"));
              std::filesystem::copy_file(path("moved.vqs"), path());
            }),
            0);
  write(u"6");
  EXPECT_EQ(readJobFile(folder_.file(u"moved.vqs")).value(u"A", u"k"), u"4");
  EXPECT_EQ(valueNow(), u"6");
  EXPECT_EQ(namesLeft(), (std::set<std::string>{"job.vqs", "moved.vqs"}));
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
    EXPECT_EQ(errorWith({}, [&] { write(u"6"); }), 0);
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

TEST_F(Store, LocksInALockFileThatAnotherHasJustMade) {
  std::filesystem::remove(path(".orvane.lock"));
  JobFile file(name_);
  const SystemCalls calls(
      {.at = 1, .name = "open", .meanwhile = [&] { folder_.write(u".orvane.lock", ""); }});
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), 0);
  EXPECT_EQ(valueNow(), u"2");
}

TEST_F(Store, GivesTheLockBackWhereSomebodyQueuesEvenWhereThatFails) {
  LockFile holder(lockFolder()), waiting(lockFolder()), newcomer(lockFolder());
  ASSERT_TRUE(holder.tryLock(number_));
  LockFile::Place place{1000};
  ASSERT_FALSE(waiting.tryLockInTurn(number_, place));
  holder.unlock(number_);
  for (const int failing : {-1, 2}) {
    bool had = true;
    const int error =
        errorWith({.at = failing, .code = EIO, .name = "fcntl"}, [&] { had = newcomer.tryLock(number_); });
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(had);
  }
  EXPECT_TRUE(waiting.tryLockInTurn(number_, place));
}

TEST_F(Store, GivesTheLockBackWhereTheQueueCannotBeLookedAt) {
  LockFile file(lockFolder());
  EXPECT_EQ(errorWith({.at = 1, .code = EIO, .name = "fcntl"}, [&] { file.tryLock(number_); }), 57);
  EXPECT_TRUE(LockFile(lockFolder()).tryLock(number_));
}

TEST_F(Store, BeginsAgainWhereAPlaceInTheQueueCannotBeGivenBack) {
  LockFile file(lockFolder());
  LockFile::Place place{1000};
  bool had = true;
  EXPECT_EQ(
      errorWith({.at = 3, .code = EIO, .name = "fcntl"}, [&] { had = file.tryLockInTurn(number_, place); }),
      0);
  EXPECT_FALSE(had);
  EXPECT_TRUE(LockFile(lockFolder()).tryLock(number_)) << "the lock or the place is kept";
}

// Ranges are given back as they were taken, which is all that servers of SMB understand.
TEST_F(Store, TakesAndGivesBackEqualRanges) {
  LockFile file(lockFolder());
  const SystemCalls calls;
  ASSERT_TRUE(file.tryLock(number_));
  file.unlock(number_);
  LockFile::Place place{1000};
  ASSERT_TRUE(file.tryLockInTurn(number_, place));
  file.unlock(number_);
  std::multiset<std::pair<off_t, off_t>> taken;
  for (const LockEvent& event : calls.locks()) {
    if (event.type == F_WRLCK) {
      taken.insert({event.at, event.length});
    } else {
      const auto range = taken.find({event.at, event.length});
      ASSERT_NE(range, taken.end()) << event.at << ", " << event.length;
      taken.erase(range);
    }
  }
  EXPECT_TRUE(taken.empty());
}

TEST_F(Store, RaisesWhatHindersItInTheQueue) {
  LockFile file(lockFolder());
  LockFile::Place place{1000};
  EXPECT_EQ(errorWith({.at = 1, .code = EIO, .name = "fcntl"}, [&] { file.tryLockInTurn(number_, place); }),
            57);
  file.leave(number_, place);
  EXPECT_TRUE(LockFile(lockFolder()).tryLock(number_)) << "a place in the queue is kept";
}

TEST_F(Store, LeavesTheQueueEvenWhereThatFails) {
  LockFile holder(lockFolder()), waiting(lockFolder()), newcomer(lockFolder());
  ASSERT_TRUE(holder.tryLock(number_));
  LockFile::Place place{1000};
  ASSERT_FALSE(waiting.tryLockInTurn(number_, place));
  EXPECT_EQ(errorWith({.at = 0, .code = EIO, .name = "fcntl"}, [&] { waiting.leave(number_, place); }), 0);
  holder.unlock(number_);
  EXPECT_TRUE(newcomer.tryLock(number_));
}

TEST(SystemErrors, OfTheStandardLibraryAreThoseOfTheSystem) {
  EXPECT_EQ(errorNumberOf(std::error_code(ENOSPC, std::generic_category())), ErrorNumber::DiskFull);
  EXPECT_EQ(errorNumberOf(std::error_code(ENOSPC, std::system_category())), ErrorNumber::DiskFull);
}

}  // namespace
}  // namespace orvane::test
