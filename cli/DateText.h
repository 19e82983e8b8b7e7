// Dates as people write them.
#pragma once

#include <optional>
#include <string>

#include "core/Values.h"

namespace orvane::cli {

/// "2026-11-21 14:30:00", to the nearest second, without the time at midnight; empty where the date is not
/// set, and the serial number where it is outside the years 100 to 9999.
std::string dateText(Date date);

/// Reads "2026-11-21", "2026-11-21 14:30", "2026-11-21T14:30:05", "now", a serial number, and nothing for
/// "not set"; no date for anything else, a 31 June included.
std::optional<Date> parseDate(const std::string& text);

}  // namespace orvane::cli
