// A scope under a lock of the system, which needs no construction and no destruction.
#pragma once

#include <windows.h>

namespace orvane::com {

class Lock {
 public:
  explicit Lock(SRWLOCK& lock) noexcept : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  ~Lock() { ReleaseSRWLockExclusive(&lock_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  SRWLOCK& lock_;
};

}  // namespace orvane::com
