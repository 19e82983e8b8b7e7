// Times printed one a line, "what, a tab, nanoseconds", for the clients under Windows.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace orvane::bench {

template <class Body>
double nanosecondsOf(Body body) {
  const auto begin = std::chrono::steady_clock::now();
  body();
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
}

inline void print(const char* what, double nanoseconds) { std::printf("%s\t%.1f\n", what, nanoseconds); }

/// The best of five rounds: for calls so short that they are timed by the many.
template <class Body>
void measureBest(const char* what, int times, Body body) {
  double best = 1e300;
  for (int round = 0; round < 5; ++round) {
    best = std::min(best, nanosecondsOf([&] {
                            for (int i = 0; i < times; ++i) body();
                          }) / times);
  }
  print(what, best);
}

/// Operations on files, timed one by one and in turn with the others, so that each meets the same machine;
/// the median counts.
class Alternating {
 public:
  template <class Body>
  void add(const char* what, Body body) {
    operations_.push_back({what, std::move(body), {}});
  }

  void run(int times) {
    for (int i = 0; i < times; ++i) {
      for (Operation& operation : operations_) operation.taken.push_back(nanosecondsOf(operation.body));
    }
    for (Operation& operation : operations_) print(operation.what, medianOf(operation.taken));
  }

 private:
  struct Operation {
    const char* what;
    std::function<void()> body;
    std::vector<double> taken;
  };

  static double medianOf(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
  }

  std::vector<Operation> operations_;
};

}  // namespace orvane::bench
