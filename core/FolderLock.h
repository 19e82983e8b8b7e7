// The lock that keeps two writers of one job file apart: one byte of the hidden file `.orvane.lock` in its
// folder.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace orvane {

/// The open lock file of one folder. Its byte-range locks belong to this object, not to the process: two of
/// them exclude each other in one process too, and the kernel releases them when the process dies.
class LockFile {
 public:
  explicit LockFile(const std::string& folder);
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  ~LockFile() { close(); }

  /// Takes the byte at `offset` of the folder's present lock file, which is created where it is missing.
  /// False where another holds it or the lock file has just been exchanged. Raises 76 where the folder is
  /// missing.
  bool tryLock(std::uint32_t offset);
  void unlock(std::uint32_t offset) noexcept;

 private:
  void open();
  void close() noexcept;
  bool takeByte(std::uint32_t offset);
  bool isPresent() const;

  static constexpr std::intptr_t kClosed = -1;

  std::string path_;
  std::intptr_t handle_ = kClosed;
  std::uint64_t device_ = 0;
  std::uint64_t inode_ = 0;
  unsigned forks_ = 0;  // how often the process had forked when the file was opened
};

/// The lock file of a folder as one thread uses it, kept open while any job file of the folder is in use.
class FolderLock {
 public:
  /// This thread's lock of `folder`, a native path that is empty or ends with a separator.
  static std::shared_ptr<FolderLock> of(const std::string& folder);

  explicit FolderLock(const std::string& folder) : file_(folder) {}

  /// Waits at most ten seconds, then raises 70.
  void lock(std::uint32_t offset);
  void unlock(std::uint32_t offset) noexcept;

 private:
  bool tryLock(std::uint32_t offset);

  LockFile file_;
  std::mutex
      used_;  // a job file may be handed to another thread, and its byte would not keep two users apart
};

/// Holds one byte of a folder's lock while in scope.
class ByteLock {
 public:
  ByteLock(FolderLock& folder, std::uint32_t offset) : folder_(folder), offset_(offset) {
    folder.lock(offset);
  }
  ByteLock(const ByteLock&) = delete;
  ByteLock& operator=(const ByteLock&) = delete;
  ~ByteLock() { folder_.unlock(offset_); }

 private:
  FolderLock& folder_;
  std::uint32_t offset_;
};

}  // namespace orvane
