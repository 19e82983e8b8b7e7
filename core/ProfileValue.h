// How names and values stand in a profile file.
#pragma once

#include "core/Text.h"

namespace orvane {

/// White space that profile functions take off the ends of names and values.
constexpr bool isProfileBlank(char16_t unit) {
  if (unit > u' ') return false;
  return unit == u' ' || unit == u'\t' || unit == u'\v' || unit == u'\f' || unit == 0x1A;
}

/// `text` without outer blanks.
inline TextView withoutOuterBlanks(TextView text) { return trimmed(text, isProfileBlank); }

/// True where a text can stand between the brackets of a section line, or before the equals sign of a key
/// line, and be found again: not empty, no control characters, no outer blanks, no leading `;` or `[`, no `]`
/// in a section, no `=` in a key.
bool canBeSection(TextView name);
bool canBeKey(TextView name);

/// Appends to `out` the form in which `value` stands in the file: C0 controls and U+241B as U+241B and four
/// hexadecimal digits, all between double quotes where it begins or ends with a blank or a quote.
void appendStoredValue(Text& out, TextView value);

/// The value of a stored form: `stored` itself or a part of it, or else `room`, which then holds it.
TextView plainValue(TextView stored, Text& room);

}  // namespace orvane
