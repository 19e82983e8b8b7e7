// A value that cannot be written stays in the object.
#include <filesystem>

#include "tests/support/JobTest.h"
#include "tests/unit/LoadSteps.h"

namespace orvane::test {
namespace {

// Bound documents whose folder is gone, so that every write raises error 76.
class KeptValuesTest : public JobTest {
 protected:
  template <class Document>
  void bindWithoutFolder(Document& document) {
    document.Inizializza(u"1", folder.path());
    loseFolder();
  }
  void loseFolder() const { std::filesystem::remove_all(folder.native()); }
};

template <class Kind>
class KeptValuesOfADocumentTest : public KeptValuesTest {};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocPFax, VqDocEmail>;
TYPED_TEST_SUITE(KeptValuesOfADocumentTest, Kinds);

TYPED_TEST(KeptValuesOfADocumentTest, EveryAssignedValueStaysWhereItsWriteFails) {
  TypeParam document;
  const LoadSteps steps(document);
  this->bindWithoutFolder(document);
  for (const LoadStep& step : steps.all()) {
    if (!step.assign || !step.holds) continue;
    EXPECT_EQ(errorOf([&] { step.assign(4); }), 76) << toUtf8(step.name());
    EXPECT_TRUE(step.holds(4)) << toUtf8(step.name());
  }
}

TEST_F(KeptValuesTest, PagesOfAPrintJobStay) {
  VqDocStampa stampa;
  bindWithoutFolder(stampa);
  EXPECT_EQ(errorOf([&] { stampa.Pagine.MaxAltezzaPagina = 4; }), 76);
  EXPECT_EQ(stampa.Pagine.MaxAltezzaPagina.get(), 4);
}

TEST_F(KeptValuesTest, RetriesAndTextOfAnErrorStay) {
  VqDocFax fax;
  bindWithoutFolder(fax);
  EXPECT_EQ(errorOf([&] { fax.Proprieta.TentativiElaborazione = 4; }), 76);
  EXPECT_EQ(errorOf([&] { fax.Proprieta.Errore.Descrizione = u"occupato"; }), 76);
  EXPECT_EQ(fax.Proprieta.TentativiElaborazione.get(), 4);
  EXPECT_EQ(fax.Proprieta.Errore.Codice.get(), vdec_Personalizzato);
  EXPECT_EQ(fax.Proprieta.Errore.Descrizione.get(), u"occupato");
}

TEST_F(KeptValuesTest, CodeOfAQueueStaysWithoutItsDateAndTheLastQueue) {
  const FixedClock clock{{39814.0}};
  VqDocFax fax;
  fax.Inizializza(u"1", folder.path());
  fax.Coda.Codice = vdcf_DaTrasmettere;
  loseFolder();
  EXPECT_EQ(errorOf([&] { fax.Coda.Codice = vdcf_InTrasmissione; }), 76);
  EXPECT_EQ(fax.Coda.Codice.get(), vdcf_InTrasmissione);
  EXPECT_EQ(fax.Coda.DataInTrasmissione.get(), Date{});
  EXPECT_EQ(fax.Coda.UltimaCodaCodice.get(), vdcf_DaTrasmettere);
}

TEST_F(KeptValuesTest, CopiesBelowOneStayAsOne) {
  VqDocStampa stampa;
  stampa.Inizializza(u"1", folder.path());
  stampa.Copie = 5;
  stampa.Collegati.Copie = 5;
  loseFolder();
  EXPECT_EQ(errorOf([&] { stampa.Copie = 0; }), 76);
  EXPECT_EQ(errorOf([&] { stampa.Collegati.Copie = -5; }), 76);
  EXPECT_EQ(stampa.Copie.get(), 1);
  EXPECT_EQ(stampa.Collegati.Copie.get(), 1);
}

TEST_F(KeptValuesTest, WidthOfAFaxPageStaysWhereReadingItRaises) {
  VqDocFax fax;
  bindWithoutFolder(fax);
  VqDocFaxPagina& page = fax.Trasmissione.Pagina;
  page.CodiceWidth = vdftpw_2048;
  EXPECT_EQ(errorOf([&] { (void)page.CodiceWidth.get(); }), 76);
  EXPECT_EQ(page.DescrizioneWidth(), u"2048");
}

TEST_F(KeptValuesTest, ListsStayWhereTheyCannotBeSaved) {
  VqDocEmail email;
  bindWithoutFolder(email);
  email.Allegati.Add(u"C:\\A", u"a");
  email.Collegati.Add(std::make_shared<VqDocEmail>());
  EXPECT_EQ(errorOf([&] { email.Allegati.Salva(); }), 76);
  EXPECT_EQ(errorOf([&] { email.Collegati.Salva(); }), 76);
  EXPECT_EQ(email.Allegati.Count(), 1);
  EXPECT_EQ(email.Collegati.Count(), 1);
}

// Strings that the thread has not got: what is written with a text raises error 91 behind its number.
class WithoutStringsTest : public JobTest {
 protected:
  static void loseStrings() {
    Apartment::create([] { return std::shared_ptr<VqDocResDll>(); });
  }
};

TEST_F(WithoutStringsTest, CodeStaysAndIsWrittenWithoutItsDescription) {
  VqDocStampa stampa;
  stampa.Inizializza(u"1", folder.path());
  loseStrings();
  EXPECT_EQ(errorOf([&] { stampa.Orientamento.Codice = vdo_Verticale; }), 91);
  EXPECT_EQ(stampa.Orientamento.Codice.get(), vdo_Verticale);
  EXPECT_EQ(job(u"1.vqs").lines(u"Orientamento"), u"[Orientamento]\nCodice=1\n");
}

TEST_F(WithoutStringsTest, QueueCodeStaysAndIsWrittenButStampsNothing) {
  VqDocStampa stampa;
  stampa.Inizializza(u"1", folder.path());
  loseStrings();
  EXPECT_EQ(errorOf([&] { stampa.Coda.Codice = vdcs_InStampa; }), 91);
  EXPECT_EQ(stampa.Coda.Codice.get(), vdcs_InStampa);
  EXPECT_EQ(stampa.Coda.DataInStampa.get(), Date{});
  EXPECT_EQ(stampa.Coda.UltimaCodaCodice.get(), vdcs_DaStampare);
  EXPECT_EQ(job(u"1.vqs").lines(u"CodaStampa"), u"[CodaStampa]\nCodice=1\n");
  EXPECT_FALSE(job(u"1.vqs").hasSection(u"UltimaCoda"));
}

TEST_F(WithoutStringsTest, TextOfAnErrorIsWrittenAllTheSame) {
  VqDocStampa stampa;
  stampa.Inizializza(u"1", folder.path());
  loseStrings();
  EXPECT_EQ(errorOf([&] { stampa.Proprieta.Errore.Descrizione = u"occupato"; }), 0);
  EXPECT_EQ(job(u"1.vqs").lines(u"Errore"), u"[Errore]\nCodice=-1\nDescrizione=occupato\n");
}

// Identity and kind come before the components: the text of the kind is what cannot be had.
template <class Kind>
class BindingWithoutStringsTest : public WithoutStringsTest {};
TYPED_TEST_SUITE(BindingWithoutStringsTest, Kinds);

TYPED_TEST(BindingWithoutStringsTest, LeavesIdentityAndKindWrittenAndOnlyPropertiesAndOwnValuesBound) {
  TypeParam document;
  const LoadSteps steps(document);
  this->loseStrings();
  EXPECT_EQ(errorOf([&] { document.Inizializza(u"1", this->folder.path()); }), 91);
  EXPECT_FALSE(document.Inizializzato.get());
  EXPECT_EQ(document.Proprieta.Id.get(), u"1");
  EXPECT_EQ(document.Proprieta.Tipo.Codice.number(), document.kind().type);
  const Text file = document.Proprieta.FileIntestazione.Nome;
  EXPECT_EQ(this->job(file).value(u"Proprieta", u"Id"), u"1");
  const VqDocumenti again;
  for (const LoadStep& step : steps.all()) {
    if (step.assign) step.assign(4);
  }
  const auto written = [&, job = this->job(file)](const LoadStep& s) {
    return s.assign && job.has(s.section, s.key);
  };
  const auto bound = [](const LoadStep& s) { return s.assign && s.part == 0; };
  EXPECT_EQ(toUtf8(steps.names(written)), toUtf8(steps.names(bound)));
}

// The A4 of a fax comes right behind the reading of the paper size, and raises where its text cannot be had.
template <class Kind>
class FaxPaperTest : public WithoutStringsTest {};
using Faxes = testing::Types<VqDocFax, VqDocPFax>;
TYPED_TEST_SUITE(FaxPaperTest, Faxes);

TYPED_TEST(FaxPaperTest, A4ThatCannotBeWrittenStopsTheLoadingBehindThePaperSize) {
  writeJobFile(this->folder.file(u"job"), u"[Dimensione]\nCodice=1\n[Orientamento]\nCodice=2\n");
  this->loseStrings();
  TypeParam fax;
  EXPECT_EQ(errorOf([&] { fax.Carica(this->folder.path(), u"job"); }), 91);
  EXPECT_EQ(fax.Dimensione.Codice.get(), vdd_A4);
  EXPECT_EQ(fax.Orientamento.Codice.get(), vdo_Automatico);
  EXPECT_FALSE(fax.Inizializzato.get());
  EXPECT_EQ(this->job(u"job").lines(u"Dimensione"), u"[Dimensione]\nCodice=9\n");
}

}  // namespace
}  // namespace orvane::test
