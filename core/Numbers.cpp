#include "core/Numbers.h"

#include <algorithm>
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

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

Text widen(const char* begin, const char* end) { return Text(begin, end); }

// A number's characters, one byte each; none where the text holds what no number has.
class Narrow {
 public:
  explicit Narrow(TextView text) {
    if (text.size() > sizeof room_) long_.resize(text.size());
    char* const begin = long_.empty() ? room_ : long_.data();
    char16_t all = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      all |= text[i];
      begin[i] = static_cast<char>(text[i]);
    }
    if (all < 0x80) digits_ = {begin, text.size()};
  }
  Narrow(const Narrow&) = delete;
  Narrow& operator=(const Narrow&) = delete;

  std::string_view digits() const { return digits_; }

 private:
  char room_[kLongestNumber];
  std::string long_;
  std::string_view digits_;
};

// Which end of the range a number lies beyond: its exponent tells, or else its whole part.
bool isTiny(std::string_view digits) {
  const auto exponent = digits.find_first_of("eE");
  if (exponent != std::string_view::npos) return digits[exponent + 1] == '-';
  return digits.find_first_of("123456789") > digits.find('.');
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }

// `digits` hold a number without blanks or a leading plus. The standard conversion would also take words such
// as "inf" and a second sign.
std::optional<double> parseAny(std::string_view digits, bool negative) {
  const std::string_view absolute = digits.substr(negative ? 1 : 0);
  const bool begins = !absolute.empty() && (isDigit(absolute.front()) || absolute.front() == '.');
  if (!begins) return std::nullopt;
  double number = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  if (result.ptr != end) return std::nullopt;
  if (result.ec != std::errc::result_out_of_range) return number;
  return isTiny(digits) ? 0 : negative ? -kInfinity : kInfinity;
}

// Any number, if mostly one that is not short and whole.
std::optional<double> parseLonger(TextView text) {
  const Narrow narrow(trimmed(text, isBlank));
  const std::string_view digits = narrow.digits();
  return digits.starts_with('+') ? parseAny(digits.substr(1), false)
                                 : parseAny(digits, digits.starts_with('-'));
}

// Numbers that no digits spell, as the run time displays them.
struct Unspellable {
  double number;
  std::string_view word;
};
constexpr Unspellable kUnspellable[] = {
    {kInfinity, "1.#INF"}, {-kInfinity, "-1.#INF"}, {kNotANumber, "1.#QNAN"}, {-kNotANumber, "-1.#IND"}};

std::string_view wordOf(double number) {
  const auto* const found = std::find_if(std::begin(kUnspellable), std::end(kUnspellable), [&](auto& row) {
    return std::isnan(row.number) == std::isnan(number) && std::signbit(row.number) == std::signbit(number);
  });
  return found->word;
}

// A rounded number d.ddd times a power of ten, without zeros at its end.
struct Scale {
  int fraction;  // digits behind the point
  int exponent;
};

// `number` is finite and not 0.
Scale scaleOf(double number, int digits) {
  char buffer[kLongestNumber];
  const char* const end =
      std::to_chars(buffer, std::end(buffer), number, std::chars_format::scientific, digits - 1).ptr;
  const std::string_view form(buffer, static_cast<std::size_t>(end - buffer));
  const std::size_t mark = form.find('e'), point = form.find('.');
  const std::size_t last = form.find_last_not_of(".0", mark - 1);
  int exponent = 0;
  std::from_chars(buffer + mark + 2, end, exponent);
  return {last > point ? static_cast<int>(last - point) : 0, form[mark + 1] == '-' ? -exponent : exponent};
}

// The exponent form where the other would take more than `digits` digits before the point, or behind it.
std::to_chars_result putDisplayed(char* begin, char* end, double number, int digits) {
  const auto [fraction, exponent] = scaleOf(number, digits);
  const int decimals = std::max(0, fraction - exponent);
  const bool plain = exponent < digits && decimals <= digits;
  return plain ? std::to_chars(begin, end, number, std::chars_format::fixed, decimals)
               : std::to_chars(begin, end, number, std::chars_format::scientific, fraction);
}

Text displayed(std::string_view form, TextView separator) {
  Text out;
  for (const char c : form) {
    if (c == '.') {
      out += separator;
    } else {
      out += static_cast<char16_t>(c == 'e' ? 'E' : c);
    }
  }
  return out;
}

Text displayText(double number, TextView separator, int digits) {
  if (number == 0) return u"0";
  if (!std::isfinite(number)) return displayed(wordOf(number), separator);
  char buffer[kLongestNumber];
  const char* const end = putDisplayed(buffer, std::end(buffer), number, digits).ptr;
  return displayed({buffer, static_cast<std::size_t>(end - buffer)}, separator);
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
  if (!std::isfinite(number)) return fromUtf8(wordOf(number));
  char buffer[kLongestNumber];
  const double shown = number == 0 ? 0.0 : number;
  const bool plain = std::trunc(shown) == shown && std::fabs(shown) < kLongestPlain;
  const auto result = plain ? std::to_chars(buffer, std::end(buffer), shown, std::chars_format::fixed)
                            : std::to_chars(buffer, std::end(buffer), shown);
  return widen(buffer, result.ptr);
}

std::optional<double> parseNumber(TextView text) {
  if (const auto whole = detail::parseShortWhole(text)) return *whole;
  return parseLonger(text);
}

std::optional<double> parseStored(TextView text) {
  if (const auto number = parseNumber(text)) return number;
  for (const auto& [number, word] : kUnspellable) {
    if (Narrow(text).digits() == word) return number;
  }
  return std::nullopt;
}

std::optional<std::int32_t> detail::parseLongerLong(TextView text) {
  const auto number = parseLonger(text);
  if (!number) return std::nullopt;
  return roundToLong(*number);
}

std::optional<double> parseNumber(TextView text, TextView separator) {
  Text pointed(text);
  if (const auto at = pointed.find(separator); at != Text::npos) pointed.replace(at, separator.size(), u".");
  return parseNumber(pointed);
}

Text decimalText(std::int64_t number) {
  char buffer[kLongestNumber];
  return widen(buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr);
}

Text displayText(double number, TextView separator) { return displayText(number, separator, 15); }

Text displayText(float number, TextView separator) { return displayText(double{number}, separator, 7); }

}  // namespace orvane
