// Word of changes in a folder.
#pragma once

#include <chrono>
#include <memory>
#include <set>
#include <string>

#include "core/Text.h"

namespace orvane::cli {

struct FolderChanges {
  bool anything = false;  ///< the names are not known: look at all files
  std::set<Text> names;   ///< of files that came, went or changed

  bool isEmpty() const { return !anything && names.empty(); }
};

/// Tells of everything that happens from its making on.
class FolderWatch {
 public:
  virtual ~FolderWatch() = default;

  /// Waits until something has changed, or for that long.
  virtual FolderChanges wait(std::chrono::milliseconds longest) = 0;
};

/// Word from the operating system where it gives any, which is at once. Failure 76 where the folder is
/// missing, 67 where the system watches too many already.
std::unique_ptr<FolderWatch> watchFolder(const std::string& folder);

/// Looks at the folder twice a second: for shares, whose other machines the operating system does not hear.
std::unique_ptr<FolderWatch> pollFolder(const std::string& folder);

}  // namespace orvane::cli
