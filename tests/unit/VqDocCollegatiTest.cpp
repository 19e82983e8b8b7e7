#include "queues/VqDocCollegati.h"

#include <filesystem>

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

// Every kind of owner, with the kind of its linked documents.
struct PrintLinked {
  using Owner = VqDocStampa;
  using Linked = VqDocStampa;
  static constexpr std::int32_t deleted = 5;
  static constexpr bool dropsDeleted = false;
  static inline const Text extension = u".lvq";
};
struct FaxLinked {
  using Owner = VqDocFax;
  using Linked = VqDocFax;
  static constexpr std::int32_t deleted = 11;
  static constexpr bool dropsDeleted = true;
  static inline const Text extension = u".ldf";
};
struct PrinterFaxLinked : FaxLinked {
  using Owner = VqDocPFax;
};
struct EmailLinked {
  using Owner = VqDocEmail;
  using Linked = VqDocEmail;
  static constexpr std::int32_t deleted = 9;
  static constexpr bool dropsDeleted = true;
  static inline const Text extension = u".lde";
};

template <class Kind>
class VqDocCollegatiTest : public JobTest {
 protected:
  using Linked = typename Kind::Linked;
  VqDocCollegatiTest() { owner.Inizializza(u"owner", this->folder.path()); }

  std::shared_ptr<Linked> linked(TextView id) {
    auto document = std::make_shared<Linked>();
    document->Inizializza(id, this->folder.path(), true);
    return document;
  }
  void add(std::initializer_list<TextView> ids) {
    for (const TextView id : ids) links.Add(linked(id));
  }
  JobContent ownJob() const { return this->job(owner.Proprieta.FileIntestazione.Nome); }
  std::shared_ptr<typename Kind::Owner> reloaded() const {
    auto again = std::make_shared<typename Kind::Owner>();
    again->Carica(this->folder.path(), owner.Proprieta.FileIntestazione.Nome);
    return again;
  }
  Text idAt(const Variant& key) const {
    return links.Item(key) ? links.Item(key)->Proprieta.Id.get() : u"(none)";
  }

  typename Kind::Owner owner;
  decltype(owner.Collegati)& links = owner.Collegati;
};
using Kinds = testing::Types<PrintLinked, FaxLinked, PrinterFaxLinked, EmailLinked>;
TYPED_TEST_SUITE(VqDocCollegatiTest, Kinds);

TYPED_TEST(VqDocCollegatiTest, StartsEmptyWithOneCopy) {
  EXPECT_EQ(this->links.Count(), 0);
  EXPECT_EQ(this->links.Copie.get(), 1);
}

TYPED_TEST(VqDocCollegatiTest, CopiesBelowOneAreOne) {
  for (const std::int32_t copies : {0, -5}) {
    this->links.Copie = 3;
    this->links.Copie = copies;
    EXPECT_EQ(this->links.Copie.get(), 1);
    EXPECT_EQ(this->ownJob().value(u"Collegati", u"Copie"), u"1");
  }
}

TYPED_TEST(VqDocCollegatiTest, LoadedCopiesAreTakenAsTheyAre) {
  this->links.Copie = 3;
  EXPECT_EQ(this->reloaded()->Collegati.Copie.get(), 3);
  auto lines = this->ownJob().lines();
  lines.replace(lines.find(u"Copie=3"), 7, u"Copie=-2");
  writeJobFile(this->owner.Proprieta.FileIntestazione.File(), lines);
  EXPECT_EQ(this->reloaded()->Collegati.Copie.get(), -2);
}

TYPED_TEST(VqDocCollegatiTest, PlainNumbersArePositionsFromZero) {
  this->add({u"a", u"b"});
  EXPECT_EQ(this->idAt(0), u"a");
  EXPECT_EQ(this->idAt(1), u"b");
  EXPECT_EQ(this->idAt(u"0"), u"a");
  EXPECT_EQ(this->idAt(u"1"), u"b");
}

TYPED_TEST(VqDocCollegatiTest, OtherTextsAreIds) {
  this->add({u"00", u" 1"});
  EXPECT_EQ(this->idAt(u"00"), u"00");
  EXPECT_EQ(this->idAt(u" 1"), u" 1");
}

TYPED_TEST(VqDocCollegatiTest, IdOfDigitsAloneIsReachedByPositionOnly) {
  this->add({u"77"});
  EXPECT_EQ(this->idAt(u"77"), u"(none)");
  EXPECT_EQ(this->idAt(0), u"77");
}

TYPED_TEST(VqDocCollegatiTest, AbsentKeyIsNothingAndDoesNotExist) {
  this->add({u"a"});
  for (const Variant& key : {Variant(u"manca"), Variant(1), Variant(-1), Variant(u""), Variant()}) {
    EXPECT_EQ(this->links.Item(key), nullptr);
    EXPECT_FALSE(this->links.Exists(key));
  }
}

TYPED_TEST(VqDocCollegatiTest, PresentKeyExists) {
  this->add({u"a"});
  EXPECT_TRUE(this->links.Exists(u"a"));
  EXPECT_TRUE(this->links.Exists(0));
}

TYPED_TEST(VqDocCollegatiTest, SecondDocumentOfAnIdRaisesDuplicateKey) {
  this->add({u"a"});
  EXPECT_EQ(errorOf([&] { this->add({u"a"}); }), 457);
  EXPECT_EQ(this->links.Count(), 1);
}

TYPED_TEST(VqDocCollegatiTest, AddOfNoDocumentRaisesObjectNotSet) {
  EXPECT_EQ(errorOf([&] { this->links.Add(nullptr); }), 91);
}

TYPED_TEST(VqDocCollegatiTest, DeletedDocumentIsLeftOutWhereTheKindDoesSo) {
  const auto document = this->linked(u"a");
  document->Coda.Codice = TypeParam::deleted;
  this->links.Add(document);
  EXPECT_EQ(this->links.Count(), TypeParam::dropsDeleted ? 0 : 1);
}

TYPED_TEST(VqDocCollegatiTest, DeletedDocumentOfAnIdThatIsThereIsLeftOutWithoutAnError) {
  this->add({u"a"});
  const auto document = this->linked(u"a");
  document->Coda.Codice = TypeParam::deleted;
  EXPECT_EQ(errorOf([&] { this->links.Add(document); }), TypeParam::dropsDeleted ? 0 : 457);
}

TYPED_TEST(VqDocCollegatiTest, DiscardedDocumentIsAdded) {
  const auto document = this->linked(u"a");
  document->Coda.Codice = TypeParam::deleted - 1;
  this->links.Add(document);
  EXPECT_EQ(this->links.Count(), 1);
}

TYPED_TEST(VqDocCollegatiTest, AddWritesNothingToTheOwner) {
  const Text before = this->ownJob().lines();
  this->add({u"a"});
  EXPECT_EQ(this->ownJob().lines(), before);
}

TYPED_TEST(VqDocCollegatiTest, SalvaWritesNumberFoldersAndNames) {
  this->add({u"a", u"b"});
  this->links.Salva();
  const Text place = this->folder.path();
  EXPECT_EQ(this->ownJob().lines(u"Collegati"), u"[Collegati]\nNumeroCollegati=2\nPercorso0=" + place +
                                                    u"\nNome0=a" + TypeParam::extension + u"\nPercorso1=" +
                                                    place + u"\nNome1=b" + TypeParam::extension + u'\n');
}

TYPED_TEST(VqDocCollegatiTest, SalvaWritesWhereTheDocumentsLieAtThatTime) {
  this->add({u"a"});
  this->links.Item(0)->Proprieta.FileIntestazione = {u"C:\\Altrove", u"b.dat"};
  this->links.Salva();
  EXPECT_EQ(this->ownJob().lines(u"Collegati"),
            u"[Collegati]\nNumeroCollegati=1\nPercorso0=C:\\Altrove\nNome0=b.dat\n");
}

TYPED_TEST(VqDocCollegatiTest, LoadingAddsToTheDocumentsThatAreThere) {
  this->add({u"a"});
  this->links.Salva();
  typename TypeParam::Owner other;
  other.Collegati.Add(this->linked(u"b"));
  other.Carica(this->folder.path(), this->owner.Proprieta.FileIntestazione.Nome);
  ASSERT_EQ(other.Collegati.Count(), 2);
  EXPECT_EQ(other.Collegati.Item(1)->Proprieta.Id.get(), u"a");
}

TYPED_TEST(VqDocCollegatiTest, SavedDocumentsAreOpenedAgainInTheirOrder) {
  this->add({u"b", u"a"});
  this->links.Salva();
  const auto again = this->reloaded();
  ASSERT_EQ(again->Collegati.Count(), 2);
  EXPECT_EQ(again->Collegati.Item(0)->Proprieta.Id.get(), u"b");
  EXPECT_EQ(again->Collegati.Item(u"a")->Proprieta.FileIntestazione.Nome, u"a" + TypeParam::extension);
  EXPECT_TRUE(again->Collegati.Item(0)->Inizializzato.get());
}

TYPED_TEST(VqDocCollegatiTest, RemoveAllKeepsTheListInTheFileUntilSalva) {
  this->add({u"a"});
  this->links.Salva();
  this->links.RemoveAll();
  EXPECT_EQ(this->links.Count(), 0);
  EXPECT_EQ(this->reloaded()->Collegati.Count(), 1);
}

TYPED_TEST(VqDocCollegatiTest, OldEntriesStayPastTheNumberAndAreIgnored) {
  this->add({u"a"});
  this->links.Salva();
  this->links.RemoveAll();
  this->links.Salva();
  EXPECT_EQ(this->ownJob().value(u"Collegati", u"NumeroCollegati"), u"0");
  EXPECT_EQ(this->ownJob().value(u"Collegati", u"Nome0"), u"a" + TypeParam::extension);
  EXPECT_EQ(this->reloaded()->Collegati.Count(), 0);
}

TYPED_TEST(VqDocCollegatiTest, ListedFileThatIsGoneIsSkipped) {
  this->add({u"a", u"b"});
  this->links.Salva();
  std::filesystem::remove(this->folder.native(u"a" + TypeParam::extension));
  const auto again = this->reloaded();
  ASSERT_EQ(again->Collegati.Count(), 1);
  EXPECT_EQ(again->Collegati.Item(0)->Proprieta.Id.get(), u"b");
}

// A long folder is cut in reading, here within a character of two units.
TYPED_TEST(VqDocCollegatiTest, ListedTextThatNamesNoFileIsSkipped) {
  this->add({u"a"});
  this->links.Item(0)->Proprieta.FileIntestazione.Percorso = Text(254, u'x') + u"\U0001F4C4";
  this->links.Salva();
  EXPECT_EQ(this->reloaded()->Collegati.Count(), 0);
}

TYPED_TEST(VqDocCollegatiTest, DocumentDeletedSinceIsDroppedOnLoadWhereTheKindDoesSo) {
  this->add({u"a"});
  this->links.Salva();
  this->links.Item(0)->Coda.Codice = TypeParam::deleted;
  EXPECT_EQ(this->reloaded()->Collegati.Count(), TypeParam::dropsDeleted ? 0 : 1);
}

TYPED_TEST(VqDocCollegatiTest, ListedFileThatCannotBeLoadedFailsTheOwner) {
  this->add({u"a"});
  this->links.Salva();
  writeJobFile(this->folder.file(u"a" + TypeParam::extension), u"[Tipo]\nCodice=3000000000\n");
  EXPECT_EQ(errorOf([&] { this->reloaded(); }), 6);
}

TYPED_TEST(VqDocCollegatiTest, TwoListedFilesOfOneIdFailTheLoad) {
  this->add({u"a"});
  const auto& header = this->links.Item(0)->Proprieta.FileIntestazione;
  writeJobFile(this->owner.Proprieta.FileIntestazione.File(),
               u"[Collegati]\nNumeroCollegati=2\nPercorso0=" + header.Percorso + u"\nNome0=" + header.Nome +
                   u"\nPercorso1=" + header.Percorso + u"\nNome1=" + header.Nome + u'\n');
  EXPECT_EQ(errorOf([&] { this->reloaded(); }), 457);
}

TYPED_TEST(VqDocCollegatiTest, IterationGivesTheDocumentsInOrder) {
  this->add({u"b", u"a", u"c"});
  Text ids;
  for (const auto& document : this->links) ids += document->Proprieta.Id.get();
  EXPECT_EQ(ids, u"bac");
}

// Two documents that list each other, one that lists itself.
TYPED_TEST(VqDocCollegatiTest, DocumentsThatLeadBackRaiseOutOfStackSpace) {
  const auto a = this->linked(u"a"), b = this->linked(u"b");
  a->Collegati.Add(b);
  b->Collegati.Add(a);
  a->Collegati.Salva();
  b->Collegati.Salva();
  a->Collegati.RemoveAll();  // two documents that hold each other live for ever
  typename TypeParam::Linked again;
  EXPECT_EQ(errorOf([&] { again.Carica(this->folder.path(), u"a" + TypeParam::extension); }), 28);
  EXPECT_FALSE(again.Inizializzato.get());
}

TYPED_TEST(VqDocCollegatiTest, DocumentThatListsItselfRaisesOutOfStackSpace) {
  const auto a = this->linked(u"a");
  a->Collegati.Add(a);
  a->Collegati.Salva();
  a->Collegati.RemoveAll();
  typename TypeParam::Linked again;
  EXPECT_EQ(errorOf([&] { again.Carica(this->folder.path(), u"a" + TypeParam::extension); }), 28);
}

}  // namespace
}  // namespace orvane::test
