#include "cli/AbsoluteFolder.h"
#include "core/Paths.h"

namespace orvane::cli {

Text absoluteFolder(TextView folder) { return folder.empty() ? Text() : absolutePath(folder); }

}  // namespace orvane::cli
