// Child processes of a test.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <vector>

namespace orvane::test {

/// True in a build with sanitizers, where a fork costs many times as much.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

/// Runs `work` in a child; its exit code is 0 where `work` gives true. The child runs no other test code.
template <class Work>
pid_t inChild(Work&& work) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  bool good = false;
  try {
    good = work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "child: %s\n", error.what());
  }
  ::_exit(good ? 0 : 1);
}

/// The status of a child as waitpid gives it; 0 where it ended well.
inline int statusOf(pid_t child) {
  int status = -1;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace orvane::test
