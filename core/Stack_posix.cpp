#include <pthread.h>

#include "core/Stack.h"

namespace orvane {

namespace {

struct Bounds {
  char* lowest = nullptr;
  std::size_t size = 0;
};

// For the first thread the system reads a file to tell them.
Bounds boundsOfThread() {
  Bounds bounds;
  pthread_attr_t attributes;
  if (::pthread_getattr_np(::pthread_self(), &attributes) != 0) return bounds;
  void* lowest = nullptr;
  if (::pthread_attr_getstack(&attributes, &lowest, &bounds.size) == 0)
    bounds.lowest = static_cast<char*>(lowest);
  ::pthread_attr_destroy(&attributes);
  return bounds;
}

}  // namespace

StackSpace stackSpace() {
  static thread_local const Bounds bounds = boundsOfThread();
  const auto* const here = static_cast<const char*>(__builtin_frame_address(0));
  const bool own = here >= bounds.lowest && here < bounds.lowest + bounds.size;
  return {bounds.size, own ? static_cast<std::size_t>(here - bounds.lowest) : bounds.size};
}

}  // namespace orvane
