// The component's own texts on Windows: the string table of the module that this code is part of, or the
// compiled table where a program links the library without its resources.
#include <windows.h>

#include "codes/OwnTexts.h"
#include "codes/VqDocResDll.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for the start of this module

namespace orvane {

Text ownText(std::int32_t id) {
  if (id < 0 || id > 0xFFFF) return compiledText(id);  // the system would look up the low 16 bits
  const wchar_t* text = nullptr;
  const auto module = reinterpret_cast<HINSTANCE>(&__ImageBase);
  const int length = LoadStringW(module, static_cast<UINT>(id), reinterpret_cast<wchar_t*>(&text), 0);
  return length > 0 ? Text(reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length))
                    : compiledText(id);
}

void* loadLibrary(TextView name) {
  char ansi[MAX_PATH] = {};
  WideCharToMultiByte(CP_ACP, 0, reinterpret_cast<const wchar_t*>(name.data()), static_cast<int>(name.size()),
                      ansi, MAX_PATH - 1, nullptr, nullptr);
  return LoadLibraryA(ansi);
}

void freeLibrary(void* module) {
  if (module != nullptr) FreeLibrary(static_cast<HMODULE>(module));
}

}  // namespace orvane
