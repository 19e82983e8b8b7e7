// Jobs for other programs.
#pragma once

#include <string>

#include "cli/JobRow.h"
#include "cli/Json.h"

namespace orvane::cli {

/// kind, of, linked, id, file, state, stateName, stateText, phase, created, dates, outcome, outcomeText,
/// error, errorText, failed, to, user, description; of a file that cannot be read kind, id, file, phase,
/// failed and failure.
JsonObject jobJson(const JobRow& row);

/// The same as a line of comma-separated values, without the dates but of the last; a field with a comma, a
/// quote or a line break stands between quotes.
std::string csvHeader();
std::string csvLine(const JobRow& row);

}  // namespace orvane::cli
