// Chains of linked documents have no limit but the stack, and a stack that does not suffice is an error.
#include <pthread.h>

#include "core/Numbers.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kUsualStack = 8 << 20;  // the sanitizer's frames are many times larger
#else
constexpr std::size_t kUsualStack = 1 << 20;
#endif
constexpr std::size_t kSmallStack = kUsualStack / 8;
constexpr int kDeep = 500;

/// Does `work` in a thread that has so much stack, with a factory of its own.
template <class Work>
void withStack(std::size_t size, Work work) {
  const auto run = [](void* given) -> void* {
    const VqDocumenti factory;
    (*static_cast<Work*>(given))(factory);
    return nullptr;
  };
  pthread_attr_t attributes;
  ::pthread_attr_init(&attributes);
  ::pthread_attr_setstacksize(&attributes, size);
  pthread_t thread;
  ASSERT_EQ(::pthread_create(&thread, &attributes, run, &work), 0);
  ::pthread_join(thread, nullptr);
  ::pthread_attr_destroy(&attributes);
}

template <class Kind>
class DeepLinks : public testing::Test {
 protected:
  /// Jobs 0 to `depth`, each but the last with a link to the next.
  void makeChain(int depth) const {
    for (int i = 0; i <= depth; ++i) {
      Text lines = u"[Proprieta]\nId=" + decimalText(i) + u'\n';
      if (i < depth) {
        lines += u"[Collegati]\nNumeroCollegati=1\nPercorso0=" + folder.path() + u"\nNome0=" +
                 decimalText(i + 1) + u".ini\n";
      }
      lines += u"[Dimensione]\nCodice=9\nDescrizione=A4 (21 x 29,7 cm)\n";
      writeJobFile(folder.file(decimalText(i) + u".ini"), lines);
    }
  }
  static int depthOf(const std::shared_ptr<Kind>& document) {
    int depth = 0;
    for (auto linked = document->Collegati.Item(0); linked; linked = linked->Collegati.Item(0)) ++depth;
    return depth;
  }
  TemporaryFolder folder;
};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocEmail>;
TYPED_TEST_SUITE(DeepLinks, Kinds);

TYPED_TEST(DeepLinks, AreLoadedRenderedAndReleasedOnAnOrdinaryStack) {
  this->makeChain(kDeep);
  withStack(kUsualStack, [&](const VqDocumenti&) {
    auto document = std::make_shared<TypeParam>();
    EXPECT_EQ(errorOf([&] { document->Carica(this->folder.path(), u"0.ini"); }), 0);
    EXPECT_EQ(this->depthOf(document), kDeep);
    EXPECT_NE(document->Xml(), u"");
  });
}

TYPED_TEST(DeepLinks, AreOutOfStackSpaceWhereTheStackDoesNotSuffice) {
  this->makeChain(kDeep);
  withStack(kSmallStack, [&](const VqDocumenti&) {
    TypeParam document;
    EXPECT_EQ(errorOf([&] { document.Carica(this->folder.path(), u"0.ini"); }), 28);
    EXPECT_EQ(document.Collegati.Count(), 0);
    EXPECT_EQ(errorOf([&] { document.Carica(this->folder.path(), u"490.ini"); }), 0);
  });
}

using DeepPrintLinks = DeepLinks<VqDocStampa>;

TEST_F(DeepPrintLinks, AreReleasedOnAnyStack) {
  std::shared_ptr<VqDocStampa> first;
  {
    const VqDocumenti factory;
    for (int i = 0; i < 100 * kDeep; ++i) {
      auto next = factory.NuovoDocumentoStampa();
      if (first) next->Collegati.Add(std::move(first));
      first = std::move(next);
    }
  }
  withStack(kSmallStack, [&](const VqDocumenti&) { first.reset(); });
}

// Ids grow by two characters a level, so a chain that names of files allow is some hundred levels deep.
TEST_F(DeepPrintLinks, AreDuplicatedAsFarAsNamesOfFilesAllow) {
  this->makeChain(60);
  withStack(kUsualStack, [&](const VqDocumenti& factory) {
    const auto from = factory.NuovoDocumentoStampa(), to = factory.NuovoDocumentoStampa();
    from->Carica(folder.path(), u"0.ini");
    to->Inizializza(u"copia", folder.path());
    EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(from, to); }), 0);
    EXPECT_EQ(depthOf(to), 60);
  });
}

}  // namespace
}  // namespace orvane::test
