// A clock that stands still until a test moves it.
#pragma once

#include "core/Apartment.h"

namespace orvane::test {

/// This thread's present time while the object lives.
class FixedClock {
 public:
  explicit FixedClock(Date time) : hands_(std::make_shared<Hands>(time)) { Apartment::useClock(hands_); }
  ~FixedClock() { Apartment::useClock(nullptr); }
  FixedClock(const FixedClock&) = delete;
  FixedClock& operator=(const FixedClock&) = delete;

  void set(Date time) { hands_->time = time; }

 private:
  struct Hands : Clock {
    explicit Hands(Date start) : time(start) {}
    Date now() const override { return time; }
    Date time;
  };
  std::shared_ptr<Hands> hands_;
};

}  // namespace orvane::test
