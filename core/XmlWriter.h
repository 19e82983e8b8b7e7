// Writes a document's XML: elements and text only, no declaration, no attributes, no white space of its own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

#include "core/Text.h"
#include "core/Values.h"

namespace orvane {

/// Elements are written as they are opened, so building costs one pass and grows with the text alone. What
/// comes out is always well-formed as long as every `begin` has its `end`: `&`, `<`, `>` are escaped, a
/// carriage return becomes a character reference (a parser would otherwise turn it into a line feed), and a
/// character that XML 1.0 forbids becomes U+FFFD. Element names are written as given.
class XmlWriter {
 public:
  /// The decimal separator is the user's, asked for once.
  XmlWriter();
  explicit XmlWriter(Text decimalSeparator);

  void begin(TextView name);
  void end(TextView name);

  /// Text directly under the element that is open.
  void text(TextView value);

  /// A whole element; an empty text gives `<name/>`.
  void element(TextView name, TextView value);
  void element(TextView name, const Text& value) { element(name, TextView(value)); }
  void element(TextView name, const char16_t* value) { element(name, TextView(value)); }
  void element(TextView name, std::int32_t value);
  /// True is "-1", False is "0".
  void element(TextView name, bool value) { element(name, std::int32_t{value ? -1 : 0}); }
  /// The serial number, up to 15 significant digits, with the user's decimal separator.
  void element(TextView name, Date value);

  /// What has been written so far.
  Text result() const { return Text(out_.get(), at_); }

 private:
  /// Make room for that many units more; pieces are then put one after the other without asking again.
  void reserve(std::size_t units) {
    if (static_cast<std::size_t>(end_ - at_) < units) grow(units);
  }
  void grow(std::size_t units);
  void put(char16_t unit) { *at_++ = unit; }
  void put(TextView text) { at_ = std::copy(text.begin(), text.end(), at_); }
  void putEscaped(TextView value);

  std::unique_ptr<char16_t[]> out_;
  char16_t* at_;
  char16_t* end_;
  Text separator_;
};

}  // namespace orvane
