#include <gtest/gtest.h>

#include "cli/Suggest.h"

namespace orvane::cli {
namespace {

struct DistanceCase {
  const char* a;
  const char* b;
  std::size_t distance;
};

TEST(EditDistance, CountsLettersPutInLeftOutReplacedAndSwapped) {
  for (const DistanceCase& row : {DistanceCase{"", "", 0},
                                  {"", "abc", 3},
                                  {"Copie", "Copie", 0},
                                  {"Copie", "COPIE", 0},
                                  {"Copie", "Copi", 1},
                                  {"Copie", "Coppie", 1},
                                  {"Copie", "Copia", 1},
                                  {"Copie", "Copei", 1},
                                  {"Copie", "oCpei", 2},
                                  {"kitten", "sitting", 3},
                                  {"Coda", "Note", 3}}) {
    EXPECT_EQ(editDistance(row.a, row.b), row.distance) << row.a << " to " << row.b;
    EXPECT_EQ(editDistance(row.b, row.a), row.distance) << row.b << " to " << row.a;
  }
}

TEST(Suggestion, NamesTheNearestFirst) {
  EXPECT_EQ(suggestion("vdd_A44", {"vdd_A5", "vdd_A4", "vdd_Letter"}), "; did you mean vdd_A4 or vdd_A5?");
}

TEST(Suggestion, NamesThreeAtMostAndEachOnce) {
  EXPECT_EQ(suggestion("ab", {"ad", "ac", "ae", "ac", "af"}), "; did you mean ac, ad or ae?");
}

TEST(Suggestion, TakesABeginningForTheWhole) {
  EXPECT_EQ(suggestion("stampante", {"StampanteAlternativa", "Copie"}),
            "; did you mean StampanteAlternativa?");
}

TEST(Suggestion, IsEmptyWhereNothingIsNear) { EXPECT_EQ(suggestion("xyzzy", {"Copie", "Coda"}), ""); }

}  // namespace
}  // namespace orvane::cli
