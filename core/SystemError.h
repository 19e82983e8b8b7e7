// The operating system's failures as run-time errors.
#pragma once

#include <system_error>

#include "core/Error.h"

namespace orvane {

/// The run-time number of the operating system's error code `code` (errno, GetLastError): 7 no memory, 52 bad
/// name, 57 device, 61 full, 67 too many files, 70 refused, 76 folder missing, 75 anything else.
ErrorNumber errorNumberOf(unsigned long code);

/// The same of POSIX codes, and of the standard library's, which are of either kind.
ErrorNumber errorNumberOfErrno(int code);
ErrorNumber errorNumberOf(const std::error_code& code);

/// Raises the run-time error of `code`.
[[noreturn]] void raiseSystemError(unsigned long code);

/// Raises the run-time error of the system call that has just failed.
[[noreturn]] void raiseLastSystemError();

}  // namespace orvane
