#include "cli/Progress.h"

#include <algorithm>
#include <string>

namespace orvane::cli {

namespace {

constexpr std::chrono::milliseconds kBetween{100};
constexpr std::size_t kLongestBar = 40;

}  // namespace

Progress::Progress(std::ostream& terminal, std::size_t width, std::function<std::size_t()> count,
                   Clock::duration patience)
    : terminal_(terminal), width_(width), count_(std::move(count)), next_(Clock::now() + patience) {}

Progress::~Progress() {
  if (total_ > 0) terminal_ << "\r\x1B[K" << std::flush;
}

void Progress::step() {
  ++done_;
  if (width_ > 0 && Clock::now() >= next_) draw();
}

// The bar leaves the last column free, where some terminals begin a new line.
void Progress::draw() {
  if (total_ == 0) total_ = count_();
  total_ = std::max(total_, done_);
  const std::string told = ' ' + std::to_string(done_) + " of " + std::to_string(total_);
  std::string line;
  if (width_ > told.size() + 3) {
    const std::size_t bar = std::min(kLongestBar, width_ - told.size() - 3);
    const std::size_t full = bar * done_ / total_;
    line = '[' + std::string(full, '#') + std::string(bar - full, '.') + ']';
  }
  terminal_ << '\r' << (line + told).substr(0, width_ - 1) << "\x1B[K" << std::flush;
  next_ = Clock::now() + kBetween;
}

}  // namespace orvane::cli
