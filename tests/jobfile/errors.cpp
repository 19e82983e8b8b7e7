// Failures keep their cause and leave the old file.
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statfs.h>

#include <csignal>

#include "tests/jobfile/JobFolder.h"
#include "tests/support/PlainUser.h"
#include "tests/support/TemporaryName.h"

namespace orvane::test {
namespace {

const std::string kOld = onDisk(u"[A]\r\nk=1\r\n");

class JobFileErrors : public JobFolder {
 protected:
  int writeError(TextView name = u"job.vqs") const {
    return errorOf([&] { JobFile(published(name)).write(u"A", u"k", u"2"); });
  }
  int readError(TextView name = u"job.vqs") const {
    return errorOf([&] { JobFile(published(name)).read(u"A", u"k"); });
  }
};

class Limit {
 public:
  Limit(__rlimit_resource resource, rlim_t value) : resource_(resource) {
    ::getrlimit(resource, &was_);
    const rlimit now{value, was_.rlim_max};
    ::setrlimit(resource, &now);
  }
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;
  ~Limit() { ::setrlimit(resource_, &was_); }

 private:
  __rlimit_resource resource_;
  rlimit was_{};
};

TEST_F(JobFileErrors, AMissingFolderIsError76ToWriteAndAbsentToRead) {
  EXPECT_EQ(writeError(u"missing\\job.vqs"), 76);
  EXPECT_EQ(readError(u"missing\\job.vqs"), 0);
  EXPECT_TRUE(names().empty());
}

TEST_F(JobFileErrors, AFileInPlaceOfTheFolderIsError76) {
  put("", "file");
  EXPECT_EQ(writeError(u"file\\job.vqs"), 76);
  EXPECT_EQ(readError(u"file\\job.vqs"), 0);
}

TEST_F(JobFileErrors, AFolderThatMayNotBeWrittenIsError70) {
  put(kOld);
  ::chmod(folder_.c_str(), 0555);
  {
    const PlainUser user;
    EXPECT_EQ(writeError(), 70);
  }
  EXPECT_EQ(bytes(), kOld);
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

TEST_F(JobFileErrors, AFileThatMayNotBeReadIsError70) {
  put(kOld);
  ::chmod(folder_.c_str(), 0777);
  ::chmod(path().c_str(), 0);
  const PlainUser user;
  EXPECT_EQ(readError(), 70);
  EXPECT_EQ(writeError(), 70);
}

TEST_F(JobFileErrors, AFileThatNobodyMayWriteIsError70) {
  put(kOld);
  ::chmod(path().c_str(), 0444);
  EXPECT_EQ(writeError(), 70);
  EXPECT_EQ(bytes(), kOld);
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

TEST_F(JobFileErrors, ADirectoryInPlaceIsError75) {
  std::filesystem::create_directory(path());
  EXPECT_EQ(writeError(), 75);
  EXPECT_EQ(readError(), 75);
}

TEST_F(JobFileErrors, AFileOfMoreThan2GBIsError7) {
  put(kOld);
  std::filesystem::resize_file(path(), 0x80000000);
  EXPECT_EQ(readError(), 7);
  EXPECT_EQ(writeError(), 7);
  EXPECT_EQ(std::filesystem::file_size(path()), 0x80000000);
}

TEST_F(JobFileErrors, ANameWithoutFolderIsAFileOfTheCurrentOne) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_);
  JobFile file(u"job.vqs");
  EXPECT_EQ(errorOf([&] {
              file.write(u"A", u"k", u"1");
              file.flush();
            }),
            0);
  std::filesystem::current_path(before);
  EXPECT_EQ(bytes(), kOld);
  EXPECT_TRUE(std::filesystem::exists(path(".orvane.lock")));
}

TEST_F(JobFileErrors, APipeInPlaceIsError75AndDoesNotHang) {
  ASSERT_EQ(::mkfifo(path().c_str(), 0666), 0);
  EXPECT_EQ(writeError(), 75);
  EXPECT_EQ(readError(), 75);
}

TEST_F(JobFileErrors, NamesThatCannotBeAFilesAreError52) {
  using namespace std::string_view_literals;
  for (const TextView name : {u"a\0b.vqs"sv, u"\xD800.vqs"sv, u"\xDC00\xD800.vqs"sv, u""sv}) {
    EXPECT_EQ(writeError(name), 52) << toUtf8(name);
    EXPECT_EQ(readError(name), 52) << toUtf8(name);
  }
  EXPECT_EQ(writeError(Text(300, u'x')), 52);
}

TEST_F(JobFileErrors, NamesWithSurrogatePairsAreFiles) {
  EXPECT_EQ(writeError(u"\U0001F4E0.vqs"), 0);
  EXPECT_EQ(names(), std::set<std::string>{"\xF0\x9F\x93\xA0.vqs"});
}

TEST_F(JobFileErrors, AFileTooLargeForTheDeviceIsError61) {
  put(kOld);
  std::signal(SIGXFSZ, SIG_IGN);
  JobFile file(published());
  {
    const Limit limit(RLIMIT_FSIZE, 8);
    EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), 61);
  }
  EXPECT_EQ(bytes(), kOld);
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
  EXPECT_EQ(readText(file, u"A", u"k"), u"1");
  file.write(u"A", u"k", u"2");
  EXPECT_EQ(readText(file, u"A", u"k"), u"2");
}

TEST_F(JobFileErrors, AFullDeviceIsError61) {
  put("");
  if (::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "mounting needs root";
  JobFile file(published());
  file.write(u"A", u"k", u"1");
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", Text(100'000, u'x')); }), 61);
  EXPECT_EQ(bytes(), kOld);
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
  file.write(u"A", u"k", u"2");
  EXPECT_EQ(readText(file, u"A", u"k"), u"2");
  ASSERT_EQ(::umount2(folder_.c_str(), MNT_DETACH), 0);
}

TEST_F(JobFileErrors, AReadOnlyMountIsError70) {
  if (::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "mounting needs root";
  put(kOld);
  ASSERT_EQ(::mount("tmpfs", folder_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k"), 0);
  EXPECT_EQ(readError(), 0);
  EXPECT_EQ(writeError(), 70);
  EXPECT_EQ(bytes(), kOld);
  ASSERT_EQ(::umount2(folder_.c_str(), MNT_DETACH), 0);
}

// The limit ends before the error is looked at: looking may take a handle of its own.
int writeErrorWithHandlesUpTo(int next, const Text& name) {
  return errorOf([&] {
    const Limit limit(RLIMIT_NOFILE, static_cast<rlim_t>(next));
    JobFile(name).write(u"A", u"k", u"2");
  });
}

// The number from which on all handles are free, once those below have been taken.
int takeHandlesBetweenOthers() {
  int highest = 2;
  for (int handle = 0; handle < 1024; ++handle) {
    if (::fcntl(handle, F_GETFD) >= 0) highest = handle;
  }
  for (int taken = 0; taken <= highest;) taken = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  return highest + 2;
}

// The optimised build runs it: to look at memory, the undefined-behaviour sanitizer needs a handle itself.
TEST_F(JobFileErrors, NoHandleLeftIsError67) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizers need handles of their own";
#endif
  put(kOld);
  const int next = takeHandlesBetweenOthers();
  EXPECT_EQ(writeErrorWithHandlesUpTo(next, published()), 67) << "no lock file";
  EXPECT_EQ(writeErrorWithHandlesUpTo(next + 1, published()), 67) << "nothing to read the file with";
  EXPECT_EQ(bytes(), kOld);
  EXPECT_EQ(writeErrorWithHandlesUpTo(next + 2, published()), 0);
}

TEST_F(JobFileErrors, ASymbolicLinkStaysAndItsTargetIsReplaced) {
  std::filesystem::create_directory(path("real"));
  put(kOld, "real/other.vqs");
  std::filesystem::create_symlink("real/other.vqs", path("step.vqs"));
  std::filesystem::create_symlink(path("step.vqs"), path());
  JobFile(published()).write(u"A", u"k", u"2");
  EXPECT_TRUE(std::filesystem::is_symlink(path()));
  EXPECT_EQ(bytes("real/other.vqs"), onDisk(u"[A]\r\nk=2\r\n"));
  EXPECT_TRUE(std::filesystem::exists(path("real/.orvane.lock")));
}

TEST_F(JobFileErrors, ALinkToNothingGetsItsTarget) {
  std::filesystem::create_symlink("target.vqs", path());
  JobFile(published()).write(u"A", u"k", u"1");
  EXPECT_EQ(bytes("target.vqs"), kOld);
}

TEST_F(JobFileErrors, ALinkToAFolderBySeparatorIsError52) {
  std::filesystem::create_directory(path("real"));
  std::filesystem::create_symlink("real/", path());
  EXPECT_EQ(writeError(), 52);
  EXPECT_EQ(readError(), 75);
}

TEST_F(JobFileErrors, LinksInACircleAreError75) {
  std::filesystem::create_symlink("b.vqs", path("a.vqs"));
  std::filesystem::create_symlink("a.vqs", path("b.vqs"));
  EXPECT_EQ(writeError(u"a.vqs"), 75);
  EXPECT_EQ(readError(u"a.vqs"), 75);
}

TEST_F(JobFileErrors, ALeftTemporaryIsRemovedByTheNextWriter) {
  DiskFile disk(published());
  put("left by a killed writer, and longer than what comes next will ever be",
      temporaryName(lockNumberOf(u"job.vqs")));
  JobFile(published()).write(u"A", u"k", u"1");
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
  EXPECT_EQ(bytes(), kOld);
}

TEST_F(JobFileErrors, ALinkInPlaceOfTheTemporaryIsNotFollowed) {
  put("precious", "victim");
  std::filesystem::create_symlink("victim", path(temporaryName(lockNumberOf(u"job.vqs"))));
  JobFile(published()).write(u"A", u"k", u"1");
  EXPECT_EQ(bytes("victim"), "precious");
  EXPECT_EQ(bytes(), kOld);
}

TEST_F(JobFileErrors, PermissionsOfTheFileStay) {
  for (const mode_t mode : {0600u, 0666u, 0640u}) {
    put(kOld);
    ::chmod(path().c_str(), mode);
    JobFile file(published());
    file.write(u"A", u"k", u"2");
    file.write(u"A", u"k", u"3");
    struct stat state {};
    ::stat(path().c_str(), &state);
    EXPECT_EQ(state.st_mode & 0777, mode);
  }
}

TEST_F(JobFileErrors, PermissionsStayWhenTheFileMaskChangesInBetween) {
  JobFile file(published());
  const mode_t mask = ::umask(0);
  file.write(u"A", u"k", u"1");
  file.write(u"A", u"k", u"2");
  ::umask(0077);
  file.write(u"A", u"k", u"3");
  ::umask(mask);
  struct stat state {};
  ::stat(path().c_str(), &state);
  EXPECT_EQ(state.st_mode & 0777, 0666u);
}

TEST_F(JobFileErrors, AnotherOwnersFileStaysHis) {
  if (::geteuid() != 0) GTEST_SKIP() << "giving files away needs root";
  put(kOld);
  ASSERT_EQ(::chown(path().c_str(), 1234, 5678), 0);
  JobFile file(published());
  file.write(u"A", u"k", u"2");
  file.write(u"A", u"k", u"3");
  struct stat state {};
  ::stat(path().c_str(), &state);
  EXPECT_EQ(state.st_uid, 1234u);
  EXPECT_EQ(state.st_gid, 5678u);
}

TEST_F(JobFileErrors, AnotherGroupsFileStaysTheirs) {
  if (::geteuid() != 0) GTEST_SKIP() << "giving files away needs root";
  put(kOld);
  ASSERT_EQ(::chown(path().c_str(), static_cast<uid_t>(-1), 5678), 0);
  JobFile file(published());
  for (const char16_t* value : {u"2", u"3"}) {
    file.write(u"A", u"k", value);
    struct stat state {};
    ::stat(path().c_str(), &state);
    EXPECT_EQ(state.st_uid, ::geteuid());
    EXPECT_EQ(state.st_gid, 5678u);
  }
}

TEST_F(JobFileErrors, FlushesRaiseNothingWhereThereIsNoFile) {
  JobFile file(published());
  file.flush();
  file.flushEveryWrite(true);
  file.write(u"A", u"k", u"1");
  file.flush();
  EXPECT_EQ(bytes(), kOld);
}

}  // namespace
}  // namespace orvane::test
