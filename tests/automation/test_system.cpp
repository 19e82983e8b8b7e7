// The system's own means read what the server writes, and write what it reads.
#include "codes/OwnTexts.h"
#include "tests/automation/Client.h"

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

// Activates the manifest that the DLL carries, as a program's own manifest would by a dependency on it.
class Assembly {
 public:
  Assembly() {
    const std::wstring path = Server::path();
    const std::wstring folder = path.substr(0, path.find_last_of(L"\\/"));
    ACTCTXW request{};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    request.lpSource = path.c_str();
    request.lpAssemblyDirectory = folder.c_str();
    request.lpResourceName = MAKEINTRESOURCEW(1);
    context_ = CreateActCtxW(&request);
    if (isActive()) ActivateActCtx(context_, &cookie_);
  }
  ~Assembly() {
    if (!isActive()) return;
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }
  Assembly(const Assembly&) = delete;
  Assembly& operator=(const Assembly&) = delete;
  bool isActive() const { return context_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

TEST_F(System, TheManifestStandsInForRegistration) {
  const Assembly assembly;
  ASSERT_TRUE(assembly.isActive()) << GetLastError();
  CLSID id{};
  EXPECT_EQ(S_OK, CLSIDFromProgID(L"OrvaneDocumenti.VqDocumenti", &id));
  EXPECT_NE(__uuidof(VqDocumenti), id) << "the system gives an id of its own that is valid in this context";
  Ptr<_VqDocumenti> made;
  EXPECT_EQ(S_OK,
            CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_VqDocumenti), made.outVoid()));
  ACTCTX_SECTION_KEYED_DATA data{};
  data.cbSize = sizeof(data);
  for (const GUID& known : {__uuidof(_VqDocStampa), __uuidof(_VqDocAnteprima)}) {
    EXPECT_TRUE(FindActCtxSectionGuid(0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_INTERFACE_REDIRECTION,
                                      &known, &data));
  }
  const CLSID factoryId = __uuidof(VqDocumenti);
  EXPECT_TRUE(FindActCtxSectionGuid(0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, &factoryId,
                                    &data));
}

}  // namespace
