#include "cli/FolderWatch.h"

#include <chrono>
#include <filesystem>

#include "cli/Failure.h"
#include "tests/support/JobTest.h"

namespace orvane::cli {
namespace {

using namespace std::chrono_literals;
using Make = std::unique_ptr<FolderWatch> (*)(const std::string& folder);

// The system's word, and looking again and again.
class WatchedFolder : public testing::TestWithParam<Make> {
 protected:
  // The names told of until that one is among them, or for a minute.
  std::set<Text> namesUntil(const Text& name) {
    std::set<Text> names;
    for (const auto end = Clock::now() + 60s; Clock::now() < end && names.count(name) == 0;) {
      const FolderChanges changes = watch->wait(1000ms);
      if (changes.anything) names.insert(name);
      names.insert(changes.names.begin(), changes.names.end());
    }
    return names;
  }

  using Clock = std::chrono::steady_clock;
  test::TemporaryFolder folder;
  std::unique_ptr<FolderWatch> watch = GetParam()(toUtf8(folder.path()));
};

TEST_P(WatchedFolder, TellsOfFilesThatComeChangeAndGo) {
  folder.write(u"a.vqs", "1");
  EXPECT_EQ(namesUntil(u"a.vqs").count(u"a.vqs"), 1u);
  folder.write(u"a.vqs", "longer");
  EXPECT_EQ(namesUntil(u"a.vqs").count(u"a.vqs"), 1u);
  std::filesystem::rename(folder.native(u"a.vqs"), folder.native(u"perch\u00E9.vqs"));
  EXPECT_EQ(namesUntil(u"perch\u00E9.vqs").count(u"perch\u00E9.vqs"), 1u);
  std::filesystem::remove(folder.native(u"perch\u00E9.vqs"));
  EXPECT_EQ(namesUntil(u"perch\u00E9.vqs").count(u"perch\u00E9.vqs"), 1u);
}

TEST_P(WatchedFolder, TellsOfNothingWhereNothingHappens) { EXPECT_TRUE(watch->wait(20ms).names.empty()); }

TEST_P(WatchedFolder, AMissingFolderIsError76) {
  try {
    GetParam()(toUtf8(folder.file(u"manca")));
    FAIL() << "a watch of a folder that is not there";
  } catch (const Failure& failure) {
    EXPECT_NE(std::string(failure.what()).find("76"), std::string::npos) << failure.what();
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, WatchedFolder, testing::Values(&watchFolder, &pollFolder));

}  // namespace
}  // namespace orvane::cli
