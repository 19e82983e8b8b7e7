#include "core/KeyedCollection.h"

#include <algorithm>
#include <cmath>

#include "core/Numbers.h"

namespace orvane {

namespace {

constexpr double kNoPosition = -1;

// One more for the run time's count from 1, rounded as the run time rounds an index, and back to the count
// from 0.
std::int64_t positionOf(double key) {
  const double position = std::nearbyint(key + 1);
  return static_cast<std::int64_t>(std::fabs(position) < 1e15 ? position - 1 : kNoPosition);
}

// Texts that begin otherwise spell no number; most keys do, and need no look at the locale.
bool mayBeNumber(TextView text) {
  return !text.empty() && text.size() < 32 && ((text[0] >= u'0' && text[0] <= u'9') || text[0] == u'-');
}

std::optional<double> canonicalNumber(TextView text) {
  if (!mayBeNumber(text)) return std::nullopt;
  const bool digitsOnly = text.find_first_not_of(u"0123456789") == TextView::npos;
  const Text separator = digitsOnly ? Text(u".") : decimalSeparator();
  const auto number = parseNumber(text, separator);
  return number && displayText(*number, separator) == text ? number : std::nullopt;
}

}  // namespace

CollectionKey::CollectionKey(const Variant& key) {
  if (const auto* name = std::get_if<Text>(&key)) {
    const auto number = canonicalNumber(*name);
    if (number) {
      position = positionOf(*number);
    } else {
      text = *name;
    }
    return;
  }
  const bool number = std::holds_alternative<std::uint8_t>(key) ||
                      std::holds_alternative<std::int16_t>(key) ||
                      std::holds_alternative<std::int32_t>(key) || std::holds_alternative<float>(key) ||
                      std::holds_alternative<double>(key) || std::holds_alternative<Currency>(key);
  if (number) position = positionOf(toDouble(key));
}

Text foldedKey(TextView key) {
  Text folded(key);
  std::transform(folded.begin(), folded.end(), folded.begin(), foldCase);
  return folded;
}

}  // namespace orvane
