#include <algorithm>

#include "core/OpenFile_posix.h"
#include "core/Patience.h"

namespace orvane {

namespace {

constexpr std::uint32_t kWritable = 0222;
constexpr std::chrono::seconds kLongestRace{2};
constexpr off_t kLargestFile = 0x7FFFFFFF;

std::int64_t clockTime(clockid_t clock) {
  timespec time{};
  ::clock_gettime(clock, &time);
  return nanoseconds(time);
}

bool isMissing(int code) { return code == ENOENT || code == ENOTDIR; }

// Whether the name stands for anything, if only for a link.
bool isThere(const std::string& path) {
  struct stat state {};
  return ::lstat(path.c_str(), &state) == 0 || !isMissing(errno);
}

struct stat regular(const struct stat& state) {
  if (!S_ISREG(state.st_mode)) raiseErrno(EISDIR);
  if (state.st_size > kLargestFile) raiseErrno(ENOMEM);
  return state;
}

bool raiseUnlessStale() {
  if (errno != ESTALE) raiseLastSystemError();
  return false;
}

// False where another machine has replaced the file and it is gone from the server.
bool tryStampOf(const OpenFile& file, Stamp& stamp) {
  struct stat state {};
  if (::fstat(file.get(), &state) != 0) return raiseUnlessStale();
  stamp = stampOf(regular(state));
  return true;
}

// The same.
bool readAll(const OpenFile& file, std::string& bytes, std::size_t size) {
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

void raiseIfReadOnly(const Stamp& old) {
  if (old.exists && (old.permissions & kWritable) == 0) raiseErrno(EACCES);
}

// In a sticky folder only for their owner, the folder's and root.
bool mayReplaceFilesOf(uid_t owner, const std::string& folder) {
  const uid_t user = ::geteuid();
  struct stat state {};
  if (user == 0 || user == owner || ::stat(folder.c_str(), &state) != 0) return true;
  return (state.st_mode & S_ISVTX) == 0 || state.st_uid == user;
}

constexpr int kCreate = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;

mode_t wantedMode(const Stamp& old) { return old.exists ? old.permissions : 0666; }

// Gives a new file what the file has that it stands for. `plain` is what a new file gets by itself, as far as
// known.
void takeOver(int file, const Stamp& old, Stamp& plain) {
  const bool known = plain.exists && sameOwner(plain, old);
  if (known && (old.permissions & ~plain.permissions) == 0) return;
  struct stat state {};
  if (::fstat(file, &state) != 0) raiseLastSystemError();
  plain = stampOf(state);
  // Where the owner may not be given away, the group may.
  if (!sameOwner(plain, old) && ::fchown(file, old.owner, old.group) != 0) {
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
    const OpenFile file(path_, O_RDONLY | O_NONBLOCK);
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
    const bool all = tryStampOf(file, before) && readAll(file, bytes, before.size) && tryStampOf(file, after);
    const bool whole = all && bytes.size() == after.size && before.modified == after.modified;
    if (whole) return before;
    if (patience.wait()) continue;
    if (!all) raiseErrno(ESTALE);
    return before;
  }
}

void DiskFile::checkRights(const Stamp& old) const {
  raiseIfReadOnly(old);
  const std::string folder = folder_.empty() ? "." : folder_;
  if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) raiseLastSystemError();
  if (old.exists && !mayReplaceFilesOf(old.owner, folder)) raiseErrno(EPERM);
}

void DiskFile::writeTemporary(std::string_view bytes, const Stamp& old, std::int64_t modified, bool durable) {
  raiseIfReadOnly(old);
  OpenFile file(temporary_, kCreate, wantedMode(old));
  if (!file.isOpen() && errno == EEXIST) {
    // Its maker was killed or has kept it: nobody else can be writing it while the lock is ours.
    if (::unlink(temporary_.c_str()) != 0) raiseLastSystemError();
    return writeTemporary(bytes, old, modified, durable);
  }
  if (!file.isOpen()) raiseLastSystemError();
  if (old.exists) takeOver(file.get(), old, plain_);
  file.fill(bytes, modified);
  if (durable) file.synchronise();
  file.close();
}

void DiskFile::keepPermissions(Stamp& now, const Stamp& old) const noexcept {
  if (::chmod(path_.c_str(), old.permissions) == 0) tryStamp(now);
}

void DiskFile::putInPlace(bool) {
  if (retryInterrupted([&] { return ::rename(temporary_.c_str(), path_.c_str()); }) != 0)
    raiseLastSystemError();
}

void DiskFile::removeTemporary() const noexcept { ::unlink(temporary_.c_str()); }

void DiskFile::flush() {
  settle();
  const OpenFile file(path_, O_RDONLY);
  if (!file.isOpen() && isMissing(errno)) return;
  if (!file.isOpen()) raiseLastSystemError();
  file.synchronise();
  flushFolder();
}

void DiskFile::flushFolder() const {
  const OpenFile folder(folder_.empty() ? "." : folder_, O_RDONLY | O_DIRECTORY);
  if (!folder.isOpen()) raiseLastSystemError();
  // Some network file systems know no flush of a folder.
  if (!folder.trySynchronise() && errno != EINVAL) raiseLastSystemError();
}

}  // namespace orvane
