#include <algorithm>

#include "core/Error.h"
#include "core/Paths.h"
#include "core/Units.h"

namespace orvane {

namespace {

bool canBeName(TextView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
    if (text[i] == 0 || (!pair && (isHighSurrogate(text[i]) || isLowSurrogate(text[i])))) return false;
    if (pair) ++i;
  }
  return true;
}

}  // namespace

std::string nativePath(TextView published) {
  if (!canBeName(published)) throw Error(ErrorNumber::BadFileName);
  std::string path = toUtf8(published);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::size_t folderLength(const std::string& nativePath) { return nativePath.rfind('/') + 1; }

}  // namespace orvane
