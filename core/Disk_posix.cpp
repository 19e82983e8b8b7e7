#include "core/Disk.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>

#include "core/Patience.h"
#include "core/Retry_posix.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::uint32_t kPermissions = 0777;
constexpr std::uint32_t kWritable = 0222;
constexpr std::chrono::seconds kLongestRace{2};
constexpr off_t kLargestFile = 0x7FFFFFFF;

std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * kSecond + time.tv_nsec; }

std::int64_t clockTime(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return nanoseconds(time);
}

Stamp stampOf(const struct stat& state) {
  return {.exists = true,
          .device = state.st_dev,
          .inode = state.st_ino,
          .size = static_cast<std::uint64_t>(state.st_size),
          .modified = nanoseconds(state.st_mtim),
          .changed = nanoseconds(state.st_ctim),
          .permissions = state.st_mode & kPermissions,
          .owner = state.st_uid,
          .group = state.st_gid};
}

bool isMissing(int code) { return code == ENOENT || code == ENOTDIR; }

// Whether the name stands for anything, if only for a link.
bool isThere(const std::string& path) {
  struct stat state {};
  return ::lstat(path.c_str(), &state) == 0 || !isMissing(errno);
}

[[noreturn]] void raiseErrno(int code) { raiseSystemError(static_cast<unsigned long>(code)); }

struct stat regular(const struct stat& state) {
  if (!S_ISREG(state.st_mode)) raiseErrno(EISDIR);
  if (state.st_size > kLargestFile) raiseErrno(ENOMEM);
  return state;
}

// Where all who open a file do it through this system, so that a lease knows of every one of them, and where
// a folder can be flushed.
bool isLocal(const std::string& path) {
  constexpr std::uint32_t kLocal[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, TMPFS_MAGIC};
  struct statfs system {};
  return ::statfs(path.c_str(), &system) == 0 &&
         std::ranges::find(kLocal, static_cast<std::uint32_t>(system.f_type)) != std::end(kLocal);
}

bool raiseUnlessStale() {
  if (errno != ESTALE) raiseLastSystemError();
  return false;
}

// An open file, closed in the end.
class Handle {
 public:
  Handle(const std::string& path, int flags, mode_t mode = 0)
      : file_(retryInterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); })) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (file_ >= 0) ::close(file_);
  }

  bool isOpen() const { return file_ >= 0; }
  int get() const { return file_; }

  // False where another machine has replaced the file and it is gone from the server.
  bool tryStamp(Stamp& stamp) const {
    struct stat state {};
    if (::fstat(file_, &state) != 0) return raiseUnlessStale();
    stamp = stampOf(regular(state));
    return true;
  }

  // Interrupted or not, the handle is gone; anything else may be a write that the device refused late.
  void close() {
    const int file = file_;
    file_ = -1;
    if (::close(file) != 0 && errno != EINTR) raiseLastSystemError();
  }

 private:
  int file_;
};

// The same.
bool readAll(const Handle& file, std::string& bytes, std::size_t size) {
  bytes.resize(size);
  std::size_t done = 0;
  while (done < bytes.size()) {
    const auto got =
        retryInterrupted([&] { return ::read(file.get(), bytes.data() + done, bytes.size() - done); });
    if (got < 0) return raiseUnlessStale();
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return true;
}

void writeAll(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto put = retryInterrupted([&] { return ::write(file.get(), bytes.data(), bytes.size()); });
    if (put < 0) raiseLastSystemError();
    if (put == 0) raiseErrno(ENOSPC);
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
}

void synchronise(const Handle& file) {
  if (retryInterrupted([&] { return ::fsync(file.get()); }) != 0) raiseLastSystemError();
}

// Had only where nobody else has the file open; until it is closed, whoever opens it waits. The system would
// ask for it back by a signal: by this one, which programs ignore unless they wait for it.
bool lease(const Handle& file) {
  return ::fcntl(file.get(), F_SETSIG, SIGURG) == 0 && ::fcntl(file.get(), F_SETLEASE, F_WRLCK) == 0;
}

// A file system that keeps no such times is found out by the stamp after the replace.
void setModified(const Handle& file, std::int64_t modified) {
  const timespec time{modified / kSecond, modified % kSecond};
  const timespec times[] = {time, time};
  if (::futimens(file.get(), times) != 0) errno = 0;
}

constexpr int kCreate = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;

mode_t wantedMode(const Stamp& old) { return old.exists ? old.permissions : 0666; }

// Gives a new file what the file has that it stands for. `plain` is what a new file gets by itself, as far as
// known.
void takeOver(int file, const Stamp& old, Stamp& plain) {
  const bool known = plain.exists && plain.owner == old.owner && plain.group == old.group;
  if (known && (old.permissions & ~plain.permissions) == 0) return;
  struct stat state {};
  if (::fstat(file, &state) != 0) raiseLastSystemError();
  plain = stampOf(state);
  // Where the owner may not be given away, the group may.
  const bool sameOwner = plain.owner == old.owner && plain.group == old.group;
  if (!sameOwner && ::fchown(file, old.owner, old.group) != 0) {
    if (::fchown(file, static_cast<uid_t>(-1), old.group) != 0) errno = 0;
  }
  if (plain.permissions != old.permissions && ::fchmod(file, old.permissions) != 0) errno = 0;
}

}  // namespace

std::int64_t timeOfChange(const Stamp& old) {
  const std::int64_t tick = clockTime(CLOCK_REALTIME_COARSE);
  return std::max({clockTime(CLOCK_REALTIME), tick + 1, old.modified + 1});
}

std::string DiskFile::targetOf(std::string path) {
  constexpr int kLongestChain = 40;
  int failure = ELOOP;
  for (int links = 0; links < kLongestChain; ++links) {
    std::string target(4096, '\0');
    const auto length =
        retryInterrupted([&] { return ::readlink(path.c_str(), target.data(), target.size()); });
    if (length >= 0) {
      target.resize(static_cast<std::size_t>(length));
      path = target.starts_with('/') ? target : path.substr(0, path.rfind('/') + 1) + target;
      failure = ELOOP;
      continue;
    }
    failure = errno;
    // A link taken for missing would be replaced by a file: two calls must agree.
    if (failure == EINVAL || (isMissing(failure) && !isThere(path))) return path;
    if (!isMissing(failure)) break;
  }
  raiseErrno(failure);
}

bool DiskFile::tryStamp(Stamp& stamp) const noexcept {
  struct stat state {};
  if (::stat(path_.c_str(), &state) != 0) return false;
  stamp = stampOf(state);
  return true;
}

Stamp DiskFile::stamp() const {
  struct stat state {};
  if (::stat(path_.c_str(), &state) == 0) return stampOf(regular(state));
  if (!isMissing(errno)) raiseLastSystemError();
  return {};
}

Stamp DiskFile::read(std::string& bytes) const {
  for (Patience patience(kLongestRace);;) {
    const Handle file(path_, O_RDONLY | O_NONBLOCK);
    bytes.clear();
    if (!file.isOpen() && errno == EWOULDBLOCK && patience.wait()) continue;  // leased for a moment
    if (!file.isOpen()) {
      if (!isMissing(errno)) raiseUnlessStale();
      // A file taken for missing would be written anew without its values: two calls must agree.
      if (!stamp().exists) return {};
      if (!patience.wait()) raiseErrno(ESTALE);
      continue;
    }
    Stamp before, after;
    const bool all = file.tryStamp(before) && readAll(file, bytes, before.size) && file.tryStamp(after);
    const bool whole = all && bytes.size() == after.size && before.modified == after.modified;
    if (whole) return before;
    if (patience.wait()) continue;
    if (!all) raiseErrno(ESTALE);
    return before;
  }
}

void DiskFile::writeTemporary(std::string_view bytes, const Stamp& old, std::int64_t modified, bool durable) {
  if (old.exists && (old.permissions & kWritable) == 0) raiseErrno(EACCES);
  Handle file(temporary_, kCreate, wantedMode(old));
  if (!file.isOpen() && errno == EEXIST) {
    // Its maker was killed: nobody else can be writing it while the lock is ours.
    if (::unlink(temporary_.c_str()) != 0) raiseLastSystemError();
    return writeTemporary(bytes, old, modified, durable);
  }
  if (!file.isOpen()) raiseLastSystemError();
  if (old.exists) takeOver(file.get(), old, plain_);
  writeAll(file, bytes);
  setModified(file, modified);
  if (durable) synchronise(file);
  file.close();
}

void DiskFile::keepPermissions(Stamp& now, const Stamp& old) const noexcept {
  if (::chmod(path_.c_str(), old.permissions) == 0) tryStamp(now);
}

// The file before the last one, written in place of a new one: nothing has to be created and nothing to be
// freed, which is most of what a flushed write costs. Readers that opened it while it was the job file must
// not see that, nor may a name that somebody else has given it.
bool DiskFile::writeSpare(const Stamp& spare, std::string_view bytes, const Stamp& old,
                          std::int64_t modified) {
  const bool fits = spare.exists && spare.permissions == old.permissions && spare.owner == old.owner &&
                    spare.group == old.group;
  if (!fits) return false;
  Handle file(temporary_, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
  struct stat state {};
  if (!file.isOpen() || !lease(file) || ::fstat(file.get(), &state) != 0) return false;
  if (stampOf(state) != spare) return false;
  writeAll(file, bytes);
  if (bytes.size() < spare.size && ::ftruncate(file.get(), static_cast<off_t>(bytes.size())) != 0)
    raiseLastSystemError();
  setModified(file, modified);
  synchronise(file);
  file.close();
  return true;
}

// Only of a file that is as this object made it, so that no other's access rights or links are carried on.
bool DiskFile::exchangeFiles(const Stamp& old) {
  if (old != made_ || !isLocal(path_)) return false;
  const auto exchange = [this] {
    return ::renameat2(AT_FDCWD, temporary_.c_str(), AT_FDCWD, path_.c_str(), RENAME_EXCHANGE) == 0;
  };
  if (!exchange()) return false;
  struct stat state {};
  if (::stat(temporary_.c_str(), &state) == 0 && state.st_ino == old.inode && state.st_nlink == 1) {
    spare_ = stampOf(state);
  } else if (::unlink(temporary_.c_str()) != 0) {
    // Another has put a folder there meanwhile.
    const int failure = errno;
    exchange();
    raiseErrno(failure);
  }
  return true;
}

void DiskFile::putInPlace(const Stamp& old, bool durable) {
  if (durable && exchangeFiles(old)) return;
  if (retryInterrupted([&] { return ::rename(temporary_.c_str(), path_.c_str()); }) != 0)
    raiseLastSystemError();
}

void DiskFile::removeTemporary() const noexcept { ::unlink(temporary_.c_str()); }

void DiskFile::flush() {
  settle();
  const Handle file(path_, O_RDONLY);
  if (!file.isOpen() && isMissing(errno)) return;
  if (!file.isOpen()) raiseLastSystemError();
  synchronise(file);
  flushFolder();
}

void DiskFile::flushFolder() const {
  const Handle folder(folder_.empty() ? "." : folder_, O_RDONLY | O_DIRECTORY);
  if (!folder.isOpen()) raiseLastSystemError();
  // Some network file systems know no flush of a folder.
  if (retryInterrupted([&] { return ::fsync(folder.get()); }) != 0 && errno != EINVAL) raiseLastSystemError();
}

}  // namespace orvane
