// The operating system's failures as run-time errors.
#pragma once

#include "core/Error.h"

namespace orvane {

/// The run-time number of the operating system's error code `code` (errno, GetLastError): 7 no memory, 52 bad
/// name, 57 device, 61 full, 67 too many files, 70 refused, 76 folder missing, 75 anything else.
ErrorNumber errorNumberOf(unsigned long code);

/// Raises the run-time error of `code`.
[[noreturn]] void raiseSystemError(unsigned long code);

/// Raises the run-time error of the system call that has just failed.
[[noreturn]] void raiseLastSystemError();

}  // namespace orvane
