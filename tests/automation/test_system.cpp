// The system's own means read what the server writes, and write what it reads.
#include "Client.h"
#include "codes/OwnTexts.h"

namespace {

using namespace client;

using System = Automation;

std::wstring profileText(const std::wstring& file, const wchar_t* section, const wchar_t* key) {
  wchar_t text[1000];
  const DWORD length = GetPrivateProfileStringW(section, key, L"(missing)", text, 1000, file.c_str());
  return std::wstring(text, length);
}

std::vector<std::wstring> namesIn(const std::wstring& file, const wchar_t* section) {
  wchar_t text[20000];
  const DWORD length = GetPrivateProfileStringW(section, nullptr, L"", text, 20000, file.c_str());
  std::vector<std::wstring> names;
  for (const wchar_t* at = text; at < text + length; at += names.back().size() + 1) names.emplace_back(at);
  return names;
}

std::wstring attribute(_VqDocStampa* stampa) {
  Bstr printer;
  EXPECT_EQ(S_OK, stampa->get_Stampante(printer.out()));
  return printer.text();
}

TEST_F(System, ProfileFunctionsReadEveryKey) {
  const std::wstring folder = newFolder(), file = folder + L"\\5.vqs";
  auto stampa = newStampa();
  ASSERT_EQ(S_OK, stampa->Inizializza(Bstr(L"5"), Bstr(folder), VARIANT_FALSE));
  const wchar_t* const texts[] = {
      L"Laser", L" blanks ", L"\"quoted\"", L"a=b;c", L"\x20AC perch\x00E9 \x4E2D", L"[x]"};
  for (const wchar_t* text : texts) {
    ASSERT_EQ(S_OK, stampa->put_Stampante(Bstr(text)));
    EXPECT_EQ(text, profileText(file, L"Stampa", L"Stampante"));
  }
  ASSERT_EQ(S_OK, stampa->put_Numero(-17));
  EXPECT_EQ(L"-17", profileText(file, L"stampa", L"NUMERO"));
  Ptr<_VqDocDimensione> dimensione;
  ASSERT_EQ(S_OK, stampa->get_Dimensione(dimensione.out()));
  ASSERT_EQ(S_OK, dimensione->put_Codice(vdd_A4));
  int keys = 0;
  for (const auto& section : namesIn(file, nullptr)) {
    for (const auto& key : namesIn(file, section.c_str())) {
      ++keys;
      EXPECT_NE(L"(missing)", profileText(file, section.c_str(), key.c_str())) << keys;
    }
  }
  EXPECT_GE(keys, 7);
}

TEST_F(System, ProfileFunctionsWriteWhatTheServerLoads) {
  const std::wstring folder = newFolder(), file = folder + L"\\6.vqs";
  {
    auto stampa = newStampa();
    ASSERT_EQ(S_OK, stampa->Inizializza(Bstr(L"6"), Bstr(folder), VARIANT_FALSE));
  }
  ASSERT_TRUE(WritePrivateProfileStringW(L"Stampa", L"Stampante", L"Getto \x20AC", file.c_str()));
  ASSERT_TRUE(WritePrivateProfileStringW(L"Stampa", L"Copie", L"4", file.c_str()));
  ASSERT_TRUE(WritePrivateProfileStringW(L"Errore", L"Codice", L"2", file.c_str()));
  auto stampa = newStampa();
  ASSERT_EQ(S_OK, stampa->Carica(Bstr(folder), Bstr(L"6.vqs")));
  EXPECT_EQ(L"Getto \x20AC", attribute(stampa.get()));
  LONG copies = 0;
  EXPECT_EQ(S_OK, stampa->get_Copie(&copies));
  EXPECT_EQ(4, copies);
  Ptr<_VqDocProprieta> properties;
  Ptr<_VqDocErrore> error;
  enmVqDocErrore code{};
  ASSERT_EQ(S_OK, stampa->get_Proprieta(properties.out()));
  ASSERT_EQ(S_OK, properties->get_Errore(error.out()));
  EXPECT_EQ(S_OK, error->get_Codice(&code));
  EXPECT_EQ(vdec_DocumentoVuoto, code);
}

TEST_F(System, TheStringTableHoldsEveryText) {
  const auto texts = orvane::numberedTexts();
  ASSERT_GT(texts.size(), 100u);
  for (const auto& text : texts) {
    const wchar_t* found = nullptr;
    const int length =
        LoadStringW(Server::module(), static_cast<UINT>(text.id), reinterpret_cast<wchar_t*>(&found), 0);
    ASSERT_GT(length, 0) << text.id;
    EXPECT_EQ(text.text,
              orvane::TextView(reinterpret_cast<const char16_t*>(found), static_cast<std::size_t>(length)))
        << text.id;
  }
}

TEST_F(System, TheManifestIsTheFirstOfItsKind) {
  EXPECT_NE(nullptr, FindResourceW(Server::module(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24)));
  EXPECT_NE(nullptr, FindResourceW(Server::module(), MAKEINTRESOURCEW(1), L"TYPELIB"));
  EXPECT_NE(nullptr, FindResourceW(Server::module(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16)));
}

}  // namespace
