#include <windows.h>

#include "core/Stack.h"

namespace orvane {

// A stack is one allocation. From the page in use up to its highest address all of it is in use alike.
StackSpace stackSpace() {
  MEMORY_BASIC_INFORMATION memory{};
  if (VirtualQuery(&memory, &memory, sizeof memory) == 0) return {};
  const auto* const here = reinterpret_cast<const char*>(&memory);
  const auto* const lowest = static_cast<const char*>(memory.AllocationBase);
  const auto* const highest = static_cast<const char*>(memory.BaseAddress) + memory.RegionSize;
  return {static_cast<std::size_t>(highest - lowest), static_cast<std::size_t>(here - lowest)};
}

}  // namespace orvane
