// A bar for work that takes long.
#pragma once

#include <chrono>
#include <functional>
#include <ostream>

namespace orvane::cli {

/// Shows on a terminal how many of all have been done: not before `patience` is over, and nothing where there
/// is no terminal. At the end it wipes itself out.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  /// `count` tells how many there are; it is asked once, when the bar appears.
  Progress(std::ostream& terminal, std::size_t width, std::function<std::size_t()> count,
           Clock::duration patience = std::chrono::milliseconds(500));
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// One more is done.
  void step();

 private:
  void draw();

  std::ostream& terminal_;
  std::size_t width_;
  std::function<std::size_t()> count_;
  Clock::time_point next_;  // when to draw again
  std::size_t done_ = 0;
  std::size_t total_ = 0;  // 0 before it has been asked for
};

}  // namespace orvane::cli
