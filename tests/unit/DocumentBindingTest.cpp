// What binding and loading do alike for the four kinds of documents.
#include <filesystem>

#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

struct KindRow {
  const char16_t *extension, *linked;
  std::int32_t type;
  bool alwaysA4, readsPages;
};
template <class Kind>
constexpr KindRow kRow{};
template <>
constexpr KindRow kRow<VqDocStampa>{u".vqs", u".lvq", 2, false, false};
template <>
constexpr KindRow kRow<VqDocFax>{u".vqf", u".ldf", 1, true, true};
template <>
constexpr KindRow kRow<VqDocPFax>{u".vqpf", u".ldf", 4, true, true};
template <>
constexpr KindRow kRow<VqDocEmail>{u".vqe", u".lde", 3, false, true};

template <class Kind>
class DocumentBindingTest : public JobTest {
 protected:
  static constexpr const KindRow& row = kRow<Kind>;
  Text name() const { return Text(u"123") + row.extension; }
  void bindDocument() { document.Inizializza(u"123", this->folder.path()); }
  void load(TextView lines) {
    writeJobFile(this->folder.file(u"job.ini"), lines);
    document.Carica(this->folder.path(), u"job.ini");
  }
  Kind document;
};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocPFax, VqDocEmail>;
TYPED_TEST_SUITE(DocumentBindingTest, Kinds);

TYPED_TEST(DocumentBindingTest, JobFileIsNamedByIdAndKind) {
  this->bindDocument();
  EXPECT_EQ(this->document.Proprieta.FileIntestazione.File(), this->folder.file(this->name()));
  EXPECT_EQ(this->folder.files(), std::vector<Text>{this->name()});
}

TYPED_TEST(DocumentBindingTest, LinkedJobFileHasTheLinkedExtensionAndNoFlag) {
  this->document.Inizializza(u"123", this->folder.path(), true);
  EXPECT_EQ(this->document.Proprieta.FileIntestazione.Nome, Text(u"123") + this->row.linked);
  EXPECT_FALSE(this->document.Proprieta.Collegato.get());
  EXPECT_FALSE(this->job(Text(u"123") + this->row.linked).has(u"Proprieta", u"Collegato"));
}

TYPED_TEST(DocumentBindingTest, BindingWritesIdKindAndOnlyForFaxesThePaperSize) {
  this->bindDocument();
  const JobContent content = this->job(this->name());
  EXPECT_EQ(content.lines(u"Proprieta"), u"[Proprieta]\nId=123\n");
  EXPECT_EQ(content.value(u"Tipo", u"Codice"), fromUtf8(std::to_string(this->row.type)));
  EXPECT_EQ(content.lines(u"Dimensione"),
            this->row.alwaysA4 ? u"[Dimensione]\nCodice=9\nDescrizione=A4 (21 x 29,7 cm)\n" : u"");
  EXPECT_EQ(content.sections.size(), this->row.alwaysA4 ? 3u : 2u);
}

TYPED_TEST(DocumentBindingTest, IdMayBeATextOfTheDocument) {
  const Text longName(100, u'x');  // longer than what a text keeps in itself
  this->document.Proprieta.FileIntestazione.Nome = longName;
  this->document.Inizializza(this->document.Proprieta.FileIntestazione.Nome, this->folder.path());
  EXPECT_EQ(this->document.Proprieta.Id.get(), longName);
}

TYPED_TEST(DocumentBindingTest, BindingSetsIdAndKindInTheObject) {
  this->bindDocument();
  EXPECT_EQ(this->document.Proprieta.Id.get(), u"123");
  EXPECT_EQ(this->document.Proprieta.Tipo.Codice.number(), this->row.type);
  EXPECT_TRUE(this->document.Inizializzato.get());
}

TYPED_TEST(DocumentBindingTest, BindingKeepsWhatTheFileHolds) {
  writeJobFile(this->folder.file(this->name()), u"[Server]\nStato=3\n");
  this->bindDocument();
  EXPECT_EQ(this->job(this->name()).value(u"Server", u"Stato"), u"3");
}

TYPED_TEST(DocumentBindingTest, SecondBindingRaises445AndKeepsTheFirst) {
  this->bindDocument();
  const Text before = this->job(this->name()).lines();
  EXPECT_EQ(errorOf([&] { this->document.Inizializza(u"9", this->folder.path()); }), 445);
  EXPECT_EQ(errorOf([&] { this->document.Carica(this->folder.path(), this->name()); }), 445);
  EXPECT_EQ(this->document.Proprieta.Id.get(), u"123");
  EXPECT_EQ(this->job(this->name()).lines(), before);
}

TYPED_TEST(DocumentBindingTest, BoundDocumentRaises445BeforeLookingAtTheFolder) {
  this->bindDocument();
  EXPECT_EQ(errorOf([&] { this->document.Inizializza(u"9", u""); }), 445);
  EXPECT_EQ(errorOf([&] { this->document.Carica(u"", u""); }), 445);
}

TYPED_TEST(DocumentBindingTest, FolderEmptyOrMissingRaises76AndLeavesTheDocumentNew) {
  for (const Text& missing : {Text(), this->folder.file(u"manca")}) {
    EXPECT_EQ(errorOf([&] { this->document.Inizializza(u"123", missing); }), 76);
    EXPECT_EQ(errorOf([&] { this->document.Carica(missing, u"a.vqs"); }), 76);
  }
  EXPECT_FALSE(this->document.Inizializzato.get());
  EXPECT_EQ(this->document.Proprieta.FileIntestazione.File(), u"\\");
  EXPECT_TRUE(this->folder.files().empty());
}

TYPED_TEST(DocumentBindingTest, ANameThatLeadsOutOfAMissingFolderRaises76) {
  this->folder.write(u"a.vqs", "");
  for (const char16_t* name : {u"..\\a.vqs", u"../a.vqs"}) {
    EXPECT_EQ(errorOf([&] { this->document.Carica(this->folder.file(u"missing"), name); }), 76);
  }
}

TYPED_TEST(DocumentBindingTest, FileInPlaceOfTheFolderRaises76) {
  this->folder.write(u"file", "");
  EXPECT_EQ(errorOf([&] { this->document.Inizializza(u"123", this->folder.file(u"file")); }), 76);
}

TYPED_TEST(DocumentBindingTest, LoadingOfAFileEmptyOrMissingRaises53) {
  std::filesystem::create_directory(this->folder.native(u"cartella"));
  for (const TextView missing : {TextView(u""), TextView(u"manca.vqs"), TextView(u"cartella")}) {
    EXPECT_EQ(errorOf([&] { this->document.Carica(this->folder.path(), missing); }), 53);
  }
  EXPECT_FALSE(this->document.Inizializzato.get());
}

TYPED_TEST(DocumentBindingTest, TextsThatNameNoFileAreMissingFoldersAndFiles) {
  const Text none(u"a\0b", 3);
  EXPECT_EQ(errorOf([&] { this->document.Inizializza(u"123", none); }), 76);
  EXPECT_EQ(errorOf([&] { this->document.Carica(none, u"a.vqs"); }), 76);
  EXPECT_EQ(errorOf([&] { this->document.Carica(this->folder.path(), none); }), 53);
}

TYPED_TEST(DocumentBindingTest, RefusedDocumentCanStillBeBound) {
  errorOf([&] { this->document.Inizializza(u"123", u""); });
  EXPECT_EQ(errorOf([&] { this->bindDocument(); }), 0);
}

TYPED_TEST(DocumentBindingTest, KindAndIdOfALoadedDocumentAreWhatTheFileSays) {
  this->load(u"[Proprieta]\nId=77\n[Tipo]\nCodice=0\n");
  EXPECT_EQ(this->document.Proprieta.Id.get(), u"77");
  EXPECT_EQ(this->document.Proprieta.Tipo.Codice.number(), 0);
  EXPECT_TRUE(this->document.Inizializzato.get());
}

TYPED_TEST(DocumentBindingTest, FileWithoutSectionsLoadsTheDefaults) {
  this->load(u"[Altro]\nChiave=1\n");
  TypeParam fresh;
  fresh.Proprieta.FileIntestazione = this->document.Proprieta.FileIntestazione;
  if (this->row.alwaysA4) fresh.Dimensione.Codice = vdd_A4;
  EXPECT_EQ(toUtf8(this->document.Xml()), toUtf8(fresh.Xml()));
}

TYPED_TEST(DocumentBindingTest, PaperSizeOfALoadedFaxIsA4AndOfOthersAsStored) {
  this->load(u"[Dimensione]\nCodice=1\nDescrizione=x\n");
  EXPECT_EQ(this->document.Dimensione.Codice.number(), this->row.alwaysA4 ? 9 : 1);
  EXPECT_EQ(this->job(u"job.ini").value(u"Dimensione", u"Codice"), this->row.alwaysA4 ? u"9" : u"1");
}

TYPED_TEST(DocumentBindingTest, ErrorInLoadingLeavesTheDocumentHalfBound) {
  EXPECT_EQ(errorOf([&] { this->load(u"[Proprieta]\nUtente=MR\n[Orientamento]\nCodice=3000000000\n"); }), 6);
  EXPECT_FALSE(this->document.Inizializzato.get());
  EXPECT_EQ(this->document.Proprieta.Utente.get(), u"MR");
  this->document.Proprieta.Utente = u"AB";
  EXPECT_EQ(this->job(u"job.ini").value(u"Proprieta", u"Utente"), u"AB");
}

// A file that no reading can make anything of: too large.
TYPED_TEST(DocumentBindingTest, ErrorInReadingLeavesTheDocumentHalfBound) {
  this->folder.write(u"job.ini", "");
  std::filesystem::resize_file(this->folder.native(u"job.ini"), 0x80000000);
  EXPECT_EQ(errorOf([&] { this->document.Carica(this->folder.path(), u"job.ini"); }), 7);
  EXPECT_FALSE(this->document.Inizializzato.get());
  EXPECT_EQ(this->document.Proprieta.FileIntestazione.Nome, u"job.ini");
}

TYPED_TEST(DocumentBindingTest, HalfBoundDocumentCanBeLoadedAgain) {
  errorOf([&] { this->load(u"[Orientamento]\nCodice=3000000000\n"); });
  this->load(u"[Orientamento]\nCodice=1\n");
  EXPECT_EQ(this->document.Orientamento.Codice.number(), 1);
  EXPECT_TRUE(this->document.Inizializzato.get());
}

TYPED_TEST(DocumentBindingTest, ErrorInBindingLeavesTheDocumentHalfBound) {
  std::filesystem::create_directory(this->folder.native(this->name()));
  EXPECT_EQ(errorOf([&] { this->bindDocument(); }), 75);
  EXPECT_FALSE(this->document.Inizializzato.get());
  EXPECT_EQ(this->document.Proprieta.FileIntestazione.Nome, this->name());
}

TYPED_TEST(DocumentBindingTest, LimitsAndStateOfThePagesAreReadByLoadingButForPrintJobs) {
  this->folder.write(u"a.dpg", "");
  this->load(u"[Pagine]\nMassimaAltezzaPagina=5\nCopieDelegabili=-1\n[Stato]\nCodice=1\n");
  const VqDocPagine& pages = this->document.Pagine;
  EXPECT_EQ(pages.MaxAltezzaPagina.get(), this->row.readsPages ? 5 : 0);
  EXPECT_EQ(pages.CopieDelegabili.get(), this->row.readsPages);
  EXPECT_EQ(pages.Stato.Codice.number(), this->row.readsPages ? 1 : 0);
  EXPECT_EQ(pages.Count(), 0);
}

TYPED_TEST(DocumentBindingTest, PagesAreBoundByLoading) {
  this->load(u"[Altro]\n");
  this->document.Pagine.MaxLarghezzaPagina = 8;
  this->document.Pagine.Stato.PagineScomposte = 2;
  EXPECT_EQ(this->job(u"job.ini").value(u"Pagine", u"MassimaLarghezzaPagina"), u"8");
  EXPECT_EQ(this->job(u"job.ini").value(u"Stato", u"PagineScomposte"), u"2");
}

TYPED_TEST(DocumentBindingTest, AssignmentsBeforeBindingWriteNowhere) {
  this->document.Proprieta.Utente = u"MR";
  this->document.Orientamento.Codice = vdo_Verticale;
  this->document.Coda.Codice = 1;
  this->bindDocument();
  EXPECT_EQ(this->document.Proprieta.Utente.get(), u"MR");
  EXPECT_FALSE(this->job(this->name()).has(u"Proprieta", u"Utente"));
  EXPECT_FALSE(this->job(this->name()).hasSection(u"Orientamento"));
}

TYPED_TEST(DocumentBindingTest, AssignmentIsInTheFileAtOnce) {
  this->bindDocument();
  this->document.Orientamento.Codice = vdo_Orizzontale;
  EXPECT_EQ(this->job(this->name()).lines(u"Orientamento"),
            u"[Orientamento]\nCodice=2\nDescrizione=Orizzontale\n");
}

TYPED_TEST(DocumentBindingTest, ReadingNeverLooksAtTheFile) {
  this->bindDocument();
  this->document.Proprieta.Utente = u"MR";
  writeJobFile(this->folder.file(this->name()), u"[Proprieta]\nUtente=AB\n");
  EXPECT_EQ(this->document.Proprieta.Utente.get(), u"MR");
}

}  // namespace
}  // namespace orvane::test
