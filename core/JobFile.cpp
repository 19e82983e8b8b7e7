#include "core/JobFile.h"

#include "core/Error.h"
#include "core/ProfileValue.h"

namespace orvane {

JobFile::JobFile(Text fullName) : fullName_(std::move(fullName)) {}

JobFile::~JobFile() {
  if (!unflushed_) return;
  try {
    disk().flush();
  } catch (...) {
    // Nobody is left to be told, and the file is whole.
  }
}

DiskFile& JobFile::disk() {
  if (!disk_) disk_ = std::make_unique<DiskFile>(fullName_);
  return *disk_;
}

void JobFile::validate() {
  if (!trusted_ || disk().stamp() != stamp_) load();
}

void JobFile::load() {
  forgetImage();
  std::string bytes;
  const std::int64_t before = presentTime();
  stamp_ = disk().read(bytes);
  image_.parse(bytes);
  trusted_ = !stamp_.exists || isSettled(stamp_, before);
}

void JobFile::takeSnapshot() {
  validate();
  apply();
  snapshot_ = true;
}

bool JobFile::exists() {
  if (fullName_.empty()) return false;
  look();
  return stamp_.exists;
}

std::optional<TextView> JobFile::read(Name section, Name key) {
  if (fullName_.empty()) return std::nullopt;
  look();
  const auto stored = image_.find(section, key);
  if (!stored) return std::nullopt;
  return plainValue(*stored, room_);
}

void JobFile::write(TextView section, TextView key, TextView value) {
  if (fullName_.empty()) return;
  if (!canBeSection(section) || !canBeKey(key)) throw Error(ErrorNumber::InvalidCall);
  note(section, key, value);
  depth_ > 0 ? applyInScope() : landUnlessDone();
}

void JobFile::note(TextView section, TextView key, TextView value) {
  const std::size_t at = words_.size();
  words_.append(section).append(key);
  const std::size_t valueAt = words_.size();
  appendStoredValue(words_, value);
  changes_.push_back({at, section.size(), key.size(), words_.size() - valueAt});
}

// A write that fails is taken back; those before it stay.
void JobFile::applyInScope() {
  try {
    look();
    apply();
    if (edited_ && !writable_) disk().checkWritable(stamp_);
    writable_ = edited_;
  } catch (...) {
    changes_.pop_back();
    forgetImage();
    throw;
  }
}

void JobFile::apply() {
  for (; applied_ < changes_.size(); ++applied_) {
    const Change& change = changes_[applied_];
    if (image_.set(sectionOf(change), keyOf(change), valueOf(change))) edited_ = true;
  }
}

// Asks the disk only where the image says that there is nothing to change.
bool JobFile::changesNothing() {
  if (edited_) return false;
  if (snapshot_) return true;
  if (!trusted_) return false;
  for (const Change& change : changes_) {
    if (image_.find(sectionOf(change), keyOf(change)) != valueOf(change)) return false;
  }
  return disk().stamp() == stamp_;
}

void JobFile::landUnlessDone() {
  try {
    if (!changes_.empty() && !changesNothing()) land();
  } catch (...) {
    forgetImage();
    forgetChanges();
    throw;
  }
  forgetChanges();
}

void JobFile::land() {
  const JobLock lock = disk().lock();
  if (!trusted_ || disk().stamp() != stamp_) load();
  apply();
  if (edited_) exchangeFile();
}

void JobFile::exchangeFile() {
  unflushed_ = true;
  const auto [stamp, exact] = disk().replace(image_.bytes(), stamp_, flushed_);
  stamp_ = stamp;
  trusted_ = exact;
  edited_ = false;
  unflushed_ = !flushed_;
}

void JobFile::forgetChanges() noexcept {
  changes_.clear();
  words_.clear();
  applied_ = 0;
}

void JobFile::forgetImage() noexcept {
  trusted_ = false;
  snapshot_ = false;
  edited_ = false;
  writable_ = false;
  applied_ = 0;
}

void JobFile::landSoFar() {
  landUnlessDone();
  snapshot_ = false;
  writable_ = false;
}

void JobFile::leave() {
  if (--depth_ > 0) return;
  const bool flushNow = std::exchange(flushAtEnd_, false);
  landSoFar();
  if (flushNow) flush();
}

void JobFile::leaveQuietly() noexcept {
  try {
    leave();
  } catch (...) {
    // The exception that ended the work tells more.
  }
}

void JobFile::flush() {
  if (fullName_.empty()) return;
  if (depth_ > 0) {
    flushAtEnd_ = true;
    return;
  }
  disk().flush();
  unflushed_ = false;
}

}  // namespace orvane
