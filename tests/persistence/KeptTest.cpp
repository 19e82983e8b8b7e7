// Every member that is kept: assigned by name, seen in the file by another reader, loaded into a new object.
#include "tests/persistence/Cases.h"

namespace orvane::test {
namespace {

using Case = MemberCase<KeptMember>;

bool hasDescription(const KeptMember& member) { return !member.description.empty(); }

bool isWrittenLater(const KeptMember& member) { return member.written != Written::AtOnce; }

class Kept : public testing::TestWithParam<Case> {};

TEST_P(Kept, IsWrittenAndComesBack) {
  const KeptMember& member = GetParam().member;
  const Job job(GetParam().kind);
  ASSERT_NE(shown(getAt(job.root(), member.path)), shown(member.value)) << "the default proves nothing";
  job.assign(member.path, member.value, member.written);
  EXPECT_EQ(toUtf8(job.content().value(member.section, member.key)), toUtf8(member.stored));
  EXPECT_EQ(shown(getAt(job.root(), member.path)), shown(member.value));
  EXPECT_EQ(getAt(job.loaded(), member.path), member.value) << shown(getAt(job.loaded(), member.path));
}

INSTANTIATE_TEST_SUITE_P(Members, Kept, allCases(keptMembers()), memberName);

class KeptCode : public testing::TestWithParam<Case> {};

TEST_P(KeptCode, WritesItsDescriptionAndNeverReadsIt) {
  const KeptMember& member = GetParam().member;
  const Job job(GetParam().kind);
  job.assign(member.path, member.value, member.written);
  EXPECT_EQ(toUtf8(job.content().value(member.section, member.descriptionKey)), toUtf8(member.description));
  job.edit(member.section, member.descriptionKey, u"altro");
  EXPECT_EQ(shown(descriptionAt(job.loaded(), member.path)), toUtf8(member.description));
}

INSTANTIATE_TEST_SUITE_P(Members, KeptCode, casesWhere(keptMembers(), hasDescription), memberName);

class KeptLater : public testing::TestWithParam<Case> {};

TEST_P(KeptLater, IsNotWrittenByAssignment) {
  const KeptMember& member = GetParam().member;
  const Job job(GetParam().kind);
  const Text before = job.content().lines();
  letAt(job.root(), member.path, member.value);
  EXPECT_EQ(toUtf8(job.content().lines()), toUtf8(before));
}

INSTANTIATE_TEST_SUITE_P(Members, KeptLater, casesWhere(keptMembers(), isWrittenLater), memberName);

}  // namespace
}  // namespace orvane::test
