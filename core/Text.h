// Texts are strings of UTF-16 units, as the automation interface carries them. No function here depends on a
// locale.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

using Text = std::u16string;
using TextView = std::u16string_view;

/// UTF-8 of a text; a lone surrogate becomes the three bytes of its code point, so that `fromUtf8` gives it
/// back.
std::string toUtf8(TextView text);

/// The text of UTF-8 bytes; a byte that is no UTF-8 becomes U+FFFD.
Text fromUtf8(std::string_view bytes);

/// False where `bytes` hold anything that is not UTF-8.
bool isUtf8(std::string_view bytes);

/// One unit for each byte, read as Windows-1252; the five unassigned bytes become the C1 control of their
/// value.
Text fromWindows1252(std::string_view bytes);

/// The unit in lower case where it is an ASCII or Latin-1 letter. Section names, keys and collection keys
/// compare so.
constexpr char16_t foldCase(char16_t unit) {
  const bool ascii = unit >= u'A' && unit <= u'Z';
  const bool latin1 = unit >= 0xC0 && unit <= 0xDE && unit != 0xD7;
  return ascii || latin1 ? static_cast<char16_t>(unit + 0x20) : unit;
}

/// `text` without the units at its ends that `isBlank`.
template <class IsBlank>
constexpr TextView trimmed(TextView text, IsBlank isBlank) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// True where both texts are equal but for the case of ASCII and Latin-1 letters.
bool equalIgnoringCase(TextView a, TextView b);

}  // namespace orvane
