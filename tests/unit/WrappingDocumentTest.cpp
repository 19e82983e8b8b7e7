// What publication and preview do alike.
#include "email/WrappingDocument.h"

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

template <class Wrapping>
const char16_t* kExtension = u"";
template <>
const char16_t* kExtension<VqDocPbl> = u".vqpb";
template <>
const char16_t* kExtension<VqDocAnteprima> = u".vqa";

template <class Wrapping>
class WrappingDocumentTest : public JobTest {
 protected:
  Text name() const { return Text(u"55") + kExtension<Wrapping>; }
  void bindAs(std::int32_t kind) { wrapping.Inizializza(u"55", enmVqDocTipo(kind), this->folder.path()); }
  void load(TextView lines) {
    writeJobFile(this->folder.file(this->name()), lines);
    wrapping.Carica(this->folder.path(), this->name());
  }
  // The kind of the inner document by its class: 0 for none.
  std::int32_t innerKind() const { return static_cast<std::int32_t>(wrapping.Documento().index()); }

  Wrapping wrapping;
};
using Wrappings = testing::Types<VqDocPbl, VqDocAnteprima>;
TYPED_TEST_SUITE(WrappingDocumentTest, Wrappings);

constexpr std::int32_t kKinds[] = {1, 2, 3, 4};

TYPED_TEST(WrappingDocumentTest, StartsUnboundWithoutADocument) {
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
  EXPECT_EQ(this->innerKind(), 0);
}

TYPED_TEST(WrappingDocumentTest, EveryKindMakesItsDocument) {
  for (const std::int32_t kind : kKinds) {
    TypeParam other;
    EXPECT_TRUE(other.ImpostaDocumento(enmVqDocTipo(kind)));
    EXPECT_EQ(static_cast<std::int32_t>(other.Documento().index()), kind);
  }
}

TYPED_TEST(WrappingDocumentTest, UnknownKindRaises445) {
  EXPECT_EQ(errorOf([&] { this->wrapping.ImpostaDocumento(vdt_Sconosciuto); }), 445);
  this->wrapping.ImpostaDocumento(vdt_Fax);
  EXPECT_EQ(errorOf([&] { this->wrapping.ImpostaDocumento(vdt_Sconosciuto); }), 445);
}

TYPED_TEST(WrappingDocumentTest, NumberThatIsNoKindIsTrueAndMakesNoDocument) {
  for (const std::int32_t kind : {-1, 5, 7}) {
    EXPECT_TRUE(this->wrapping.ImpostaDocumento(enmVqDocTipo(kind)));
    EXPECT_EQ(this->innerKind(), 0);
  }
}

TYPED_TEST(WrappingDocumentTest, DocumentThatIsThereStaysWhateverTheKind) {
  this->wrapping.ImpostaDocumento(vdt_Stampa);
  EXPECT_TRUE(this->wrapping.ImpostaDocumento(vdt_Fax));
  EXPECT_TRUE(this->wrapping.ImpostaDocumento(enmVqDocTipo(7)));
  EXPECT_EQ(this->innerKind(), 2);
}

TYPED_TEST(WrappingDocumentTest, DocumentSetEarlyIsTheOneThatIsBound) {
  this->wrapping.ImpostaDocumento(vdt_Stampa);
  this->wrapping.Proprieta().Utente = u"MR";
  this->bindAs(1);
  EXPECT_EQ(this->innerKind(), 2);
  EXPECT_EQ(this->wrapping.Proprieta().Tipo.Codice.number(), 2);
  EXPECT_EQ(this->wrapping.Proprieta().Utente.get(), u"MR");
}

TYPED_TEST(WrappingDocumentTest, DocumentSetEarlyIsBoundAsANumberThatIsNoKindToo) {
  this->wrapping.ImpostaDocumento(vdt_Email);
  this->bindAs(7);
  EXPECT_EQ(this->job(this->name()).value(u"Tipo", u"Codice"), u"3");
}

TYPED_TEST(WrappingDocumentTest, DocumentSetEarlyIsTheOneThatIsLoaded) {
  for (const TextView kind : {u"[Tipo]\nCodice=2\n", u"[Altro]\n"}) {
    TypeParam other;
    other.ImpostaDocumento(vdt_Fax);
    writeJobFile(this->folder.file(this->name()), Text(kind) + u"[Proprieta]\nUtente=MR\n");
    other.Carica(this->folder.path(), this->name());
    EXPECT_EQ(other.Documento().index(), 1u);
    EXPECT_EQ(other.Proprieta().Utente.get(), u"MR");
  }
}

TYPED_TEST(WrappingDocumentTest, DocumentBoundByItselfIsNotBoundAgain) {
  this->wrapping.ImpostaDocumento(vdt_Fax);
  std::get<std::shared_ptr<VqDocFax>>(this->wrapping.Documento())->Inizializza(u"7", this->folder.path());
  EXPECT_EQ(errorOf([&] { this->bindAs(1); }), 445);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
}

TYPED_TEST(WrappingDocumentTest, StoredKindIsRoundedHalvesToEven) {
  this->load(u"[Tipo]\nCodice=2.5\n");
  EXPECT_EQ(this->innerKind(), 2);
}

TYPED_TEST(WrappingDocumentTest, QueueSetBeforeLoadingIsTheFilesAfterIt) {
  this->wrapping.Coda.Codice = 2;
  this->load(u"[Tipo]\nCodice=2\n");
  EXPECT_EQ(this->wrapping.Coda.Codice.number(), 0);
  EXPECT_EQ(this->wrapping.Coda.DataElaborazione.get(), Date{});
}

TYPED_TEST(WrappingDocumentTest, JobFileHasTheWrappingExtensionWhateverTheKind) {
  for (const std::int32_t kind : kKinds) {
    TypeParam other;
    const Text id = fromUtf8(std::to_string(kind));
    other.Inizializza(id, enmVqDocTipo(kind), this->folder.path());
    EXPECT_EQ(other.Proprieta().FileIntestazione.File(), this->folder.file(id + kExtension<TypeParam>));
    EXPECT_EQ(this->job(id + kExtension<TypeParam>).value(u"Tipo", u"Codice"), id);
    EXPECT_TRUE(other.Inizializzato.get());
  }
}

TYPED_TEST(WrappingDocumentTest, QueueIsBoundToTheSameFile) {
  this->bindAs(3);
  this->wrapping.Coda.Codice = 1;
  EXPECT_EQ(this->job(this->name()).value(this->wrapping.Coda.jobSection(), u"Codice"), u"1");
}

TYPED_TEST(WrappingDocumentTest, LoadingGivesTheKindThatTheFileNames) {
  for (const std::int32_t kind : kKinds) {
    TypeParam written, loaded;
    const Text id = fromUtf8(std::to_string(kind));
    written.Inizializza(id, enmVqDocTipo(kind), this->folder.path());
    written.Proprieta().Utente = u"MR";
    written.Coda.Codice = 2;
    loaded.Carica(this->folder.path(), id + kExtension<TypeParam>);
    EXPECT_EQ(static_cast<std::int32_t>(loaded.Documento().index()), kind);
    EXPECT_EQ(loaded.Proprieta().Utente.get(), u"MR");
    EXPECT_EQ(loaded.Coda.Codice.number(), 2);
    EXPECT_TRUE(loaded.Inizializzato.get());
  }
}

TYPED_TEST(WrappingDocumentTest, SecondBindingRaises445) {
  this->bindAs(1);
  EXPECT_EQ(errorOf([&] { this->bindAs(1); }), 445);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(this->folder.path(), this->name()); }), 445);
}

TYPED_TEST(WrappingDocumentTest, FolderEmptyOrMissingRaises76AndMakesNoDocument) {
  for (const Text& missing : {Text(), this->folder.file(u"manca")}) {
    EXPECT_EQ(errorOf([&] { this->wrapping.Inizializza(u"55", vdt_Fax, missing); }), 76);
    EXPECT_EQ(errorOf([&] { this->wrapping.Carica(missing, u"a"); }), 76);
  }
  EXPECT_EQ(this->innerKind(), 0);
}

TYPED_TEST(WrappingDocumentTest, FolderIsLookedAtBeforeKindAndName) {
  EXPECT_EQ(errorOf([&] { this->wrapping.Inizializza(u"55", vdt_Sconosciuto, u""); }), 76);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(u"", u""); }), 76);
  this->bindAs(1);
  EXPECT_EQ(errorOf([&] { this->wrapping.Inizializza(u"55", vdt_Sconosciuto, u""); }), 445);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(u"", u""); }), 445);
}

TYPED_TEST(WrappingDocumentTest, LoadingOfAFileEmptyOrMissingRaises53) {
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(this->folder.path(), u""); }), 53);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(this->folder.path(), u"manca"); }), 53);
}

TYPED_TEST(WrappingDocumentTest, TextsThatNameNoFileAreMissingFoldersAndFiles) {
  const Text none(u"a\0b", 3);
  EXPECT_EQ(errorOf([&] { this->wrapping.Inizializza(u"55", vdt_Fax, none); }), 76);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(none, u"a"); }), 76);
  EXPECT_EQ(errorOf([&] { this->wrapping.Carica(this->folder.path(), none); }), 53);
}

TYPED_TEST(WrappingDocumentTest, BindingOfTheUnknownKindRaises445) {
  EXPECT_EQ(errorOf([&] { this->bindAs(0); }), 445);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
}

TYPED_TEST(WrappingDocumentTest, BindingOfANumberThatIsNoKindRaises91) {
  EXPECT_EQ(errorOf([&] { this->bindAs(7); }), 91);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
}

TYPED_TEST(WrappingDocumentTest, FileWithoutTheKindRaises91) {
  EXPECT_EQ(errorOf([&] { this->load(u"[Proprieta]\nId=55\n"); }), 91);
  EXPECT_EQ(this->innerKind(), 0);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
}

TYPED_TEST(WrappingDocumentTest, FileOfTheUnknownKindRaises445) {
  EXPECT_EQ(errorOf([&] { this->load(u"[Tipo]\nCodice=0\n"); }), 445);
}

TYPED_TEST(WrappingDocumentTest, ErrorOfTheInnerDocumentLeavesItHalfBound) {
  EXPECT_EQ(errorOf([&] { this->load(u"[Tipo]\nCodice=3\n[Orientamento]\nCodice=3000000000\n"); }), 6);
  EXPECT_EQ(this->innerKind(), 3);
  EXPECT_FALSE(this->wrapping.Inizializzato.get());
}

TYPED_TEST(WrappingDocumentTest, EveryInnerMemberRaises91WithoutADocument) {
  EXPECT_EQ(errorOf([&] { (void)this->wrapping.Pagine(); }), 91);
  EXPECT_EQ(errorOf([&] { (void)this->wrapping.Proprieta(); }), 91);
  EXPECT_EQ(errorOf([&] { (void)this->wrapping.Collegati(); }), 91);
  EXPECT_EQ(errorOf([&] { (void)this->wrapping.Xml(); }), 91);
}

TYPED_TEST(WrappingDocumentTest, InnerMembersAreThoseOfTheDocumentForEveryKind) {
  for (const std::int32_t kind : kKinds) {
    TypeParam other;
    other.ImpostaDocumento(enmVqDocTipo(kind));
    const auto same = [&](const auto& document) {
      if constexpr (!std::is_same_v<decltype(document), const std::monostate&>) {
        EXPECT_EQ(&other.Pagine(), &document->Pagine);
        EXPECT_EQ(&other.Proprieta(), &document->Proprieta);
        using Links = std::shared_ptr<std::remove_reference_t<decltype(document->Collegati)>>;
        EXPECT_EQ(std::get<Links>(other.Collegati()).get(), &document->Collegati);
      }
    };
    std::visit(same, other.Documento());
  }
}

TYPED_TEST(WrappingDocumentTest, LinksKeepTheirDocumentAlive) {
  auto other = std::make_unique<TypeParam>();
  other->ImpostaDocumento(vdt_Email);
  const auto links = std::get<std::shared_ptr<VqDocCollegatiEmail>>(other->Collegati());
  other.reset();
  links->Copie = 4;
  EXPECT_EQ(links->Copie.get(), 4);
}

TYPED_TEST(WrappingDocumentTest, XmlLeavesTheDocumentOutWhereItsOwnKindIsNone) {
  this->bindAs(1);
  EXPECT_NE(this->wrapping.Xml().find(u"<Fax>VqDocFax"), Text::npos);
  for (const std::int32_t kind : {0, 5, -1}) {
    this->wrapping.Proprieta().Tipo.Codice = kind;
    EXPECT_EQ(this->wrapping.Xml().find(u"<Fax>VqDocFax"), Text::npos) << kind;
  }
}

class VqDocPubblicazioneTest : public JobTest {
 protected:
  VqDocPubblicazioneTest() { publication.Inizializza(u"9", vdt_Fax, folder.path()); }
  VqDocPbl publication;
};

TEST_F(VqDocPubblicazioneTest, FileIsWrittenBySalvaOnly) {
  publication.Pubblicazione.FilePbl = {u"C:\\P", u"p.html"};
  EXPECT_FALSE(job(u"9.vqpb").hasSection(u"Pubblicazione"));
  publication.Pubblicazione.Salva();
  EXPECT_EQ(job(u"9.vqpb").lines(u"Pubblicazione"), u"[Pubblicazione]\nPblPercorso=C:\\P\nPblNome=p.html\n");
}

TEST_F(VqDocPubblicazioneTest, NameChangedWithoutSalvaIsLostOnLoading) {
  publication.Pubblicazione.FilePbl = {u"C:\\P", u"p.html"};
  publication.Pubblicazione.Salva();
  publication.Pubblicazione.FilePbl.Nome = u"altro.html";
  VqDocPbl again;
  again.Carica(folder.path(), u"9.vqpb");
  EXPECT_EQ(again.Pubblicazione.FilePbl.File(), u"C:\\P\\p.html");
}

TEST_F(VqDocPubblicazioneTest, FileThatWasNeverSavedIsEmptyAfterLoading) {
  VqDocPbl again;
  again.Pubblicazione.FilePbl = {u"C:\\P", u"p.html"};
  again.Carica(folder.path(), u"9.vqpb");
  EXPECT_EQ(again.Pubblicazione.FilePbl.File(), u"\\");
}

TEST_F(VqDocPubblicazioneTest, AttachmentsOfThePublicationAreReadBack) {
  publication.Allegati.Add(u"C:\\A", u"a.txt");
  publication.Allegati.Salva();
  VqDocPbl again;
  again.Carica(folder.path(), u"9.vqpb");
  ASSERT_EQ(again.Allegati.Count(), 1);
  EXPECT_EQ(again.Allegati.Item(0)->File(), u"C:\\A\\a.txt");
}

TEST_F(VqDocPubblicazioneTest, QueueIsKeptInCodaPubblicazione) {
  publication.Coda.Codice = vdcp_InPubblicazione;
  EXPECT_EQ(job(u"9.vqpb").value(u"CodaPubblicazione", u"Codice"), u"3");
  EXPECT_FALSE(job(u"9.vqpb").hasSection(u"CodaPbl"));
}

}  // namespace
}  // namespace orvane::test
