// A neighbour that knows the system's profile functions only: profile_reader FILE STOP reads one value, which
// never changes, until there is a file STOP, and ends with 1 where it saw anything else. Its last line is how
// often it read.
#include <windows.h>

#include <cstdio>
#include <cwchar>

namespace {

bool isThere(const char* path) { return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES; }

bool readsWhole(const wchar_t* path) {
  wchar_t text[100];
  const DWORD length = GetPrivateProfileStringW(L"Stampa", L"Fisso", L"(missing)", text, 100, path);
  if (std::wcscmp(text, L"un testo che non cambia") == 0) return true;
  std::fprintf(stderr, "profile_reader: read %lu units: %ls\n", length, text);
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  wchar_t path[1000];
  MultiByteToWideChar(CP_UTF8, 0, argv[1], -1, path, 1000);
  long reads = 0;
  while (!isThere(argv[2])) {
    if (!readsWhole(path)) return 1;
    ++reads;
  }
  std::printf("%ld\n", reads);
  return reads > 0 ? 0 : 1;
}
