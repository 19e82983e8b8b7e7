// The present folder of a test.
#pragma once

#include <filesystem>

namespace orvane::test {

/// Goes to a folder, and back at its end.
class PresentFolder {
 public:
  explicit PresentFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
  ~PresentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  PresentFolder(const PresentFolder&) = delete;
  PresentFolder& operator=(const PresentFolder&) = delete;

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace orvane::test
