#include "core/Name.h"

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

// The compiler's hash and that of the running program.
template <std::size_t size>
void expectOneHash(const char16_t (&literal)[size], const Name& compiled) {
  const Text copy(literal);
  EXPECT_EQ(Name(copy).hash(), compiled.hash());
  EXPECT_EQ(TextView(compiled), copy);
  EXPECT_EQ(compiled.size(), copy.size());
}

TEST(Name, HasOneHashHoweverItIsMade) {
  constexpr Name kNames[] = {u"",     u"k",     u"Id",        u"Ora",
                             u"Nota", u"Nome0", u"Proprieta", u"\u00E0\u241B\uFFFF\x01"};
  expectOneHash(u"", kNames[0]);
  expectOneHash(u"k", kNames[1]);
  expectOneHash(u"Id", kNames[2]);
  expectOneHash(u"Ora", kNames[3]);
  expectOneHash(u"Nota", kNames[4]);
  expectOneHash(u"Nome0", kNames[5]);
  expectOneHash(u"Proprieta", kNames[6]);
  expectOneHash(u"\u00E0\u241B\uFFFF\x01", kNames[7]);
}

TEST(Name, HashesWithoutCase) {
  EXPECT_EQ(Name(u"Citt\u00C0 di Mezzo").hash(), Name(u"CITT\u00E0 DI mEZZO").hash());
  EXPECT_NE(Name(u"Nome1").hash(), Name(u"Nome2").hash());
  EXPECT_NE(Name(u"Nome").hash(), Name(u"Nome1").hash());
}

}  // namespace
}  // namespace orvane::test
