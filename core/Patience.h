// Waiting with a limit for something that another process holds for a short time.
#pragma once

#include <chrono>
#include <thread>

namespace orvane {

/// Gives up the processor a few times, then sleeps in growing steps of at most a millisecond.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Patience(std::chrono::milliseconds limit) : limit_(limit) {}

  /// Waits a little; false, without waiting, once the limit is over.
  bool wait() {
    if (pauses_++ == 0) begin_ = Clock::now();
    if (pauses_ <= kYields) return std::this_thread::yield(), true;
    if (waited() >= limit_) return false;
    std::this_thread::sleep_for(step_);
    step_ = step_ * 3 / 2 < kLongestStep ? step_ * 3 / 2 : kLongestStep;
    return true;
  }

  /// How long it has been since the first wait.
  Clock::duration waited() const { return pauses_ == 0 ? Clock::duration::zero() : Clock::now() - begin_; }

 private:
  static constexpr int kYields = 8;
  static constexpr std::chrono::microseconds kShortestStep{20};
  static constexpr std::chrono::microseconds kLongestStep{1000};

  std::chrono::milliseconds limit_;
  Clock::time_point begin_{};
  std::chrono::microseconds step_ = kShortestStep;
  int pauses_ = 0;
};

}  // namespace orvane
