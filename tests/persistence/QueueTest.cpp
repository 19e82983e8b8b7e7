// Members that clients only read: the identity, and what the queue records stamp.
#include "tests/persistence/Cases.h"
#include "tests/support/FixedClock.h"

namespace orvane::test {
namespace {

using Case = MemberCase<QueueMember>;

bool isDate(const QueueMember& member) { return member.section != u"UltimaCoda"; }

class Queue : public testing::TestWithParam<Case> {};

TEST_P(Queue, IsStampedWrittenAndComesBack) {
  const QueueMember& member = GetParam().member;
  const FixedClock clock(Date{39815.375});
  const Job job(GetParam().kind);
  letAt(job.root(), "Coda.Codice", member.code);
  const Variant expected = isDate(member) ? Variant(Date{39815.375}) : Variant(member.code);
  EXPECT_EQ(toUtf8(job.content().value(member.section, member.key)),
            isDate(member) ? "39815.375" : std::to_string(member.code));
  EXPECT_EQ(getAt(job.root(), member.path), expected);
  EXPECT_EQ(getAt(job.loaded(), member.path), expected) << shown(getAt(job.loaded(), member.path));
}

TEST_P(Queue, ComesAsTheServerWroteIt) {
  const QueueMember& member = GetParam().member;
  const Job job(GetParam().kind);
  job.edit(member.section, member.key, u"77");
  const Variant expected = isDate(member) ? Variant(Date{77}) : Variant(77);
  EXPECT_EQ(getAt(job.loaded(), member.path), expected);
}

INSTANTIATE_TEST_SUITE_P(Members, Queue, allCases(queueMembers()), memberName);

class LastQueue : public testing::TestWithParam<Kind> {};

TEST_P(LastQueue, KeepsItsDescriptionWithoutReadingIt) {
  const Job job(GetParam());
  letAt(job.root(), "Coda.Codice", 3);
  const Text description = job.content().value(u"UltimaCoda", u"Descrizione");
  EXPECT_EQ(shown(callAt(job.root(), "Coda.UltimaCodaDescrizione")), toUtf8(description));
  job.edit(u"UltimaCoda", u"Descrizione", u"altro");
  EXPECT_EQ(shown(callAt(job.loaded(), "Coda.UltimaCodaDescrizione")), toUtf8(description));
}

bool hasLastQueue(const Kind& kind) { return kind.isIn(kStampa | kFax | kPFax | kPbl); }

bool isDocument(const Kind& kind) { return kind.set != kPagina; }

INSTANTIATE_TEST_SUITE_P(Kinds, LastQueue, kindsWhere(hasLastQueue), kindName);

class Document : public testing::TestWithParam<Kind> {};

TEST_P(Document, KeepsItsId) {
  const Job job(GetParam());
  EXPECT_EQ(toUtf8(job.content().value(u"Proprieta", u"Id")), "lavoro");
  job.edit(u"Proprieta", u"Id", u"altro");
  EXPECT_EQ(shown(getAt(job.loaded(), "Proprieta.Id")), "altro");
}

TEST_P(Document, KeepsItsTypeFromTheStart) {
  const Job job(GetParam());
  const Variant code = getAt(job.root(), "Proprieta.Tipo.Codice");
  EXPECT_EQ(toUtf8(job.content().value(u"Tipo", u"Codice")), shown(code));
  EXPECT_EQ(getAt(job.loaded(), "Proprieta.Tipo.Codice"), code);
}

TEST_P(Document, HasANewGuidWheneverItIsLoaded) {
  const Job job(GetParam());
  const std::string guid = shown(getAt(job.root(), "Proprieta.Guid"));
  EXPECT_NE(shown(getAt(job.loaded(), "Proprieta.Guid")), guid);
  EXPECT_EQ(toUtf8(job.content().lines()).find(guid), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Document, kindsWhere(isDocument), kindName);

}  // namespace
}  // namespace orvane::test
