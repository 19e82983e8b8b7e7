// Every system call of an operation fails in turn: the error has the cause's number, the files are the old
// ones or the new ones, nothing leaks, and the next attempt works.
#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <set>

#include "core/SystemError.h"
#include "tests/faults/Jobs.h"
#include "tests/faults/SystemCalls.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

constexpr int kShort = 0;
constexpr int kCodes[] = {ENOSPC, EIO, EACCES, EDQUOT, EROFS, EMFILE, EINTR, ESTALE, EBUSY, ENOENT, kShort};

// By a signal, on local file systems.
const std::set<std::string> kInterruptible{"open",  "read",  "write", "ftruncate",
                                           "fsync", "close", "fcntl", "rename"};

class FailingCalls : public testing::TestWithParam<Operation> {
 protected:
  void SetUp() override {
    jobs_.reset();
    GetParam().prepare(jobs_);
    before_ = withoutTemporaries(jobs_.content());
    {
      const SystemCalls calls;
      GetParam().act(jobs_);
      calls_ = calls.count();
    }
    after_ = jobs_.content();
    jobs_.reset();
    descriptors_ = openDescriptors();
  }

  struct Outcome {
    int error = 0;
    std::string call;
    Content content;
  };

  Outcome actWith(const Fault& fault) {
    jobs_.reset();
    GetParam().prepare(jobs_);
    Outcome outcome;
    {
      const SystemCalls calls(fault);
      outcome.error = errorOf([&] { GetParam().act(jobs_); });
      outcome.call = calls.firstFailed();
    }
    outcome.content = jobs_.content();
    return outcome;
  }

  void check(const Fault& fault) {
    const Outcome outcome = actWith(fault);
    SCOPED_TRACE(outcome.call + " number " + std::to_string(fault.at) + " of " + std::to_string(calls_) +
                 (fault.code ? std::string(" fails: ") + std::strerror(fault.code) : " is cut short") +
                 (fault.onward ? ", and all after it" : "") + "; error " + std::to_string(outcome.error));
    EXPECT_TRUE(isNumberOf(outcome, fault));
    if (fault.code == EINTR && kInterruptible.contains(outcome.call)) {
      EXPECT_EQ(outcome.error, 0) << "whoever is interrupted tries again";
    }
    checkFiles(outcome);
    jobs_.release();
    EXPECT_EQ(openDescriptors(), descriptors_);
    checkTheNextAttempt();
  }

  // What cannot be looked at does not exist to `folderExists` and `fileExists` (76 and 53, and nothing to
  // copy), and a lock file that is gone again and again is not had in time (70).
  static bool isNumberOf(const Outcome& outcome, const Fault& fault) {
    if (outcome.error == 0) return true;
    if (outcome.error == 70 && fault.code == ENOENT && fault.onward) return true;
    const bool looked = fault.onward || outcome.call == "stat";
    if (looked && (outcome.error == 76 || outcome.error == 53)) return true;
    return fault.code != kShort &&
           outcome.error == static_cast<int>(errorNumberOf(static_cast<unsigned long>(fault.code)));
  }

  void checkFiles(const Outcome& outcome) const {
    const Content found = withoutTemporaries(outcome.content);
    const bool old = found == before_;
    const bool whole = found == withoutTemporaries(after_);
    if (GetParam().oneReplace) {
      EXPECT_TRUE(outcome.error == 0 ? whole : old || (GetParam().flushes && whole));
    } else if (outcome.error == 0 && outcome.call != "stat") {
      EXPECT_TRUE(whole);
    }
    for (const auto& [name, bytes] : found) {
      if (name.find(".vq") == std::string::npos) continue;
      EXPECT_NO_THROW(readJobFile(jobs_.folder() + u'\\' + fromUtf8(name))) << name;
    }
  }

  // In the folder as the failure left it, apart from what `Carica` needs.
  void checkTheNextAttempt() {
    if (std::string(GetParam().name) != "LetThroughALink")
      GetParam().prepare(jobs_);
    else
      jobs_.job = jobs_.load(u"5.vqs");
    ASSERT_EQ(errorOf([&] { GetParam().act(jobs_); }), 0);
    Content found = jobs_.content();
    std::erase_if(found, [](const auto& file) { return file.first.ends_with("copy.tmp"); });
    EXPECT_EQ(found.size(), after_.size());
    if (GetParam().oneReplace) {
      EXPECT_TRUE(found == after_);
    }
  }

  Jobs jobs_;
  Content before_, after_;
  int calls_ = 0;
  std::size_t descriptors_ = 0;
};

TEST_P(FailingCalls, LeaveTheOldOrTheNewAndSayWhy) {
  ASSERT_GT(calls_, 1);
  int trials = 0;
  const int stride = soakFactor() > 1 ? 1 : GetParam().stride;
  for (int kind = 0; kind < static_cast<int>(std::size(kCodes)); ++kind) {
    for (int at = 0; at < calls_; ++at) {
      if ((at + kind) % stride != 0) continue;
      for (const bool onward : {false, true}) {
        check({at, kCodes[kind], onward});
        if (HasFailure()) return;
        ++trials;
      }
    }
  }
  RecordProperty("trials", trials);
  std::printf("%s: %d calls, %d trials\n", GetParam().name, calls_, trials);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls, testing::ValuesIn(operations()), rowName);

}  // namespace
}  // namespace orvane::test
