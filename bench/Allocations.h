// Counts every allocation of the program that it is built into.
#pragma once

#include <cstddef>

namespace orvane::bench {

struct Allocations {
  std::size_t count = 0;
  std::size_t bytes = 0;
};

/// Since the program began.
Allocations allocationsSoFar();

}  // namespace orvane::bench
