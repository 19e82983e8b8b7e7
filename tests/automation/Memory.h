// The memory that the server asks for: refused when a test says so, counted, and guarded against misuse.
#pragma once

#include <windows.h>

#include <string>

namespace client {

/// Which requests for memory are refused: the one of number `at`, counted from 0, and with `full` those after
/// it too, unless they can have what the server has given back since.
struct Refusal {
  long at = -1;  ///< none
  bool full = false;
};

/// What the server's module asks of the C library (malloc and its like, so `new` too) and of automation
/// (texts, arrays, copies of values, error information). One a process, from when it is made to the end.
class Memory {
 public:
  /// Watches `module`, which must be loaded already.
  static void watch(HMODULE module);

  /// From now on; the count of requests begins anew.
  static void refuse(Refusal refusal);
  static long requests();

  /// Blocks of the C library that the server holds.
  static long blocks();

  /// What the server did to memory that it must not do: writing behind the end of a block, giving one back
  /// twice, writing to one given back. Empty where nothing was found.
  static std::string damage();
};

}  // namespace client
