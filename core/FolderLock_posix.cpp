#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "core/FolderLock.h"
#include "core/Retry_posix.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

// A child of fork shares its parent's locks, so it opens lock files of its own.
std::atomic<unsigned> forks{0};

unsigned countForks() {
  static const int registered = pthread_atfork(nullptr, nullptr, [] { ++forks; });
  static_cast<void>(registered);
  return forks.load(std::memory_order_relaxed);
}

struct flock rangeOf(short type, std::uint64_t offset, std::uint64_t length) {
  struct flock range {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  range.l_start = static_cast<off_t>(offset);
  range.l_len = static_cast<off_t>(length);
  return range;
}

int control(std::intptr_t handle, int command, struct flock& range) {
  return retryInterrupted([&] { return ::fcntl(static_cast<int>(handle), command, &range); });
}

int openLockFile(const std::string& path, int flags) {
  return retryInterrupted(
      [&] { return ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0666); });
}

// Whoever may write in the folder may lock in it, whatever the creator's file mask.
void shareAsFolder(int lockFile, const std::string& path) {
  struct stat folder {};
  if (::stat(path.substr(0, path.rfind('/') + 1).append(".").c_str(), &folder) != 0) return;
  if (::fchown(lockFile, static_cast<uid_t>(-1), folder.st_gid) != 0) errno = 0;
  if (::fchmod(lockFile, (folder.st_mode & 0666) | 0600) != 0) errno = 0;
}

int createLockFile(const std::string& path) {
  const int created = openLockFile(path, O_CREAT | O_EXCL);
  if (created >= 0) return shareAsFolder(created, path), created;
  return errno == EEXIST ? openLockFile(path, 0) : -1;
}

}  // namespace

LockFile::LockFile(const std::string& folder) : path_(folder + ".orvane.lock") {}

void LockFile::open() {
  const unsigned now = countForks();
  if (handle_ != kClosed && forks_ == now) return;
  close();
  int file = openLockFile(path_, 0);
  if (file < 0 && errno == ENOENT) file = createLockFile(path_);
  if (file < 0) raiseLastSystemError();
  handle_ = file;
  forks_ = now;
  struct stat state {};
  if (::fstat(file, &state) != 0) raiseLastSystemError();
  device_ = state.st_dev;
  inode_ = state.st_ino;
}

void LockFile::close() noexcept {
  if (handle_ != kClosed) ::close(static_cast<int>(handle_));
  handle_ = kClosed;
}

bool LockFile::take(std::uint64_t offset, std::uint64_t length) {
  struct flock range = rangeOf(F_WRLCK, offset, length);
  if (control(handle_, F_OFD_SETLK, range) == 0) return true;
  if (errno == EAGAIN || errno == EACCES) return false;
  raiseLastSystemError();
}

bool LockFile::give(std::uint64_t offset, std::uint64_t length) noexcept {
  struct flock range = rangeOf(F_UNLCK, offset, length);
  return control(handle_, F_OFD_SETLK, range) == 0;
}

bool LockFile::isFree(std::uint64_t offset, std::uint64_t length) {
  if (length == 0) return true;
  struct flock range = rangeOf(F_WRLCK, offset, length);
  if (control(handle_, F_OFD_GETLK, range) != 0) raiseLastSystemError();
  return range.l_type == F_UNLCK;
}

bool LockFile::isPresent() const {
  struct stat state {};
  if (retryInterrupted([&] { return ::stat(path_.c_str(), &state); }) == 0)
    return state.st_dev == device_ && state.st_ino == inode_;
  if (errno == ENOENT) return false;
  raiseLastSystemError();
}

}  // namespace orvane
