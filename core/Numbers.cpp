#include "core/Numbers.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

#include "core/Error.h"

namespace orvane {

namespace {

constexpr std::size_t kLongestNumber =
    64;  // a double in shortest or 15-digit form takes at most 24 characters

// Below it, whole numbers are written with all their digits, which servers read with any conversion to an
// integer.
constexpr double kLongestPlain = 1e15;

Text widen(const char* begin, const char* end) { return Text(begin, end); }

// Nothing where `text` holds what no number has.
std::optional<std::string> narrow(TextView text) {
  std::string out;
  for (const char16_t unit : text) {
    if (unit > 0x7E) return std::nullopt;
    out += static_cast<char>(unit);
  }
  return out;
}

// Which end of the range a number lies beyond: its exponent tells, or else its whole part.
bool isTiny(const std::string& digits) {
  const auto exponent = digits.find_first_of("eE");
  if (exponent != std::string::npos) return digits[exponent + 1] == '-';
  return digits.find_first_of("123456789") > digits.find('.');
}

TextView trimmed(TextView text) {
  const auto first = text.find_first_not_of(u" \t");
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

// Most stored numbers are whole and short.
std::optional<double> shortWhole(TextView text) {
  const bool negative = text.starts_with(u'-');
  const TextView digits = text.substr(negative ? 1 : 0);
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  std::int32_t number = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    number = 10 * number + (digit - u'0');
  }
  return negative ? -static_cast<double>(number) : number;
}

}  // namespace

std::int32_t roundToLong(double number) {
  const double whole = std::nearbyint(number);
  if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())) {
    throw Error(ErrorNumber::Overflow);
  }
  return static_cast<std::int32_t>(whole);
}

Currency toCurrency(double number) {
  const double scaled = std::nearbyint(number * 10000);
  if (!(std::fabs(scaled) < 9223372036854775808.0)) throw Error(ErrorNumber::Overflow);
  return {static_cast<std::int64_t>(scaled)};
}

double toDouble(Currency amount) { return static_cast<double>(amount.tenThousandths) / 10000; }

Text numberText(double number) {
  char buffer[kLongestNumber];
  const double shown = number == 0 ? 0.0 : number;
  const bool plain = std::trunc(shown) == shown && std::fabs(shown) < kLongestPlain;
  const auto result = plain ? std::to_chars(buffer, std::end(buffer), shown, std::chars_format::fixed)
                            : std::to_chars(buffer, std::end(buffer), shown);
  return widen(buffer, result.ptr);
}

std::optional<double> parseNumber(TextView text) {
  if (const auto number = shortWhole(text)) return number;
  auto digits = narrow(trimmed(text));
  if (!digits) return std::nullopt;
  const bool plus = digits->starts_with('+');
  if (plus) digits->erase(0, 1);
  // The standard conversion would also take words such as "inf" and a second sign.
  const auto first = digits->find_first_not_of('-');
  if (first == std::string::npos || first > (plus ? 0 : 1) ||
      !(std::isdigit(static_cast<unsigned char>((*digits)[first])) || (*digits)[first] == '.')) {
    return std::nullopt;
  }
  double number = 0;
  const char* end = digits->data() + digits->size();
  const auto result = std::from_chars(digits->data(), end, number);
  if (result.ptr != end) return std::nullopt;
  if (result.ec == std::errc::result_out_of_range) {
    const double infinity = std::numeric_limits<double>::infinity();
    number = isTiny(*digits) ? 0 : first == 1 ? -infinity : infinity;
  }
  return number;
}

Text decimalText(std::int64_t number) {
  char buffer[kLongestNumber];
  return widen(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

Text displayText(double number, TextView separator) {
  char buffer[kLongestNumber];
  const double shown = number == 0 ? 0.0 : number;
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, shown, std::chars_format::general, 15);
  Text out;
  for (const char* c = buffer; c != result.ptr; ++c) {
    if (*c == '.') {
      out += separator;
    } else {
      out += static_cast<char16_t>(*c == 'e' ? 'E' : *c);
    }
  }
  return out;
}

}  // namespace orvane
