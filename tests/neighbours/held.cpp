// A neighbour that holds the job file open without sharing it, as a virus scanner or a careless reader does.
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "tests/neighbours/Child.h"
#include "tests/neighbours/JobFolder_win32.h"

namespace neighbours {
namespace {

using Held = JobFolder;

TEST_F(Held, ForHalfASecondLosesNothing) {
  orvane::JobFile file(published());
  file.write(u"A", u"kept", u"1");
  Child holder(L"hold", path(), 1, 500);
  ASSERT_TRUE(holder.waitUntilReady());
  std::vector<long long> waits;
  const int rounds = 20 * client::soakFactor();
  for (int i = 1; i <= rounds; ++i) {
    Sleep(static_cast<DWORD>(7 * i % 60));
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(errorOf([&] { file.write(u"A", u"k", number(i)); }), 0) << i;
    ASSERT_EQ(valueOf(u"A", u"k"), number(i));
    waits.push_back((std::chrono::steady_clock::now() - begin) / std::chrono::milliseconds(1));
  }
  EXPECT_TRUE(holder.waitUntilDone(4));
  EXPECT_EQ(holder.stop(), 0u);
  EXPECT_EQ(valueOf(u"A", u"kept"), u"1");
  EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
  std::sort(waits.begin(), waits.end());
  std::printf("Held: %d writes and readings, 50 %% within %lld ms, the longest %lld ms.\n", rounds,
              waits[waits.size() / 2], waits.back());
}

TEST_F(Held, ForLongerThanTheWaitIsError70AndLeavesTheFile) {
  orvane::JobFile file(published());
  file.write(u"A", u"k", u"1");
  {
    Child holder(L"hold", path(), 3'600'000, 3'600'000);
    ASSERT_TRUE(holder.waitUntilReady());
    EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"2"); }), 70);
    EXPECT_EQ(errorOf([&] { valueOf(u"A", u"k"); }), 70);
  }
  EXPECT_EQ(valueOf(u"A", u"k"), u"1");
  EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"3"); }), 0);
  EXPECT_EQ(valueOf(u"A", u"k"), u"3");
}

}  // namespace
}  // namespace neighbours
