// How long the tests run that can run for long.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace orvane::test {

/// ORVANE_SOAK_FACTOR, 1 where it is not set: by how much longer than in the everyday check to run.
inline int soakFactor() {
  const char* const text = std::getenv("ORVANE_SOAK_FACTOR");
  return text ? std::max(1, std::atoi(text)) : 1;
}

}  // namespace orvane::test
