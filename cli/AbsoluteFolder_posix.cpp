#include <filesystem>

#include "cli/AbsoluteFolder.h"
#include "core/Paths.h"

namespace orvane::cli {

namespace {

bool isSeparator(char16_t unit) { return unit == u'/' || unit == u'\\'; }

bool isAbsolute(TextView folder) {
  return (!folder.empty() && isSeparator(folder[0])) || (folder.size() > 1 && folder[1] == u':');
}

TextView withoutEnd(TextView folder) {
  while (folder.size() > 1 && isSeparator(folder.back())) folder.remove_suffix(1);
  return folder;
}

}  // namespace

Text absoluteFolder(TextView folder) {
  if (folder.empty() || isAbsolute(folder)) return Text(withoutEnd(folder));
  const auto path = std::filesystem::current_path() / nativePath(folder);
  return Text(withoutEnd(fromUtf8(path.lexically_normal().string())));
}

}  // namespace orvane::cli
