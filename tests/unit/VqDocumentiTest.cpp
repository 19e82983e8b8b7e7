#include "core/VqDocumenti.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

class VqDocumentiTest : public JobTest {};

TEST_F(VqDocumentiTest, GivesADifferentNewDocumentEachTime) {
  const auto first = factory.NuovoDocumentoStampa(), second = factory.NuovoDocumentoStampa();
  EXPECT_NE(first, second);
  EXPECT_NE(first->Proprieta.Guid.get(), second->Proprieta.Guid.get());
  EXPECT_FALSE(first->Inizializzato);
  EXPECT_FALSE(second->Inizializzato);
}

TEST_F(VqDocumentiTest, GivesADocumentOfEachKind) {
  EXPECT_FALSE(factory.NuovoDocumentoFax()->Inizializzato);
  EXPECT_FALSE(factory.NuovoDocumentoPFax()->Inizializzato);
  EXPECT_FALSE(factory.NuovoDocumentoEmail()->Inizializzato);
  EXPECT_NE(factory.NuovoDocumentoAnteprima(), nullptr);
  EXPECT_NE(factory.NuovoDocumentoPbl(), nullptr);
}

TEST_F(VqDocumentiTest, LeavesADocumentToWhoeverHoldsIt) {
  std::weak_ptr<VqDocStampa> released;
  {
    const auto stampa = factory.NuovoDocumentoStampa();
    released = stampa;
    EXPECT_FALSE(released.expired());
  }
  EXPECT_TRUE(released.expired());
}

TEST_F(VqDocumentiTest, WritesTheSameWhenEveryWriteIsFlushed) {
  factory.flushEveryWrite(true);
  const auto stampa = factory.NuovoDocumentoStampa();
  stampa->Inizializza(u"1", folder.path());
  stampa->Numero = 4;
  EXPECT_EQ(job(u"1.vqs").value(u"Stampa", u"Numero"), u"4");
}

}  // namespace
}  // namespace orvane::test
