// A program that knows the server by its name only: client FOLDER [FILE]
//
// Composes job 1 in FOLDER, loads it into another object and prints what it then holds. With FILE, it waits
// while it has the server loaded until FILE is there.
#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

void check(HRESULT result, const char* what) {
  if (FAILED(result)) {
    char text[100];
    std::snprintf(text, sizeof text, "%s: 0x%08lX", what, static_cast<unsigned long>(result));
    throw std::runtime_error(text);
  }
}

/// Neither a value nor an object is given back to the system: the program is short.
VARIANT textOf(const wchar_t* text) {
  VARIANT value{};
  value.vt = VT_BSTR;
  value.bstrVal = SysAllocString(text);
  return value;
}

/// Arguments are passed last to first.
VARIANT call(IDispatch* object, WORD kind, const wchar_t* name, std::vector<VARIANT> arguments = {}) {
  auto* spelled = const_cast<wchar_t*>(name);
  DISPID id = 0;
  check(object->GetIDsOfNames(IID_NULL, &spelled, 1, LOCALE_USER_DEFAULT, &id), "name");
  DISPID assigned = DISPID_PROPERTYPUT;
  const bool put = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), put ? &assigned : nullptr, static_cast<UINT>(arguments.size()),
                        put ? 1u : 0u};
  VARIANT result{};
  check(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &result, nullptr, nullptr),
        "call");
  return result;
}

IDispatch* makeFactory() {
  CLSID id{};
  check(CLSIDFromProgID(L"OrvaneDocumenti.VqDocumenti", &id), "program id");
  void* factory = nullptr;
  check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &factory), "factory");
  return static_cast<IDispatch*>(factory);
}

void waitFor(const wchar_t* file) {
  for (int tries = 0; tries < 6000 && GetFileAttributesW(file) == INVALID_FILE_ATTRIBUTES; ++tries)
    Sleep(100);
}

void run(const wchar_t* folder, const wchar_t* file) {
  IDispatch* const factory = makeFactory();
  std::puts("ready");
  std::fflush(stdout);
  if (file) waitFor(file);
  IDispatch* const composed = call(factory, DISPATCH_METHOD, L"NuovoDocumentoStampa").pdispVal;
  call(composed, DISPATCH_METHOD, L"Inizializza", {textOf(folder), textOf(L"1")});
  call(composed, DISPATCH_PROPERTYPUT, L"Stampante", {textOf(L"Laser")});
  IDispatch* const loaded = call(factory, DISPATCH_METHOD, L"NuovoDocumentoStampa").pdispVal;
  call(loaded, DISPATCH_METHOD, L"Carica", {textOf(L"1.vqs"), textOf(folder)});
  std::printf("%ls\n", call(loaded, DISPATCH_PROPERTYGET, L"Stampante").bstrVal);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  CoInitialize(nullptr);
  try {
    run(arguments[1], count > 2 ? arguments[2] : nullptr);
    return 0;
  } catch (const std::exception& failure) {
    std::printf("%s\n", failure.what());
    return 1;
  }
}
