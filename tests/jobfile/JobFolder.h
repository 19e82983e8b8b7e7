// A temporary folder of one test, and what its files hold byte by byte.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "core/Error.h"
#include "core/JobFile.h"
#include "core/Paths.h"

namespace orvane::test {

/// UTF-16LE with byte-order mark, as a job file stands on the disk.
inline std::string onDisk(TextView text) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

/// A folder of its own, deleted in the end.
class JobFolder : public testing::Test {
 protected:
  JobFolder() : JobFolder(testing::TempDir()) {}

  explicit JobFolder(const std::string& parent) {
    std::string pattern = parent + "orvane-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
  }
  ~JobFolder() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::string path(const std::string& name = "job.vqs") const { return folder_ + "/" + name; }

  Text published(TextView name = u"job.vqs") const { return publishedName(folder_, name); }

  static Text publishedName(const std::string& native, TextView name) {
    Text folder = fromUtf8(native);
    for (char16_t& unit : folder) unit = unit == u'/' ? u'\\' : unit;
    return joinPath(folder, name);
  }

  std::string bytes(const std::string& name = "job.vqs") const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  void put(const std::string& content, const std::string& name = "job.vqs") const {
    std::ofstream(path(name), std::ios::binary | std::ios::trunc) << content;
  }

  /// Names of all files but the lock file.
  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
      found.insert(entry.path().filename());
    found.erase(".orvane.lock");
    return found;
  }

  std::string folder_;
};

/// Where many writers meet: the mounts of one share that ORVANE_SHARE names, separated by colons, else a
/// folder in memory where the machine has one. A busy disk may hold a writer up for longer than the others
/// wait, and then they are refused with reason.
inline const std::vector<std::string>& mounts() {
  static const std::vector<std::string> found = [] {
    const char* const share = std::getenv("ORVANE_SHARE");
    if (!share) return std::vector{std::filesystem::exists("/dev/shm") ? "/dev/shm" : testing::TempDir()};
    std::vector<std::string> names(1);
    for (const char* c = share; *c; ++c) *c == ':' ? names.emplace_back() : names.back() += *c;
    return names;
  }();
  return found;
}

/// A folder of the first mount; `published(writer)` names it by one mount after the other.
class MeetingFolder : public JobFolder {
 protected:
  MeetingFolder() : JobFolder(mounts().front() + "/") {}

  using JobFolder::published;
  Text published(int writer) const {
    const std::string& mount = mounts()[static_cast<std::size_t>(writer) % mounts().size()];
    return publishedName(mount + folder_.substr(mounts().front().size()), u"job.vqs");
  }
};

inline Text number(int value) { return fromUtf8(std::to_string(value)); }

/// A copy of what is read, for comparison.
inline std::optional<Text> readText(JobFile& file, TextView section, TextView key) {
  const auto found = file.read(section, key);
  return found ? std::optional<Text>(*found) : std::nullopt;
}

/// The number of the error that `work` raises; 0 where it raises none.
template <class Work>
int errorOf(Work&& work) {
  try {
    work();
    return 0;
  } catch (const Error& error) {
    return error.number();
  }
}

}  // namespace orvane::test
