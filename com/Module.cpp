#include "com/Module.h"

#include "com/Errors.h"
#include "com/Lock.h"
#include "com/Reserve.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for the start of this module

namespace orvane::com {

namespace {

constinit LONG users = 0;
constinit SRWLOCK typeLibraryLock = SRWLOCK_INIT;
constinit ITypeLib* typeLibrary = nullptr;

void forgetTypeLibrary() noexcept {
  const Lock lock(typeLibraryLock);
  if (!typeLibrary || !Module::isIdle()) return;
  typeLibrary->Release();
  typeLibrary = nullptr;
}

HRESULT loadTypeLibrary() noexcept {
  if (typeLibrary) return S_OK;
  try {
    return LoadTypeLibEx(Module::path().c_str(), REGKIND_NONE, &typeLibrary);
  } catch (...) {
    return currentFailure();
  }
}

}  // namespace

void Module::enter() noexcept {
  InterlockedIncrement(&users);
  Reserve::refill();
}

void Module::leave() noexcept {
  if (InterlockedDecrement(&users) == 0) forgetTypeLibrary();
}

bool Module::isIdle() noexcept { return InterlockedCompareExchange(&users, 0, 0) == 0; }

std::wstring Module::path() {
  std::wstring path(MAX_PATH, L'\0');
  const auto module = reinterpret_cast<HMODULE>(&__ImageBase);
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw Failure{HRESULT_FROM_WIN32(GetLastError())};
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

HRESULT Module::typeInfo(REFGUID id, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  const Lock lock(typeLibraryLock);
  const HRESULT loaded = loadTypeLibrary();
  return SUCCEEDED(loaded) ? typeLibrary->GetTypeInfoOfGuid(id, info) : loaded;
}

}  // namespace orvane::com
