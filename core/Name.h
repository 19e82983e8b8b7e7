// Names of sections and keys.
#pragma once

#include <cstdint>

#include "core/Units.h"

namespace orvane {

/// A text with its hash, by which a job file finds it; for a literal the hash is the compiler's work. The
/// text must outlive the name.
class Name {
 public:
  constexpr Name() = default;
  template <std::size_t size>
  consteval Name(const char16_t (&literal)[size])
      : text_(literal), length_(size - 1), hash_(hashOf({literal, size - 1})) {}
  Name(TextView text);
  Name(const Text& text) : Name(TextView(text)) {}

  constexpr operator TextView() const { return {text_, length_}; }
  constexpr std::uint32_t size() const { return length_; }

  /// The same for names that differ in the case of ASCII and Latin-1 letters only.
  constexpr std::uint32_t hash() const { return hash_; }

 private:
  // Letters of either case differ in one bit; that others do too is for the comparison of names to see.
  static constexpr std::uint32_t hashOf(TextView text) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    constexpr std::uint64_t kCase = inAllPlaces(0x20);
    std::uint64_t hash = 0;
    const auto mix = [&](std::uint64_t units) {
      hash = (hash ^ (units | kCase)) * kFactor;
      hash ^= hash >> 32;
    };
    std::size_t at = 0;
    for (; at + 4 <= text.size(); at += 4) mix(fourUnits(text.data() + at));
    if (at < text.size()) mix(lastUnits(text, at));
    return static_cast<std::uint32_t>(hash);
  }

  const char16_t* text_ = nullptr;
  std::uint32_t length_ = 0;
  std::uint32_t hash_ = 0;
};

}  // namespace orvane
