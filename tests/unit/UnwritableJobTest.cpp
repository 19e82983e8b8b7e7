// What holds when a job may not be written: the first write raises, and nothing behind it happens.
#include <sys/mount.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/JobTest.h"
#include "tests/support/PlainUser.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Refusal : Row {
  void (*refuse)(const std::string& folder, const std::string& file);
};

void mark(const std::string& path, mode_t mode) { ASSERT_EQ(::chmod(path.c_str(), mode), 0); }

constexpr Refusal kRefusals[] = {
    {{"OfTheFolder"}, [](const std::string& folder, const std::string&) { mark(folder, 0555); }},
    {{"OfTheFile"}, [](const std::string&, const std::string& file) { mark(file, 0444); }}};

constexpr TextView kJob = u"[A]\nk=1\n";

// The job files that are refused are there already and hold something else.
class UnwritableJob : public JobTest, public testing::WithParamInterface<Refusal> {
 protected:
  UnwritableJob() { mark(folder.native().string(), 0777); }
  ~UnwritableJob() override { mark(folder.native().string(), 0777); }

  template <class Action>
  int errorRefused(TextView file, Action&& action, const Refusal& refusal = GetParam()) const {
    const std::string path = folder.native(file).string();
    mark(path, 0666);
    refusal.refuse(folder.native().string(), path);
    const PlainUser user;
    return errorOf(action);
  }
  void prepare(TextView file) const { writeJobFile(folder.file(file), kJob); }
  bool isAsPrepared(TextView file) const { return job(file).lines() == kJob; }
};
INSTANTIATE_TEST_SUITE_P(Refused, UnwritableJob, testing::ValuesIn(kRefusals), rowName);

TEST_P(UnwritableJob, KeepsTheNewIdAndBindsThePropertiesAlone) {
  prepare(u"7.vqs");
  VqDocStampa stampa;
  stampa.Copie = 5;
  stampa.Dimensione.Codice = vdd_A3;
  EXPECT_EQ(errorRefused(u"7.vqs", [&] { stampa.Inizializza(u"7", folder.path()); }), 70);
  EXPECT_EQ(stampa.Proprieta.Id.get(), u"7");
  EXPECT_EQ(stampa.Proprieta.Tipo.Codice.number(), 0);
  EXPECT_EQ(stampa.Copie.get(), 5);
  EXPECT_EQ(stampa.Dimensione.Codice.get(), vdd_A3);
  EXPECT_FALSE(stampa.Inizializzato.get());
  EXPECT_TRUE(isAsPrepared(u"7.vqs"));
  EXPECT_EQ(errorRefused(u"7.vqs", [&] { stampa.Proprieta.Utente = u"MR"; }), 70);
  EXPECT_EQ(errorRefused(u"7.vqs", [&] { stampa.Coda.Codice = vdcs_InStampa; }), 0);
  EXPECT_EQ(errorRefused(u"7.vqs", [&] { stampa.Collegati.Salva(); }), 0);
  EXPECT_TRUE(isAsPrepared(u"7.vqs"));
}

TEST_P(UnwritableJob, CanBeBoundElsewhere) {
  prepare(u"7.vqf");
  const TemporaryFolder other;
  VqDocFax fax;
  EXPECT_EQ(errorRefused(u"7.vqf", [&] { fax.Inizializza(u"7", folder.path()); }), 70);
  EXPECT_EQ(fax.Dimensione.Codice.number(), 0);
  fax.Inizializza(u"8", other.path());
  EXPECT_EQ(readJobFile(other.file(u"8.vqf")).value(u"Proprieta", u"Id"), u"8");
  EXPECT_TRUE(isAsPrepared(u"7.vqf"));
}

TEST_P(UnwritableJob, IsNoDestinationOfADuplication) {
  const TemporaryFolder own;
  const auto from = factory.NuovoDocumentoStampa(), to = factory.NuovoDocumentoStampa();
  from->Inizializza(u"1", own.path());
  from->Alimentazione.Codice = vda_AlimentazioneManuale;
  from->Stampante = u"Laser";
  const auto linked = factory.NuovoDocumentoStampa();
  linked->Inizializza(u"2", own.path(), true);
  from->Collegati.Add(linked);
  own.write(u"nuovo.bvq", "nuovo");
  from->Proprieta.FileCorpo = {own.path(), u"nuovo.bvq"};
  folder.write(u"Corpi\\7.bvq", "vecchio");
  mark(folder.native(u"Corpi").string(), 0777);
  mark(folder.native(u"Corpi\\7.bvq").string(), 0666);

  to->Inizializza(u"7", folder.path());
  to->Collegati.Add(linked);
  const Text before = job(u"7.vqs").lines();
  EXPECT_EQ(errorRefused(u"7.vqs", [&] { factory.DuplicaDocumentoStampa(from, to); }), 70);
  EXPECT_EQ(to->Alimentazione.Codice.get(), vda_AlimentazioneManuale);
  EXPECT_EQ(to->Stampante.get(), u"");
  EXPECT_EQ(to->Collegati.Item(0), linked);
  EXPECT_EQ(job(u"7.vqs").lines(), before);
  EXPECT_EQ(folder.read(u"Corpi\\7.bvq"), "vecchio");
  EXPECT_EQ(folder.files(), std::vector<Text>{u"7.vqs"});
}

// The forced A4 is such a write.
TEST_P(UnwritableJob, OfAFaxThatIsNotA4IsReadUpToItsPaperSize) {
  writeJobFile(folder.file(u"7.vqf"),
               u"[CodaFax]\nCodice=3\n[Dimensione]\nCodice=1\n[Orientamento]\nCodice=2\n");
  VqDocFax fax;
  EXPECT_EQ(errorRefused(u"7.vqf", [&] { fax.Carica(folder.path(), u"7.vqf"); }), 70);
  EXPECT_EQ(fax.Coda.Codice.get(), vdcf_InTrasmissione);
  EXPECT_EQ(fax.Dimensione.Codice.get(), vdd_A4);
  EXPECT_EQ(fax.Orientamento.Codice.number(), 0);
  EXPECT_FALSE(fax.Inizializzato.get());
}

TEST_P(UnwritableJob, OfAFaxThatIsA4CanBeLookedAtWhateverItsEncoding) {
  for (const char* extension : {"vqf", "vqpf"}) {
    const Text name = fromUtf8(std::string("7.") + extension);
    const std::string stored =
        "[Dimensione]\nCodice=9\nDescrizione=A4 (21 x 29,7 cm)\n[Orientamento]\nCodice=2\n";
    folder.write(name, stored);
    const auto load = [&](auto document) {
      EXPECT_EQ(errorRefused(name, [&] { document->Carica(folder.path(), name); }), 0) << extension;
      EXPECT_EQ(document->Orientamento.Codice.number(), 2) << extension;
    };
    extension == std::string("vqf") ? load(factory.NuovoDocumentoFax()) : load(factory.NuovoDocumentoPFax());
    EXPECT_EQ(folder.read(name), stored);
    EXPECT_FALSE(folder.has(u".orvane.lock"));
  }
}

TEST_P(UnwritableJob, RefusesListsAndStatesAtTheirFirstKey) {
  prepare(u"7.vqf");
  VqDocFax fax;
  fax.Inizializza(u"7", folder.path());
  const Text before = job(u"7.vqf").lines();
  fax.Allegati.Add(u"C:\\a", u"b");
  EXPECT_EQ(errorRefused(u"7.vqf", [&] { fax.Allegati.Salva(); }), 70);
  EXPECT_EQ(errorRefused(u"7.vqf", [&] { fax.Collegati.Salva(); }), 70);
  EXPECT_EQ(errorRefused(u"7.vqf", [&] { fax.Coda.Codice = vdcf_InConversione; }), 70);
  EXPECT_EQ(fax.Coda.Codice.get(), vdcf_InConversione);
  EXPECT_EQ(fax.Coda.DataInConversione.get(), Date{});
  EXPECT_EQ(fax.Coda.UltimaCodaCodice.number(), 0);
  EXPECT_EQ(job(u"7.vqf").lines(), before);
}

class JobOfAnother : public JobTest {
 protected:
  JobOfAnother() {
    writeJobFile(folder.file(u"7.vqs"), kJob);
    if (::geteuid() == 0) mark(folder.native().string(), 0777);
  }
  int bindError(TextView id = u"7") const {
    const PlainUser user;
    return errorOf([&] { VqDocStampa().Inizializza(id, folder.path()); });
  }
};

TEST_F(JobOfAnother, IsWrittenWhereTheFolderLetsItBeReplaced) {
  mark(folder.native(u"7.vqs").string(), 0644);
  EXPECT_EQ(bindError(), 0);
  EXPECT_EQ(job(u"7.vqs").value(u"Proprieta", u"Id"), u"7");
}

TEST_F(JobOfAnother, IsRefusedAtTheFirstWriteWhereTheFolderIsSticky) {
  if (::geteuid() != 0) GTEST_SKIP() << "files of two users need root";
  mark(folder.native().string(), 01777);
  EXPECT_EQ(bindError(), 70);
  EXPECT_EQ(job(u"7.vqs").lines(), kJob);
  EXPECT_EQ(bindError(u"8"), 0) << "one's own can be made there";
}

TEST_F(JobOfAnother, IsRefusedAtTheFirstWriteWhereItsLockFileIs) {
  if (::geteuid() != 0) GTEST_SKIP() << "files of two users need root";
  folder.write(u".orvane.lock", "");
  mark(folder.native(u".orvane.lock").string(), 0600);
  VqDocStampa stampa;
  const PlainUser user;
  EXPECT_EQ(errorOf([&] { stampa.Inizializza(u"7", folder.path()); }), 70);
  EXPECT_EQ(stampa.Proprieta.Tipo.Codice.number(), 0);
}

// A device of 64 KB with some of it taken.
class FullDevice : public JobTest {
 protected:
  void SetUp() override {
    const std::string path = folder.native().string();
    if (::mount("tmpfs", path.c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "mounting needs root";
    mounted_ = true;
    from->Inizializza(u"1", elsewhere.path());
    from->Proprieta.Descrizione = Text(1000, u'x');
    elsewhere.write(u"nuovo.bvq", "nuovo");
    from->Proprieta.FileCorpo = {elsewhere.path(), u"nuovo.bvq"};
    to->Inizializza(u"7", folder.path());
    folder.write(u"Corpi\\7.bvq", "vecchio");
    fillUp();
  }
  void TearDown() override {
    if (mounted_) ::umount2(folder.native().c_str(), MNT_DETACH);
  }
  void fillUp() const {
    try {
      for (int i = 0;; ++i) folder.write(u"riempi" + decimalText(i), std::string(1024, 'x'));
    } catch (const std::exception&) {
    }
  }

  const TemporaryFolder elsewhere;
  const std::shared_ptr<VqDocStampa> from = factory.NuovoDocumentoStampa();
  const std::shared_ptr<VqDocStampa> to = factory.NuovoDocumentoStampa();

 private:
  bool mounted_ = false;
};

TEST_F(FullDevice, ShowsBeforeTheBodyFileOfADuplicationIsTouched) {
  const Text before = job(u"7.vqs").lines();
  EXPECT_EQ(errorOf([&] { factory.DuplicaDocumentoStampa(from, to); }), 61);
  EXPECT_EQ(job(u"7.vqs").lines(), before);
  EXPECT_EQ(folder.read(u"Corpi\\7.bvq"), "vecchio");
  EXPECT_EQ(to->Proprieta.FileCorpo.Nome, u"");
}

TEST_F(FullDevice, LeavesAQueueWithItsNewCodeAlone) {
  EXPECT_EQ(errorOf([&] { to->Coda.Codice = vdcs_InStampa; }), 61);
  EXPECT_EQ(to->Coda.Codice.get(), vdcs_InStampa);
  EXPECT_EQ(to->Coda.DataInStampa.get(), Date{});
  EXPECT_EQ(to->Coda.UltimaCodaCodice.number(), 0);
}

TEST_F(FullDevice, LeavesADocumentThatCanBeBoundElsewhere) {
  VqDocStampa stampa;
  EXPECT_EQ(errorOf([&] { stampa.Inizializza(u"8", folder.path()); }), 61);
  EXPECT_FALSE(stampa.Inizializzato.get());
  EXPECT_FALSE(folder.has(u"8.vqs"));
  stampa.Inizializza(u"8", elsewhere.path());
  EXPECT_TRUE(elsewhere.has(u"8.vqs"));
}

}  // namespace
}  // namespace orvane::test
