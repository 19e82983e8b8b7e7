#include "core/Apartment.h"

#include <functional>
#include <thread>

#include "codes/VqDocResDll.h"
#include "tests/support/JobTest.h"

namespace orvane::test {
namespace {

// Which services this thread has now: "S" strings, "P" profile access, "F" file system.
std::string services() {
  std::string out;
  if (errorOf([] { Apartment::strings(); }) == 0) out += 'S';
  if (errorOf([] { Apartment::profileAccess(); }) == 0) out += 'P';
  if (errorOf([] { Apartment::fileSystem(); }) == 0) out += 'F';
  return out;
}

// A file system that calls back at its end.
class MortalFileSystem : public FileSystem {
 public:
  explicit MortalFileSystem(std::function<void()> atEnd) : atEnd_(std::move(atEnd)) {}
  ~MortalFileSystem() override { atEnd_(); }
  bool folderExists(TextView) const override { return true; }
  bool fileExists(TextView) const override { return false; }
  void copyFile(TextView, TextView) const override {}
  Text folderPath(TextView) const override { return {}; }
  std::vector<Text> files(TextView) const override { return {}; }
  std::string readBytes(TextView, std::size_t) const override { return {}; }

 private:
  std::function<void()> atEnd_;
};

TEST(ApartmentTest, HasNoServicesWithoutAFactory) {
  EXPECT_EQ(errorOf([] { Apartment::strings(); }), 91);
  EXPECT_EQ(errorOf([] { Apartment::profileAccess(); }), 91);
  EXPECT_EQ(errorOf([] { Apartment::fileSystem(); }), 91);
}

TEST(ApartmentTest, HasATimeWithoutAFactory) { EXPECT_GT(Apartment::now().days, 40000); }

TEST(ApartmentTest, HasAllServicesWhileAFactoryLives) {
  {
    const VqDocumenti factory;
    EXPECT_EQ(services(), "SPF");
  }
  EXPECT_EQ(services(), "");
}

TEST(ApartmentTest, MakesTheFileSystemBeforeAndProfileAccessAfterTheStrings) {
  static std::string during;
  Apartment::create([] {
    during = services();
    return std::make_shared<VqDocResDll>();
  });
  EXPECT_EQ(during, "F");
  EXPECT_EQ(services(), "SPF");
  Apartment::release();
}

TEST(ApartmentTest, ReleasesTheStringsFirst) {
  static std::string atEnd;
  Apartment::create([] {
    const auto end = [](VqDocResDll* strings) { atEnd = services(), delete strings; };
    return std::shared_ptr<VqDocResDll>(new VqDocResDll, end);
  });
  Apartment::release();
  EXPECT_EQ(atEnd, "PF");
}

TEST(ApartmentTest, ReleasesTheFileSystemLast) {
  std::string atEnd = "never";
  Apartment::useFileSystem(std::make_shared<MortalFileSystem>([&] { atEnd = services(); }));
  {
    const VqDocumenti factory;
    Apartment::useFileSystem(nullptr);  // now the apartment alone holds it
    EXPECT_EQ(atEnd, "never");
  }
  EXPECT_EQ(atEnd, "");
}

TEST(ApartmentTest, GetsNewServicesFromASecondFactory) {
  const VqDocumenti first;
  const VqDocResDll* strings = &Apartment::strings();
  const ProfileAccess* access = &Apartment::profileAccess();
  const VqDocumenti second;
  EXPECT_NE(&Apartment::strings(), strings);
  EXPECT_NE(&Apartment::profileAccess(), access);
}

TEST(ApartmentTest, LosesItsServicesAtTheEndOfAnyFactory) {
  const VqDocumenti first;
  { const VqDocumenti second; }
  EXPECT_EQ(services(), "");
}

TEST(ApartmentTest, BelongsToOneThread) {
  const VqDocumenti factory;
  std::string elsewhere = "unknown", afterwards = "unknown";
  std::thread([&] {
    elsewhere = services();
    { const VqDocumenti own; }
    afterwards = services();
  }).join();
  EXPECT_EQ(elsewhere, "");
  EXPECT_EQ(afterwards, "");
  EXPECT_EQ(services(), "SPF");
}

class DocumentsWithoutFactory : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::unique_ptr<VqDocumenti> factory = std::make_unique<VqDocumenti>();
  std::shared_ptr<VqDocStampa> stampa = factory->NuovoDocumentoStampa();
};

TEST_F(DocumentsWithoutFactory, RaiseObjectNotSetWhereTheyNeedAService) {
  stampa->Inizializza(u"1", folder.path());
  factory.reset();
  EXPECT_EQ(errorOf([&] { stampa->Copie = 2; }), 91);
  EXPECT_EQ(errorOf([&] { (void)stampa->Dimensione.Descrizione(); }), 91);
  EXPECT_EQ(errorOf([&] { (void)stampa->Xml(); }), 91);
}

TEST_F(DocumentsWithoutFactory, RaiseObjectNotSetOnBinding) {
  factory.reset();
  EXPECT_EQ(errorOf([&] { stampa->Inizializza(u"1", folder.path()); }), 91);
  EXPECT_FALSE(stampa->Inizializzato);
}

TEST_F(DocumentsWithoutFactory, KeepTheirValues) {
  stampa->Inizializza(u"1", folder.path());
  stampa->Stampante = u"Laser";
  factory.reset();
  EXPECT_EQ(stampa->Stampante.get(), u"Laser");
  EXPECT_EQ(stampa->Proprieta.Id.get(), u"1");
}

TEST_F(DocumentsWithoutFactory, WorkAgainWithANewOne) {
  stampa->Inizializza(u"1", folder.path());
  factory.reset();
  const VqDocumenti next;
  stampa->Copie = 3;
  EXPECT_EQ(readJobFile(folder.file(u"1.vqs")).value(u"Stampa", u"Copie"), u"3");
  EXPECT_EQ(stampa->Dimensione.Descrizione(), u"Automatico");
}

TEST_F(DocumentsWithoutFactory, AreReleasedWithTheirJobOnTheDisk) {
  stampa->Inizializza(u"1", folder.path());
  factory.reset();
  const std::weak_ptr<VqDocStampa> released = stampa;
  stampa.reset();
  EXPECT_TRUE(released.expired());
  EXPECT_EQ(readJobFile(folder.file(u"1.vqs")).value(u"Proprieta", u"Id"), u"1");
}

}  // namespace
}  // namespace orvane::test
