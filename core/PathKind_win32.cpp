#include "core/PathKind.h"

#include <windows.h>

#include "core/Paths_win32.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

// The attributes of what a link leads to.
DWORD attributesBehind(const std::wstring& path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file =
      CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return INVALID_FILE_ATTRIBUTES;
  BY_HANDLE_FILE_INFORMATION state{};
  const bool known = GetFileInformationByHandle(file, &state);
  const DWORD code = GetLastError();
  CloseHandle(file);
  SetLastError(code);
  return known ? state.dwFileAttributes : INVALID_FILE_ATTRIBUTES;
}

}  // namespace

PathKind kindOf(const std::string& nativePath) {
  const std::wstring path = widePath(nativePath);
  DWORD attributes = GetFileAttributesW(path.c_str());
  const bool link = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (link) attributes = attributesBehind(path);
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
  }
  if (errorNumberOf(GetLastError()) == ErrorNumber::DeviceIo) raiseLastSystemError();
  return PathKind::Nothing;
}

}  // namespace orvane
