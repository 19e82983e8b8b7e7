// An open file of the operating system.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "core/Disk.h"
#include "core/Retry_posix.h"
#include "core/SystemError.h"

namespace orvane {

inline constexpr std::int64_t kSecond = 1'000'000'000;  // nanoseconds

inline std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * kSecond + time.tv_nsec; }

[[noreturn]] inline void raiseErrno(int code) { raiseSystemError(static_cast<unsigned long>(code)); }

inline Stamp stampOf(const struct stat& state) {
  constexpr std::uint32_t kPermissions = 0777;
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

inline bool sameOwner(const Stamp& a, const Stamp& b) { return a.owner == b.owner && a.group == b.group; }

/// Closed in the end. Failures raise the run-time error of their cause where nothing else is said.
class OpenFile {
 public:
  /// Not open, with errno telling why, where the file cannot be opened.
  OpenFile(const std::string& path, int flags, mode_t mode = 0)
      : file_(retryInterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); })) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (file_ >= 0) ::close(file_);
  }

  bool isOpen() const { return file_ >= 0; }
  int get() const { return file_; }

  /// Writes the whole content of a file that is empty, and gives it a time of modification, in nanoseconds
  /// since 1970. A file system that keeps no such times is found out by the stamp after the replace.
  void fill(std::string_view bytes, std::int64_t modified) const {
    write(bytes);
    const timespec time{modified / kSecond, modified % kSecond};
    const timespec times[] = {time, time};
    if (::futimens(file_, times) != 0) errno = 0;
  }

  /// Puts it on the device.
  void synchronise() const {
    if (!trySynchronise()) raiseLastSystemError();
  }
  bool trySynchronise() const {
    return retryInterrupted([&] { return ::fsync(file_); }) == 0;
  }

  /// Interrupted or not, the handle is gone; anything else may be a write that the device refused late.
  void close() {
    const int file = file_;
    file_ = -1;
    if (::close(file) != 0 && errno != EINTR) raiseLastSystemError();
  }

 private:
  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const auto put = retryInterrupted([&] { return ::write(file_, bytes.data(), bytes.size()); });
      if (put < 0) raiseLastSystemError();
      if (put == 0) raiseErrno(ENOSPC);
      bytes.remove_prefix(static_cast<std::size_t>(put));
    }
  }

  int file_;
};

}  // namespace orvane
