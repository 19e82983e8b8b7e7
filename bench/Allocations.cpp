#include "bench/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

orvane::bench::Allocations soFar;

}  // namespace

orvane::bench::Allocations orvane::bench::allocationsSoFar() { return soFar; }

void* operator new(std::size_t size) {
  ++soFar.count;
  soFar.bytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
