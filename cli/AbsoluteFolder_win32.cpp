#include "cli/AbsoluteFolder.h"
#include "core/Paths.h"

namespace orvane::cli {

Text absoluteFolder(TextView folder) {
  if (folder.empty()) return {};
  Text path = fromUtf8(nativePath(folder));
  while (path.size() > 3 && (path.back() == u'\\' || path.back() == u'/')) path.pop_back();
  return path;
}

}  // namespace orvane::cli
