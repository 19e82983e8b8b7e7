#include "tests/automation/Imports.h"

#include <stdexcept>
#include <string>

namespace client {

namespace {

template <class T>
T* at(HMODULE module, DWORD offset) {
  return reinterpret_cast<T*>(reinterpret_cast<char*>(module) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* importsOf(HMODULE module) {
  const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* const headers = at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
  const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  return at<IMAGE_IMPORT_DESCRIPTOR>(module, table.VirtualAddress);
}

bool isNamed(HMODULE module, const IMAGE_THUNK_DATA& wanted, std::string_view name) {
  if (IMAGE_SNAP_BY_ORDINAL(wanted.u1.Ordinal)) return false;
  const auto offset = static_cast<DWORD>(wanted.u1.AddressOfData);
  return name == reinterpret_cast<const char*>(at<IMAGE_IMPORT_BY_NAME>(module, offset)->Name);
}

void** slotOf(HMODULE module, std::string_view name) {
  for (const auto* library = importsOf(module); library->Name != 0; ++library) {
    const auto* wanted = at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    auto* found = at<IMAGE_THUNK_DATA>(module, library->FirstThunk);
    for (; wanted->u1.AddressOfData != 0; ++wanted, ++found) {
      if (isNamed(module, *wanted, name)) return reinterpret_cast<void**>(&found->u1.Function);
    }
  }
  throw std::invalid_argument("not imported: " + std::string(name));
}

}  // namespace

Import::Import(HMODULE module, std::string_view name, void* replacement)
    : slot_(slotOf(module, name)), original_(*slot_) {
  set(replacement);
}

void Import::set(void* function) const {
  DWORD protection = 0;
  VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
  *slot_ = function;
  VirtualProtect(slot_, sizeof *slot_, protection, &protection);
}

}  // namespace client
