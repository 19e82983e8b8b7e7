// What the benchmarks share: folders on a disk and in memory, a fax with everything in it, and clocks.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orvane.h"

namespace orvane::bench {

/// Where files are measured: beside the program (or in the folder that ORVANE_BENCH_DISK names) and in
/// /dev/shm.
enum class Place { Disk, Memory };
inline constexpr Place kPlaces[] = {Place::Disk, Place::Memory};

/// "ext4", "tmpfs": the file system there.
std::string fileSystemOf(Place place);

/// An empty folder of its own, deleted in the end.
class Folder {
 public:
  explicit Folder(Place place);
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder();

  std::string path(const std::string& name) const { return path_ + "/" + name; }

  /// The folder as clients name it.
  Text published() const;

 private:
  std::string path_;
};

/// A fax bound to `id`.vqf in the folder, with every member that can be set set, every queue date stamped and
/// `attachments` files attached and saved.
std::shared_ptr<VqDocFax> fullFax(const VqDocumenti& factory, const Text& folder, const Text& id,
                                  int attachments = 3);

/// Section and key.
using Key = std::pair<std::string, std::string>;

/// What an independent reader finds in a profile file, in UTF-8.
std::map<Key, std::string> contentOf(const std::string& path);

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

/// The same keys as the job file at `from`, in the form that peers read: UTF-8 without mark.
void writeForPeers(const std::string& from, const std::string& to);

/// Ends the program: a benchmark that compares different results is worth nothing.
void require(bool holds, const std::string& what);

/// Times operations one by one. Its result, the counter "median" in seconds, is that of the undisturbed
/// operation even where the machine is shared, since most operations are over before another process gets its
/// turn. Where each operation was paired with another, the counter "paired" is that one's median.
class Watch {
 public:
  explicit Watch(benchmark::State& state) : state_(state) {}
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch();

  template <class Work>
  void time(Work&& work) {
    taken_.push_back(secondsOf(work));
    state_.SetIterationTime(taken_.back());
  }

  /// Times `other` just before, so that what disturbs a disk for seconds disturbs both.
  template <class Other, class Work>
  void timePair(Other&& other, Work&& work) {
    paired_.push_back(secondsOf(other));
    time(work);
  }

 private:
  template <class Work>
  static double secondsOf(Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }

  benchmark::State& state_;
  std::vector<double> taken_, paired_;
};

/// Registers "<topic>/<what>"; `work(state)` is one run.
template <class Work>
benchmark::internal::Benchmark* add(const std::string& name, Work work) {
  return benchmark::RegisterBenchmark(name.c_str(), work)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

/// Registers an operation that is timed one by one.
template <class Operation>
benchmark::internal::Benchmark* addTimed(const std::string& name, Operation operation) {
  return add(name, [operation](benchmark::State& state) mutable {
    Watch watch(state);
    for (auto _ : state) watch.time(operation);
  });
}

/// Prints machine, file systems, versions and build kind, then runs what is registered.
int run(int argc, char** argv);

}  // namespace orvane::bench
