#include "core/Paths_win32.h"

#include <windows.h>

#include "core/Error.h"
#include "core/Paths.h"

namespace orvane {

namespace {

// The shortest limit of all functions is that of a folder: MAX_PATH less a name of the 8.3 form.
constexpr std::size_t kLongestPlainPath = MAX_PATH - 13;

std::wstring toWide(TextView text) { return std::wstring(text.begin(), text.end()); }

Text absolute(const std::wstring& path) {
  std::wstring full(path.size() + MAX_PATH, L'\0');
  DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length > full.size()) {
    full.resize(length);
    length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  }
  if (length == 0 || length > full.size()) throw Error(ErrorNumber::BadFileName);
  return Text(full.begin(), full.begin() + length);
}

}  // namespace

// The name of a device leads to it from every folder.
std::string nativePath(TextView published) {
  if (published.find(u'\0') != TextView::npos) throw Error(ErrorNumber::BadFileName);
  if (published.empty()) return {};
  const Text path = absolute(toWide(published));
  if (path.starts_with(u"\\\\.\\")) throw Error(ErrorNumber::BadFileName);
  return toUtf8(path);
}

std::optional<Text> publishedPath(const std::string& nativePath) { return fromUtf8(nativePath); }

Text absolutePath(TextView folder) {
  Text path = fromUtf8(nativePath(folder));
  while (path.ends_with(u'\\') && !path.ends_with(u":\\")) path.pop_back();
  return path;
}

std::size_t folderLength(const std::string& nativePath) { return nativePath.rfind('\\') + 1; }

std::wstring widePath(const std::string& nativePath) {
  const std::wstring path = toWide(fromUtf8(nativePath));
  const bool prefixed = path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\");
  if (path.size() <= kLongestPlainPath || prefixed) return path;
  return path.starts_with(L"\\\\") ? L"\\\\?\\UNC" + path.substr(1) : L"\\\\?\\" + path;
}

}  // namespace orvane
