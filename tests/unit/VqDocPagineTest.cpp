#include "pages/VqDocPagine.h"

#include "tests/support/JobTest.h"
#include "tests/support/PresentFolder.h"

namespace orvane::test {
namespace {

class VqDocPagineTest : public JobTest {
 protected:
  VqDocPagineTest() { bind(pages); }

  void add(int count) {
    for (int i = 0; i < count; ++i) pages.Add(pages.Nuova());
  }
  std::vector<std::int32_t> numbers() const {
    std::vector<std::int32_t> out;
    for (const auto& page : pages) out.push_back(page->Numero);
    return out;
  }
  using Numbers = std::vector<std::int32_t>;

  VqDocPagine pages;
};

TEST_F(VqDocPagineTest, NewCollectionIsEmptyWithLimitsZero) {
  EXPECT_EQ(pages.Count(), 0);
  EXPECT_EQ(pages.MaxAltezzaPagina.get(), 0);
  EXPECT_EQ(pages.MaxLarghezzaPagina.get() + pages.MaxAltezzaTeorica.get() + pages.MaxAltezzaVirtuale.get(),
            0);
  EXPECT_FALSE(pages.CopieDelegabili.get());
}

TEST_F(VqDocPagineTest, LimitsAndFlagAreWrittenUnderKeysThatSpellMassima) {
  pages.MaxAltezzaPagina = 1;
  pages.MaxLarghezzaPagina = 2;
  pages.MaxAltezzaTeorica = 3;
  pages.MaxAltezzaVirtuale = -4;
  pages.CopieDelegabili = true;
  EXPECT_EQ(job().lines(),
            u"[Pagine]\nMassimaAltezzaPagina=1\nMassimaLarghezzaPagina=2\nMassimaAltezzaTeorica=3\n"
            u"MassimaAltezzaVirtuale=-4\nCopieDelegabili=-1\n");
}

TEST_F(VqDocPagineTest, AddNumbersThePages) {
  add(3);
  EXPECT_EQ(numbers(), (Numbers{1, 2, 3}));
}

TEST_F(VqDocPagineTest, AddOfNoPageRaisesObjectNotSet) {
  EXPECT_EQ(errorOf([&] { pages.Add(nullptr); }), 91);
  EXPECT_EQ(pages.Count(), 0);
}

TEST_F(VqDocPagineTest, NuovaAddsNothing) {
  EXPECT_EQ(pages.Nuova()->Numero.get(), 0);
  EXPECT_EQ(pages.Count(), 0);
}

TEST_F(VqDocPagineTest, ItemCountsFromOne) {
  add(2);
  EXPECT_EQ(pages.Item(1)->Numero.get(), 1);
  EXPECT_EQ(pages.Item(2)->Numero.get(), 2);
}

TEST_F(VqDocPagineTest, ItemOutOfRangeIsNothingAndDoesNotExist) {
  add(2);
  for (const std::int32_t position : {-1, 0, 3, INT32_MAX, INT32_MIN}) {
    EXPECT_EQ(pages.Item(position), nullptr) << position;
    EXPECT_FALSE(pages.Exists(position)) << position;
  }
}

TEST_F(VqDocPagineTest, ExistsForEveryPosition) {
  add(2);
  EXPECT_TRUE(pages.Exists(1));
  EXPECT_TRUE(pages.Exists(2));
}

TEST_F(VqDocPagineTest, RemoveLastRemovesThePageBeforeTheLast) {
  add(3);
  pages.RemoveLast();
  EXPECT_EQ(numbers(), (Numbers{1, 3}));
}

TEST_F(VqDocPagineTest, RemoveLastOfTwoPagesLeavesTheSecond) {
  add(2);
  pages.RemoveLast();
  EXPECT_EQ(numbers(), (Numbers{2}));
}

TEST_F(VqDocPagineTest, APageAddedTwiceStandsTwiceUnderItsLastNumber) {
  const auto page = pages.Nuova();
  pages.Add(page);
  pages.Add(page);
  EXPECT_EQ(numbers(), (Numbers{2, 2}));
}

TEST_F(VqDocPagineTest, PageAddedAfterARemovalTakesTheCountPlusOne) {
  add(3);
  pages.RemoveLast();
  add(1);
  EXPECT_EQ(numbers(), (Numbers{1, 3, 3}));
}

TEST_F(VqDocPagineTest, RemoveLastOfTheOnlyPageRaisesInvalidCall) {
  add(1);
  EXPECT_EQ(errorOf([&] { pages.RemoveLast(); }), 5);
  EXPECT_EQ(pages.Count(), 1);
}

TEST_F(VqDocPagineTest, RemoveLastOfAnEmptyCollectionDoesNothing) {
  EXPECT_EQ(errorOf([&] { pages.RemoveLast(); }), 0);
  EXPECT_EQ(pages.Count(), 0);
}

TEST_F(VqDocPagineTest, RemoveAllEmptiesTheCollection) {
  add(3);
  const auto kept = pages.Item(2);
  pages.RemoveAll();
  EXPECT_EQ(pages.Count(), 0);
  EXPECT_EQ(kept->Numero.get(), 2);
}

TEST_F(VqDocPagineTest, CaricaLoadsFilesThatEndInDpgInLowerCaseOnly) {
  for (const char16_t* name : {u"a.dpg", u"b.DPG", u"c.txt", u"d.Dpg", u"edpg", u"f.dpg.tmp"}) {
    folder.write(name, "");
  }
  folder.write(u"g.dpg\\h.txt", "");
  pages.Carica(folder.path());
  ASSERT_EQ(pages.Count(), 1);
  EXPECT_EQ(pages.Item(1)->FileIntestazione.File(), folder.published(u"a.dpg"));
}

TEST_F(VqDocPagineTest, CaricaOrdersPagesByNameAndNumbersThem) {
  for (const char16_t* name : {u"p2.dpg", u"p10.dpg", u"p1.dpg"}) folder.write(name, "");
  pages.Carica(folder.path());
  EXPECT_EQ(numbers(), (Numbers{1, 2, 3}));
  EXPECT_EQ(pages.Item(1)->FileIntestazione.Nome, u"p1.dpg");
  EXPECT_EQ(pages.Item(3)->FileIntestazione.Nome, u"p2.dpg");
}

TEST_F(VqDocPagineTest, CaricaAddsToWhatTheCollectionHolds) {
  folder.write(u"a.dpg", "");
  add(2);
  pages.Carica(folder.path());
  EXPECT_EQ(numbers(), (Numbers{1, 2, 3}));
}

TEST_F(VqDocPagineTest, CaricaOfAMissingFolderStillLoadsLimitsAndState) {
  writeJobFile(jobName(),
               u"[Pagine]\nMassimaAltezzaPagina=5\nMassimaLarghezzaPagina=6\n"
               u"MassimaAltezzaTeorica=7\nMassimaAltezzaVirtuale=8\nCopieDelegabili=-1\n"
               u"[Stato]\nCodice=1\nPagineScomposte=9\n");
  pages.Carica(folder.file(u"manca"));
  EXPECT_EQ(pages.MaxAltezzaPagina.get() * 10 + pages.MaxLarghezzaPagina.get(), 56);
  EXPECT_EQ(pages.MaxAltezzaTeorica.get() * 10 + pages.MaxAltezzaVirtuale.get(), 78);
  EXPECT_TRUE(pages.CopieDelegabili.get());
  EXPECT_EQ(pages.Stato.Codice.number() * 10 + pages.Stato.PagineScomposte.get(), 19);
}

TEST_F(VqDocPagineTest, CaricaOfAMissingFolderKeepsThePages) {
  add(2);
  for (const TextView missing : {u"manca", u"\xD800"}) pages.Carica(folder.file(missing));
  EXPECT_EQ(pages.Count(), 2);
}

TEST_F(VqDocPagineTest, CaricaFromAJobFileWithoutTheSectionGivesTheDefaults) {
  pages.MaxAltezzaPagina = 5;
  writeJobFile(jobName(), u"[Altro]\n");
  pages.Carica(folder.path());
  EXPECT_EQ(pages.MaxAltezzaPagina.get(), 0);
}

TEST_F(VqDocPagineTest, CaricaKeepsThePagesBeforeOneThatCannotBeRead) {
  folder.write(u"a.dpg", "");
  writeJobFile(folder.file(u"b.dpg"), u"[Validita]\nCodice=3000000000\n");
  folder.write(u"c.dpg", "");
  EXPECT_EQ(errorOf([&] { pages.Carica(folder.path()); }), 6);
  EXPECT_EQ(numbers(), (Numbers{1}));
}

TEST_F(VqDocPagineTest, CaricaWithoutAJobFileGivesTheDefaultsAndThePages) {
  VqDocPagine unbound;
  unbound.MaxAltezzaPagina = 5;
  unbound.Stato.PagineScomposte = 6;
  folder.write(u"a.dpg", "");
  unbound.Carica(folder.path());
  EXPECT_EQ(unbound.MaxAltezzaPagina.get() + unbound.Stato.PagineScomposte.get(), 0);
  EXPECT_EQ(unbound.Count(), 1);
}

TEST_F(VqDocPagineTest, FolderOfALoadedPageHasNoBackslashAtItsEnd) {
  folder.write(u"a.dpg", "");
  pages.Carica(folder.path() + u'\\');
  EXPECT_EQ(pages.Item(1)->FileIntestazione.Percorso, folder.published());
}

TEST_F(VqDocPagineTest, LoadedPageStaysInItsFolderWhenThePresentFolderChanges) {
  folder.write(u"pagine\\a.dpg", "");
  folder.write(u"pagine\\a.vvq", "");
  {
    const PresentFolder present(folder.native());
    pages.Carica(u"pagine");
  }
  const auto page = pages.Item(1);
  EXPECT_EQ(page->FileIntestazione.Percorso, folder.published(u"pagine"));
  EXPECT_EQ(page->FileUtente.Percorso, page->FileIntestazione.Percorso);
  EXPECT_TRUE(Apartment::fileSystem().fileExists(page->FileVvq.File()));
  page->Suddivisione = u"S";
  page->Salva();
  EXPECT_EQ(job(u"pagine\\a.dpg").value(u"Proprieta", u"Suddivisione"), u"S");
}

TEST_F(VqDocPagineTest, StateIsWrittenToTheJobFileOfTheCollection) {
  pages.Stato.Codice = vdps_Scomposte;
  pages.Stato.PagineScomposte = 12;
  EXPECT_EQ(job().lines(), u"[Stato]\nCodice=1\nDescrizione=Scomposte\nPagineScomposte=12\n");
}

}  // namespace
}  // namespace orvane::test
