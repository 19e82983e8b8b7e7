// One job file, and system calls of its writer that fail or are preceded by what another process does.
#pragma once

#include <sys/stat.h>

#include <fstream>

#include "tests/faults/InMemory.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/JobTest.h"

namespace orvane::test {

class Store : public testing::Test {
 protected:
  Store() { JobFile(name_).write(u"A", u"k", u"1"); }

  std::string path(const char* name = "job.vqs") const { return folder_.native().string() + "/" + name; }
  std::string lockFolder() const { return folder_.native().string() + "/"; }

  Text valueNow() const { return readJobFile(name_).value(u"A", u"k"); }

  // In place and of the same size, as a server does that knows nothing of the protocol.
  void writeInPlace(char value) const {
    std::fstream stream(path(), std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(16);
    stream.put(value);
  }

  static mode_t modeOf(const std::string& path) {
    struct stat state {};
    ::stat(path.c_str(), &state);
    return state.st_mode & 0777;
  }
  mode_t mode() const { return modeOf(path()); }

  static int errorWith(const Fault& fault, const std::function<void()>& work) {
    const SystemCalls calls(fault);
    return errorOf(work);
  }

  InMemory inMemory_;
  TemporaryFolder folder_;
  const Text name_ = folder_.file(u"job.vqs");
  const std::uint32_t number_ = lockNumberOf(u"job.vqs");
};

}  // namespace orvane::test
