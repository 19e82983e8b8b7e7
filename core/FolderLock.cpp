#include "core/FolderLock.h"

#include <unordered_map>
#include <utility>

#include "core/Error.h"
#include "core/Patience.h"

namespace orvane {

namespace {

constexpr std::chrono::seconds kLongestWait{10};

using Registry = std::unordered_map<std::string, std::weak_ptr<FolderLock>>;

}  // namespace

std::shared_ptr<FolderLock> FolderLock::of(const std::string& folder) {
  thread_local Registry registry;
  if (const auto known = registry.find(folder); known != registry.end()) {
    if (auto lock = known->second.lock()) return lock;
  }
  std::erase_if(registry, [](const auto& entry) { return entry.second.expired(); });
  auto lock = std::make_shared<FolderLock>(folder);
  registry[folder] = lock;
  return lock;
}

void FolderLock::lock(std::uint32_t number) {
  Patience patience(kLongestWait);
  const auto wait = [&] {
    if (!patience.wait()) throw Error(ErrorNumber::PermissionDenied);
  };
  std::unique_lock mine(used_, std::try_to_lock);
  while (!mine.owns_lock() && !mine.try_lock()) wait();
  bool queued = false;
  bool hurried = false;
  try {
    while (!file_.tryLock(number, queued)) {
      // Next to write: the present writer is soon done.
      if (queued && !std::exchange(hurried, true)) patience.quicken();
      wait();
    }
  } catch (...) {
    if (queued) file_.leaveGate(number);
    throw;
  }
  mine.release();
}

void FolderLock::unlock(std::uint32_t number) noexcept {
  file_.unlock(number);
  used_.unlock();
}

bool LockFile::tryLock(std::uint32_t number, bool& queued) {
  open();
  if (queued || !takeBoth(number)) {
    queued = queued || take(number, Byte::Gate);
    if (!queued || !take(number, Byte::Writer)) return false;
  }
  queued = false;
  // Whoever deleted or moved the lock file meanwhile left us a lock that nobody else sees.
  if (give(number, Byte::Gate) && isPresent()) return true;
  close();
  return false;
}

void LockFile::unlock(std::uint32_t number) noexcept {
  if (!give(number, Byte::Writer)) close();
}

void LockFile::leaveGate(std::uint32_t number) noexcept {
  if (!give(number, Byte::Gate)) close();
}

}  // namespace orvane
