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

  Text published(TextView name = u"job.vqs") const {
    Text folder = fromUtf8(folder_);
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
