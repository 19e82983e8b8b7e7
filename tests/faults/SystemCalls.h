// The test program's own system calls: counted, failed on demand, and recorded for what a power cut leaves.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvane::test {

/// What is to happen to call number `at`, from 0, of those called `name`, or of all: it fails with `code`,
/// or, where that is 0, a read or write of it is cut to one byte. With `onward` the calls after it fail too;
/// an interruption (EINTR) then comes fifty times in a row, since no signal comes for ever. With `meanwhile`
/// nothing fails, and that is what another process does just before the call.
struct Fault {
  int at = -1;
  int code = 0;
  bool onward = false;
  const char* name = nullptr;
  std::function<void()> meanwhile = {};
};

/// The code of a read or write that does nothing and tells of no error.
inline constexpr int kNothingDone = -1;

/// One change of the file system, in the order of the calls.
struct DiskEvent {
  enum Kind { Create, Write, Truncate, Rename, Exchange, Unlink, SyncFile, SyncFolder } kind;
  std::uint64_t inode = 0;
  std::string path, target, data;
  std::size_t at = 0;  ///< where `data` is written; the new size of what is truncated
};

/// A range of bytes that was locked or given back.
struct LockEvent {
  short type;
  off_t at, length;
};

/// Stands between this thread and the operating system while it lives. Time spent asleep is skipped: the
/// monotonic clock runs on as if it had passed.
class SystemCalls {
 public:
  explicit SystemCalls(Fault fault = {});
  ~SystemCalls();
  SystemCalls(const SystemCalls&) = delete;
  SystemCalls& operator=(const SystemCalls&) = delete;

  int count() const;                ///< calls so far, of the fault's name
  const char* firstFailed() const;  ///< name of the call that failed first; empty where none did
  const std::vector<DiskEvent>& events() const;
  const std::vector<LockEvent>& locks() const;
};

}  // namespace orvane::test
