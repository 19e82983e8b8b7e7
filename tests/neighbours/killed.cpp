// Writers that are terminated at random moments leave the old file or the new one, and nothing in the way.
#include <cstdio>
#include <random>

#include "tests/neighbours/Child.h"
#include "tests/neighbours/JobFolder_win32.h"

namespace neighbours {
namespace {

class Killed : public JobFolder {
 protected:
  void put300Keys() const {
    orvane::JobFile file(published());
    file.together([&] {
      for (int i = 0; i < 300; ++i) file.write(u"M", u"key" + number(i), u"some value of ordinary length");
      file.write(u"A", u"first", u"0");
      file.write(u"Z", u"last", u"0");
    });
  }
  int last() const { return std::stoi(orvane::toUtf8(valueOf(u"A", u"first"))); }

  // The last number that a writer had told, terminated `life` after it began or after its first write; `from`
  // where none.
  int writeAndKill(int from, bool written, int life) const {
    Child writer(L"write", path(), from);
    EXPECT_TRUE(written ? writer.waitUntilDone(from + 1) : writer.waitUntilReady());
    Sleep(static_cast<DWORD>(life));
    writer.kill();
    return std::max<int>(from, writer.board().done);
  }
};

TEST_F(Killed, AcknowledgedWritesAreThereAndTheFileIsWhole) {
  const int trials = 200 * client::soakFactor();
  put300Keys();
  std::mt19937 random(5);
  int known = 0, left = 0;
  for (int trial = 0; trial < trials; ++trial) {
    const int told = writeAndKill(known, trial % 2 == 1, std::uniform_int_distribution(0, 8)(random));
    ASSERT_FALSE(HasFailure()) << trial;
    left += names().size() > 1;
    known = last();
    ASSERT_EQ(number(known), valueOf(u"Z", u"last")) << trial;
    ASSERT_TRUE(known == told || known == told + 1) << trial << ": " << told << ", " << known;
  }
  EXPECT_GE(known, trials / 2);
  EXPECT_GT(left, 0) << "no kill fell between creation and exchange: the trials show nothing";
  orvane::JobFile(published()).write(u"A", u"first", u"1");
  EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
  std::printf("Killed: %d trials, %d writes, %d temporaries left and removed.\n", trials, known, left);
}

}  // namespace
}  // namespace neighbours
