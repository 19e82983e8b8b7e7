// Many writers of one file lose no update, and readers never see it torn.
#include <fcntl.h>

#include <chrono>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"

namespace orvane::test {
namespace {

Text number(int value) { return fromUtf8(std::to_string(value)); }

class JobFileWriters : public JobFolder, public testing::WithParamInterface<int> {
 protected:
  // One writer counts up under its own key and sees its own last value at every step.
  bool countUp(int writer, int updates) const {
    JobFile file(published());
    const Text key = u"writer" + number(writer);
    for (int i = 1; i <= updates; ++i) {
      file.write(u"Coda", key, number(i));
      if (file.read(u"Coda", key) != TextView(number(i))) return false;
    }
    return true;
  }

  // Every sight of the file holds the fixed text, and no key ever goes back.
  bool watch(int writers, int stop) const {
    std::vector<int> last(static_cast<std::size_t>(writers));
    for (char end; ::read(stop, &end, 1) < 0;) {
      JobFile file(published());
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
};

constexpr int kUpdates = 20'000 / 3;

TEST_P(JobFileWriters, LoseNoUpdateAndShowNoTornFile) {
  const int writers = GetParam();
  const int each = kUpdates / writers + 1;
  JobFile(published()).write(u"Stampa", u"Fisso", u"un testo che non cambia");
  int stop[2];
  ASSERT_EQ(::pipe2(stop, O_NONBLOCK | O_CLOEXEC), 0);
  const pid_t reader = inChild([&] { return ::close(stop[1]), watch(writers, stop[0]); });
  std::vector<pid_t> children;
  for (int w = 0; w < writers; ++w)
    children.push_back(inChild([&] { return ::close(stop[1]), countUp(w, each); }));
  for (const pid_t child : children) EXPECT_EQ(statusOf(child), 0);
  ::close(stop[1]);
  EXPECT_EQ(statusOf(reader), 0);
  ::close(stop[0]);
  JobFile file(published());
  for (int w = 0; w < writers; ++w) EXPECT_EQ(readText(file, u"Coda", u"writer" + number(w)), number(each));
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

INSTANTIATE_TEST_SUITE_P(Processes, JobFileWriters, testing::Values(2, 8, 32),
                         [](const auto& row) { return "Writers" + std::to_string(row.param); });

using JobFileServer = JobFolder;

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
  int stop[2];
  ASSERT_EQ(::pipe2(stop, O_NONBLOCK | O_CLOEXEC), 0);
  const pid_t server = inChild([&] {
    ::close(stop[1]);
    JobFile busy(published());
    int i = 0;
    for (char end; ::read(stop[0], &end, 1) < 0;) busy.write(u"Server", u"Codice", number(++i));
    return true;
  });
  for (int i = 0; i < 20; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_EQ(errorOf([&] { file.write(u"Client", u"Codice", number(i)); }), 0) << i;
  }
  ::close(stop[1]);
  EXPECT_EQ(statusOf(server), 0);
  ::close(stop[0]);
}

}  // namespace
}  // namespace orvane::test
