// The terminal that results are written to.
#pragma once

#include <cstddef>

namespace orvane::cli {

/// Columns of the terminal that standard output is; 0 where it is none.
std::size_t terminalWidth();

}  // namespace orvane::cli
