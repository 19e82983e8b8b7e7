// A failure has one number, wherever it comes from: that of its cause, raised at once.
#include <cerrno>

#include "core/FileSystem.h"
#include "tests/faults/InMemory.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Cause {
  const char* name;
  int code;
  int number;
  friend std::ostream& operator<<(std::ostream& out, const Cause& cause) { return out << cause.name; }
};

constexpr Cause kCauses[] = {{"Full", ENOSPC, 61},           {"Quota", EDQUOT, 61},
                             {"TooLarge", EFBIG, 61},        {"Device", EIO, 57},
                             {"NoDevice", ENODEV, 57},       {"Unreachable", ENXIO, 57},
                             {"Refused", EACCES, 70},        {"NotPermitted", EPERM, 70},
                             {"ReadOnly", EROFS, 70},        {"NoLocks", ENOLCK, 70},
                             {"LongName", ENAMETOOLONG, 52}, {"BadName", EILSEQ, 52},
                             {"NoHandle", EMFILE, 67},       {"NoHandleAnywhere", ENFILE, 67},
                             {"NoMemory", ENOMEM, 7},        {"Busy", EBUSY, 75},
                             {"NoFolder", ENOTDIR, 76}};

class Causes : public testing::TestWithParam<Cause> {
 protected:
  // What becomes of `work` when the first call of that name fails with the cause.
  template <class Work>
  int errorWhen(const char* call, Work&& work) const {
    const SystemCalls calls({.at = 0, .code = GetParam().code, .name = call});
    return errorOf(work);
  }

  InMemory inMemory_;
  TemporaryFolder folder_;
};

TEST_P(Causes, OfAFailedCopyHaveTheirNumbers) {
  folder_.write(u"da.bvq", "nuovo");
  folder_.write(u"a.bvq", "vecchio");
  const auto copy = [&] { systemFileSystem()->copyFile(folder_.file(u"da.bvq"), folder_.file(u"a.bvq")); };
  for (const char* call : {"open", "sendfile", "rename"}) {
    EXPECT_EQ(errorWhen(call, copy), GetParam().number) << call;
    EXPECT_EQ(folder_.read(u"a.bvq"), "vecchio") << call;
  }
}

TEST_P(Causes, OfAFailedWriteHaveTheirNumbers) {
  JobFile file(folder_.file(u"job.vqs"));
  file.write(u"A", u"k", u"1");
  const auto write = [&] { file.write(u"A", u"k", u"2"); };
  for (const char* call : {"open", "write", "rename"}) {
    EXPECT_EQ(errorWhen(call, write), GetParam().number) << call;
    EXPECT_EQ(file.read(u"A", u"k"), u"1") << call;
  }
}

// The wait for a lock is ten seconds long, so a lock file that cannot be looked at must not pass for one that
// has been taken away.
TEST_P(Causes, OfALockFileThatCannotBeLookedAtHaveTheirNumbersAtOnce) {
  const Text name = folder_.file(u"job.vqs");
  JobFile(name).write(u"A", u"k", u"1");
  JobFile file(name);
  const SystemCalls calls({.at = 0, .code = GetParam().code, .onward = true, .name = "stat"});
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), GetParam().number);
  EXPECT_EQ(calls.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(Of, Causes, testing::ValuesIn(kCauses), rowName);

TEST(FailedLook, GivesTheLockBack) {
  const InMemory inMemory;
  const TemporaryFolder folder;
  JobFile file(folder.file(u"job.vqs"));
  file.write(u"A", u"k", u"0");
  {
    const SystemCalls calls({.at = 0, .code = EIO, .name = "stat"});
    EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"1"); }), 57);
  }
  LockFile other(folder.native().string() + "/");
  EXPECT_TRUE(other.tryLock(lockNumberOf(u"job.vqs")));
}

}  // namespace
}  // namespace orvane::test
