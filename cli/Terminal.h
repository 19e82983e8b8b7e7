// The terminal that the program writes to.
#pragma once

#include <cstddef>

namespace orvane::cli {

enum class Stream { Output, Error };

/// Columns of the terminal that a standard stream leads to; 0 where it leads to none.
std::size_t terminalWidth(Stream stream);

}  // namespace orvane::cli
