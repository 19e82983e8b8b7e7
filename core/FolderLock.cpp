#include "core/FolderLock.h"

#include <mutex>
#include <unordered_map>

#include "core/Error.h"
#include "core/OfThread.h"
#include "core/Patience.h"

namespace orvane {

namespace {

constexpr std::chrono::seconds kLongestWait{10};
constexpr std::chrono::milliseconds kLongWait{100};
constexpr std::chrono::milliseconds kLongLook{10};

std::uint64_t placeOfNow() {
  using std::chrono::milliseconds;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<milliseconds>(now).count()) %
         LockFile::kPlaces;
}

using Registry = std::unordered_map<std::string, std::weak_ptr<FolderLock>>;

}  // namespace

std::shared_ptr<FolderLock> FolderLock::of(const std::string& folder) {
  Registry& registry = OfThread<Registry>::get();
  if (const auto known = registry.find(folder); known != registry.end()) {
    if (auto lock = known->second.lock()) return lock;
  }
  std::erase_if(registry, [](const auto& entry) { return entry.second.expired(); });
  auto lock = std::make_shared<FolderLock>(folder);
  registry[folder] = lock;
  return lock;
}

// Whoever else is using it has it open.
void FolderLock::prepare() {
  const std::unique_lock mine(used_, std::try_to_lock);
  if (mine.owns_lock()) file_.open();
}

void FolderLock::lock(std::uint32_t number) {
  Patience patience(kLongestWait);
  const auto wait = [&] {
    if (!patience.wait()) throw Error(ErrorNumber::PermissionDenied);
  };
  std::unique_lock mine(used_, std::try_to_lock);
  while (!mine.owns_lock() && !mine.try_lock()) wait();
  bool had = file_.tryLock(number);
  while (!had && patience.waited() < kLongWait) {
    wait();
    had = file_.tryLock(number);
  }
  if (!had) queueUp(number, wait);
  mine.release();
}

bool FolderLock::tryLock(std::uint32_t number) {
  std::unique_lock mine(used_, std::try_to_lock);
  if (!mine.owns_lock() || !file_.tryLock(number)) return false;
  mine.release();
  return true;
}

template <class Wait>
void FolderLock::queueUp(std::uint32_t number, Wait&& wait) {
  LockFile::Place place{placeOfNow()};
  try {
    while (!file_.tryLockInTurn(number, place)) wait();
  } catch (...) {
    file_.leave(number, place);
    throw;
  }
}

void FolderLock::unlock(std::uint32_t number) noexcept {
  file_.unlock(number);
  used_.unlock();
}

// Who comes past a queue gives the byte back at once, and the first of the queue tries again and again.
bool LockFile::tryLock(std::uint32_t number) {
  open();
  if (!take(writerOf(number), 1)) return false;
  try {
    if (nobodyQueues(number)) return keepPresent(true);
  } catch (...) {
    close();
    throw;
  }
  unlock(number);
  return false;
}

// Who comes to queue waits for those who have just looked, too: not long beside what he has waited.
bool LockFile::nobodyQueues(std::uint32_t number) {
  const auto now = std::chrono::steady_clock::now();
  if (number == quiet_ && now < quietUntil_) return true;
  const bool nobody = isFree(queueOf(number), kPlaces);
  quiet_ = number;
  quietUntil_ = nobody ? now + kLongLook : now;
  return nobody;
}

bool LockFile::tryLockInTurn(std::uint32_t number, Place& place) {
  open();
  place.taken = place.taken || take(queueOf(number) + place.at, 1);
  if (!place.taken || !isFree(queueOf(number), place.at) || !take(writerOf(number), 1)) return false;
  place.taken = false;
  return keepPresent(give(queueOf(number) + place.at, 1));
}

// Whoever deleted or moved the lock file meanwhile left us a lock that nobody else sees.
bool LockFile::keepPresent(bool given) {
  try {
    if (given && isPresent()) return true;
  } catch (...) {
    close();
    throw;
  }
  close();
  return false;
}

void LockFile::leave(std::uint32_t number, Place& place) noexcept {
  if (place.taken && !give(queueOf(number) + place.at, 1)) close();
  place.taken = false;
}

void LockFile::unlock(std::uint32_t number) noexcept {
  if (!give(writerOf(number), 1)) close();
}

}  // namespace orvane
