#include "tests/support/JobTest.h"
#include "tests/unit/PrintDocument.h"

namespace orvane::test {
namespace {

class DuplicaDocumentoStampaTest : public JobTest {
 protected:
  TemporaryFolder target;
  FixedClock clock{dateOf(2026, 11, 20, 12)};
  std::shared_ptr<VqDocStampa> from = factory.NuovoDocumentoStampa();
  const std::shared_ptr<VqDocStampa> to = factory.NuovoDocumentoStampa();

  void SetUp() override {
    from->Inizializza(u"5", folder.path());
    to->Inizializza(u"100", target.path());
    fill(*from);
    clock.set(dateOf(2026, 11, 21, 18));
  }
  void duplicate() const { factory.DuplicaDocumentoStampa(from, to); }
  std::shared_ptr<VqDocStampa> link(TextView id) const {
    auto linked = factory.NuovoDocumentoStampa();
    linked->Inizializza(id, folder.path(), true);
    from->Collegati.Add(linked);
    return linked;
  }
  JobContent copy() const { return readJobFile(target.file(u"100.vqs")); }
};

TEST_F(DuplicaDocumentoStampaTest, CopiesThePrintOptions) {
  duplicate();
  EXPECT_EQ(
      copy().lines(u"Stampa"),
      u"[Stampa]\nCopie=5\nNumero=42\nStampante=Laser\nStampanteAlternativa=\nStampanteOrigine=Origine\n");
  EXPECT_EQ(to->StampanteAlternativa.get(), u"Alternativa");
  EXPECT_EQ(to->LayoutPagina.AdattaAllaPagina.get(), false);
  EXPECT_EQ(to->LayoutPagina.Ingrandibile.get(), true);
}

TEST_F(DuplicaDocumentoStampaTest, HoldsCopiesThatWereLoadedToOne) {
  writeJobFile(folder.file(u"a.vqs"), u"[Stampa]\nCopie=-3\n[Collegati]\nCopie=0\n");
  const auto loaded = factory.NuovoDocumentoStampa();
  loaded->Carica(folder.path(), u"a.vqs");
  factory.DuplicaDocumentoStampa(loaded, to);
  EXPECT_EQ(to->Copie.get(), 1);
  EXPECT_EQ(copy().value(u"Stampa", u"Copie"), u"1");
  EXPECT_EQ(copy().value(u"Collegati", u"Copie"), u"1");
}

TEST_F(DuplicaDocumentoStampaTest, TakesNoBodyUnderANameThatNoFileCanHave) {
  from->Proprieta.FileCorpo = {folder.path(), Text(u"a\0b", 3)};
  duplicate();
  EXPECT_EQ(to->Proprieta.FileCorpo.Nome, u"");
}

TEST_F(DuplicaDocumentoStampaTest, CopiesTheCodesOfThePrintOptions) {
  duplicate();
  EXPECT_EQ(to->Alimentazione.Codice.get(), vda_CassettoCollegato);
  EXPECT_EQ(to->Dimensione.Codice.get(), vdd_A4);
  EXPECT_EQ(to->Fascicolazione.Codice.get(), vdf_Fascicolato);
  EXPECT_EQ(to->FronteRetro.Codice.get(), vdfr_Verticale);
  EXPECT_EQ(to->Orientamento.Codice.get(), vdo_Orizzontale);
  EXPECT_EQ(to->LayoutPagina.PosizionePagina.Codice.get(), vdpp_CentroPagina);
}

TEST_F(DuplicaDocumentoStampaTest, KeepsTheStaplingOfTheDestination) {
  to->Pinzatura.Codice = vdpnz_Singola;
  duplicate();
  EXPECT_EQ(to->Pinzatura.Codice.get(), vdpnz_Singola);
}

TEST_F(DuplicaDocumentoStampaTest, CopiesTheDatesOfTheQueueOverThePresentTime) {
  duplicate();
  EXPECT_EQ(to->Coda.Codice.get(), vdcs_InStampa);
  EXPECT_EQ(to->Coda.DataInserimento.get(), from->Coda.DataInserimento.get());
  EXPECT_EQ(to->Coda.DataInStampa.get(), dateOf(2026, 11, 20, 12));
  EXPECT_EQ(copy().value(u"CodaStampa", u"DataInStampa"), u"46346.5");
  EXPECT_EQ(copy().value(u"CodaStampa", u"DataElaborazione"), u"0");
}

TEST_F(DuplicaDocumentoStampaTest, CopiesTheLastQueueWithoutWritingIt) {
  from->Coda.Codice = vdcs_Scartato;  // the last queue stays "in stampa", and the copy has never been there
  duplicate();
  EXPECT_EQ(to->Coda.Codice.get(), vdcs_Scartato);
  EXPECT_EQ(to->Coda.UltimaCodaCodice.get(), vdcs_InStampa);
  EXPECT_EQ(copy().value(u"UltimaCoda", u"Codice"), u"0");
}

TEST_F(DuplicaDocumentoStampaTest, CopiesThePropertiesThatBelongToTheContent) {
  duplicate();
  EXPECT_EQ(copy().lines(u"Proprieta"),
            u"[Proprieta]\nId=100\nVersione=1.2\nSigla=FT\nDittaOrigine=Rossi & figli\n"
            u"DittaDestinazione=Bianchi <SpA>\nSuddivisione=Vendite\nData=39814\nDataOriginale=1.5\n"
            u"Descrizione=Perché \"no\"\nUtente=mrossi\nUtenteDescrizione=Mario Rossi\nIp=10.0.0.7\n"
            u"MacAddress=00-11-22-33-44-55\nFormatoPagina=Modulo\nPriorita=7\nRighePagina=66\n"
            u"OttimizzaAreaPagina=-1\nCollegato=-1\n");
  EXPECT_EQ(to->Proprieta.Lingua.Codice.get(), vdl_Inglese);
  EXPECT_EQ(to->Proprieta.Intestazione.Codice.get(), vdi_Prestampata);
}

TEST_F(DuplicaDocumentoStampaTest, KeepsTheIdentityOfTheDestination) {
  const Text guid = to->Proprieta.Guid;
  duplicate();
  EXPECT_EQ(to->Proprieta.Id.get(), u"100");
  EXPECT_EQ(to->Proprieta.Guid.get(), guid);
  EXPECT_EQ(to->Proprieta.Tipo.Codice.get(), vdt_Stampa);
  EXPECT_EQ(to->Proprieta.FileIntestazione.File(), target.file(u"100.vqs"));
}

TEST_F(DuplicaDocumentoStampaTest, LeavesHolderFunctionRetriesAndEasyReading) {
  to->Proprieta.Funzione = u"mia";
  duplicate();
  EXPECT_EQ(to->Proprieta.Intestatario.get(), u"");
  EXPECT_EQ(to->Proprieta.IntestatarioDescrizione.get(), u"");
  EXPECT_EQ(to->Proprieta.Funzione.get(), u"mia");
  EXPECT_EQ(to->Proprieta.TentativiElaborazione.get(), 0);
  EXPECT_FALSE(to->Proprieta.LetturaFacilitata.get());
}

TEST_F(DuplicaDocumentoStampaTest, LeavesErrorCommandOutcomeAndLock) {
  duplicate();
  EXPECT_EQ(to->Proprieta.Errore.Codice.get(), vdec_Nessuno);
  EXPECT_EQ(to->Proprieta.Comando.Codice.get(), vdc_Nessuno);
  EXPECT_EQ(to->Proprieta.Esito.Codice.get(), vde_DaElaborare);
  EXPECT_EQ(to->Proprieta.Bloccato.Codice.get(), vdb_Nessuno);
}

TEST_F(DuplicaDocumentoStampaTest, CopiesControlCodesButNotTheirKind) {
  duplicate();
  EXPECT_EQ(to->Proprieta.CatalogoSorgente.StrAscCompressoOn(), u"027;015;000;000;000;000;000;");
  EXPECT_EQ(to->Diretta.CatalogoDestinazione.StrAscCompressoOn(), u"255;000;000;000;000;000;000;");
  EXPECT_EQ(to->Proprieta.CatalogoSorgente.Tipo.Codice.get(), vdtc_Ascii);
  EXPECT_EQ(copy().value(u"Catalogo sorgente", u"CompressoOn"), u"27;15;0;0;0;0;0;");
  EXPECT_EQ(copy().value(u"CatalogoDestinazione", u"CustomCOff"), u"0;0;0;0;0;0;0;");
}

TEST_F(DuplicaDocumentoStampaTest, LeavesTheRestOfDirectOutput) {
  duplicate();
  EXPECT_FALSE(to->Diretta.FinePagina.get());
  EXPECT_EQ(to->Diretta.NomeFileOutput.get(), u"");
  EXPECT_EQ(to->Diretta.FileDiretto.Nome, u"");
  EXPECT_FALSE(copy().hasSection(u"Diretta"));
}

TEST_F(DuplicaDocumentoStampaTest, LeavesThePages) {
  from->Pagine.Add(from->Pagine.Nuova());
  from->Pagine.CopieDelegabili = true;
  duplicate();
  EXPECT_EQ(to->Pagine.Count(), 0);
  EXPECT_FALSE(to->Pagine.CopieDelegabili.get());
}

TEST_F(DuplicaDocumentoStampaTest, CopiesBodyAndScriptUnderItsOwnId) {
  folder.write(u"altrove\\x.txt", "corpo");
  folder.write(u"Corpi\\5.svq", "script");
  target.write(u"Corpi\\100.bvq", "un vecchio corpo, più lungo");
  from->Proprieta.FileCorpo = {folder.file(u"altrove"), u"x.txt"};
  from->Proprieta.FileScript = {folder.file(u"Corpi"), u"5.svq"};
  duplicate();
  EXPECT_EQ(to->Proprieta.FileCorpo.File(), target.file(u"Corpi\\100.bvq"));
  EXPECT_EQ(to->Proprieta.FileScript.File(), target.file(u"Corpi\\100.svq"));
  EXPECT_EQ(target.read(u"Corpi\\100.bvq"), "corpo");
  EXPECT_EQ(target.read(u"Corpi\\100.svq"), "script");
}

TEST_F(DuplicaDocumentoStampaTest, CopiesNoBodyForAnUnboundDocument) {
  folder.write(u"5.bvq", "corpo");
  from->Proprieta.FileCorpo = {folder.path(), u"5.bvq"};
  const auto unbound = factory.NuovoDocumentoStampa();
  EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(from, unbound); }), 76);
  EXPECT_FALSE(systemFileSystem()->folderExists(u"\\Corpi"));
}

TEST_F(DuplicaDocumentoStampaTest, LeavesTheBodyReferenceWhereTheSourceHasNoFile) {
  to->Proprieta.FileCorpo = {u"C:\\Mia", u"mio.bvq"};
  from->Proprieta.FileCorpo = {folder.path(), u"sparito.bvq"};
  duplicate();
  EXPECT_EQ(to->Proprieta.FileCorpo.File(), u"C:\\Mia\\mio.bvq");
  EXPECT_FALSE(target.has(u"Corpi"));
}

TEST_F(DuplicaDocumentoStampaTest, StopsAtAFailingCopyAndKeepsWhatIsWritten) {
  folder.write(u"5.bvq", "corpo");
  from->Proprieta.FileCorpo = {folder.path(), u"5.bvq"};
  EXPECT_EQ(errorOf([&] { duplicate(); }), 76);
  EXPECT_FALSE(target.has(u"Corpi"));
  EXPECT_EQ(to->Proprieta.FileCorpo.File(), target.file(u"Corpi\\100.bvq"));
  EXPECT_EQ(copy().value(u"Proprieta", u"Sigla"), u"FT");
  EXPECT_FALSE(copy().hasSection(u"Catalogo sorgente"));
  EXPECT_FALSE(copy().hasSection(u"Collegati"));
}

TEST_F(DuplicaDocumentoStampaTest, CopiesLinkedJobsUnderTheIdsOfBoth) {
  link(u"7")->Numero = 77;
  link(u"8");
  duplicate();
  EXPECT_EQ(target.files(), (std::vector<Text>{u"100.vqs", u"100_7.lvq", u"100_8.lvq"}));
  EXPECT_EQ(to->Collegati.Count(), 2);
  EXPECT_EQ(to->Collegati.Item(0)->Proprieta.Id.get(), u"100_7");
  EXPECT_EQ(to->Collegati.Item(u"100_8"), to->Collegati.Item(1));
  EXPECT_EQ(readJobFile(target.file(u"100_7.lvq")).value(u"Stampa", u"Numero"), u"77");
}

TEST_F(DuplicaDocumentoStampaTest, SavesTheListOfLinkedJobs) {
  link(u"7");
  duplicate();
  EXPECT_EQ(copy().lines(u"Collegati"),
            u"[Collegati]\nCopie=4\nNumeroCollegati=1\nPercorso0=" + target.path() + u"\nNome0=100_7.lvq\n");
}

TEST_F(DuplicaDocumentoStampaTest, ReplacesTheLinkedJobsOfTheDestination) {
  auto old = factory.NuovoDocumentoStampa();
  old->Inizializza(u"vecchio", target.path(), true);
  to->Collegati.Add(old);
  to->Collegati.Salva();
  duplicate();
  EXPECT_EQ(to->Collegati.Count(), 0);
  EXPECT_EQ(copy().value(u"Collegati", u"NumeroCollegati"), u"0");
  EXPECT_TRUE(target.has(u"vecchio.lvq"));
}

TEST_F(DuplicaDocumentoStampaTest, FollowsLinksOfLinks) {
  auto inner = factory.NuovoDocumentoStampa();
  inner->Inizializza(u"9", folder.path(), true);
  link(u"7")->Collegati.Add(inner);
  duplicate();
  EXPECT_EQ(target.files(), (std::vector<Text>{u"100.vqs", u"100_7.lvq", u"100_7_9.lvq"}));
}

TEST_F(DuplicaDocumentoStampaTest, LeavesTheSourceAsItWas) {
  link(u"7");
  const std::string before = folder.read(u"5.vqs");
  const Text xml = from->Xml();
  duplicate();
  EXPECT_EQ(folder.read(u"5.vqs"), before);
  EXPECT_EQ(from->Xml(), xml);
}

TEST_F(DuplicaDocumentoStampaTest, CopiesIntoAnUnboundDocumentWithoutWriting) {
  const auto unbound = factory.NuovoDocumentoStampa();
  factory.DuplicaDocumentoStampa(from, unbound);
  EXPECT_EQ(unbound->Stampante.get(), u"Laser");
  EXPECT_EQ(unbound->Proprieta.Sigla.get(), u"FT");
  EXPECT_EQ(target.files(), (std::vector<Text>{u"100.vqs"}));
}

// A file system that tells what is in the job file when it is asked to copy.
class LookingFileSystem : public FileSystem {
 public:
  explicit LookingFileSystem(Text job) : job_(std::move(job)) {}
  bool folderExists(TextView folder) const override { return system_->folderExists(folder); }
  bool fileExists(TextView file) const override { return system_->fileExists(file); }
  Text folderPath(TextView folder) const override { return system_->folderPath(folder); }
  std::vector<Text> files(TextView folder) const override { return system_->files(folder); }
  std::string readBytes(TextView file, std::size_t most) const override {
    return system_->readBytes(file, most);
  }
  void copyFile(TextView from, TextView to) const override {
    seen += Text(to.substr(to.size() - 4)) + u": " + readJobFile(job_).value(u"Proprieta", u"Sigla") + u"; ";
    system_->copyFile(from, to);
  }
  mutable Text seen;

 private:
  Text job_;
  std::shared_ptr<FileSystem> system_ = systemFileSystem();
};

TEST_F(DuplicaDocumentoStampaTest, HasTheValuesInTheJobFileBeforeBodyAndScriptAreCopied) {
  for (const char16_t* name : {u"5.bvq", u"5.svq"}) folder.write(name, "nuovo");
  from->Proprieta.FileCorpo = {folder.path(), u"5.bvq"};
  from->Proprieta.FileScript = {folder.path(), u"5.svq"};
  std::filesystem::create_directory(target.native(u"Corpi"));
  const auto looking = std::make_shared<LookingFileSystem>(target.file(u"100.vqs"));
  Apartment::useFileSystem(looking);
  VqDocumenti().DuplicaDocumentoStampa(from, to);
  Apartment::useFileSystem(nullptr);
  EXPECT_EQ(looking->seen, u".bvq: FT; .svq: FT; ");
}

TEST_F(DuplicaDocumentoStampaTest, TakesASourceThatOnlyTheLinksOfTheDestinationOwn) {
  to->Collegati.Add(std::move(from));
  factory.DuplicaDocumentoStampa(*to->Collegati.begin(), to);
  EXPECT_EQ(to->Stampante.get(), u"Laser");
  EXPECT_EQ(to->Collegati.Count(), 0);
}

TEST_F(DuplicaDocumentoStampaTest, StoresTheFirstValueWhereTheServicesAreReleased) {
  { const VqDocumenti another; }
  EXPECT_EQ(errorOf([&] { duplicate(); }), 91);
  EXPECT_EQ(to->Alimentazione.Codice.get(), vda_CassettoCollegato);
  EXPECT_EQ(to->Copie.get(), 1);
}

TEST_F(DuplicaDocumentoStampaTest, RefusesNoDocument) {
  EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(nullptr, to); }), 91);
  EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(from, nullptr); }), 91);
}

}  // namespace
}  // namespace orvane::test
