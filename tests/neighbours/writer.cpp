// A neighbour that writes: writer FILE KEY COUNT [flushed] counts up under its own key, if asked to with a
// flush of every write, and sees its own last value at every step. Its last line are the waits of its writes
// in microseconds: count, 50 %, 99 %, the longest.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "core/Error.h"
#include "core/JobFile.h"

namespace {

using namespace orvane;
using Clock = std::chrono::steady_clock;

Text number(int value) { return fromUtf8(std::to_string(value)); }

long write(JobFile& file, TextView key, int value) {
  const auto begin = Clock::now();
  file.write(u"Coda", key, number(value));
  return static_cast<long>(
      std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count());
}

void print(std::vector<long> waits) {
  std::sort(waits.begin(), waits.end());
  std::printf("%zu %ld %ld %ld\n", waits.size(), waits[waits.size() / 2], waits[waits.size() * 99 / 100],
              waits.back());
}

bool countUp(TextView path, TextView key, int count, bool flushed) {
  JobFile file{Text(path)};
  file.flushEveryWrite(flushed);
  std::vector<long> waits;
  for (int i = 1; i <= count; ++i) {
    waits.push_back(write(file, key, i));
    const auto seen = file.read(u"Coda", key);
    if (seen == TextView(number(i))) continue;
    std::fprintf(stderr, "writer: %d was lost\n", i);
    return false;
  }
  print(std::move(waits));
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const bool flushed = argc == 5 && std::string_view(argv[4]) == "flushed";
  if (argc != 4 && !flushed) return 2;
  try {
    return countUp(fromUtf8(argv[1]), fromUtf8(argv[2]), std::atoi(argv[3]), flushed) ? 0 : 1;
  } catch (const Error& error) {
    std::fprintf(stderr, "writer: error %d, %s\n", error.number(), error.what());
    return 1;
  }
}
