// The own values of fax, printer-fax and e-mail, and their whole round trip through a file.
#include "tests/support/JobTest.h"
#include "tests/unit/Fill.h"

namespace orvane::test {
namespace {

template <class Kind>
class TransmittedFaxTest : public JobTest {
 protected:
  Text name() const { return fax.Proprieta.FileIntestazione.Nome; }
  void bindDocument() { fax.Inizializza(u"77", this->folder.path()); }
  Kind fax;
};
using Faxes = testing::Types<VqDocFax, VqDocPFax>;
TYPED_TEST_SUITE(TransmittedFaxTest, Faxes);

TYPED_TEST(TransmittedFaxTest, FiveTextsAreWrittenToTheFaxSection) {
  this->bindDocument();
  this->fax.Oggetto = u"o";
  this->fax.Mittente = u"m";
  this->fax.Destinatario = u"d";
  this->fax.SocietaDestinataria = u"s";
  this->fax.CodiceSocietaDestinataria = u"c";
  EXPECT_EQ(this->job(this->name()).lines(u"Fax"),
            u"[Fax]\nOggetto=o\nMittente=m\nDestinatario=d\nSocietaDestinataria=s\n"
            u"CodiceSocietaDestinataria=c\n");
}

TYPED_TEST(TransmittedFaxTest, FiveTextsAreReadFromTheFaxSection) {
  writeJobFile(this->folder.file(u"job"),
               u"[Fax]\nOggetto=o\nMittente=m\nDestinatario=d\n"
               u"SocietaDestinataria=s\nCodiceSocietaDestinataria=c\n");
  this->fax.Carica(this->folder.path(), u"job");
  EXPECT_EQ(this->fax.Oggetto.get() + this->fax.Mittente.get() + this->fax.Destinatario.get(), u"omd");
  EXPECT_EQ(this->fax.SocietaDestinataria.get() + this->fax.CodiceSocietaDestinataria.get(), u"sc");
}

TYPED_TEST(TransmittedFaxTest, TextsAreReadUpTo255Characters) {
  this->bindDocument();
  this->fax.Oggetto = Text(300, u'o');
  TypeParam again;
  again.Carica(this->folder.path(), this->name());
  EXPECT_EQ(again.Oggetto.get(), Text(255, u'o'));
}

TYPED_TEST(TransmittedFaxTest, TextsSetBeforeLoadingAreGone) {
  this->fax.Oggetto = u"o";
  this->fax.Destinatario = u"d";
  writeJobFile(this->folder.file(u"job"), u"[Fax]\nDestinatario=x\n");
  this->fax.Carica(this->folder.path(), u"job");
  EXPECT_EQ(this->fax.Oggetto.get() + this->fax.Destinatario.get(), u"x");
}

TYPED_TEST(TransmittedFaxTest, TextsGoToTheFileThatTheHeaderNames) {
  this->bindDocument();
  this->fax.Proprieta.FileIntestazione.Nome = u"altro";
  this->fax.Oggetto = u"o";
  this->fax.NumeroFax.Numero = u"06";
  EXPECT_EQ(this->job(u"altro").lines(), u"[Fax]\nOggetto=o\n");
}

TYPED_TEST(TransmittedFaxTest, NextAttemptIsGoneAfterLoadingAndTheStartStays) {
  this->bindDocument();
  this->fax.Trasmissione.ProssimoTentativo = Date{39805};
  this->fax.Trasmissione.OraInizio = Date{39803.5};
  TypeParam again;
  again.Carica(this->folder.path(), this->name());
  EXPECT_EQ(again.Trasmissione.ProssimoTentativo.get().days, 0);
  EXPECT_EQ(again.Trasmissione.OraInizio.get().days, 39803.5);
}

TYPED_TEST(TransmittedFaxTest, PaperSizeCanBeChangedOnceBound) {
  this->bindDocument();
  this->fax.Dimensione.Codice = vdd_A3;
  EXPECT_EQ(this->job(this->name()).value(u"Dimensione", u"Codice"), u"8");
  TypeParam again;
  again.Carica(this->folder.path(), this->name());
  EXPECT_EQ(again.Dimensione.Codice.number(), 9);
}

TEST_F(JobTest, LinkedFaxAndLinkedPrinterFaxOfOneIdShareAJobFile) {
  VqDocFax fax;
  VqDocPFax printer;
  fax.Inizializza(u"77", folder.path(), true);
  printer.Inizializza(u"77", folder.path(), true);
  EXPECT_EQ(printer.Proprieta.FileIntestazione.File(), fax.Proprieta.FileIntestazione.File());
}

TEST_F(JobTest, XmlOfAPrinterFaxHasNoImageAttachmentsOrLayout) {
  const Text xml = VqDocPFax().Xml();
  EXPECT_TRUE(xml.starts_with(u"<PrinterFax>VqDocPFax<Oggetto/>"));
  for (const char16_t* element : {u"<FileTif>", u"<Allegati>", u"<LayoutPagina>"}) {
    EXPECT_EQ(xml.find(element), Text::npos);
  }
}

TEST_F(JobTest, SubjectOfAnEmailIsKeptInItsSection) {
  VqDocEmail email, again;
  email.Inizializza(u"123", folder.path());
  email.Oggetto = Text(300, u'o');
  EXPECT_EQ(job(u"123.vqe").lines(u"Email"), u"[Email]\nOggetto=" + Text(300, u'o') + u'\n');
  again.Carica(folder.path(), u"123.vqe");
  EXPECT_EQ(again.Oggetto.get(), Text(255, u'o'));
}

TEST_F(JobTest, EmailWithAttachmentsThatFailedToLoadCanBeLoadedAgain) {
  const Text attached = u"[Allegati]\nNumeroAllegati=1\nNome0=a.pdf\n[TrasmissioneEmail]\nTentativi=";
  VqDocEmail email;
  writeJobFile(folder.file(u"1.vqe"), attached + u"3000000000\n");
  EXPECT_EQ(errorOf([&] { email.Carica(folder.path(), u"1.vqe"); }), 6);
  writeJobFile(folder.file(u"1.vqe"), attached + u"3\n");
  EXPECT_EQ(errorOf([&] { email.Carica(folder.path(), u"1.vqe"); }), 0);
  EXPECT_EQ(email.Allegati.Count(), 1);
}

TEST_F(JobTest, ThreeRecipientListsOfAnEmailDoNotMix) {
  VqDocEmail email, again;
  email.Inizializza(u"123", folder.path());
  email.A.IndirizziEmail = u"a";
  email.Cc.IndirizziEmail = u"b";
  email.Ccn.IndirizziEmail = u"c";
  again.Carica(folder.path(), u"123.vqe");
  EXPECT_EQ(again.A.IndirizziEmail.get() + again.Cc.IndirizziEmail.get() + again.Ccn.IndirizziEmail.get(),
            u"abc");
}

// What is kept in the object only is brought to what a loaded document has.
void forgetUnsaved(Document& document) {
  document.Proprieta.FileCorpo = document.Proprieta.FileScript = {};
  document.Proprieta.Bloccato.Codice = vdb_Nessuno;
}
void forget(VqDocStampa& stampa) {
  stampa.Diretta.FileDiretto = {};
  stampa.StampanteAlternativa = stampa.StampanteOrigine.get();
}
void forget(TransmittedFax& fax) {
  fax.Trasmissione.ProssimoTentativo = Date{};
  fax.Dimensione.Codice = vdd_A4;
  (void)fax.Trasmissione.Pagina.CodiceWidth.get();  // reading the width is what writes it
}
void forget(VqDocFax& fax) {
  forget(static_cast<TransmittedFax&>(fax));
  fax.FileTif = {};
  fax.Allegati.Salva();
}
void forget(VqDocEmail& email) {
  email.Trasmissione.ProssimoTentativo = Date{};
  email.Allegati.Salva();
}

template <class Kind>
class RoundTripTest : public JobTest {
 protected:
  FixedClock clock{{39814.0}};
};
using Kinds = testing::Types<VqDocStampa, VqDocFax, VqDocPFax, VqDocEmail>;
TYPED_TEST_SUITE(RoundTripTest, Kinds);

TYPED_TEST(RoundTripTest, EverySavedMemberComesBack) {
  auto document = std::make_unique<TypeParam>();
  document->Inizializza(u"123", this->folder.path());
  fill(*document, this->clock);
  forgetUnsaved(*document);
  forget(*document);
  const Text before = document->Xml(), name = document->Proprieta.FileIntestazione.Nome;
  document.reset();
  TypeParam again;
  again.Carica(this->folder.path(), name);
  EXPECT_EQ(toUtf8(again.Xml()), toUtf8(before));
  EXPECT_EQ(again.Collegati.Copie.get(), 5);
}

}  // namespace
}  // namespace orvane::test
