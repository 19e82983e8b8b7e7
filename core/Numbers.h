// Numbers to and from text, in one place. Nothing here reads or changes the process's locale.
#pragma once

#include <cstdint>
#include <optional>

#include "core/Text.h"
#include "core/Values.h"

namespace orvane {

/// A double rounded to the nearest whole number, halves to even. Error 6 where it does not fit 32 bits.
std::int32_t roundToLong(double number);

/// Four decimals, halves to even. Error 6 where they do not fit.
Currency toCurrency(double number);
double toDouble(Currency amount);

/// The job file's form: the shortest decimal that reads back to the same double, with a point. Whole numbers
/// below 1e15 have no exponent. What is not finite is one of the words that `displayText` has for it.
Text numberText(double number);

/// The number that a whole text spells (blanks around it allowed, a point as separator); nothing where it
/// spells none. A number beyond the largest double reads as infinity.
std::optional<double> parseNumber(TextView text);

/// The same for a text of the job file, where the words of `numberText` are numbers too.
std::optional<double> parseStored(TextView text);

/// The same as `parseNumber` where `separator` too may stand for the point.
std::optional<double> parseNumber(TextView text, TextView separator);

namespace detail {

/// Most stored numbers are whole and short. Nothing for any other.
inline std::optional<std::int32_t> parseShortWhole(TextView text) {
  const bool negative = text.starts_with(u'-');
  const TextView digits = text.substr(negative ? 1 : 0);
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  std::int32_t whole = 0;
  for (const char16_t unit : digits) {
    const int digit = unit - u'0';
    if (digit < 0 || digit > 9) return std::nullopt;
    whole = 10 * whole + digit;
  }
  return negative ? -whole : whole;
}

std::optional<std::int32_t> parseLongerLong(TextView text);

}  // namespace detail

/// The number that `parseNumber` finds, rounded as `roundToLong` does it, and the same error.
inline std::optional<std::int32_t> parseLong(TextView text) {
  const auto whole = detail::parseShortWhole(text);
  return whole ? whole : detail::parseLongerLong(text);
}

/// Decimal digits, with a leading minus for a negative value.
Text decimalText(std::int64_t number);

/// The run time's conversion of a double or a single: at most 15 or 7 significant digits, the given decimal
/// separator, and an exponent where more than so many digits would stand before or behind it: "0.00001" but
/// "4.16666666666667E-02". What is not finite is "1.#INF", "-1.#INF", "1.#QNAN" or "-1.#IND".
Text displayText(double number, TextView separator);
Text displayText(float number, TextView separator);

/// The user's decimal separator. On Windows the user's regional setting; elsewhere what LC_ALL, LC_NUMERIC
/// and LANG name.
Text decimalSeparator();

}  // namespace orvane
