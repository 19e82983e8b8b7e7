#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace orvane::test {

/// The temporary beside a job file of that lock number, as docs/job-file.md names it.
inline std::string temporaryName(std::uint32_t lockNumber) {
  char name[32];
  std::snprintf(name, sizeof name, ".orvane-%08x.tmp", static_cast<unsigned>(lockNumber));
  return name;
}

}  // namespace orvane::test
