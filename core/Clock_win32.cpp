#include <windows.h>

#include "core/FileSystem.h"
#include "core/OfThread.h"

namespace orvane {

namespace {

class SystemClock : public Clock {
 public:
  Date now() const override {
    SYSTEMTIME local;
    GetLocalTime(&local);
    return dateOf(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond);
  }
};

}  // namespace

std::shared_ptr<Clock> systemClock() { return ofProcess<SystemClock>(); }

}  // namespace orvane
