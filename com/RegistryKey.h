// A key of the registry.
#pragma once

#include <string>

#include "com/Windows.h"

namespace orvane::com {

/// Open for reading and writing until it ends. Everything throws Failure with the system's reason.
class RegistryKey {
 public:
  /// Created where it is missing.
  RegistryKey(HKEY parent, const std::wstring& path);
  ~RegistryKey() { RegCloseKey(key_); }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  RegistryKey create(const std::wstring& path) const { return RegistryKey(key_, path); }

  /// A text; the empty name is that of the key's own value.
  void set(const wchar_t* name, const std::wstring& value) const;

  /// With everything below it; it may be missing.
  void remove(const std::wstring& path) const;

  /// Unless something is below it or in it.
  void removeIfEmpty(const std::wstring& path) const;

  /// False where the key below is missing.
  bool hasChildren(const std::wstring& path) const;

 private:
  HKEY key_ = nullptr;
};

}  // namespace orvane::com
