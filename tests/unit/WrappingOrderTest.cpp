// What publication and preview do with their inner document, step by step.
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

template <class Wrapping>
class WrappingOrderTest : public JobTest {
 protected:
  static constexpr const char16_t* extension = std::is_same_v<Wrapping, VqDocPbl> ? u".vqpb" : u".vqa";

  void bindAs(std::int32_t kind) { wrapping.Inizializza(u"55", enmVqDocTipo(kind), this->folder.path()); }
  int errorOfLoading(TextView lines) {
    writeJobFile(this->folder.file(u"job"), lines);
    return errorOf([&] { wrapping.Carica(this->folder.path(), u"job"); });
  }
  std::int32_t innerKind() const { return static_cast<std::int32_t>(wrapping.Documento().index()); }

  Wrapping wrapping;
};
using Wrappings = testing::Types<VqDocPbl, VqDocAnteprima>;
TYPED_TEST_SUITE(WrappingOrderTest, Wrappings);

TYPED_TEST(WrappingOrderTest, DocumentOfABoundJobStaysWhateverTheKind) {
  this->bindAs(3);
  const InnerDocument bound = this->wrapping.Documento();
  for (const std::int32_t kind : {1, 2, 3, 4, 7, -1}) {
    EXPECT_TRUE(this->wrapping.ImpostaDocumento(enmVqDocTipo(kind)));
    EXPECT_EQ(this->wrapping.Documento(), bound);
  }
  EXPECT_EQ(errorOf([&] { this->wrapping.ImpostaDocumento(vdt_Sconosciuto); }), 445);
}

TYPED_TEST(WrappingOrderTest, DocumentThatSaysItIsOfAnotherKindIsRenderedAsItIs) {
  this->bindAs(1);
  for (const std::int32_t kind : {2, 3, 4}) {
    this->wrapping.Proprieta().Tipo.Codice = kind;
    EXPECT_NE(this->wrapping.Xml().find(u"<Fax>VqDocFax"), Text::npos) << kind;
  }
}

TYPED_TEST(WrappingOrderTest, KindThatCannotBeReadMakesNoDocument) {
  EXPECT_EQ(this->errorOfLoading(u"[Tipo]\nCodice=3000000000\n"), 6);
  EXPECT_EQ(this->innerKind(), 0);
}

TYPED_TEST(WrappingOrderTest, KindIsReadBeforeTheDocumentThatIsThere) {
  this->wrapping.ImpostaDocumento(vdt_Fax);
  for (const TextView kind : {u"0", u"3000000000"}) {
    EXPECT_NE(this->errorOfLoading(u"[Proprieta]\nUtente=MR\n[Tipo]\nCodice=" + Text(kind) + u'\n'), 0);
    EXPECT_EQ(this->wrapping.Proprieta().Utente.get(), u"");
    EXPECT_EQ(this->wrapping.Proprieta().FileIntestazione.Nome, u"");
  }
}

// The text of the kind is what cannot be had without strings.
TYPED_TEST(WrappingOrderTest, QueueIsUnboundWhereTheDocumentCannotBeBound) {
  Apartment::create([] { return std::shared_ptr<VqDocResDll>(); });
  EXPECT_EQ(errorOf([&] { this->bindAs(1); }), 91);
  const VqDocumenti again;
  this->wrapping.Coda.DataInserimento = Date{39814};
  EXPECT_EQ(this->innerKind(), 1);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
  EXPECT_EQ(this->job(Text(u"55") + this->extension).lines(), u"[Proprieta]\nId=55\n[Tipo]\nCodice=1\n");
}

}  // namespace
}  // namespace orvane::test
