// Writers killed at random moments leave the old file or the new one, and nothing else in the way.
#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

constexpr int kTrials = kSanitized ? 300 : 2'000;
constexpr TextView kValue = u"some value of ordinary length";

// Writers of one file, each with two keys of its own, one before and one behind 300 others.
class Writers {
 public:
  Writers(Text job, int count, bool flushes = false)
      : job_(std::move(job)), flushes_(flushes), acknowledged_(static_cast<std::size_t>(count)) {
    JobFile file(job_);
    file.together([&] {
      for (int writer = 0; writer < count; ++writer) file.write(u"A", keyOf(writer), u"0");
      for (int i = 0; i < 300; ++i) file.write(u"M", u"key" + number(i), kValue);
      for (int writer = 0; writer < count; ++writer) file.write(u"Z", keyOf(writer), u"0");
    });
    for (int writer = 0; writer < count; ++writer)
      processes_.push_back(inChild([&] { return write(writer, 0); }));
  }
  Writers(const Writers&) = delete;
  Writers& operator=(const Writers&) = delete;
  ~Writers() {
    for (const pid_t process : processes_) kill(process);
  }

  // Until a writer has acknowledged more than `from`.
  void waitForMoreThan(int from, int writer) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(10);
    while (acknowledged_[index(writer)] <= from) {
      ASSERT_LT(std::chrono::steady_clock::now(), end) << "writer " << writer << " acknowledges nothing";
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
  }

  // The last number of a writer, once it has been killed.
  int killAndCheck(int writer) {
    EXPECT_TRUE(kill(processes_[index(writer)])) << "writer " << writer << " had ended by itself";
    const int acknowledged = static_cast<int>(acknowledged_[index(writer)]);
    const int last = lastOf(writer);
    EXPECT_GE(last, acknowledged);
    EXPECT_LE(last, acknowledged + 1);
    return last;
  }

  void restart(int writer, int from) {
    acknowledged_[index(writer)] = from;
    processes_[index(writer)] = inChild([&] { return write(writer, from); });
  }

  void killAll() {
    for (int writer = 0; writer < static_cast<int>(processes_.size()); ++writer) killAndCheck(writer);
    processes_.clear();
  }

 private:
  static std::size_t index(int writer) { return static_cast<std::size_t>(writer); }
  static Text keyOf(int writer) { return u"writer" + number(writer); }

  // Two keys of one scope, so that a torn file would show them unequal; acknowledged once written.
  bool write(int writer, int from) const {
    JobFile file(job_);
    file.flushEveryWrite(flushes_);
    for (int i = from + 1; i > from; ++i) {
      file.together([&] {
        file.write(u"A", keyOf(writer), number(i));
        file.write(u"Z", keyOf(writer), number(i));
      });
      acknowledged_[index(writer)] = i;
    }
    return false;
  }

  // False where there was nothing left to kill.
  static bool kill(pid_t process) {
    ::kill(process, SIGKILL);
    const int status = statusOf(process);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

  // One sight of the file, in which the numbers of no writer differ and nothing else is missing.
  int lastOf(int writer) const {
    JobFile file(job_);
    return file.together([&] {
      for (int other = 0; other < static_cast<int>(acknowledged_.size()); ++other) {
        EXPECT_EQ(readText(file, u"A", keyOf(other)), readText(file, u"Z", keyOf(other)));
      }
      EXPECT_EQ(file.read(u"M", u"key299"), kValue);
      return std::stoi(toUtf8(file.read(u"A", keyOf(writer)).value_or(u"-1")));
    });
  }

  Text job_;
  bool flushes_;
  SharedNumbers acknowledged_;
  std::vector<pid_t> processes_;
};

class JobFileKill : public MeetingFolder {
 protected:
  // Some writes long, however long a write takes on this file system.
  void live() {
    std::this_thread::sleep_for(std::uniform_real_distribution(0.1, 1.0)(random_) * longestLife_);
  }

  bool isLocked() const { return !LockFile(folder_ + "/").tryLock(lockNumberOf(u"job.vqs")); }

  // No lock is left, and no temporary after the next write. True where there was one before it.
  bool leavesNothing() const {
    EXPECT_FALSE(isLocked());
    const bool left = names().size() > 1;
    JobFile(published()).write(u"A", u"next", u"1");
    JobFile(published()).write(u"A", u"next", u"2");
    EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
    return left;
  }

  struct Kills {
    int writes = 0;
    int left = 0;  // temporaries
  };

  Kills killTheOnlyWriter(bool flushes) {
    Writers writers(published(), 1, flushes);
    Kills kills;
    for (int trial = 0; trial < trials_ && !HasFailure(); ++trial) {
      if (trial % 2 == 1) writers.waitForMoreThan(kills.writes, 0);
      live();
      kills.writes = writers.killAndCheck(0);
      kills.left += leavesNothing();
      writers.restart(0, kills.writes);
    }
    EXPECT_GE(kills.writes, trials_ / 2);
    return kills;
  }

  const int trials_ = kTrials * soakFactor();

 private:
  using Life = std::chrono::duration<double>;

  Life lifeOfTenWrites() const {
    JobFile file(published());
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 10; ++i) file.write(u"A", u"next", number(i));
    return std::chrono::steady_clock::now() - begin;
  }

  const Life longestLife_ = std::max<Life>(std::chrono::microseconds(2'500), lifeOfTenWrites());

 protected:
  std::mt19937 random_{3};
};

TEST_F(JobFileKill, OfTheOnlyWriterLeavesNothingInTheWay) {
  const auto [writes, left] = killTheOnlyWriter(false);
  EXPECT_GT(left, 0) << "no kill fell between creation and exchange: the trials show nothing";
  std::printf("kill: %d trials with one writer in %d writes, %d left a temporary\n", trials_, writes, left);
}

// Killed at any moment, such a writer leaves the file before the last one too.
TEST_F(JobFileKill, OfAWriterThatFlushesLeavesNothingInTheWay) {
  const int writes = killTheOnlyWriter(true).writes;
  std::printf("kill: %d trials with one writer that flushes in %d writes\n", trials_, writes);
}

TEST_F(JobFileKill, OfOneOfManyLosesNothingOfAnybody) {
  constexpr int kWriters = 8;
  Writers writers(published(), kWriters);
  for (int trial = 0; trial < trials_ && !HasFailure(); ++trial) {
    live();
    const int victim = std::uniform_int_distribution(0, kWriters - 1)(random_);
    writers.restart(victim, writers.killAndCheck(victim));
  }
  writers.killAll();
  leavesNothing();
  std::printf("kill: %d trials with %d writers at once\n", trials_, kWriters);
}

}  // namespace
}  // namespace orvane::test
