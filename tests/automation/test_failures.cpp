// What holds after a member that failed: in which order a job is written, and that a load can be repeated.
#include "tests/automation/Client.h"
#include "tests/automation/Files.h"

namespace {

using namespace client;

class Failures : public Automation {
 protected:
  std::wstring path(const wchar_t* name) const { return folder + L'\\' + name; }
  void put(const wchar_t* name, const std::string& lines) const { putBytes(path(name), lines); }
  void mark(const wchar_t* name) const {
    ASSERT_TRUE(SetFileAttributesW(path(name).c_str(), FILE_ATTRIBUTE_READONLY));
  }
  std::string inFolder() const {
    std::string narrow;
    for (const wchar_t unit : folder) narrow += static_cast<char>(unit);
    return narrow;
  }
  const std::wstring folder = newFolder();
};

constexpr char kForeign[] = "[A]\r\nk=1\r\n";

TEST_F(Failures, OfTheFirstWriteLeaveTheIdAloneInTheObject) {
  put(L"7.vqs", kForeign);
  mark(L"7.vqs");
  const auto stampa = newStampa();
  EXPECT_EQ(runtimeError(70), stampa->Inizializza(Bstr(L"7"), Bstr(folder), VARIANT_FALSE));
  Ptr<_VqDocProprieta> properties;
  ASSERT_EQ(S_OK, stampa->get_Proprieta(properties.out()));
  Bstr id;
  EXPECT_EQ(S_OK, properties->get_Id(id.out()));
  EXPECT_EQ(L"7", id.text());
  EXPECT_EQ(runtimeError(70), properties->put_Utente(Bstr(L"MR")));
  Ptr<_VqDocDimensione> paper;
  ASSERT_EQ(S_OK, stampa->get_Dimensione(paper.out()));
  EXPECT_EQ(S_OK, paper->put_Codice(vdd_A3)) << "it is not bound";
  VARIANT_BOOL initialised = VARIANT_TRUE;
  EXPECT_EQ(S_OK, stampa->get_Inizializzato(&initialised));
  EXPECT_EQ(VARIANT_FALSE, initialised);
  EXPECT_EQ(kForeign, bytesOf(path(L"7.vqs")));
  EXPECT_EQ(S_OK, stampa->Inizializza(Bstr(L"8"), Bstr(folder), VARIANT_FALSE));
}

TEST_F(Failures, OfADestinationStopADuplicationAtItsFirstValue) {
  CreateDirectoryW(path(L"Corpi").c_str(), nullptr);
  put(L"1.vqs", "[Proprieta]\r\nId=1\r\n[Alimentazione]\r\nCodice=4\r\n[Stampa]\r\nStampante=Laser\r\n");
  put(L"Corpi\\1.bvq", "nuovo");
  put(L"Corpi\\7.bvq", "vecchio");
  const auto from = newStampa(), to = newStampa();
  ASSERT_EQ(S_OK, from->Carica(Bstr(folder), Bstr(L"1.vqs")));
  ASSERT_EQ(S_OK, to->Inizializza(Bstr(L"7"), Bstr(folder), VARIANT_FALSE));
  mark(L"7.vqs");
  const std::string before = bytesOf(path(L"7.vqs"));
  auto *source = from.get(), *destination = to.get();
  EXPECT_EQ(runtimeError(70), factory->DuplicaDocumentoStampa(&source, &destination));
  Bstr printer;
  EXPECT_EQ(S_OK, to->get_Stampante(printer.out()));
  EXPECT_EQ(L"", printer.text());
  EXPECT_EQ(before, bytesOf(path(L"7.vqs")));
  EXPECT_EQ("vecchio", bytesOf(path(L"Corpi\\7.bvq")));
}

TEST_F(Failures, OfReleasedServicesComeBehindTheFirstValueOfADuplication) {
  put(L"1.vqs", "[Alimentazione]\r\nCodice=4\r\n");
  const auto from = newStampa(), to = newStampa();
  ASSERT_EQ(S_OK, from->Carica(Bstr(folder), Bstr(L"1.vqs")));
  ASSERT_EQ(S_OK, to->Inizializza(Bstr(L"7"), Bstr(folder), VARIANT_FALSE));
  auto *source = from.get(), *destination = to.get();
  newFactory();  // another one, which goes at once
  EXPECT_EQ(runtimeError(91), factory->DuplicaDocumentoStampa(&source, &destination));
  Ptr<_VqDocAlimentazione> tray;
  ASSERT_EQ(S_OK, to->get_Alimentazione(tray.out()));
  enmVqDocAlimentazione code{};
  EXPECT_EQ(S_OK, tray->get_Codice(&code));
  EXPECT_EQ(vda_AlimentazioneManuale, code);
}

TEST_F(Failures, OfALoadTakeItsLinkedDocumentsBack) {
  const std::string entry = "=" + inFolder() + "\r\n";
  put(L"a.lvq", "[Proprieta]\r\nId=a\r\n");
  put(L"1.vqs", "[Collegati]\r\nNumeroCollegati=2\r\nPercorso0" + entry + "Nome0=a.lvq\r\nPercorso1" + entry +
                    "Nome1=a.lvq\r\n");
  put(L"2.vqs", "[Collegati]\r\nNumeroCollegati=1\r\nPercorso0" + entry + "Nome0=a.lvq\r\n");
  const auto stampa = newStampa();
  Ptr<_VqDocCollegatiStampa> links;
  ASSERT_EQ(S_OK, stampa->get_Collegati(links.out()));
  LONG count = -1;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(runtimeError(457), stampa->Carica(Bstr(folder), Bstr(L"1.vqs")));
    EXPECT_EQ(S_OK, links->get_Count(&count));
    EXPECT_EQ(0, count);
  }
  EXPECT_EQ(S_OK, stampa->Carica(Bstr(folder), Bstr(L"2.vqs")));
  EXPECT_EQ(S_OK, links->get_Count(&count));
  EXPECT_EQ(1, count);
}

TEST_F(Failures, ToWriteDoNotKeepAFaxFromBeingLookedAt) {
  const std::string stored = "[Dimensione]\r\nCodice=9\r\nDescrizione=A4 (21 x 29,7 cm)\r\n";
  put(L"7.vqf", stored);
  mark(L"7.vqf");
  Ptr<_VqDocFax> fax;
  ASSERT_EQ(S_OK, factory->NuovoDocumentoFax(fax.out()));
  EXPECT_EQ(S_OK, fax->Carica(Bstr(folder), Bstr(L"7.vqf")));
  EXPECT_EQ(stored, bytesOf(path(L"7.vqf")));
}

}  // namespace
