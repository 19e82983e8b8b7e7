#include <time.h>

#include "core/FileSystem.h"
#include "core/OfThread.h"

namespace orvane {

namespace {

class SystemClock : public Clock {
 public:
  Date now() const override {
    const time_t seconds = time(nullptr);
    tm local{};
    localtime_r(&seconds, &local);
    return dateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                  local.tm_sec);
  }
};

}  // namespace

std::shared_ptr<Clock> systemClock() { return ofProcess<SystemClock>(); }

}  // namespace orvane
