#include <windows.h>

#include "core/SystemError.h"

namespace orvane {

namespace {

constexpr DWORD kDiskQuotaExceeded = 1295;  // missing in some SDKs' headers

}  // namespace

ErrorNumber errorNumberOf(unsigned long code) {
  switch (code) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return ErrorNumber::PermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return ErrorNumber::DiskFull;
    case ERROR_IO_DEVICE:
    case ERROR_CRC:
    case ERROR_NOT_READY:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
      return ErrorNumber::DeviceIo;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return ErrorNumber::BadFileName;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ErrorNumber::PathNotFound;
    case ERROR_TOO_MANY_OPEN_FILES:
      return ErrorNumber::TooManyFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
      return ErrorNumber::OutOfMemory;
    default:
      return ErrorNumber::PathFileAccess;
  }
}

void raiseLastSystemError() { raiseSystemError(GetLastError()); }

}  // namespace orvane
