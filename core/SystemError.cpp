#include "core/SystemError.h"

#include <cerrno>

namespace orvane {

ErrorNumber errorNumberOfErrno(int code) {
  switch (code) {
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOLCK:
      return ErrorNumber::PermissionDenied;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
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

ErrorNumber errorNumberOf(const std::error_code& code) {
  const bool ofTheSystem = code.category() == std::system_category();
  return ofTheSystem ? errorNumberOf(static_cast<unsigned long>(code.value()))
                     : errorNumberOfErrno(code.value());
}

void raiseSystemError(unsigned long code) { throw Error(errorNumberOf(code)); }

}  // namespace orvane
