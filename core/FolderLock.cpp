#include "core/FolderLock.h"

#include <unordered_map>

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

bool FolderLock::tryLock(std::uint32_t offset) {
  std::unique_lock mine(used_, std::try_to_lock);
  if (!mine.owns_lock() || !file_.tryLock(offset)) return false;
  mine.release();
  return true;
}

void FolderLock::lock(std::uint32_t offset) {
  Patience patience(kLongestWait);
  while (!tryLock(offset)) {
    if (!patience.wait()) throw Error(ErrorNumber::PermissionDenied);
  }
}

void FolderLock::unlock(std::uint32_t offset) noexcept {
  file_.unlock(offset);
  used_.unlock();
}

bool LockFile::tryLock(std::uint32_t offset) {
  open();
  if (!takeByte(offset)) return false;
  // Whoever deleted or moved the lock file meanwhile left us a lock that nobody else sees.
  if (isPresent()) return true;
  close();
  return false;
}

}  // namespace orvane
