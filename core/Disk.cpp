#include "core/Disk.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "core/Error.h"
#include "core/Paths.h"

namespace orvane {

namespace {

using std::chrono::nanoseconds;

constexpr nanoseconds kTick = std::chrono::milliseconds(50);
constexpr nanoseconds kCoarseTick = std::chrono::seconds(2);

constexpr std::string_view kTemporaryStart = ".orvane-", kTemporaryEnd = ".tmp";

std::string temporaryName(std::uint32_t number) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string name(kTemporaryStart);
  for (int shift = 28; shift >= 0; shift -= 4) name += kDigits[(number >> shift) & 0xF];
  return name.append(kTemporaryEnd);
}

}  // namespace

std::int64_t presentTime() {
  return nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

bool isSettled(const Stamp& stamp, std::int64_t time) {
  const bool wholeSeconds = stamp.modified % nanoseconds(std::chrono::seconds(1)).count() == 0;
  return nanoseconds(time - stamp.modified) > (wholeSeconds ? kCoarseTick : kTick);
}

std::uint32_t lockNumberOf(TextView fileName) {
  Text folded(fileName);
  std::transform(folded.begin(), folded.end(), folded.begin(), foldCase);
  std::uint32_t hash = 0x811C9DC5;
  for (const char byte : toUtf8(folded)) hash = (hash ^ static_cast<std::uint8_t>(byte)) * 0x01000193u;
  return hash;
}

bool isTemporaryName(TextView fileName) {
  const std::string name = toUtf8(fileName);
  return name.starts_with(kTemporaryStart) && name.ends_with(kTemporaryEnd);
}

DiskFile::DiskFile(TextView fullName) : path_(nativePath(fullName)) {
  if (folderLength(path_) == path_.size()) throw Error(ErrorNumber::BadFileName);
}

// Whoever has the lock writes, as a rule, and removes it himself; it is not worth waiting for.
DiskFile::~DiskFile() {
  if (!spare_.exists) return;
  try {
    if (!folderLock_->tryLock(lockNumber_)) return;
    removeTemporary();
    folderLock_->unlock(lockNumber_);
  } catch (...) {
    // The next writer of the file removes it.
  }
}

JobLock DiskFile::lock() {
  settle();
  return JobLock(folderLock(), lockNumber_);
}

FolderLock& DiskFile::folderLock() {
  if (!folderLock_) folderLock_ = FolderLock::of(folder_);
  return *folderLock_;
}

void DiskFile::checkWritable(const Stamp& old) {
  settle();
  checkRights(old);
  folderLock().prepare();
}

void DiskFile::settle() {
  if (!temporary_.empty()) return;
  path_ = targetOf(path_);
  folder_ = path_.substr(0, folderLength(path_));
  const std::string name = path_.substr(folder_.size());
  if (name.empty()) throw Error(ErrorNumber::BadFileName);
  lockNumber_ = lockNumberOf(fromUtf8(name));
  temporary_ = folder_ + temporaryName(lockNumber_);
}

DiskFile::Replaced DiskFile::replace(std::string_view bytes, const Stamp& old, bool durable) {
  const std::int64_t modified = timeOfChange(old);
  const Stamp spare = std::exchange(spare_, {});
  try {
    if (!durable || !writeSpare(spare, bytes, old, modified)) writeTemporary(bytes, old, modified, durable);
    if (!durable || !exchangeFiles(old)) putInPlace(durable);
    if (durable) flushFolder();
  } catch (...) {
    spare_ = {};
    removeTemporary();
    throw;
  }
  Stamp now;
  if (!tryStamp(now)) return {now, false};
  if (old.exists && now.permissions != old.permissions) keepPermissions(now, old);
  const bool exact = now.modified == modified;
  if (exact) made_ = now;
  return {now, exact};
}

}  // namespace orvane
