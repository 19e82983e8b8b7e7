#include "core/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/Units.h"

namespace orvane {

namespace {

// What Windows-1252 puts at 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t point) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | (point >> 6));
    tail(0);
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | (point >> 12));
    tail(6), tail(0);
  } else {
    out += static_cast<char>(0xF0 | (point >> 18));
    tail(12), tail(6), tail(0);
  }
}

void appendUtf16(Text& out, char32_t point) {
  if (point < 0x10000) {
    out += static_cast<char16_t>(point);
  } else {
    out += static_cast<char16_t>(0xD7C0 + (point >> 10));
    out += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
  }
}

struct Decoded {
  char32_t point;
  std::size_t length;  // 0: these bytes are no UTF-8
};

constexpr Decoded kNotUtf8{0xFFFD, 0};

// Lone surrogates are accepted, since `toUtf8` makes them; overlong forms and points past U+10FFFF are not.
Decoded decode(std::string_view bytes, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  const char32_t lead = byte(at);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at < length) return kNotUtf8;
  char32_t point = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return kNotUtf8;
    point = (point << 6) | (byte(at + i) & 0x3Fu);
  }
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return point < kLeast[length] || point > 0x10FFFF ? kNotUtf8 : Decoded{point, length};
}

}  // namespace

std::string toUtf8(TextView text) {
  std::string out(text.size(), '\0');
  std::size_t i = 0;
  for (; i < text.size() && text[i] < 0x80; ++i) out[i] = static_cast<char>(text[i]);
  out.resize(i);
  for (; i < text.size(); ++i) {
    char32_t point = text[i];
    if (isHighSurrogate(point) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
    }
    appendUtf8(out, point);
  }
  return out;
}

Text fromUtf8(std::string_view bytes) {
  Text out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto [point, length] = decode(bytes, i);
    appendUtf16(out, point);
    i += std::max<std::size_t>(length, 1);
  }
  return out;
}

bool isUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t length = decode(bytes, i).length;
    if (length == 0) return false;
    i += length;
  }
  return true;
}

Text fromWindows1252(std::string_view bytes) {
  Text out(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), out.begin(), [](char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80u] : static_cast<char16_t>(byte);
  });
  return out;
}

bool equalIgnoringCase(TextView a, TextView b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char16_t x, char16_t y) {
           return foldCase(x) == foldCase(y);
         });
}

}  // namespace orvane
