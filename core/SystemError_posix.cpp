#include <cerrno>

#include "core/SystemError.h"

namespace orvane {

ErrorNumber errorNumberOf(unsigned long code) {
  switch (static_cast<int>(code)) {
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOLCK:
      return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorNumber::DiskFull;
    case EIO:
    case ENXIO:
    case ENODEV:
      return ErrorNumber::DeviceIo;
    case ENAMETOOLONG:
    case EILSEQ:
      return ErrorNumber::BadFileName;
    case ENOENT:
    case ENOTDIR:
      return ErrorNumber::PathNotFound;
    case EMFILE:
    case ENFILE:
      return ErrorNumber::TooManyFiles;
    case ENOMEM:
      return ErrorNumber::OutOfMemory;
    default:
      return ErrorNumber::PathFileAccess;
  }
}

void raiseSystemError(unsigned long code) { throw Error(errorNumberOf(code)); }

void raiseLastSystemError() { raiseSystemError(static_cast<unsigned long>(errno)); }

}  // namespace orvane
