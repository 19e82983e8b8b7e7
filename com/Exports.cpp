// What the system calls by name.
#include <algorithm>
#include <new>

#include "com/ClassFactory.h"
#include "com/Module.h"
#include "com/Registration.h"

using namespace orvane::com;

namespace {

const ClassIdentity* findCreatable(REFCLSID id) {
  const auto all = classIdentities();
  const auto found = std::find_if(all.begin(), all.end(), [&](const ClassIdentity& identity) {
    return identity.programId && identity.classId == id;
  });
  return found == all.end() ? nullptr : &*found;
}

bool isWord(const wchar_t* text, const wchar_t* word) {
  return CompareStringOrdinal(text, -1, word, -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID id, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  const ClassIdentity* const identity = findCreatable(id);
  if (!identity) return CLASS_E_CLASSNOTAVAILABLE;
  auto* const factory = new (std::nothrow) ClassFactory(*identity);
  if (!factory) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(iid, out);
  factory->Release();
  return result;
}

STDAPI DllCanUnloadNow() { return Module::isIdle() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return registerServer(Scope::Machine); }
STDAPI DllUnregisterServer() { return unregisterServer(Scope::Machine); }

// "user" as the command line is for the present user, nothing or "machine" for everybody.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const wchar_t* const word = commandLine ? commandLine : L"";
  const bool user = isWord(word, L"user");
  if (!user && *word != L'\0' && !isWord(word, L"machine")) return E_INVALIDARG;
  const Scope scope = user ? Scope::User : Scope::Machine;
  return install ? registerServer(scope) : unregisterServer(scope);
}
