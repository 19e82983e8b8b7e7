// Neighbours that no job expects: huge files, lying counts, circles, names that systems dislike.
#include <ctime>
#include <filesystem>
#include <fstream>

#include "tests/support/JobTest.h"
#include "tests/support/Soak.h"

namespace orvane::test {
namespace {

bool isSoak() { return soakFactor() > 1; }

class Hostile : public JobTest {
 protected:
  // What others do on the machine does not count.
  void TearDown() override { EXPECT_LT((std::clock() - begin_) / CLOCKS_PER_SEC, 60); }

  template <class Document>
  void put(TextView name, TextView more, std::shared_ptr<Document> document) const {
    document->Inizializza(name.substr(0, name.find(u'.')), folder.path());
    document.reset();
    std::string bytes = folder.read(name);
    for (const char16_t unit : more)
      (bytes += static_cast<char>(unit & 0xFF)) += static_cast<char>(unit >> 8);
    folder.write(name, bytes);
  }
  void putPrint(TextView name, TextView more) const { put(name, more, factory.NuovoDocumentoStampa()); }
  int loadError(TextView name) const {
    return errorOf([&] { factory.NuovoDocumentoStampa()->Carica(folder.path(), name); });
  }
  int writeError(TextView name) const {
    return errorOf([&] { JobFile(folder.file(name)).write(u"A", u"k", u"1"); });
  }

 private:
  std::clock_t begin_ = std::clock();
};

TEST_F(Hostile, CountsOfLinkedJobsBeyondTheFileAreNotCountedOut) {
  putPrint(u"1.vqs", u"[Collegati]\r\nNumeroCollegati=2147483647\r\n");
  EXPECT_EQ(loadError(u"1.vqs"), 0);
}

TEST_F(Hostile, CountsOfAttachmentsBeyondTheFileAreNotCountedOut) {
  put(u"1.vqe", u"[Allegati]\r\nNumeroAllegati=2147483647\r\nPercorso0=C:\\\r\nNome0=a.txt\r\n",
      factory.NuovoDocumentoEmail());
  const auto mail = factory.NuovoDocumentoEmail();
  mail->Carica(folder.path(), u"1.vqe");
  EXPECT_GE(mail->Allegati.Count(), 1);
  EXPECT_LT(mail->Allegati.Count(), 10'000);
}

TEST_F(Hostile, NegativeCountsAreNone) {
  putPrint(u"1.vqs", u"[Collegati]\r\nNumeroCollegati=-5\r\n");
  const auto job = factory.NuovoDocumentoStampa();
  job->Carica(folder.path(), u"1.vqs");
  EXPECT_EQ(job->Collegati.Count(), 0);
}

TEST_F(Hostile, JobsThatLinkToEachOtherAreError28AndStay) {
  const auto link = [&](TextView to) {
    return u"[Collegati]\r\nNumeroCollegati=1\r\nPercorso0=" + folder.path() + u"\r\nNome0=" + Text(to) +
           u"\r\n";
  };
  putPrint(u"1.vqs", link(u"2.vqs"));
  putPrint(u"2.vqs", link(u"1.vqs"));
  const std::string before = folder.read(u"1.vqs");
  EXPECT_EQ(loadError(u"1.vqs"), 28);
  EXPECT_EQ(folder.read(u"1.vqs"), before);
}

TEST_F(Hostile, AThousandLinkedJobsLoad) {
  const int count = isSoak() ? 1'000 : 100;
  {
    const auto job = factory.NuovoDocumentoStampa();
    job->Inizializza(u"1", folder.path());
    for (int i = 0; i < count; ++i) {
      const auto linked = factory.NuovoDocumentoStampa();
      linked->Inizializza(u"L" + fromUtf8(std::to_string(i)), folder.path(), true);
      job->Collegati.Add(linked);
    }
    job->Collegati.Salva();
  }
  const auto job = factory.NuovoDocumentoStampa();
  job->Carica(folder.path(), u"1.vqs");
  EXPECT_EQ(job->Collegati.Count(), count);
}

TEST_F(Hostile, TenThousandPagesLoad) {
  const int count = isSoak() ? 10'000 : 1'000;
  putPrint(u"1.vqs", u"");
  for (int i = 0; i < count; ++i) folder.write(u"pages\\" + fromUtf8(std::to_string(i)) + u".dpg", "");
  const auto job = factory.NuovoDocumentoStampa();
  job->Carica(folder.path(), u"1.vqs");
  job->Pagine.Carica(folder.file(u"pages"));
  EXPECT_EQ(job->Pagine.Count(), count);
}

TEST_F(Hostile, ASectionOfManyKeysIsReadAndChanged) {
  const int count = isSoak() ? 1'000'000 : 50'000;
  std::string text = "[A]\r\n";
  for (int i = 0; i < count; ++i) text += "key" + std::to_string(i) + "=" + std::to_string(i) + "\r\n";
  folder.write(u"1.vqs", text);
  JobFile file(folder.file(u"1.vqs"));
  const Text last = fromUtf8(std::to_string(count - 1));
  EXPECT_EQ(file.read(u"A", u"key" + last), TextView(last));
  file.write(u"A", u"key0", u"changed");
  EXPECT_EQ(file.read(u"A", u"KEY0"), TextView(u"changed"));
  EXPECT_EQ(file.read(u"A", u"key" + last), TextView(last));
}

TEST_F(Hostile, AVeryLargeFileIsReadAndChanged) {
  const std::size_t size = isSoak() ? 100'000'000 : 8'000'000;
  folder.write(u"1.vqs", "[A]\r\nk=1\r\n; " + std::string(size, 'x') + "\r\n[B]\r\nl=2\r\n");
  JobFile file(folder.file(u"1.vqs"));
  file.write(u"A", u"k", u"changed");
  EXPECT_EQ(file.read(u"B", u"l"), TextView(u"2"));
  EXPECT_GT(std::filesystem::file_size(folder.native(u"1.vqs")), 2 * size);
}

TEST_F(Hostile, OddNamesAreFilesOrErrors) {
  for (const TextView name : {u"dots...", u"1.vqs.", u"CON", u"NUL.vqs", u"aux.vqs", u" blank .vqs"}) {
    EXPECT_EQ(writeError(name), 0) << toUtf8(name);
    EXPECT_EQ(JobFile(folder.file(name)).read(u"A", u"k"), TextView(u"1")) << toUtf8(name);
  }
  EXPECT_EQ(writeError(Text(300, u'x')), 52);
}

TEST_F(Hostile, LongPathsOfShortNamesAreFiles) {
  const Text deep = Text(200, u'a') + u'\\' + Text(200, u'b');
  std::filesystem::create_directories(folder.native(deep));
  EXPECT_EQ(writeError(deep + u"\\1.vqs"), 0);
  EXPECT_TRUE(folder.has(deep + u"\\1.vqs"));
}

TEST_F(Hostile, AFolderInPlaceOfAJobIsAnError) {
  std::filesystem::create_directory(folder.native(u"1.vqs"));
  EXPECT_EQ(loadError(u"1.vqs"), 53);
  EXPECT_EQ(errorOf([&] { factory.NuovoDocumentoStampa()->Inizializza(u"1", folder.path()); }), 75);
}

TEST_F(Hostile, AFolderInPlaceOfTheTemporaryOrTheLockIsAnErrorAndNothingIsLost) {
  ASSERT_EQ(writeError(u"1.vqs"), 0);
  const std::string before = folder.read(u"1.vqs");
  std::filesystem::remove(folder.native(u".orvane.lock"));
  std::filesystem::create_directory(folder.native(u".orvane.lock"));
  EXPECT_EQ(errorOf([&] { JobFile(folder.file(u"1.vqs")).write(u"A", u"k", u"2"); }), 75);
  EXPECT_EQ(folder.read(u"1.vqs"), before);
}

}  // namespace
}  // namespace orvane::test
