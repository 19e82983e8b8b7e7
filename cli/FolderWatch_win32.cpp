#include "cli/FolderWatch.h"

namespace orvane::cli {

std::unique_ptr<FolderWatch> watchFolder(const std::string& folder) { return pollFolder(folder); }

}  // namespace orvane::cli
