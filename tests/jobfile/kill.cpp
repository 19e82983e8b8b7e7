// Writers killed at random moments leave the old file or the new one, and nothing else in the way.
#include <fcntl.h>

#include <chrono>
#include <random>
#include <thread>

#include "tests/jobfile/JobFolder.h"
#include "tests/jobfile/Processes.h"

namespace orvane::test {
namespace {

Text number(int value) { return fromUtf8(std::to_string(value)); }

class JobFileKill : public JobFolder {
 protected:
  // Two keys of one scope, so that a torn file would show them unequal; acknowledged once written.
  void writeForEver(int acknowledgements, int from) const {
    JobFile file(published());
    for (int i = from + 1;; ++i) {
      file.together([&] {
        file.write(u"A", u"first", number(i));
        file.write(u"Z", u"last", number(i));
      });
      if (::write(acknowledgements, &i, sizeof i) != sizeof i) return;
    }
  }

  // The last number that a writer, killed after `life`, had acknowledged; `from` where none.
  int writeAndKill(int from, std::chrono::microseconds life) const {
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0) return -1;
    const pid_t writer = inChild([&] { return writeForEver(pipe[1], from), true; });
    ::close(pipe[1]);
    std::this_thread::sleep_for(life);
    ::kill(writer, SIGKILL);
    statusOf(writer);
    int last = from;
    for (int seen; ::read(pipe[0], &seen, sizeof seen) == sizeof seen;) last = seen;
    ::close(pipe[0]);
    return last;
  }

  int valueOf(TextView section, TextView key) const {
    JobFile file(published());
    const auto text = file.read(section, key);
    return text ? std::stoi(toUtf8(*text)) : -1;
  }

  void put300Keys() const {
    JobFile file(published());
    file.together([&] {
      for (int i = 0; i < 300; ++i) file.write(u"M", u"key" + number(i), u"some value of ordinary length");
      file.write(u"A", u"first", u"0");
      file.write(u"Z", u"last", u"0");
    });
  }
};

TEST_F(JobFileKill, AcknowledgedWritesAreThereAndTheFileIsWhole) {
  constexpr int kTrials = kSanitized ? 300 : 2'000;
  put300Keys();
  std::mt19937 random(3);
  int last = 0;
  for (int trial = 0; trial < kTrials; ++trial) {
    const std::chrono::microseconds life(std::uniform_int_distribution(200, 4'000)(random));
    const int acknowledged = writeAndKill(last, life);
    last = valueOf(u"A", u"first");
    ASSERT_EQ(last, valueOf(u"Z", u"last")) << trial;
    ASSERT_GE(last, acknowledged) << trial;
    ASSERT_LE(last, acknowledged + 1) << trial;
    ASSERT_EQ(valueOf(u"A", u"first"), last);
  }
  EXPECT_GT(last, kTrials / 10);
  JobFile(published()).write(u"A", u"first", u"1");
  EXPECT_EQ(names(), std::set<std::string>{"job.vqs"});
}

TEST_F(JobFileKill, TheNextWriteLeavesNoTemporary) {
  put300Keys();
  std::mt19937 random(4);
  int left = 0;
  for (int trial = 0; trial < (kSanitized ? 100 : 300); ++trial) {
    writeAndKill(0, std::chrono::microseconds(std::uniform_int_distribution(400, 2'500)(random)));
    left += names().size() > 1;
    JobFile(published()).write(u"A", u"trial", number(trial));
    ASSERT_EQ(names(), std::set<std::string>{"job.vqs"}) << trial;
  }
  RecordProperty("left", left);
  EXPECT_GT(left, 0) << "no kill fell between creation and exchange: the trials show nothing";
}

}  // namespace
}  // namespace orvane::test
