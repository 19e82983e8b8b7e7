// Temporary folders in memory, where the machine has such a folder: thousands of flushes cost nothing there.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace orvane::test {

/// Temporary folders made while it lives are in memory.
class InMemory {
 public:
  InMemory() {
    if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  ~InMemory() { ::unsetenv("TMPDIR"); }
  InMemory(const InMemory&) = delete;
  InMemory& operator=(const InMemory&) = delete;
};

}  // namespace orvane::test
