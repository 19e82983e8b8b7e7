// The whole XML of every document, new and with every member set.
#include "tests/support/JobTest.h"
#include "tests/unit/Expected.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

struct KindRow {
  const char *expected, *extension, *kind, *kindText;
  enmVqDocTipo type;
};
template <class Kind>
constexpr KindRow kRow{};
template <>
constexpr KindRow kRow<VqDocStampa>{"Stampa", ".vqs", "2", "Stampa", vdt_Stampa};
template <>
constexpr KindRow kRow<VqDocFax>{"Fax", ".vqf", "1", "Fax", vdt_Fax};
template <>
constexpr KindRow kRow<VqDocPFax>{"PFax", ".vqpf", "4", "Fax", vdt_PFax};
template <>
constexpr KindRow kRow<VqDocEmail>{"Email", ".vqe", "3", "Email", vdt_Email};

template <class Kind>
class DocumentXmlTest : public JobTest {
 protected:
  static constexpr const KindRow& row = kRow<Kind>;

  std::string expectedSet(const std::string& extension = row.extension) const {
    return expectedXml(std::string(row.expected) + ".set", {{"folder", toUtf8(this->folder.path())},
                                                            {"file", "123" + extension},
                                                            {"id", "123"},
                                                            {"kind", row.kind},
                                                            {"kindText", row.kindText}});
  }
  // The wrapping documents need an inner one of a kind to have XML: one that is new but for that kind.
  std::string expectedNewOfKind() const {
    std::string xml = expectedXml(std::string(row.expected) + ".new");
    const std::string none = "<Tipo><Codice>0</Codice><Descrizione>Sconosciuto</Descrizione></Tipo>";
    return xml.replace(xml.find(none), none.size(),
                       "<Tipo><Codice>" + std::string(row.kind) + "</Codice><Descrizione>" + row.kindText +
                           "</Descrizione></Tipo>");
  }
  template <class Wrapping>
  static Kind& inner(Wrapping& wrapping) {
    return *std::get<std::shared_ptr<Kind>>(wrapping.Documento());
  }

  FixedClock clock{{39814.0}};
};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocPFax, VqDocEmail>;
TYPED_TEST_SUITE(DocumentXmlTest, Kinds);

TYPED_TEST(DocumentXmlTest, NewDocument) {
  EXPECT_EQ(toUtf8(TypeParam().Xml()), expectedXml(std::string(this->row.expected) + ".new"));
}

TYPED_TEST(DocumentXmlTest, DocumentWithEveryMemberSet) {
  TypeParam document;
  document.Inizializza(u"123", this->folder.path());
  fill(document, this->clock);
  EXPECT_EQ(toUtf8(document.Xml()), this->expectedSet());
}

TYPED_TEST(DocumentXmlTest, XmlChangesNeitherObjectNorFile) {
  TypeParam document;
  document.Inizializza(u"123", this->folder.path());
  fill(document, this->clock);
  const Text file = document.Proprieta.FileIntestazione.Nome, before = this->job(file).lines();
  const Text first = document.Xml();
  EXPECT_EQ(toUtf8(document.Xml()), toUtf8(first));
  EXPECT_EQ(this->job(file).lines(), before);
}

TYPED_TEST(DocumentXmlTest, LinkedDocumentsDoNotAppear) {
  TypeParam document;
  document.Inizializza(u"123", this->folder.path());
  const Text before = document.Xml();
  using Linked = typename std::remove_reference_t<decltype(document.Collegati)>::Pointer::element_type;
  document.Collegati.Add(std::make_shared<Linked>());
  EXPECT_EQ(toUtf8(document.Xml()), toUtf8(before));
}

TYPED_TEST(DocumentXmlTest, PreviewOfANewDocument) {
  VqDocAnteprima preview;
  preview.ImpostaDocumento(this->row.type);
  this->inner(preview).Proprieta.Tipo.Codice = this->row.type;
  EXPECT_EQ(toUtf8(preview.Xml()), expectedXml("Anteprima.new", {{"inner", this->expectedNewOfKind()}}));
}

TYPED_TEST(DocumentXmlTest, PreviewWithEveryMemberSet) {
  VqDocAnteprima preview;
  preview.Inizializza(u"123", this->row.type, this->folder.path());
  fill(this->inner(preview), this->clock);
  fill(preview.Coda, this->clock, 5);
  EXPECT_EQ(toUtf8(preview.Xml()), expectedXml("Anteprima.set", {{"inner", this->expectedSet(".vqa")}}));
}

TYPED_TEST(DocumentXmlTest, PublicationOfANewDocument) {
  VqDocPbl publication;
  publication.ImpostaDocumento(this->row.type);
  this->inner(publication).Proprieta.Tipo.Codice = this->row.type;
  EXPECT_EQ(toUtf8(publication.Xml()), expectedXml("Pbl.new", {{"inner", this->expectedNewOfKind()}}));
}

TYPED_TEST(DocumentXmlTest, PublicationWithEveryMemberSet) {
  VqDocPbl publication;
  publication.Inizializza(u"123", this->row.type, this->folder.path());
  fill(this->inner(publication), this->clock);
  fill(publication.Coda, this->clock, 7);
  fill(publication.Allegati);
  publication.Pubblicazione.FilePbl = {u"C:\\Pbl", u"p.html"};
  EXPECT_EQ(toUtf8(publication.Xml()), expectedXml("Pbl.set", {{"inner", this->expectedSet(".vqpb")}}));
}

}  // namespace
}  // namespace orvane::test
