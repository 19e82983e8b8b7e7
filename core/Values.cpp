#include "core/Values.h"

#include <optional>

#include "core/Error.h"
#include "core/Numbers.h"

namespace orvane {

namespace {

[[noreturn]] void mismatch() { throw Error(ErrorNumber::TypeMismatch); }

// With the user's separator, so that a text that the library displayed reads back.
double fromText(const Text& text) {
  const auto number = parseNumber(text, decimalSeparator());
  if (!number) mismatch();
  return *number;
}

struct AsDouble {
  double operator()(std::monostate) const { return 0; }
  double operator()(bool value) const { return value ? -1 : 0; }
  double operator()(Currency value) const { return toDouble(value); }
  double operator()(Date value) const { return value.days; }
  double operator()(const Text& value) const { return fromText(value); }
  template <class T>
  double operator()(const T& value) const {
    if constexpr (std::is_arithmetic_v<T>) {
      return static_cast<double>(value);
    } else {
      mismatch();
    }
  }
};

struct AsText {
  Text operator()(std::monostate) const { return {}; }
  Text operator()(bool value) const { return value ? u"True" : u"False"; }
  Text operator()(Date value) const { return displayText(value.days, decimalSeparator()); }
  Text operator()(Currency value) const { return displayText(toDouble(value), decimalSeparator()); }
  Text operator()(const Text& value) const { return value; }
  template <class T>
  Text operator()(const T& value) const {
    if constexpr (std::is_same_v<T, float>) {
      return displayText(value, decimalSeparator());
    } else if constexpr (std::is_arithmetic_v<T>) {
      return displayText(static_cast<double>(value), decimalSeparator());
    } else {
      mismatch();
    }
  }
};

}  // namespace

double toDouble(const Variant& value) { return std::visit(AsDouble{}, value); }
std::int32_t toLong(const Variant& value) { return roundToLong(toDouble(value)); }
Date toDate(const Variant& value) { return {toDouble(value)}; }
Text toText(const Variant& value) { return std::visit(AsText{}, value); }

std::uint8_t toByte(const Variant& value) {
  const std::int32_t number = toLong(value);
  if (number < 0 || number > 255) throw Error(ErrorNumber::Overflow);
  return static_cast<std::uint8_t>(number);
}

bool toBoolean(const Variant& value) {
  if (const auto* text = std::get_if<Text>(&value)) {
    if (equalIgnoringCase(*text, u"True")) return true;
    if (equalIgnoringCase(*text, u"False")) return false;
  }
  return toDouble(value) != 0;
}

Currency toCurrency(const Variant& value) {
  if (const auto* amount = std::get_if<Currency>(&value)) return *amount;
  return toCurrency(toDouble(value));
}

}  // namespace orvane
