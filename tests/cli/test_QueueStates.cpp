#include "cli/QueueStates.h"

#include <gtest/gtest.h>

namespace orvane::cli {
namespace {

struct Case {
  const char* kind;
  std::int32_t state;
  Phase phase;
  TextView dateKey;
};

TEST(QueueStates, TellWhatAStateMeansOnEveryChannel) {
  const Case cases[] = {{"stampa", 0, Phase::Waiting, u"DataDaStampare"},
                        {"stampa", 1, Phase::Working, u"DataInStampa"},
                        {"stampa", 2, Phase::Done, u"DataElaborazione"},
                        {"stampa", 3, Phase::Rejected, u"DataElaborazione"},
                        {"fax", 8, Phase::Done, u"DataElaborazione"},
                        {"fax", 9, Phase::Rejected, u"DataElaborazione"},
                        {"fax", 10, Phase::Withdrawn, u""},
                        {"fax", 11, Phase::Withdrawn, u""},
                        {"fax", 12, Phase::Waiting, u"DataDaConfermare"},
                        {"fax", 13, Phase::Unknown, u""},
                        {"fax", -1, Phase::Unknown, u""},
                        {"pfax", 1, Phase::Working, u"DataInStampa"},
                        {"email", 6, Phase::Done, u"DataElaborazione"},
                        {"email", 3, Phase::Working, u"DataInTrasmissione"},
                        {"pbl", 3, Phase::Working, u"DataInPubblicazione"},
                        {"anteprima", 0, Phase::Waiting, u"DataDaGenerare"},
                        {"anteprima", 3, Phase::Rejected, u"DataElaborazione"}};
  for (const Case& row : cases) {
    SCOPED_TRACE(std::string(row.kind) + ' ' + std::to_string(row.state));
    const QueueInfo& queue = queueOf(jobKindNamed(row.kind));
    EXPECT_EQ(phaseName(queue.phase(row.state)), std::string(phaseName(row.phase)));
    EXPECT_EQ(queue.dateKey(row.state), row.dateKey);
  }
}

TEST(QueueStates, NameTheSectionOfTheJobFile) {
  const auto sectionOf = [](const char* kind) -> TextView { return queueOf(jobKindNamed(kind)).section; };
  EXPECT_EQ(sectionOf("stampa"), u"CodaStampa");
  EXPECT_EQ(sectionOf("pfax"), u"CodaPFax");
  EXPECT_EQ(sectionOf("pbl"), u"CodaPubblicazione");
}

}  // namespace
}  // namespace orvane::cli
