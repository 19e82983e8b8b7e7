// What Windows makes of names and moments.
#include <limits>
#include <thread>

#include "tests/automation/Imports.h"
#include "tests/neighbours/JobFolder_win32.h"
#include "tests/support/TemporaryName.h"

namespace neighbours {
namespace {

using client::Import;

// How many of the next calls fail, and how.
int failures = 0;
DWORD failure = ERROR_SUCCESS;

// Not by way of what this program imports, which is replaced.
template <class Function>
Function* ofSystem(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), name)));
}

bool failsNow(const wchar_t* path) {
  if (failures == 0 || !std::wstring_view(path).ends_with(L".vqs")) return false;
  --failures;
  SetLastError(failure);
  return true;
}

HANDLE WINAPI openOrFail(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD how,
                         DWORD flags, HANDLE pattern) {
  static const auto real = ofSystem<decltype(CreateFileW)>("CreateFileW");
  if (failsNow(path)) return INVALID_HANDLE_VALUE;
  return real(path, access, share, security, how, flags, pattern);
}

BOOL WINAPI askOrFail(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, void* out) {
  static const auto real = ofSystem<decltype(GetFileAttributesExW)>("GetFileAttributesExW");
  return !failsNow(path) && real(path, level, out);
}

// The system's answers while another process exchanges the file.
class Moments : public JobFolder, public testing::WithParamInterface<DWORD> {
 protected:
  void SetUp() override {
    orvane::JobFile file(published());
    file.write(u"A", u"k", u"1");
    file.write(u"A", u"other", u"2");
  }
  void TearDown() override { failures = 0; }
  static void failNext(int times) { failures = times, failure = GetParam(); }
};

TEST_P(Moments, OfAFailingOpenHideNoValue) {
  const Import open(GetModuleHandleW(nullptr), "CreateFileW", openOrFail);
  failNext(1);
  EXPECT_EQ(valueOf(u"A", u"k"), u"1");
  EXPECT_EQ(failures, 0);
}

TEST_P(Moments, OfAFailingLookHideNoValue) {
  Sleep(100);  // what is read of a file changed just now is not kept
  orvane::JobFile file(published());
  EXPECT_EQ(file.read(u"A", u"k"), u"1");
  const Import ask(GetModuleHandleW(nullptr), "GetFileAttributesExW", askOrFail);
  failNext(1);
  EXPECT_EQ(file.read(u"A", u"other"), u"2");
  EXPECT_EQ(failures, 0);
}

TEST_P(Moments, OfAFailingOpenLoseNoOtherValue) {
  const Import open(GetModuleHandleW(nullptr), "CreateFileW", openOrFail);
  failNext(1);
  orvane::JobFile(published()).write(u"A", u"k", u"3");
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(valueOf(u"A", u"k"), u"3");
  EXPECT_EQ(valueOf(u"A", u"other"), u"2");
}

TEST_P(Moments, OfAnOpenThatFailsAllTheTimeAreAnError) {
  const Import open(GetModuleHandleW(nullptr), "CreateFileW", openOrFail);
  failNext(std::numeric_limits<int>::max());
  const bool refused = GetParam() == ERROR_ACCESS_DENIED || GetParam() == ERROR_SHARING_VIOLATION;
  EXPECT_EQ(errorOf([&] { valueOf(u"A", u"k"); }), refused ? 70 : 75);
}

INSTANTIATE_TEST_SUITE_P(Of, Moments,
                         testing::Values(ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION,
                                         ERROR_DELETE_PENDING),
                         [](const auto& row) { return "Error" + std::to_string(row.param); });

int renamesOfClosedFiles = 0;

// Opens the file as nobody can while another has it open to write.
BOOL WINAPI renameAlone(LPCWSTR from, LPCWSTR to, DWORD flags) {
  static const auto real = ofSystem<decltype(MoveFileExW)>("MoveFileExW");
  const HANDLE file = CreateFileW(from, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return FALSE;
  CloseHandle(file);
  ++renamesOfClosedFiles;
  return real(from, to, flags);
}

using Replaces = JobFolder;

// A client of a share may keep back what is written until then, and a virus scanner may begin its work.
TEST_F(Replaces, ComeAfterTheTemporaryIsClosed) {
  const Import rename(GetModuleHandleW(nullptr), "MoveFileExW", renameAlone);
  orvane::JobFile file(published());
  file.write(u"A", u"k", u"1");
  file.write(u"A", u"k", u"2");
  EXPECT_EQ(renamesOfClosedFiles, 2);
  EXPECT_EQ(valueOf(u"A", u"k"), u"2");
  EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
}

// What a writer that was killed leaves.
class Leftovers : public JobFolder {
 protected:
  HANDLE leave(DWORD attributes) const {
    const std::string name = orvane::test::temporaryName(orvane::lockNumberOf(u"job.vqs"));
    return CreateFileW(path({name.begin(), name.end()}).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                       attributes, nullptr);
  }
  void expectToWrite() const {
    orvane::JobFile(published()).write(u"A", u"k", u"1");
    EXPECT_EQ(valueOf(u"A", u"k"), u"1");
    EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
  }
};

TEST_F(Leftovers, OfAHiddenJobFileAreInNobodysWay) {
  CloseHandle(leave(FILE_ATTRIBUTE_HIDDEN));
  expectToWrite();
}

TEST_F(Leftovers, OfAWriterThatIsStillDyingAreWaitedFor) {
  const HANDLE left = leave(FILE_ATTRIBUTE_NORMAL);
  std::thread death([&] {
    Sleep(200);
    CloseHandle(left);
  });
  expectToWrite();
  death.join();
}

using Names = JobFolder;

TEST_F(Names, WithTrailingDotsAndBlanksAreTheNameWithout) {
  orvane::JobFile(published()).write(u"A", u"k", u"1");
  orvane::JobFile(published(L"job.vqs.")).write(u"A", u"l", u"2");
  orvane::JobFile(published(L"job.vqs. ")).write(u"A", u"m", u"3");
  EXPECT_EQ(names(), std::set<std::wstring>{L"job.vqs"});
  EXPECT_EQ(valueOf(u"A", u"k") + valueOf(u"A", u"l") + valueOf(u"A", u"m"), u"123");
}

TEST_F(Names, OfDevicesAreRefused) {
  for (const wchar_t* name : {L"NUL", L"con", L"COM1.vqs", L"LPT9", L"nul.vqs", L"AUX"}) {
    orvane::JobFile file(published(name));
    const int written = errorOf([&] { file.write(u"A", u"k", u"1"); });
    // Some versions of the system take a name for a device's only where it has no extension.
    const bool kept = written == 0 && file.read(u"A", u"k") == TextView(u"1") && names().contains(name);
    EXPECT_TRUE(written == 52 || kept) << written << " " << orvane::toUtf8(asText(name));
  }
}

TEST_F(Names, ThatNoFileCanHaveAreRefused) {
  for (const wchar_t* name : {L"a?.vqs", L"a*.vqs", L"a|b.vqs", L"<a>.vqs", L"a\"b.vqs"}) {
    const int written = errorOf([&] { orvane::JobFile(published(name)).write(u"A", u"k", u"1"); });
    EXPECT_EQ(written, 52) << orvane::toUtf8(asText(name));
  }
  const std::wstring component(300, L'x');
  EXPECT_EQ(errorOf([&] { orvane::JobFile(published(component)).write(u"A", u"k", u"1"); }), 52);
  EXPECT_TRUE(names().empty());
}

TEST_F(Names, MayBeLong) {
  std::wstring folder = L"\\\\?\\" + path(std::wstring(120, L'a'));
  CreateDirectoryW(folder.c_str(), nullptr);
  folder += L"\\" + std::wstring(120, L'b');
  CreateDirectoryW(folder.c_str(), nullptr);
  const std::wstring name = folder.substr(4) + L"\\" + std::wstring(60, L'c') + L".vqs";
  ASSERT_GT(name.size(), 300u);
  orvane::JobFile file(asText(name));
  EXPECT_EQ(errorOf([&] { file.write(u"A", u"k", u"1"); }), 0);
  EXPECT_EQ(file.read(u"A", u"k"), u"1");
  client::restore(folder, {});
  RemoveDirectoryW(folder.c_str());
  RemoveDirectoryW(folder.substr(0, folder.rfind(L'\\')).c_str());
}

}  // namespace
}  // namespace neighbours
