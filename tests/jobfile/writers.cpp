// Many writers of one file lose no update, and readers never see it torn.
#include <fcntl.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"
#include "tests/support/Rows.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

constexpr int kUpdates = kSanitized ? 4'000 : 20'000;

struct Crew {
  const char* name;
  int writers;
  bool threads;
  bool flushes = false;  ///< two of three flush every write
  friend std::ostream& operator<<(std::ostream& out, const Crew& crew) { return out << crew.name; }
};

constexpr Crew kCrews[] = {{"Processes2", 2, false},      {"Processes8", 8, false},
                           {"Processes32", 32, false},    {"Threads2", 2, true},
                           {"Threads8", 8, true},         {"Threads32", 32, true},
                           {"Flushing2", 2, false, true}, {"Flushing8", 8, true, true}};

class JobFileWriters : public MeetingFolder, public testing::WithParamInterface<Crew> {
 protected:
  // One writer counts up under its own key and sees its own last value at every step. How long each write
  // took, in nanoseconds, goes to `waits`.
  bool countUp(int writer, int updates, const SharedNumbers& waits) const {
    using Clock = std::chrono::steady_clock;
    JobFile file(published(writer));
    file.flushEveryWrite(GetParam().flushes && writer % 3 < 2);
    const Text key = u"writer" + number(writer);
    for (int i = 1; i <= updates; ++i) {
      const auto begin = Clock::now();
      file.write(u"Coda", key, number(i));
      waits[static_cast<std::size_t>(writer * updates + i - 1)] =
          std::chrono::nanoseconds(Clock::now() - begin).count();
      if (file.read(u"Coda", key) != TextView(number(i))) return false;
    }
    return true;
  }

  // Every sight of the file holds the fixed text, and no key ever goes back.
  bool watch(int writers, int stop) const {
    std::vector<int> last(static_cast<std::size_t>(writers));
    for (char end; ::read(stop, &end, 1) < 0;) {
      JobFile file(published(writers));
      bool good = true;
      file.together([&] {
        good = file.read(u"Stampa", u"Fisso") == TextView(u"un testo che non cambia");
        for (int w = 0; good && w < writers; ++w) {
          const auto seen = file.read(u"Coda", u"writer" + number(w));
          const int value = seen ? std::stoi(toUtf8(*seen)) : 0;
          good = value >= last[static_cast<std::size_t>(w)];
          last[static_cast<std::size_t>(w)] = value;
        }
      });
      if (!good) return false;
    }
    return true;
  }

  // True where all writers came to their end.
  template <class Work>
  static bool runAll(const Crew& crew, int stop, Work&& work) {
    std::atomic<int> good = 0;
    std::vector<std::thread> threads;
    std::vector<pid_t> children;
    for (int w = 0; w < crew.writers; ++w) {
      if (crew.threads) {
        threads.emplace_back([&, w] {
          bool ended = false;
          good += errorOf([&] { ended = work(w); }) == 0 && ended;
        });
      } else {
        children.push_back(inChild([&] { return ::close(stop), work(w); }));
      }
    }
    for (std::thread& thread : threads) thread.join();
    for (const pid_t child : children) good += statusOf(child) == 0;
    return good == crew.writers;
  }

  static void tell(const Crew& crew, const SharedNumbers& waits) {
    std::vector<double> sorted(waits.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) sorted[i] = static_cast<double>(waits[i]) / 1e6;
    std::sort(sorted.begin(), sorted.end());
    std::printf(
        "writers: %zu updates by %d %s, none lost; a write: p50 %.3f ms, p99 %.2f ms, worst %.0f ms\n",
        sorted.size(), crew.writers, crew.threads ? "threads" : "processes", sorted[sorted.size() / 2],
        sorted[sorted.size() * 99 / 100], sorted.back());
  }
};

TEST_P(JobFileWriters, LoseNoUpdateAndShowNoTornFile) {
  const Crew& crew = GetParam();
  const int each = kUpdates * soakFactor() / crew.writers;
  const SharedNumbers waits(static_cast<std::size_t>(each * crew.writers));
  JobFile(published()).write(u"Stampa", u"Fisso", u"un testo che non cambia");
  int stop[2];
  ASSERT_EQ(::pipe2(stop, O_NONBLOCK | O_CLOEXEC), 0);
  const pid_t reader = inChild([&] { return ::close(stop[1]), watch(crew.writers, stop[0]); });
  EXPECT_TRUE(runAll(crew, stop[1], [&](int writer) { return countUp(writer, each, waits); }));
  ::close(stop[1]);
  EXPECT_EQ(statusOf(reader), 0);
  ::close(stop[0]);
  JobFile file(published());
  for (int w = 0; w < crew.writers; ++w) {
    EXPECT_EQ(readText(file, u"Coda", u"writer" + number(w)), number(each));
  }
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
  if (!HasFailure()) tell(crew, waits);
}

INSTANTIATE_TEST_SUITE_P(Of, JobFileWriters, testing::ValuesIn(kCrews), rowName);

using JobFileServer = MeetingFolder;

// A client that changes its keys while a server reports in others, each in scopes of several keys.
TEST_F(JobFileServer, AndClientKeepEachOthersKeys) {
  constexpr int kRounds = 500;
  const auto report = [&](TextView section) {
    JobFile file(published());
    for (int i = 1; i <= kRounds; ++i) {
      file.together([&] {
        file.write(section, u"Codice", number(i));
        file.write(section, u"Ripetuto", number(i));
      });
    }
    return true;
  };
  const pid_t server = inChild([&] { return report(u"Server"); });
  report(u"Client");
  EXPECT_EQ(statusOf(server), 0);
  JobFile file(published());
  for (const char16_t* section : {u"Server", u"Client"}) {
    EXPECT_EQ(readText(file, section, u"Codice"), u"500");
    EXPECT_EQ(readText(file, section, u"Ripetuto"), u"500");
  }
}

// A writer that never rests and holds the lock nearly all the time must let the others have their turns.
TEST_F(JobFileServer, ThatNeverRestsLetsOthersWrite) {
  JobFile file(published());
  file.write(u"Server", u"Lungo", Text(4'000'000, u'x'));
  constexpr int kWrites = 20, kMostMeanwhile = 500;
  const SharedNumbers serverWrites(1);
  int stop[2];
  ASSERT_EQ(::pipe2(stop, O_NONBLOCK | O_CLOEXEC), 0);
  const pid_t server = inChild([&] {
    ::close(stop[1]);
    JobFile busy(published());
    int i = 0;
    for (char end; ::read(stop[0], &end, 1) < 0;) {
      busy.write(u"Server", u"Codice", number(++i));
      serverWrites[0] = i;
    }
    return true;
  });
  for (int i = 0; i < kWrites; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(errorOf([&] { file.write(u"Client", u"Codice", number(i)); }), 0) << i;
  }
  ::close(stop[1]);
  EXPECT_EQ(statusOf(server), 0);
  ::close(stop[0]);
  EXPECT_LT(serverWrites[0], kWrites * kMostMeanwhile);
}

}  // namespace
}  // namespace orvane::test
