#include "com/Registration.h"

#include <string>
#include <vector>

#include "com/Errors.h"
#include "com/Identity.h"
#include "com/Module.h"
#include "com/RegistryKey.h"

namespace orvane::com {

namespace {

// The system's marshaler for interfaces that a type library describes.
constexpr wchar_t kMarshaler[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kPlatform = sizeof(void*) == 4 ? L"win32" : L"win64";

std::wstring braced(REFGUID id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  return text;
}

std::wstring libraryKey() { return L"TypeLib\\" + braced(libraryIdentity().id); }

std::wstring versionText() {
  return std::to_wstring(libraryIdentity().major) + L"." + std::to_wstring(libraryIdentity().minor);
}

std::wstring classKey(const ClassIdentity& identity) { return L"CLSID\\" + braced(identity.classId); }

std::wstring interfaceKey(const ClassIdentity& identity) {
  return L"Interface\\" + braced(identity.interfaceId);
}

void registerClass(const RegistryKey& root, const ClassIdentity& identity) {
  const RegistryKey key = root.create(classKey(identity));
  key.set(L"", identity.help);
  const RegistryKey server = key.create(L"InprocServer32");
  server.set(L"", Module::path());
  server.set(L"ThreadingModel", identity.threading);
  key.create(L"ProgID").set(L"", identity.programId);
  key.create(L"Programmable");
  key.create(L"TypeLib").set(L"", braced(libraryIdentity().id));
  key.create(L"Version").set(L"", versionText());
  const RegistryKey program = root.create(identity.programId);
  program.set(L"", identity.help);
  program.create(L"CLSID").set(L"", braced(identity.classId));
}

void registerInterface(const RegistryKey& root, const ClassIdentity& identity) {
  const RegistryKey key = root.create(interfaceKey(identity));
  key.set(L"", identity.interfaceName);
  key.create(L"ProxyStubClsid32").set(L"", kMarshaler);
  const RegistryKey library = key.create(L"TypeLib");
  library.set(L"", braced(libraryIdentity().id));
  library.set(L"Version", versionText());
}

void registerLibrary(const RegistryKey& root) {
  const RegistryKey key = root.create(libraryKey() + L"\\" + versionText());
  key.set(L"", libraryIdentity().help);
  key.create(std::wstring(L"0\\") + kPlatform).set(L"", Module::path());
  key.create(L"FLAGS").set(L"", L"0");
}

void unregisterClass(const RegistryKey& root, const ClassIdentity& identity, bool shared) {
  root.remove(classKey(identity));
  if (!shared) root.remove(identity.programId);
}

// The type library's key is the one place that lists both kinds of process, so it tells whether the other is
// left.
bool unregisterLibrary(const RegistryKey& root) {
  const std::wstring platforms = libraryKey() + L"\\" + versionText() + L"\\0";
  root.remove(platforms + L"\\" + kPlatform);
  if (root.hasChildren(platforms)) return true;
  root.remove(libraryKey());
  return false;
}

void removeAll(const RegistryKey& root) {
  const bool shared = unregisterLibrary(root);
  for (const ClassIdentity& identity : classIdentities()) {
    root.remove(interfaceKey(identity));
    if (identity.programId) unregisterClass(root, identity, shared);
  }
  // A user who has no classes of other servers has not even the keys above them.
  for (const wchar_t* key : {L"TypeLib", L"Interface", L"CLSID"}) root.removeIfEmpty(key);
}

void writeAll(const RegistryKey& root) {
  for (const ClassIdentity& identity : classIdentities()) {
    registerInterface(root, identity);
    if (identity.programId) registerClass(root, identity);
  }
  registerLibrary(root);
}

RegistryKey rootOf(Scope scope) {
  return RegistryKey(scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, L"Software\\Classes");
}

}  // namespace

HRESULT registerServer(Scope scope) noexcept {
  try {
    writeAll(rootOf(scope));
    return S_OK;
  } catch (...) {
    const HRESULT failure = currentFailure();
    unregisterServer(scope);
    return failure;
  }
}

HRESULT unregisterServer(Scope scope) noexcept {
  try {
    removeAll(rootOf(scope));
    return S_OK;
  } catch (...) {
    return currentFailure();
  }
}

}  // namespace orvane::com
