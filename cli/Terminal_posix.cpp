#include <sys/ioctl.h>
#include <unistd.h>

#include "cli/Terminal.h"

namespace orvane::cli {

std::size_t terminalWidth() {
  constexpr std::size_t usual = 80;
  if (isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

}  // namespace orvane::cli
