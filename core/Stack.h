// How much of a thread's stack is left.
#pragma once

#include <algorithm>
#include <cstddef>

#include "core/Error.h"

namespace orvane {

/// In bytes.
struct StackSpace {
  std::size_t size;
  std::size_t left;
};

/// Of the calling thread. On a stack that the system does not know as its own, as that of a coroutine, all is
/// taken to be left.
StackSpace stackSpace();

/// For what calls itself as deep as files or clients say: error 28 where less than 128 KB is left, on small
/// stacks less than a quarter.
inline void checkStack() {
  constexpr std::size_t kReserve = 128 * 1024;
  const StackSpace space = stackSpace();
  if (space.left < std::min(kReserve, space.size / 4)) throw Error(ErrorNumber::OutOfStackSpace);
}

}  // namespace orvane
