// Two jobs, member by member.
#pragma once

#include <ostream>

#include "cli/Session.h"

namespace orvane::cli {

/// Prints -Path=value for what `a` holds and +Path=value for what `b` holds instead, in the order of the
/// interface; identity and job file are not compared. True where anything differs.
bool printDifferences(const Job& a, const Job& b, std::ostream& out);

}  // namespace orvane::cli
