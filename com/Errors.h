// How failures leave the DLL: as result codes, with error information where there is more to say. No
// exception ever does.
#pragma once

#include "com/Windows.h"

namespace orvane::com {

/// A failure that a result code says all about. It is thrown inside the DLL only.
struct Failure {
  HRESULT result;
};

/// 0x800A0000 + `number`, the result code of a run-time error.
HRESULT resultOf(int number) noexcept;

/// For catch (...) blocks: the result code of what was caught. E_OUTOFMEMORY for lack of memory, E_UNEXPECTED
/// for what nobody foresaw.
HRESULT currentFailure() noexcept;

/// The same, and the thread's error information for callers of `interfaceId`: number, source and text of a
/// run-time error, none for others.
HRESULT reportCurrent(REFIID interfaceId) noexcept;

/// The same for callers of Invoke: DISP_E_EXCEPTION and `info` (which may be null) for a run-time error and
/// for E_OUTOFMEMORY and E_UNEXPECTED, else the result code itself.
HRESULT describeCurrent(EXCEPINFO* info) noexcept;

}  // namespace orvane::com
