#include <cerrno>

#include "core/SystemError.h"

namespace orvane {

ErrorNumber errorNumberOf(unsigned long code) { return errorNumberOfErrno(static_cast<int>(code)); }

void raiseLastSystemError() { raiseSystemError(static_cast<unsigned long>(errno)); }

}  // namespace orvane
