// A folder of a test's own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/Text.h"

namespace orvane::test {

/// Made under a name that no other test has, removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder as the interface publishes it, and a file in it.
  Text path() const { return native_.u16string(); }
  Text file(TextView name) const { return path() + u'\\' + Text(name); }

  /// The path that the library itself finds out for the folder, or a file in it.
  Text published(TextView name = {}) const;

  /// The folder for the operating system, or a file in it; backslashes in `name` separate folders.
  std::filesystem::path native(TextView name = {}) const;

  /// Raw content; missing folders of `name` are made.
  void write(TextView name, std::string_view bytes) const;
  std::string read(TextView name) const;
  bool has(TextView name) const { return std::filesystem::exists(native(name)); }

  /// Names of the files that are not hidden, ascending.
  std::vector<Text> files() const;

 private:
  std::filesystem::path native_;
};

}  // namespace orvane::test
