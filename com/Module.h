// What the DLL knows of itself: how long it must stay loaded, where it is, and its type library.
#pragma once

#include <string>

#include "com/Windows.h"

namespace orvane::com {

/// Any thread may call these.
class Module {
 public:
  /// Held by every live object and every lock of a class factory.
  static void enter() noexcept;
  static void leave() noexcept;

  /// Nobody holds it.
  static bool isIdle() noexcept;

  /// The full name of the DLL. Throws Failure.
  static std::wstring path();

  /// The description of a class or an interface in the embedded type library, with a reference for the
  /// caller. The library is kept while objects are alive.
  static HRESULT typeInfo(REFGUID id, ITypeInfo** info) noexcept;
};

/// Holds the module for its own lifetime.
class ModuleUse {
 public:
  ModuleUse() noexcept { Module::enter(); }
  ~ModuleUse() { Module::leave(); }
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
};

}  // namespace orvane::com
