#include <windows.h>

#include <iostream>

#include "cli/CommandLine.h"
#include "core/Text.h"

namespace {

// The console shows UTF-8 while this lives.
class Utf8Console {
 public:
  Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() { SetConsoleOutputCP(before_); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  UINT before_;
};

std::string utf8(const wchar_t* argument) {
  const std::wstring wide(argument);
  return orvane::toUtf8(orvane::Text(wide.begin(), wide.end()));
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  const Utf8Console console;
  orvane::cli::Strings texts;
  for (int i = 1; i < count; ++i) texts.push_back(utf8(arguments[i]));
  return static_cast<int>(orvane::cli::run(texts, orvane::cli::standardConsole()));
}
