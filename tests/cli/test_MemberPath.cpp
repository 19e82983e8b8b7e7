#include <gtest/gtest.h>

#include "cli/Failure.h"
#include "cli/MemberPath.h"
#include "cli/Session.h"

namespace orvane::cli {
namespace {

Text argument(const PathStep& step, std::size_t index) { return std::get<Text>(step.arguments.at(index)); }

TEST(ParsePath, SplitsNamesAndArguments) {
  const auto steps = parsePath("Diretta.CatalogoDestinazione.CompressoOn(0)");
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_EQ(steps[0].name, "Diretta");
  EXPECT_TRUE(steps[1].arguments.empty());
  EXPECT_EQ(steps[2].name, "CompressoOn");
  EXPECT_EQ(argument(steps[2], 0), u"0");
}

TEST(ParsePath, TakesAnyTextBetweenQuotes) {
  const auto steps = parsePath(R"(Item("a, ""b"" (1).x",2).File)");
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_EQ(argument(steps[0], 0), u"a, \"b\" (1).x");
  EXPECT_EQ(argument(steps[0], 1), u"2");
}

TEST(ParsePath, RefusesWhatIsNoPath) {
  for (const char* path :
       {"", ".", "a.", ".a", "a..b", "a(", "a(0", "a)", "a(0)b", "a(\"x)", "(0)", "a(0))"}) {
    EXPECT_THROW(parsePath(path), UsageError) << path;
  }
}

class Paths : public testing::Test {
 protected:
  Session session_{Purpose::Change};
  ObjectRef document_ = session_.newDocument(jobKindNamed("stampa"));

  std::string read(const std::string& path) {
    const Reading reading = readMember(document_, path);
    return valueText(reading.value, reading.type, Form::Readable);
  }
};

TEST_F(Paths, AssignmentsAreMadeOnlyWhenPerformed) {
  const Assignment assignment(document_, "copie=3");
  EXPECT_EQ(read("Copie"), "1");
  assignment.perform();
  EXPECT_EQ(read("COPIE"), "3");
}

TEST_F(Paths, ValueIsEverythingAfterTheFirstEqualsSign) {
  Assignment(document_, "Stampante=a=b=").perform();
  EXPECT_EQ(read("Stampante"), "a=b=");
}

TEST_F(Paths, IndexedMembersAreReadAndAssigned) {
  Assignment(document_, "Diretta.CatalogoDestinazione.CompressoOn(6)=15").perform();
  EXPECT_EQ(read("diretta.catalogodestinazione.compressoon(6)"), "15");
}

TEST_F(Paths, MembersWithoutValueOrObjectAreRefused) {
  for (const char* path :
       {"Collegati.Salva", "Copie.Codice", "Collegati.Item(0).Copie", "Carica", "Niente"}) {
    EXPECT_THROW(readMember(document_, path), Failure) << path;
  }
}

}  // namespace
}  // namespace orvane::cli
