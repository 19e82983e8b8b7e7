#include <algorithm>

#include "core/Error.h"
#include "core/Paths.h"

namespace orvane {

namespace {

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

bool canBeName(TextView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1]);
    if (text[i] == 0 || (!pair && (isHigh(text[i]) || isLow(text[i])))) return false;
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
