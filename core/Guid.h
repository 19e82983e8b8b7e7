// Globally unique identifiers.
#pragma once

#include "core/Text.h"

namespace orvane {

/// A new GUID of the system's generator in registry format: braces around groups of 8, 4, 4, 4 and 12
/// upper-case hexadecimal digits.
Text newGuid();

}  // namespace orvane
