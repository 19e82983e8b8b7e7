#include "com/RegistryKey.h"

#include "com/Errors.h"

namespace orvane::com {

namespace {

void check(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw Failure{HRESULT_FROM_WIN32(static_cast<DWORD>(status))};
}

struct Content {
  DWORD keys = 0;
  DWORD values = 0;
};

Content contentOf(HKEY parent, const std::wstring& path) {
  Content content;
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return content;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &content.keys, nullptr, nullptr, &content.values, nullptr,
                   nullptr, nullptr, nullptr);
  RegCloseKey(key);
  return content;
}

}  // namespace

RegistryKey::RegistryKey(HKEY parent, const std::wstring& path) {
  check(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_, nullptr));
}

void RegistryKey::set(const wchar_t* name, const std::wstring& value) const {
  const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  check(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), size));
}

void RegistryKey::remove(const std::wstring& path) const {
  const LSTATUS status = RegDeleteTreeW(key_, path.c_str());
  if (status != ERROR_FILE_NOT_FOUND) check(status);
}

void RegistryKey::removeIfEmpty(const std::wstring& path) const {
  const Content content = contentOf(key_, path);
  if (content.keys == 0 && content.values == 0) remove(path);
}

bool RegistryKey::hasChildren(const std::wstring& path) const { return contentOf(key_, path).keys != 0; }

}  // namespace orvane::com
