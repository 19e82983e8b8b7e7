// Members that are meant not to come back with the file.
#include <algorithm>
#include <functional>

#include "tests/persistence/Cases.h"

namespace orvane::test {
namespace {

using Case = MemberCase<UnkeptMember>;

bool isWritten(const UnkeptMember& member) { return !member.section.empty(); }

// The folder of a loaded page is as the file system publishes it.
std::string expectedOf(const Job& job, const UnkeptMember& member, bool page) {
  Text file = job.file();
  if (page) std::ranges::replace(file, u'/', u'\\');
  const auto slash = file.rfind(u'\\');
  const std::string loaded = shown(member.loaded);
  if (loaded == toUtf8(kFolder)) return toUtf8(file.substr(0, slash));
  return loaded == toUtf8(kFile) ? toUtf8(file.substr(slash + 1)) : loaded;
}

class Unkept : public testing::TestWithParam<Case> {};

TEST_P(Unkept, IsHeldAndDoesNotComeBack) {
  const UnkeptMember& member = GetParam().member;
  const Job job(GetParam().kind);
  if (GetParam().kind.set == kPagina) callAt(job.root(), "Salva");  // makes the file
  job.assign(member.path, member.value, member.written);
  EXPECT_EQ(shown(getAt(job.root(), member.path)), shown(member.value));
  const std::string expected = expectedOf(job, member, GetParam().kind.set == kPagina);
  ASSERT_NE(expected, shown(member.value)) << "the value proves nothing";
  EXPECT_EQ(shown(getAt(job.loaded(), member.path)), expected);
}

INSTANTIATE_TEST_SUITE_P(Members, Unkept, allCases(unkeptMembers()), memberName);

class Unread : public testing::TestWithParam<Case> {};

TEST_P(Unread, IsWritten) {
  const UnkeptMember& member = GetParam().member;
  const Job job(GetParam().kind);
  job.assign(member.path, member.value, member.written);
  EXPECT_EQ(toUtf8(job.content().value(member.section, member.key)), toUtf8(member.stored));
}

INSTANTIATE_TEST_SUITE_P(Members, Unread, casesWhere(unkeptMembers(), isWritten), memberName);

class Unwritten : public testing::TestWithParam<Case> {};

TEST_P(Unwritten, LeavesTheFileAsItIs) {
  const std::string& path = GetParam().member.path;
  const bool saved = GetParam().kind.set == kPagina && !path.starts_with("FileIntestazione.");
  const Job job(GetParam().kind);
  if (saved) callAt(job.root(), "Salva");
  const Text before = job.content().lines();
  letAt(job.root(), path, GetParam().member.value);
  if (saved) callAt(job.root(), "Salva");
  EXPECT_EQ(toUtf8(job.content().lines()), toUtf8(before));
}

INSTANTIATE_TEST_SUITE_P(Members, Unwritten, casesWhere(unkeptMembers(), std::not_fn(isWritten)), memberName);

TEST(AlternativePrinter, IsWrittenAsThePrinterOfOrigin) {
  const Job job(kinds().front());
  letAt(job.root(), "StampanteOrigine", u"A");
  letAt(job.root(), "StampanteAlternativa", u"B");
  EXPECT_EQ(shown(getAt(job.root(), "StampanteAlternativa")), "B");
  EXPECT_EQ(toUtf8(job.content().value(u"Stampa", u"StampanteAlternativa")), "A");
  EXPECT_EQ(shown(getAt(job.loaded(), "StampanteAlternativa")), "A");
}

TEST(TransmissionWidth, ComesBackOnlyIfItWasRead) {
  const Job job(kinds()[1]);
  letAt(job.root(), "Trasmissione.Pagina.CodiceWidth", 4);
  EXPECT_EQ(getAt(job.loaded(), "Trasmissione.Pagina.CodiceWidth"), Variant(1));
  getAt(job.root(), "Trasmissione.Pagina.CodiceWidth");
  EXPECT_EQ(getAt(job.loaded(), "Trasmissione.Pagina.CodiceWidth"), Variant(4));
}

}  // namespace
}  // namespace orvane::test
