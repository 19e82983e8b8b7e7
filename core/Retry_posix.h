// System calls that a signal may interrupt.
#pragma once

#include <cerrno>

namespace orvane {

/// The result of `call`, repeated while a signal interrupts it.
template <class Call>
auto retryInterrupted(Call&& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace orvane
