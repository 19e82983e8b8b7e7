// A Windows program that links the library has no string table of its own unless it takes in texts.rc. This
// one does not.
#include <gtest/gtest.h>

#include "codes/OwnTexts.h"
#include "codes/VqDocResDll.h"

namespace orvane {
namespace {

TEST(Texts, ComeFromTheCompiledTableWhereTheModuleHasNone) {
  ASSERT_FALSE(numberedTexts().empty());
  for (const NumberedText& row : numberedTexts()) EXPECT_EQ(ownText(row.id), row.text) << row.id;
}

TEST(Texts, AreEmptyForANumberThatHasNone) {
  EXPECT_EQ(ownText(-1), u"");
  EXPECT_EQ(ownText(0x10000 + numberedTexts().front().id), u"");
}

}  // namespace
}  // namespace orvane
