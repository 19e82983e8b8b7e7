#include <windows.h>

#include "cli/Terminal.h"

namespace orvane::cli {

std::size_t terminalWidth(Stream stream) {
  const HANDLE output = GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
  CONSOLE_SCREEN_BUFFER_INFO info{};
  DWORD mode = 0;
  if (!GetConsoleMode(output, &mode) || !GetConsoleScreenBufferInfo(output, &info)) return 0;
  SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

}  // namespace orvane::cli
