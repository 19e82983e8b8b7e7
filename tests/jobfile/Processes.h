// Child processes of a test.
#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <new>
#include <vector>

// There where code is compiled with clang's counters, which otherwise are written at a program's end only.
extern "C" __attribute__((weak)) int __llvm_profile_write_file();

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
  if (__llvm_profile_write_file) __llvm_profile_write_file();
  ::_exit(good ? 0 : 1);
}

/// The status of a child as waitpid gives it; 0 where it ended well.
inline int statusOf(pid_t child) {
  int status = -1;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

/// Numbers that this process and the children that it has later see alike; 0 at first.
class SharedNumbers {
 public:
  using Number = std::atomic<std::int64_t>;

  explicit SharedNumbers(std::size_t count) : bytes_(count * sizeof(Number)) {
    void* const memory = ::mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    numbers_ = static_cast<Number*>(memory);
  }
  SharedNumbers(const SharedNumbers&) = delete;
  SharedNumbers& operator=(const SharedNumbers&) = delete;
  ~SharedNumbers() { ::munmap(numbers_, bytes_); }

  Number& operator[](std::size_t index) const { return numbers_[index]; }
  std::size_t size() const { return bytes_ / sizeof(Number); }

 private:
  std::size_t bytes_;
  Number* numbers_;
};

}  // namespace orvane::test
