// The value types of the interface beside text, number and truth: dates, currency, and the variant that
// carries any of them.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "core/Text.h"

namespace orvane {

/// Days since 30 December 1899 00:00, local time, the time of day as the fraction. 0 means "not set".
struct Date {
  double days = 0;
  auto operator<=>(const Date&) const = default;
};

/// A fixed-point number with four exact decimals, counted in ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;
  auto operator<=>(const Currency&) const = default;
};

/// The automation value Null, which is not the same as an absent value.
struct Null {
  bool operator==(const Null&) const = default;
};

/// A value of the caller's platform that the library only carries (a decimal, a foreign object).
struct Opaque {
  std::shared_ptr<const void> value;
  bool operator==(const Opaque&) const = default;
};

struct ClassInfo;

/// Any published object: it stays alive while this reference does. Both members are null for "no object".
struct ObjectRef {
  std::shared_ptr<void> object;
  const ClassInfo* type = nullptr;
  explicit operator bool() const { return object != nullptr; }
  bool operator==(const ObjectRef&) const = default;
};

struct Variant;

/// An array of variants, held by value: its dimensions, first to last, and its items with the first index
/// running fastest.
struct VariantArray {
  struct Dimension {
    std::int32_t lowerBound = 0;
    std::uint32_t count = 0;
    bool operator==(const Dimension&) const = default;
  };
  std::vector<Dimension> dimensions;
  std::vector<Variant> items;

  VariantArray() = default;
  /// A vector of one dimension that begins at index 0.
  VariantArray(std::initializer_list<Variant> values);
  bool operator==(const VariantArray&) const = default;
};

/// One automation value; `std::monostate` is Empty, and what an omitted optional argument leaves.
struct Variant : std::variant<std::monostate, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float,
                              double, Currency, Date, Text, VariantArray, ObjectRef, Opaque> {
  using variant::variant;
  Variant(const char16_t* text) : variant(Text(text)) {}
  bool isEmpty() const { return index() == 0; }
};

inline VariantArray::VariantArray(std::initializer_list<Variant> values)
    : dimensions{{0, static_cast<std::uint32_t>(values.size())}}, items(values) {}

/// Conversions by the run time's rules: error 13 for a value that has no such reading, error 6 for one that
/// does not fit. Texts are read with the user's decimal separator or a point; Empty reads as 0, False or the
/// empty text.
std::int32_t toLong(const Variant& value);
std::uint8_t toByte(const Variant& value);
double toDouble(const Variant& value);
bool toBoolean(const Variant& value);
Currency toCurrency(const Variant& value);
Date toDate(const Variant& value);
Text toText(const Variant& value);

}  // namespace orvane
