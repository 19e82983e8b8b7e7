#include "cli/Json.h"

#include <cmath>
#include <cstdio>

#include "cli/DateText.h"

namespace orvane::cli {

namespace {

void appendUnit(std::string& out, unsigned unit) {
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04x", unit);
  out += escape;
}

void appendEscaped(std::string& out, char c) {
  if (c == '"' || c == '\\') {
    (out += '\\') += c;
  } else if (static_cast<unsigned char>(c) < 0x20 || c == '<' || c == '>' || c == '&' || c == 0x7F) {
    appendUnit(out, static_cast<unsigned char>(c));
  } else {
    out += c;
  }
}

unsigned byteAt(const std::string& text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

// A lone surrogate stands as the three bytes of its number.
bool isSurrogate(const std::string& text, std::size_t at) {
  return byteAt(text, at) == 0xED && at + 2 < text.size() && byteAt(text, at + 1) >= 0xA0;
}

}  // namespace

std::string jsonText(const std::string& text) {
  std::string json = "\"";
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (isSurrogate(text, at)) {
      appendUnit(json, 0xD000 | (byteAt(text, at + 1) & 0x3F) << 6 | (byteAt(text, at + 2) & 0x3F));
      at += 2;
    } else {
      appendEscaped(json, text[at]);
    }
  }
  return json += '"';
}

std::string jsonDate(Date date) {
  std::string text = dateText(date);
  if (text.empty() || !std::isfinite(date.days)) return "null";
  if (text.size() < 10 || text[4] != '-') return text;  // outside the calendar: the serial number
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos) return '"' + text + "T00:00:00\"";
  return '"' + text.replace(blank, 1, "T") + '"';
}

JsonObject& JsonObject::add(const char* name, const std::string& json) {
  members_ += (members_.empty() ? "\"" : ",\"") + std::string(name) + "\":" + json;
  return *this;
}

}  // namespace orvane::cli
