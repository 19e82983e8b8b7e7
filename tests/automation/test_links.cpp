// Chains of linked documents on the stack that Windows gives a program by default.
#include "tests/automation/Client.h"
#include "tests/automation/Files.h"

namespace {

using namespace client;

constexpr SIZE_T kUsualStack = 1 << 20;
constexpr int kDeep = 500;

struct Thread {
  void (*work)(_VqDocStampa& document, const std::wstring& folder);
  std::wstring folder;
};

DWORD WINAPI run(void* given) {
  const auto& thread = *static_cast<const Thread*>(given);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  {
    const auto factory = newFactory();
    Ptr<_VqDocStampa> document;
    EXPECT_EQ(S_OK, factory->NuovoDocumentoStampa(document.out()));
    thread.work(*document.get(), thread.folder);
  }
  CoUninitialize();
  return 0;
}

void withStack(SIZE_T size, Thread thread) {
  HANDLE handle = CreateThread(nullptr, size, run, &thread, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ASSERT_NE(nullptr, handle);
  EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(handle, INFINITE));
  CloseHandle(handle);
}

/// Jobs 0 to `kDeep`, each but the last with a link to the next.
std::wstring folderWithChain() {
  const std::wstring folder = newFolder();
  const std::string path(folder.begin(), folder.end());
  for (int i = 0; i <= kDeep; ++i) {
    std::string lines = "[Proprieta]\r\nId=" + std::to_string(i) + "\r\n";
    if (i < kDeep) {
      lines += "[Collegati]\r\nNumeroCollegati=1\r\nPercorso0=" + path +
               "\r\nNome0=" + std::to_string(i + 1) + ".lvq\r\n";
    }
    putBytes(folder + L"\\" + std::to_wstring(i) + L".lvq", lines);
  }
  return folder;
}

int depthOf(_VqDocStampa& document) {
  Ptr<_VqDocCollegatiStampa> links;
  EXPECT_EQ(S_OK, document.get_Collegati(links.out()));
  for (int depth = 0;; ++depth) {
    Ptr<_VqDocStampa> next;
    EXPECT_EQ(S_OK, links->get_Item(Value(0L), next.out()));
    if (!next) return depth;
    EXPECT_EQ(S_OK, next->get_Collegati(links.out()));
  }
}

TEST(Links, AreLoadedRenderedAndReleased500LevelsDeepInAMegabyteOfStack) {
  withStack(kUsualStack, {[](_VqDocStampa& document, const std::wstring& folder) {
                            EXPECT_EQ(S_OK, document.Carica(Bstr(folder), Bstr(L"0.lvq")));
                            EXPECT_EQ(kDeep, depthOf(document));
                            Bstr xml;
                            EXPECT_EQ(S_OK, document.Xml(xml.out()));
                            EXPECT_NE(L"", xml.text());
                          },
                          folderWithChain()});
}

// Does `work` where so many blocks of 64 KB of the stack are taken.
template <class Work>
void withLessStack(int blocks, Work work) {
  volatile char block[64 * 1024];
  block[0] = 0;
  blocks > 0 ? withLessStack(blocks - 1, work) : work();
  EXPECT_EQ(0, block[0]);
}

TEST(Links, ThatAreTooDeepForTheStackAreAnError) {
  withStack(kUsualStack, {[](_VqDocStampa& document, const std::wstring& folder) {
                            withLessStack(11, [&] {
                              EXPECT_EQ(runtimeError(28), document.Carica(Bstr(folder), Bstr(L"0.lvq")));
                              EXPECT_EQ(S_OK, document.Carica(Bstr(folder), Bstr(L"498.lvq")));
                            });
                          },
                          folderWithChain()});
}

}  // namespace
