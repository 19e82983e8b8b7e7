#include "pages/VqDocLayoutPagina.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class VqDocLayoutPaginaTest : public JobTest {
 protected:
  VqDocLayoutPaginaTest() { bind(layout); }
  VqDocLayoutPagina layout;
};

TEST_F(VqDocLayoutPaginaTest, StartsFittedAndNotEnlarged) {
  EXPECT_TRUE(layout.AdattaAllaPagina.get());
  EXPECT_FALSE(layout.Ingrandibile.get());
  EXPECT_EQ(layout.PosizionePagina.Codice.number(), 0);
}

TEST_F(VqDocLayoutPaginaTest, EveryAssignmentIsWritten) {
  layout.AdattaAllaPagina = false;
  layout.Ingrandibile = true;
  layout.PosizionePagina.Codice = vdpp_CentroPagina;
  EXPECT_EQ(job().lines(),
            u"[LayoutPagina]\nAdattaAllaPagina=0\nIngrandibile=-1\n"
            u"[PosizionePagina]\nCodice=8\nDescrizione=Centro pagina\n");
}

TEST_F(VqDocLayoutPaginaTest, JobFileWithoutTheSectionLoadsFitted) {
  layout.AdattaAllaPagina = false;
  loadFrom(layout, u"[Altro]\n");
  EXPECT_TRUE(layout.AdattaAllaPagina.get());
  EXPECT_FALSE(layout.Ingrandibile.get());
}

TEST_F(VqDocLayoutPaginaTest, StoredValuesAreReadBackWithThePosition) {
  loadFrom(layout, u"[LayoutPagina]\nAdattaAllaPagina=0\nIngrandibile=-1\n[PosizionePagina]\nCodice=3\n");
  EXPECT_FALSE(layout.AdattaAllaPagina.get());
  EXPECT_TRUE(layout.Ingrandibile.get());
  EXPECT_EQ(layout.PosizionePagina.Codice.number(), 3);
}

TEST_F(VqDocLayoutPaginaTest, XmlHasTheFlagsThenThePosition) {
  layout.Ingrandibile = true;
  EXPECT_EQ(Components::xmlOf(layout),
            u"<LayoutPagina><AdattaAllaPagina>-1</AdattaAllaPagina><Ingrandibile>-1</Ingrandibile>"
            u"<PosizionePagina><Codice>0</Codice><Descrizione>Angolo superiore sinistro</Descrizione>"
            u"</PosizionePagina></LayoutPagina>");
}

}  // namespace
}  // namespace orvane::test
