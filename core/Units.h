// Looking at several UTF-16 units at a time.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "core/Text.h"

namespace orvane {

/// A unit in each of the four places of a 64-bit number.
constexpr std::uint64_t inAllPlaces(char16_t unit) { return 0x0001'0001'0001'0001 * std::uint64_t{unit}; }

/// Four units from `at` on.
constexpr std::uint64_t fourUnits(const char16_t* at) {
  if (std::is_constant_evaluated())
    return at[0] | std::uint64_t{at[1]} << 16 | std::uint64_t{at[2]} << 32 | std::uint64_t{at[3]} << 48;
  std::uint64_t four;
  std::memcpy(&four, at, sizeof four);
  return four;
}

/// Marks the units below `limit`, at most 0x8000, among four: the lowest bit that is set stands in the place
/// of the first of them; higher bits mean nothing. 0 where there is none.
constexpr std::uint64_t marksBelow(std::uint64_t four, char16_t limit) {
  return (four - inAllPlaces(limit)) & ~four & inAllPlaces(0x8000);
}

/// Marks the units that are `unit`, as above. Marks may be joined by `|`.
constexpr std::uint64_t marksOf(std::uint64_t four, char16_t unit) {
  return marksBelow(four ^ inAllPlaces(unit), 1);
}

/// The units from `at` on, which are one to three, and 0 in the places behind them.
constexpr std::uint64_t lastUnits(TextView text, std::size_t at) {
  const std::size_t count = text.size() - at;
  if (text.size() >= 4) return fourUnits(text.data() + text.size() - 4) >> (16 * (4 - count));
  std::uint64_t units = text[at];
  for (std::size_t i = 1; i < count; ++i) units |= std::uint64_t{text[at + i]} << (16 * i);
  return units;
}

/// The first place from `at` on that `marks`, a function of four units, marks; the size of `text` where there
/// is none.
template <class Marks>
std::size_t findMarked(TextView text, std::size_t at, Marks marks) {
  const auto place = [](std::uint64_t marked) {
    return static_cast<std::size_t>(std::countr_zero(marked)) / 16;
  };
  for (; at + 4 <= text.size(); at += 4) {
    if (const std::uint64_t marked = marks(fourUnits(text.data() + at))) return at + place(marked);
  }
  if (at == text.size()) return at;
  const std::uint64_t marked = marks(lastUnits(text, at));
  return marked == 0 ? text.size() : std::min(text.size(), at + place(marked));
}

/// The first place from `at` on where `unit` stands; the size of `text` where it does not.
inline std::size_t findUnit(TextView text, char16_t unit, std::size_t at = 0) {
  return findMarked(text, at, [unit](std::uint64_t four) { return marksOf(four, unit); });
}

/// The two halves of a character beyond U+FFFF.
constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// True for the same units, case included; made for short texts.
inline bool same(TextView a, TextView b) {
  if (a.size() != b.size()) return false;
  std::size_t at = 0;
  for (; at + 4 <= a.size(); at += 4) {
    if (fourUnits(a.data() + at) != fourUnits(b.data() + at)) return false;
  }
  return at == a.size() || lastUnits(a, at) == lastUnits(b, at);
}

}  // namespace orvane
