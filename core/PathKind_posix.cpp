#include "core/PathKind.h"

#include <sys/stat.h>

#include <cerrno>

#include "core/Retry_posix.h"
#include "core/SystemError.h"

namespace orvane {

PathKind kindOf(const std::string& nativePath) {
  struct stat state {};
  if (retryInterrupted([&] { return ::stat(nativePath.c_str(), &state); }) == 0) {
    return S_ISDIR(state.st_mode) ? PathKind::Folder : PathKind::File;
  }
  if (errorNumberOf(static_cast<unsigned long>(errno)) == ErrorNumber::DeviceIo) raiseLastSystemError();
  return PathKind::Nothing;
}

}  // namespace orvane
