// The lock that keeps two writers of one job file apart: two bytes of the hidden file `.orvane.lock` in its
// folder, one to write and one to queue.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace orvane {

/// The open lock file of one folder. Its byte-range locks belong to this object, not to the process: two of
/// them exclude each other in one process too, and the kernel releases them when the process dies.
///
/// Whoever writes holds the second of the two bytes of `number`. Whoever waits for it holds the first, the
/// gate, until the second is his, and nobody takes the second past the gate: so a writer that never rests
/// lets the others have their turns.
class LockFile {
 public:
  explicit LockFile(const std::string& folder);
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  ~LockFile() { close(); }

  /// One attempt to get the lock `number` of the folder's present lock file, which is created where it is
  /// missing. False where another holds it or the lock file has just been exchanged. `queued`, false at
  /// first, tells whether the gate is held for the next attempt. Raises 76 where the folder is missing.
  bool tryLock(std::uint32_t number, bool& queued);

  /// Gives back the lock, or a place at the gate.
  void unlock(std::uint32_t number) noexcept;
  void leaveGate(std::uint32_t number) noexcept;

 private:
  enum class Byte { Gate, Writer };

  static std::uint64_t offsetOf(std::uint32_t number, Byte byte) {
    return std::uint64_t{number} * 2 + (byte == Byte::Writer);
  }

  void open();
  void close() noexcept;
  bool takeBoth(std::uint32_t number);  // in one call, where the system can; otherwise false
  bool take(std::uint32_t number, Byte byte);
  bool give(std::uint32_t number, Byte byte) noexcept;
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
  void lock(std::uint32_t number);
  void unlock(std::uint32_t number) noexcept;

 private:
  LockFile file_;
  std::mutex
      used_;  // a job file may be handed to another thread, and the bytes would not keep two users apart
};

/// Holds one lock of a folder while in scope.
class JobLock {
 public:
  JobLock(FolderLock& folder, std::uint32_t number) : folder_(folder), number_(number) {
    folder.lock(number);
  }
  JobLock(const JobLock&) = delete;
  JobLock& operator=(const JobLock&) = delete;
  ~JobLock() { folder_.unlock(number_); }

 private:
  FolderLock& folder_;
  std::uint32_t number_;
};

}  // namespace orvane
