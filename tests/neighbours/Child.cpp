#include "tests/neighbours/Child.h"

#include <cstdlib>
#include <random>

#include "core/Error.h"
#include "core/JobFile.h"

namespace neighbours {

namespace {

constexpr DWORD kLongest = 600'000;  // on a machine that is busy with other things
constexpr DWORD kRest = 250;         // so that who waits gets his turn on a busy machine too

orvane::Text textOf(const std::wstring& text) { return {text.begin(), text.end()}; }

orvane::Text number(int value) { return orvane::fromUtf8(std::to_string(value)); }

Board* boardOf(HANDLE mapping) {
  return static_cast<Board*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Board)));
}

// Two keys of one scope, so that a torn file would show them unequal; told once written.
int write(Board& board, const std::wstring& path, int from) {
  orvane::JobFile file(textOf(path));
  board.ready = 1;
  for (int i = from + 1; !board.stop; ++i) {
    file.together([&] {
      file.write(u"A", u"first", number(i));
      file.write(u"Z", u"last", number(i));
    });
    board.done = i;
  }
  return 0;
}

// Holds the file open without sharing, again and again, with a short rest between.
int hold(Board& board, const std::wstring& path, int shortest, int longest) {
  std::mt19937 random(7);
  std::uniform_int_distribution<DWORD> time(static_cast<DWORD>(shortest), static_cast<DWORD>(longest));
  while (!board.stop) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      InterlockedIncrement(&board.done);
      board.ready = 1;
      Sleep(time(random));
      CloseHandle(file);
    }
    Sleep(kRest);
  }
  return 0;
}

int play(Board& board, int argc, wchar_t** argv) {
  const std::wstring role = argv[1], path = argv[3];
  const int first = _wtoi(argv[4]);
  if (role == L"write") return write(board, path, first);
  return argc > 5 ? hold(board, path, first, _wtoi(argv[5])) : 2;
}

std::wstring ownPath() {
  wchar_t path[1000];
  return {path, GetModuleFileNameW(nullptr, path, 1000)};
}

}  // namespace

bool playRole(int argc, wchar_t** argv) {
  if (argc < 5 || argv[1][0] == L'-') return false;
  const auto mapping = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(_wtoi64(argv[2])));
  int code = 3;
  try {
    code = play(*boardOf(mapping), argc, argv);
  } catch (const orvane::Error& error) {
    code = 1000 + error.number();
  }
  ExitProcess(static_cast<UINT>(code));
}

Child::Child(const std::wstring& role, const std::wstring& file, int first, int second) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  mapping_ = CreateFileMappingW(INVALID_HANDLE_VALUE, &inherited, PAGE_READWRITE, 0, sizeof(Board), nullptr);
  board_ = boardOf(mapping_);
  std::wstring line = L"\"" + ownPath() + L"\" " + role + L" " +
                      std::to_wstring(reinterpret_cast<std::intptr_t>(mapping_)) + L" \"" + file + L"\" " +
                      std::to_wstring(first) + L" " + std::to_wstring(second);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made)) {
    failure_ = GetLastError();
    return;
  }
  CloseHandle(made.hThread);
  process_ = made.hProcess;
}

Child::~Child() {
  kill();
  CloseHandle(process_);
  UnmapViewOfFile(board_);
  CloseHandle(mapping_);
}

testing::AssertionResult Child::wait(const std::string& what, const volatile LONG& told, LONG least) const {
  if (!process_) return testing::AssertionFailure() << "a child was not started: error " << failure_;
  const ULONGLONG end = GetTickCount64() + kLongest;
  DWORD state = WAIT_TIMEOUT;
  while (told < least && state == WAIT_TIMEOUT && GetTickCount64() < end)
    state = WaitForSingleObject(process_, 1);
  if (told >= least) return testing::AssertionSuccess();
  DWORD code = 0;
  GetExitCodeProcess(process_, &code);
  return testing::AssertionFailure() << "waited for a child " << what
                                     << (state == WAIT_TIMEOUT ? "; it still runs, " : "; it ended, ")
                                     << "exit code " << code << ", ready " << board_->ready << ", done "
                                     << board_->done;
}

void Child::kill() const {
  TerminateProcess(process_, 9);
  WaitForSingleObject(process_, kLongest);
}

DWORD Child::stop() const {
  board_->stop = 1;
  DWORD code = STILL_ACTIVE;
  WaitForSingleObject(process_, kLongest);
  GetExitCodeProcess(process_, &code);
  return code;
}

}  // namespace neighbours
