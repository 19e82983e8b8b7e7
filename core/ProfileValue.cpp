#include "core/ProfileValue.h"

#include <algorithm>

#include "core/Units.h"

namespace orvane {

namespace {

constexpr char16_t kEscape = 0x241B;
constexpr std::size_t kEscapeLength = 5;

constexpr char16_t kFirstPrintable = 0x20;
bool isControl(char16_t unit) { return unit < kFirstPrintable; }
bool isQuote(char16_t unit) { return unit == u'"' || unit == u'\''; }
bool mustEscape(char16_t unit) { return isControl(unit) || unit == kEscape; }

// Some implementations of the profile functions take off any white space of Unicode.
bool isWideBlank(char16_t unit) {
  if (unit < 0x80) return false;
  return unit == 0x85 || unit == 0xA0 || unit == 0x1680 || unit == 0x180E ||
         (unit >= 0x2000 && unit <= 0x200B) || unit == 0x2028 || unit == 0x2029 || unit == 0x202F ||
         unit == 0x205F || unit == 0x3000 || unit == 0xFEFF;
}

bool isAnyBlank(char16_t unit) { return isProfileBlank(unit) || isWideBlank(unit); }

bool mustQuote(char16_t outer) { return isQuote(outer) || isAnyBlank(outer); }

bool canBeName(TextView name, char16_t excluded) {
  if (name.empty() || name.front() == u';' || name.front() == u'[') return false;
  if (isAnyBlank(name.front()) || isAnyBlank(name.back())) return false;
  return findMarked(name, 0, [&](std::uint64_t four) {
           return marksBelow(four, kFirstPrintable) | marksOf(four, excluded);
         }) == name.size();
}

void appendEscaped(Text& out, char16_t unit) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  out += kEscape;
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[(unit >> shift) & 0xF];
}

int digitOf(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  const char16_t lower = unit | 0x20;
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

// The unit that the text at `at` stands for, or -1 where that is no escape.
int escapedUnit(TextView text, std::size_t at) {
  if (text[at] != kEscape || text.size() - at < kEscapeLength) return -1;
  int unit = 0;
  for (std::size_t i = 1; i < kEscapeLength; ++i) {
    const int digit = digitOf(text[at + i]);
    if (digit < 0) return -1;
    unit = unit << 4 | digit;
  }
  return unit;
}

TextView withoutQuotes(TextView text) {
  const bool quoted = text.size() >= 2 && isQuote(text.front()) && text.front() == text.back();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

bool canBeSection(TextView name) { return canBeName(name, u']'); }

bool canBeKey(TextView name) { return canBeName(name, u'='); }

void appendStoredValue(Text& out, TextView value) {
  const bool quoted = !value.empty() && (mustQuote(value.front()) || mustQuote(value.back()));
  if (quoted) out += u'"';
  for (const char16_t unit : value) {
    if (mustEscape(unit)) {
      appendEscaped(out, unit);
    } else {
      out += unit;
    }
  }
  if (quoted) out += u'"';
}

TextView plainValue(TextView stored, Text& room) {
  const TextView text = withoutQuotes(stored);
  std::size_t at = findUnit(text, kEscape);
  if (at == text.size()) return text;
  room.assign(text, 0, at);
  while (at < text.size()) {
    const int unit = escapedUnit(text, at);
    room += unit < 0 ? text[at] : static_cast<char16_t>(unit);
    at += unit < 0 ? 1 : kEscapeLength;
  }
  return room;
}

}  // namespace orvane
