#include "com/Reserve.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace orvane::com {

namespace {

constexpr std::size_t kSize = 64 * 1024;

constinit std::atomic<void*> reserve = nullptr;

void giveBack() noexcept { std::free(reserve.exchange(nullptr)); }

[[noreturn]] void refuse() {
  giveBack();
  throw std::bad_alloc();
}

// The DLL has a run time of its own, so this is no business of its clients.
struct Installed {
  Installed() noexcept {
    Reserve::refill();
    std::set_new_handler(refuse);
  }
  ~Installed() { giveBack(); }
} const installed;

}  // namespace

void Reserve::refill() noexcept {
  if (reserve) return;
  void* nothing = nullptr;
  void* const fresh = std::malloc(kSize);
  if (!reserve.compare_exchange_strong(nothing, fresh)) std::free(fresh);
}

}  // namespace orvane::com
