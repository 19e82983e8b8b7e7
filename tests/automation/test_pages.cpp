// Pages of a folder, as Windows names and lists its files, and control codes as its code page writes them.
#include "tests/automation/Client.h"
#include "tests/automation/Files.h"

namespace {

using namespace client;

std::wstring presentFolder() {
  wchar_t path[MAX_PATH];
  return {path, GetCurrentDirectoryW(MAX_PATH, path)};
}

struct Header {
  LONG number = 0;
  Bstr folder, name, full;
};

class Pages : public Automation {
 protected:
  void SetUp() override {
    Automation::SetUp();
    before_ = presentFolder();
  }
  void TearDown() override {
    SetCurrentDirectoryW(before_.c_str());
    Automation::TearDown();
  }

  Ptr<_VqDocPagine> loaded(const std::wstring& folder) {
    Ptr<_VqDocPagine> pages;
    EXPECT_EQ(S_OK, newStampa()->get_Pagine(pages.out()));
    EXPECT_EQ(S_OK, pages->Carica(Bstr(folder)));
    return pages;
  }

  static void read(_VqDocPagine* pages, LONG position, Header& header) {
    Ptr<_VqDocPagina> page;
    Ptr<_VqDocFile> file;
    ASSERT_EQ(S_OK, pages->get_Item(position, page.out()));
    ASSERT_TRUE(page) << position;
    ASSERT_EQ(S_OK, page->get_Numero(&header.number));
    ASSERT_EQ(S_OK, page->get_FileIntestazione(file.out()));
    ASSERT_EQ(S_OK, file->get_Percorso(header.folder.out()));
    ASSERT_EQ(S_OK, file->get_Nome(header.name.out()));
    ASSERT_EQ(S_OK, file->File(header.full.out()));
  }

 private:
  std::wstring before_;
};

TEST_F(Pages, HaveTheOwnPathOfTheirFolderHoweverItIsNamed) {
  const std::wstring top = newFolder();
  ASSERT_TRUE(SetCurrentDirectoryW(top.c_str()));
  const std::wstring folder = presentFolder() + L"\\a", drive = folder.substr(0, 2);
  ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
  putBytes(folder + L"\\p.dpg", "");
  std::wstring slashes = folder;
  for (wchar_t& c : slashes) c = c == L'\\' ? L'/' : c;
  const std::pair<std::wstring, std::wstring> rows[] = {
      {top, L"a"},    {top, L"a\\"},         {top, L".\\a/"},      {top, L"a\\..\\a"}, {top, drive + L"a"},
      {folder, L"."}, {folder, L".\\"},      {folder, L"..\\a"},   {folder, drive},    {folder, drive + L"."},
      {top, slashes}, {top, slashes + L"/"}, {top, folder + L"\\"}};
  for (const auto& [present, name] : rows) {
    SCOPED_TRACE(std::string(name.begin(), name.end()));
    ASSERT_TRUE(SetCurrentDirectoryW(present.c_str()));
    const auto pages = loaded(name);
    ASSERT_TRUE(SetCurrentDirectoryW((drive + L"\\").c_str()));
    Header header;
    ASSERT_NO_FATAL_FAILURE(read(pages.get(), 1, header));
    EXPECT_EQ(folder, header.folder.text());
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(header.full));
  }
}

std::vector<std::wstring> listed(const std::wstring& pattern) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW entry;
  const HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    names.emplace_back(entry.cFileName);
  } while (FindNextFileW(search, &entry));
  FindClose(search);
  return names;
}

TEST_F(Pages, ComeAndAreNumberedInTheOrderInWhichTheSystemListsTheirFiles) {
  const std::wstring folder = newFolder();
  for (const wchar_t* name : {L"p2.dpg", L"P1.dpg", L"a.dpg", L"B.dpg", L"p10.dpg"}) {
    putBytes(folder + L"\\" + name, "");
  }
  const auto names = listed(folder + L"\\*.dpg");
  ASSERT_EQ(5u, names.size());
  const auto pages = loaded(folder);
  for (LONG position = 1; position <= 5; ++position) {
    Header header;
    ASSERT_NO_FATAL_FAILURE(read(pages.get(), position, header));
    EXPECT_EQ(position, header.number);
    EXPECT_EQ(names[static_cast<std::size_t>(position - 1)], header.name.text());
  }
}

TEST_F(Pages, HaveControlCodesThatTheCodePageWritesAsTheirBytes) {
  Ptr<_VqDocProprieta> properties;
  Ptr<_VqDocCatalogoSorgente> catalog;
  ASSERT_EQ(S_OK, newStampa()->get_Proprieta(properties.out()));
  ASSERT_EQ(S_OK, properties->get_CatalogoSorgente(catalog.out()));
  for (int byte = 0; byte < 256; ++byte) {
    ASSERT_EQ(S_OK, catalog->put_CompressoOn(6, static_cast<BYTE>(byte)));
    Bstr text;
    ASSERT_EQ(S_OK, catalog->StrChrCompressoOn(text.out()));
    char written[8] = {};
    ASSERT_EQ(7, WideCharToMultiByte(1252, 0, text, 7, written, 8, "?", nullptr)) << byte;
    EXPECT_EQ(byte, static_cast<BYTE>(written[6]));
  }
}

}  // namespace
