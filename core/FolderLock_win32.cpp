#include <windows.h>

#include "core/FolderLock.h"
#include "core/Paths_win32.h"
#include "core/SystemError.h"

namespace orvane {

namespace {

HANDLE asHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

OVERLAPPED at(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

bool lockRange(HANDLE file, DWORD kind, std::uint64_t offset, std::uint64_t length) {
  OVERLAPPED place = at(offset);
  if (LockFileEx(file, kind | LOCKFILE_FAIL_IMMEDIATELY, 0, static_cast<DWORD>(length), 0, &place))
    return true;
  const DWORD code = GetLastError();
  if (code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING) return false;
  raiseSystemError(code);
}

}  // namespace

LockFile::LockFile(const std::string& folder) : path_(folder + ".orvane.lock") {}

void LockFile::open() {
  if (handle_ != kClosed) return;
  const HANDLE file = CreateFileW(widePath(path_).c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
  if (file == INVALID_HANDLE_VALUE) raiseLastSystemError();
  handle_ = reinterpret_cast<std::intptr_t>(file);
}

void LockFile::close() noexcept {
  if (handle_ != kClosed) CloseHandle(asHandle(handle_));
  handle_ = kClosed;
}

bool LockFile::take(std::uint64_t offset, std::uint64_t length) {
  return lockRange(asHandle(handle_), LOCKFILE_EXCLUSIVE_LOCK, offset, length);
}

bool LockFile::give(std::uint64_t offset, std::uint64_t length) noexcept {
  OVERLAPPED place = at(offset);
  return UnlockFileEx(asHandle(handle_), 0, static_cast<DWORD>(length), 0, &place) != 0;
}

// There is no way to ask but to try. A shared lock disturbs nobody else who asks.
bool LockFile::isFree(std::uint64_t offset, std::uint64_t length) {
  if (length == 0) return true;
  return lockRange(asHandle(handle_), 0, offset, length) && give(offset, length);
}

bool LockFile::isPresent() const {
  FILE_STANDARD_INFO state{};
  if (!GetFileInformationByHandleEx(asHandle(handle_), FileStandardInfo, &state, sizeof state))
    raiseLastSystemError();
  return state.NumberOfLinks > 0 && !state.DeletePending;
}

}  // namespace orvane
