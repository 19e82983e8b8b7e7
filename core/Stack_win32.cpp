#include <windows.h>

#include "core/Stack.h"

namespace orvane {

// A stack is one allocation, from its lowest address on.
StackSpace stackSpace() {
  const auto* const block = static_cast<const NT_TIB*>(static_cast<const void*>(NtCurrentTeb()));
  MEMORY_BASIC_INFORMATION memory{};
  const char* const here = reinterpret_cast<const char*>(&memory);
  if (VirtualQuery(&memory, &memory, sizeof memory) == 0) return {};
  const auto* const lowest = static_cast<const char*>(memory.AllocationBase);
  const auto* const highest = static_cast<const char*>(block->StackBase);
  return {static_cast<std::size_t>(highest - lowest), static_cast<std::size_t>(here - lowest)};
}

}  // namespace orvane
