// What is read, and in which order, where pages and catalogs cannot be read to their end.
#include <filesystem>

#include "pages/VqDocPagine.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class PageLoadingTest : public JobTest {
 protected:
  int errorOfLoading(TextView lines) {
    folder.write(u"a.dpg", "");
    writeJobFile(jobName(), lines);
    bind(pages);
    return errorOf([&] { pages.Carica(folder.path()); });
  }
  VqDocPagine pages;
};

TEST_F(PageLoadingTest, LimitThatCannotBeReadLeavesTheLaterOnesStateAndPagesUnread) {
  EXPECT_EQ(errorOfLoading(u"[Pagine]\nMassimaAltezzaPagina=5\nMassimaLarghezzaPagina=6\n"
                           u"MassimaAltezzaTeorica=3000000000\nMassimaAltezzaVirtuale=8\nCopieDelegabili=-1\n"
                           u"[Stato]\nCodice=1\n"),
            6);
  EXPECT_EQ(pages.MaxAltezzaPagina.get() * 10 + pages.MaxLarghezzaPagina.get(), 56);
  EXPECT_EQ(pages.MaxAltezzaVirtuale.get(), 0);
  EXPECT_FALSE(pages.CopieDelegabili.get());
  EXPECT_EQ(pages.Stato.Codice.get(), vdps_DaScomporre);
  EXPECT_EQ(pages.Count(), 0);
}

TEST_F(PageLoadingTest, StateThatCannotBeReadComesBehindTheLimitsAndBeforeThePages) {
  EXPECT_EQ(errorOfLoading(u"[Pagine]\nMassimaAltezzaVirtuale=8\nCopieDelegabili=-1\n"
                           u"[Stato]\nCodice=1\nPagineScomposte=3000000000\n"),
            6);
  EXPECT_EQ(pages.MaxAltezzaVirtuale.get(), 8);
  EXPECT_TRUE(pages.CopieDelegabili.get());
  EXPECT_EQ(pages.Stato.Codice.get(), vdps_Scomposte);
  EXPECT_EQ(pages.Count(), 0);
}

// The folder's path, however it was named.
TEST_F(PageLoadingTest, FolderOfAPageHasNoSeparatorsAtItsEnd) {
  folder.write(u"a.dpg", "");
  for (const TextView end : {u"\\\\", u"/", u"/\\"}) {
    VqDocPagine own;
    own.Carica(folder.path() + Text(end));
    EXPECT_EQ(own.Item(1)->FileIntestazione.Percorso, folder.published());
  }
}

class CatalogLoadingTest : public JobTest {};

TEST_F(CatalogLoadingTest, BytesBeforeAPieceThatCannotBeReadAreKept) {
  VqDocCatalogoSorgente catalog;
  catalog.RipassaOn(2) = 9;
  EXPECT_EQ(errorOf([&] { loadFrom(catalog, u"[Catalogo sorgente]\nRipassaOn=5;6;x;7;\n"); }), 13);
  EXPECT_EQ(catalog.StrAscRipassaOn(), u"005;006;009;000;000;000;000;");
}

TEST_F(CatalogLoadingTest, SevenBytesBeforeAnEighthAreKept) {
  VqDocCatalogoDestinaz catalog;
  EXPECT_EQ(errorOf([&] { loadFrom(catalog, u"[CatalogoDestinazione]\nCustomCOff=1;2;3;4;5;6;7;8;\n"); }), 9);
  EXPECT_EQ(catalog.StrAscCustomCOff(), u"001;002;003;004;005;006;007;");
}

TEST_F(JobTest, FileIsClosedOnceItsStreamIsRead) {
  namespace fs = std::filesystem;
  const fs::path handles = "/proc/self/fd";  // where the system shows them
  const auto open = [&] {
    return fs::exists(handles) ? std::distance(fs::directory_iterator(handles), fs::directory_iterator()) : 0;
  };
  folder.write(u"a.txt", "testo");
  const auto before = open();
  EXPECT_EQ((VqDocFile{folder.path(), u"a.txt"}.ReadStream()), u"testo");
  EXPECT_EQ(open(), before);
  EXPECT_TRUE(fs::remove(folder.native(u"a.txt")));  // elsewhere a file in use stays
}

}  // namespace
}  // namespace orvane::test
