// Where every write is flushed, the former file serves again: to create a file and to free one is much of
// what such a write costs.
#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <utility>

#include "core/OpenFile_posix.h"

namespace orvane {

namespace {

// Where all who open a file do it through this system, so that a lease knows of every one of them, and where
// a folder can be flushed.
bool isLocal(const std::string& path) {
  constexpr std::uint32_t kLocal[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, TMPFS_MAGIC};
  struct statfs system {};
  return ::statfs(path.c_str(), &system) == 0 &&
         std::ranges::find(kLocal, static_cast<std::uint32_t>(system.f_type)) != std::end(kLocal);
}

// Had only where nobody else has the file open; until it is given back, whoever opens the file waits. A close
// would not end it in a process that has forked meanwhile. The system would ask for it by a signal: by this
// one, which programs ignore unless they handle it.
class Lease {
 public:
  explicit Lease(int file)
      : file_(file), had_(::fcntl(file, F_SETSIG, SIGURG) == 0 && ::fcntl(file, F_SETLEASE, F_WRLCK) == 0) {}
  Lease(const Lease&) = delete;
  Lease& operator=(const Lease&) = delete;
  ~Lease() {
    if (had_) ::fcntl(file_, F_SETLEASE, F_UNLCK);
  }

  bool isHad() const { return had_; }

 private:
  int file_;
  bool had_;
};

// The file is emptied first: who has its old pages elsewhere, as in a pipe, keeps them as they are.
bool writeLeased(const OpenFile& file, const Stamp& seen, std::string_view bytes, std::int64_t modified) {
  const Lease lease(file.get());
  struct stat state {};
  if (!lease.isHad() || ::fstat(file.get(), &state) != 0) return false;
  if (std::pair(stampOf(state), state.st_nlink) != std::pair(seen, nlink_t{1})) return false;
  if (retryInterrupted([&] { return ::ftruncate(file.get(), 0); }) != 0) raiseLastSystemError();
  file.fill(bytes, modified);
  file.synchronise();
  return true;
}

}  // namespace

// Readers that opened the spare while it was the job file must not see it change.
bool DiskFile::writeSpare(const Stamp& spare, std::string_view bytes, const Stamp& old,
                          std::int64_t modified) {
  const bool fits = spare.exists && spare.permissions == old.permissions && sameOwner(spare, old);
  if (!fits) return false;
  OpenFile file(temporary_, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
  if (!file.isOpen() || !writeLeased(file, spare, bytes, modified)) return false;
  file.close();
  return true;
}

// Only a file that is as this object made it becomes a spare: no other's access rights are carried on, and a
// file that has another name stays as it is. Watchers are told last of what has come to the job file's name.
bool DiskFile::exchangeFiles(const Stamp& old) {
  if (old != made_ || !isLocal(path_)) return false;
  const auto exchange = [this] {
    return ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, temporary_.c_str(), RENAME_EXCHANGE) == 0;
  };
  if (!exchange()) return false;
  struct stat state {};
  if (::lstat(temporary_.c_str(), &state) == 0 && state.st_ino == old.inode && state.st_nlink == 1) {
    spare_ = stampOf(state);
  } else if (::unlink(temporary_.c_str()) != 0 && errno != ENOENT) {
    // Another has put a folder there meanwhile.
    const int failure = errno;
    exchange();
    raiseErrno(failure);
  }
  return true;
}

}  // namespace orvane
