// Looking at several UTF-16 units at a time.
#pragma once

#include <cstdint>
#include <cstring>

#include "core/Text.h"

namespace orvane {

/// A unit in each of the four places of a 64-bit number.
constexpr std::uint64_t inAllPlaces(char16_t unit) { return 0x0001'0001'0001'0001 * std::uint64_t{unit}; }

/// Four units from `at` on.
inline std::uint64_t fourUnits(const char16_t* at) {
  std::uint64_t four;
  std::memcpy(&four, at, sizeof four);
  return four;
}

/// Not 0 where one of the four units is below `limit`, at most 0x8000.
constexpr std::uint64_t holdsBelow(std::uint64_t four, char16_t limit) {
  return (four - inAllPlaces(limit)) & ~four & inAllPlaces(0x8000);
}

/// Not 0 where one of the four units is `unit`.
constexpr std::uint64_t holds(std::uint64_t four, char16_t unit) {
  return holdsBelow(four ^ inAllPlaces(unit), 1);
}

/// The first place from `at` on whose unit `stops`; the size of `text` where none does. `mayStop` tells it
/// for four units together, and may be not 0 where none of them does.
template <class MayStop, class Stops>
std::size_t findWhere(TextView text, std::size_t at, MayStop mayStop, Stops stops) {
  while (at + 4 <= text.size() && mayStop(fourUnits(text.data() + at)) == 0) at += 4;
  while (at < text.size() && !stops(text[at])) ++at;
  return at;
}

/// The first place from `at` on where one of `units` stands; the size of `text` where none does.
template <char16_t... units>
std::size_t findAnyOf(TextView text, std::size_t at = 0) {
  return findWhere(
      text, at, [](std::uint64_t four) { return (holds(four, units) | ...); },
      [](char16_t unit) { return ((unit == units) || ...); });
}

/// The two halves of a character beyond U+FFFF.
constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// True for the same units, case included.
inline bool same(TextView a, TextView b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

}  // namespace orvane
