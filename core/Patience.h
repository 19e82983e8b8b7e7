// Waiting with a limit for something that another process holds for a short time.
#pragma once

#include <chrono>
#include <thread>

namespace orvane {

/// Gives up the processor a few times, then sleeps in growing steps of at most a millisecond.
class Patience {
 public:
  explicit Patience(std::chrono::milliseconds limit) : limit_(limit) {}

  /// Waits a little; false, without waiting, once the limit is over.
  bool wait() {
    if (pauses_++ == 0) end_ = Clock::now() + limit_;
    if (pauses_ <= kYields) return std::this_thread::yield(), true;
    if (Clock::now() >= end_) return false;
    std::this_thread::sleep_for(step_);
    step_ = step_ * 3 / 2 < kLongestStep ? step_ * 3 / 2 : kLongestStep;
    return true;
  }

  /// Waits in short steps again; the limit stays.
  void quicken() { step_ = kShortestStep; }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr int kYields = 8;
  static constexpr std::chrono::microseconds kShortestStep{20};
  static constexpr std::chrono::microseconds kLongestStep{1000};

  std::chrono::milliseconds limit_;
  Clock::time_point end_{};
  std::chrono::microseconds step_ = kShortestStep;
  int pauses_ = 0;
};

}  // namespace orvane
