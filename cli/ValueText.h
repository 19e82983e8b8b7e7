// Values of members as people write and read them.
#pragma once

#include <string>

#include "typelib/Members.h"

namespace orvane::cli {

enum class Form {
  Readable,  ///< names of codes, calendar dates, true and false
  Raw,       ///< what stands in the job file: numbers
};

/// The value that a text means for a member of that type. A number has a point or the user's separator; a
/// truth value is true, false, si, no, vero, falso, 1, 0 or -1; a code is a number, a name, or names joined
/// by "+"; a date is as `parseDate` says. Failure 13 for any other text, 6 for a number that does not fit.
Variant parseValue(const std::string& text, const TypeInfo& type);

/// The text of a value that is no object; of an array its items with ", " between them.
std::string valueText(const Variant& value, const TypeInfo& type, Form form);

/// The name of a code; empty where it has none.
std::string codeName(const EnumInfo& enumeration, std::int32_t code);

/// C0 controls as \n, \r, \t and \x1B, so that a text stays in its line and does nothing to a terminal.
std::string printable(const std::string& text);

}  // namespace orvane::cli
