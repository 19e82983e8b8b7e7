// What the store does when single calls fail, and when other processes act between two of its calls.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <set>

#include "core/SystemError.h"
#include "tests/faults/StoreFixture.h"
#include "tests/support/TemporaryName.h"

namespace orvane::test {
namespace {

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

TEST_F(Store, IsReadOnceToLoadADocument) {
  const VqDocumenti factory;
  {
    const auto fax = factory.NuovoDocumentoFax();
    fax->Inizializza(u"1", folder_.path());
    for (const TextView name : {u"a.pdf", u"b.pdf", u"c.pdf"}) fax->Allegati.Add(folder_.path(), name);
    fax->Allegati.Salva();
  }
  for (const char* call : {"read", "open"}) {
    const auto loaded = factory.NuovoDocumentoFax();
    const SystemCalls calls({.name = call});
    loaded->Carica(folder_.path(), u"1.vqf");
    EXPECT_EQ(calls.count(), 1) << call;
    EXPECT_EQ(loaded->Allegati.Count(), 3);
  }
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

TEST_F(Store, FlushesAFileOnceForTheChangesOfItsLife) {
  const SystemCalls calls({.name = "fsync"});
  {
    JobFile file(name_);
    file.write(u"A", u"k", u"2");
    file.write(u"A", u"k", u"3");
    file.flush();
    EXPECT_EQ(calls.count(), 2) << "the file and its folder";
  }
  EXPECT_EQ(calls.count(), 2);
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
