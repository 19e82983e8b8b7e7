// The lock that keeps two writers of one job file apart: bytes of the hidden file `.orvane.lock` in its
// folder, one to write and others to queue.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace orvane {

/// The open lock file of one folder. Its byte-range locks belong to this object, not to the process: two of
/// them exclude each other in one process too, and the kernel releases them when the process dies.
///
/// A lock has a number, and a number has 2^20 bytes: the last is the writer's, the others are places in a
/// queue, one for each millisecond of the wall clock. Whoever has waited long holds the place of the time
/// when he came. The writer's byte is free to all while nobody queues, and then to the first of the queue
/// only: so writers that never rest starve nobody.
class LockFile {
 public:
  static constexpr std::uint64_t kBytes = 1 << 20;
  static constexpr std::uint64_t kPlaces = kBytes - 1;

  /// A place in the queue.
  struct Place {
    std::uint64_t at;
    bool taken = false;
  };

  explicit LockFile(const std::string& folder);
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;
  ~LockFile() { close(); }

  /// One attempt to get the lock `number` of the folder's present lock file, which is created where it is
  /// missing. False where another holds it, queues, or has just exchanged the lock file. Raises 76 where the
  /// folder is missing.
  bool tryLock(std::uint32_t number);

  /// The same for one who queues: takes his place, which stays taken until he succeeds or leaves.
  bool tryLockInTurn(std::uint32_t number, Place& place);
  void leave(std::uint32_t number, Place& place) noexcept;

  void unlock(std::uint32_t number) noexcept;

  /// Opens the file if it is not open, creating it where it is missing. Raises 76 where the folder is.
  void open();

 private:
  static std::uint64_t queueOf(std::uint32_t number) { return number * kBytes; }
  static std::uint64_t writerOf(std::uint32_t number) { return number * kBytes + kPlaces; }

  void close() noexcept;
  bool take(std::uint64_t offset, std::uint64_t length);
  bool give(std::uint64_t offset, std::uint64_t length) noexcept;
  bool isFree(std::uint64_t offset, std::uint64_t length);
  bool nobodyQueues(std::uint32_t number);
  bool isPresent() const;
  bool keepPresent(bool given);

  static constexpr std::intptr_t kClosed = -1;

  std::string path_;
  std::intptr_t handle_ = kClosed;
  std::uint64_t device_ = 0;
  std::uint64_t inode_ = 0;
  std::uint32_t quiet_ = 0;  // whose queue was seen empty, and until when that is taken to last
  std::chrono::steady_clock::time_point quietUntil_{};
  unsigned forks_ = 0;  // how often the process had forked when the file was opened
};

/// The lock file of a folder as one thread uses it, kept open while any job file of the folder is in use.
class FolderLock {
 public:
  /// This thread's lock of `folder`, a native path that is empty or ends with a separator.
  static std::shared_ptr<FolderLock> of(const std::string& folder);

  explicit FolderLock(const std::string& folder) : file_(folder) {}

  /// Opens the lock file, or raises what `lock` would raise for one that cannot be had.
  void prepare();

  /// Waits at most ten seconds, then raises 70.
  void lock(std::uint32_t number);
  /// One attempt; false where another holds it or queues.
  bool tryLock(std::uint32_t number);
  void unlock(std::uint32_t number) noexcept;

 private:
  // Some systems' mutexes ask for memory when they are first used, and take its lack for one that is held.
  class Use {
   public:
    bool try_lock() noexcept { return !taken_.test_and_set(std::memory_order_acquire); }
    void unlock() noexcept { taken_.clear(std::memory_order_release); }

   private:
    std::atomic_flag taken_;
  };

  template <class Wait>
  void queueUp(std::uint32_t number, Wait&& wait);

  LockFile file_;
  Use used_;  // a job file may be handed to another thread, and the bytes would not keep two users apart
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
