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

// A range can be given back only as it was taken, so the bytes are taken one by one.
bool LockFile::takeBoth(std::uint32_t) { return false; }

bool LockFile::take(std::uint32_t number, Byte byte) {
  OVERLAPPED place = at(offsetOf(number, byte));
  if (LockFileEx(asHandle(handle_), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
    return true;
  const DWORD code = GetLastError();
  if (code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING) return false;
  raiseSystemError(code);
}

bool LockFile::give(std::uint32_t number, Byte byte) noexcept {
  OVERLAPPED place = at(offsetOf(number, byte));
  return UnlockFileEx(asHandle(handle_), 0, 1, 0, &place) != 0;
}

bool LockFile::isPresent() const {
  FILE_STANDARD_INFO state{};
  if (!GetFileInformationByHandleEx(asHandle(handle_), FileStandardInfo, &state, sizeof state)) return false;
  return state.NumberOfLinks > 0 && !state.DeletePending;
}

}  // namespace orvane
