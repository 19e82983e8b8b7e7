// A client that keeps a factory and a document as long as its first argument says: outlive KIND FOLDER. Its
// exit code is 7, and the output that it leaves in the buffer is "composed".
//
// static         static pointers, released when the program's objects end
// uninitialized  the same, after CoUninitialize
// freed          the same, of a server that the client has loaded by itself and freed
// never          nobody releases them, and CoUninitialize is called
// exit           nobody releases them, and the process ends at once
// module         static pointers of a DLL that was there before the server and ends after it
#include <cstdio>
#include <string>

#include "tests/automation/lifetimes/Job.h"

namespace {

Job job;

int composeInModule(const std::wstring& module, const wchar_t* folder) {
  const HMODULE loaded = LoadLibraryW(module.c_str());
  using Function = int (*)(const wchar_t*);
  const auto compose =
      reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(loaded, "composeHere")));
  return compose ? compose(folder) : 1;
}

int run(const std::wstring& kind, const wchar_t* folder) {
  if (kind == L"module") return composeInModule(ORVANE_MODULE, folder);
  if (kind == L"freed") return job.composeAndFree(ORVANE_SERVER, folder);
  const int code = job.compose(folder);
  if (kind == L"exit") ExitProcess(static_cast<UINT>(code));
  if (kind == L"never") job.forget();
  if (kind != L"static") CoUninitialize();
  return code;
}

}  // namespace

int wmain(int, wchar_t** arguments) {
  std::fputs("composed", stdout);
  return run(arguments[1], arguments[2]);
}
