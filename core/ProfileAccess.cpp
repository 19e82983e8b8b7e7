#include "core/ProfileAccess.h"

#include <algorithm>

#include "core/Numbers.h"
#include "core/OfThread.h"

namespace orvane {

std::shared_ptr<JobFile> ProfileAccess::open(const Text& fullName) {
  auto file = find(fullName);
  if (!file) keep(file = make(fullName));
  return file;
}

std::shared_ptr<JobFile> ProfileAccess::probe(const Text& fullName) const {
  const auto file = find(fullName);
  return file ? file : make(fullName);
}

void ProfileAccess::keep(const std::shared_ptr<JobFile>& file) {
  files_[file->fullName()] = file;
  if (files_.size() <= sweepAt_) return;
  std::erase_if(files_, [](const auto& item) { return item.second.expired(); });
  sweepAt_ = std::max(kLeastSweep, 2 * files_.size());
}

std::shared_ptr<JobFile> ProfileAccess::find(const Text& fullName) const {
  const auto known = files_.find(fullName);
  return known == files_.end() ? nullptr : known->second.lock();
}

std::shared_ptr<JobFile> ProfileAccess::make(const Text& fullName) const {
  auto file = std::make_shared<JobFile>(fullName);
  file->flushEveryWrite(flushEveryWrite_);
  return file;
}

const std::shared_ptr<JobFile>& ProfileAccess::noFile() {
  struct NoFile {
    std::shared_ptr<JobFile> file = std::make_shared<JobFile>(Text());
  };
  return OfThread<NoFile>::get().file;
}

TextView ProfileAccess::VediTesto(JobFile& file, Name section, Name key, TextView missing,
                                  std::size_t most) const {
  return file.read(section, key).value_or(missing).substr(0, most);
}

Text ProfileAccess::LeggiTesto(JobFile& file, Name section, Name key, TextView missing,
                               std::size_t most) const {
  return Text(VediTesto(file, section, key, missing, most));
}

double ProfileAccess::LeggiNumero(JobFile& file, Name section, Name key, double missing) const {
  const auto stored = file.read(section, key);
  return stored ? parseStored(*stored).value_or(missing) : missing;
}

std::int32_t ProfileAccess::LeggiIntero(JobFile& file, Name section, Name key, std::int32_t missing) const {
  const auto stored = file.read(section, key);
  return stored ? parseLong(*stored).value_or(missing) : missing;
}

std::int32_t ProfileAccess::LeggiQuanti(JobFile& file, Name section, Name key) const {
  const std::int32_t count = LeggiIntero(file, section, key);
  return std::clamp(count, 0, static_cast<std::int32_t>(file.length()));
}

Date ProfileAccess::LeggiData(JobFile& file, Name section, Name key, Date missing) const {
  return {LeggiNumero(file, section, key, missing.days)};
}

bool ProfileAccess::LeggiBooleano(JobFile& file, Name section, Name key, bool missing) const {
  const auto stored = file.read(section, key);
  if (!stored) return missing;
  if (equalIgnoringCase(*stored, u"True")) return true;
  if (equalIgnoringCase(*stored, u"False")) return false;
  const auto number = parseStored(*stored);
  return number ? *number != 0 : missing;
}

void ProfileAccess::write(JobFile& file, TextView section, TextView key, TextView value) const {
  if (!readOnly_) file.write(section, key, value);
}

void ProfileAccess::ScriviTesto(JobFile& file, TextView section, TextView key, TextView value) {
  write(file, section, key, value);
}

void ProfileAccess::ScriviBooleano(JobFile& file, TextView section, TextView key, bool value) {
  write(file, section, key, value ? u"-1" : u"0");
}

void ProfileAccess::ScriviNumero(JobFile& file, TextView section, TextView key, double value) {
  write(file, section, key, numberText(value));
}

void ProfileAccess::ScriviData(JobFile& file, TextView section, TextView key, Date value) {
  ScriviNumero(file, section, key, value.days);
}

void ProfileAccess::flushEveryWrite(bool on) {
  flushEveryWrite_ = on;
  for (auto& [name, entry] : files_) {
    if (auto file = entry.lock()) file->flushEveryWrite(on);
  }
}

}  // namespace orvane
