#include <sys/ioctl.h>
#include <unistd.h>

#include "cli/Terminal.h"

namespace orvane::cli {

std::size_t terminalWidth(Stream stream) {
  constexpr std::size_t usual = 80;
  const int file = stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO;
  if (isatty(file) == 0) return 0;
  winsize size{};
  return ioctl(file, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

}  // namespace orvane::cli
