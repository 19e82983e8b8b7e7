#include "com/RegistryKey.h"

#include "com/Errors.h"

namespace orvane::com {

namespace {

void check(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw Failure{HRESULT_FROM_WIN32(static_cast<DWORD>(status))};
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

bool RegistryKey::hasChildren(const std::wstring& path) const {
  HKEY key = nullptr;
  if (RegOpenKeyExW(key_, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  DWORD count = 0;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr,
                   nullptr, nullptr);
  RegCloseKey(key);
  return count != 0;
}

}  // namespace orvane::com
