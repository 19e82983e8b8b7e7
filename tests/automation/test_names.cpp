// Names that Windows takes for something else, as documents meet them.
#include "tests/automation/Client.h"
#include "tests/automation/Files.h"

namespace {

using namespace client;

class Names : public Automation {
 protected:
  HRESULT bindAndAssign(const std::wstring& id, const std::wstring& folder) {
    const auto stampa = newStampa();
    const HRESULT bound = stampa->Inizializza(Bstr(id), Bstr(folder), VARIANT_FALSE);
    return FAILED(bound) ? bound : stampa->put_Stampante(Bstr(L"Laser"));
  }
  HRESULT load(const std::wstring& name, const std::wstring& folder) {
    return newStampa()->Carica(Bstr(folder), Bstr(name));
  }
};

TEST_F(Names, OfDevicesAndOfNoFileAreMissingInLoading) {
  const std::wstring folder = newFolder();
  for (const std::wstring& name : {std::wstring(L"NUL"), std::wstring(L"a?"), std::wstring(300, L'x')}) {
    EXPECT_EQ(runtimeError(53), load(name, folder)) << std::string(name.begin(), name.end());
  }
  EXPECT_EQ(runtimeError(76), load(L"a", folder + L"\\NUL"));
}

TEST_F(Names, OfDevicesAndOfNoFileAre52InWritingAndLeaveNothing) {
  const std::wstring folder = newFolder();
  for (const std::wstring& id : {std::wstring(L"NUL"), std::wstring(L"COM1"), std::wstring(L"a?"),
                                 std::wstring(L"a:b"), std::wstring(300, L'x')}) {
    EXPECT_EQ(runtimeError(52), bindAndAssign(id, folder)) << std::string(id.begin(), id.end());
  }
  EXPECT_TRUE(contentOf(folder).empty());
}

TEST_F(Names, MayEndWithADotOrABlankAndStandInADeepFolder) {
  std::wstring folder = newFolder() + L"\\" + std::wstring(120, L'a');
  ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + folder).c_str(), nullptr));
  folder += L"\\" + std::wstring(120, L'b');
  ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + folder).c_str(), nullptr));
  for (const wchar_t* id : {L"a.", L" a ", L"a"}) {
    EXPECT_EQ(S_OK, bindAndAssign(id, folder));
    EXPECT_EQ(S_OK, load(std::wstring(id) + L".vqs", folder));
    EXPECT_EQ(S_OK, load(std::wstring(id) + L".vqs.", folder)) << "as the system finds it";
  }
  EXPECT_EQ(3u, contentOf(L"\\\\?\\" + folder).size());
}

}  // namespace
