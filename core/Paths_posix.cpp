#include <algorithm>
#include <filesystem>

#include "core/Error.h"
#include "core/Paths.h"
#include "core/Units.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

bool canBeName(TextView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
    if (text[i] == 0 || (!pair && (isHighSurrogate(text[i]) || isLowSurrogate(text[i])))) return false;
    if (pair) ++i;
  }
  return true;
}

// What ".." leads to behind a link only the system can tell.
std::string absolute(const std::string& path) {
  std::error_code failure;
  fs::path whole = fs::absolute(path, failure);
  const bool climbs = std::find(whole.begin(), whole.end(), "..") != whole.end();
  whole = climbs ? fs::canonical(whole, failure) : whole.lexically_normal();
  return failure ? path : whole.string();
}

}  // namespace

std::string nativePath(TextView published) {
  if (!canBeName(published)) throw Error(ErrorNumber::BadFileName);
  std::string path = toUtf8(published);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::optional<Text> publishedPath(const std::string& nativePath) {
  Text text = fromUtf8(nativePath);
  if (toUtf8(text) != nativePath || !canBeName(text) || text.find(u'\\') != Text::npos) return std::nullopt;
  std::replace(text.begin(), text.end(), u'/', u'\\');
  return text;
}

Text absolutePath(TextView folder) {
  std::string path = absolute(nativePath(folder));
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return publishedPath(path).value_or(Text(folder));
}

std::size_t folderLength(const std::string& nativePath) { return nativePath.rfind('/') + 1; }

}  // namespace orvane
