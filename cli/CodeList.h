// The codes of the interface with their names and texts.
#pragma once

#include <ostream>
#include <string>

#include "cli/Session.h"

namespace orvane::cli {

/// Every code of every class that has codes, or of the one named `only`: by its class (VqDocDimensione or
/// Dimensione) or its enumeration, whatever the case. UsageError, with near names, for any other name.
void listCodes(const Session& session, const std::string& only, std::ostream& out);

}  // namespace orvane::cli
