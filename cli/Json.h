// JSON as text.
#pragma once

#include <string>

#include "core/Values.h"

namespace orvane::cli {

/// The text between quotes, in ASCII escapes where it holds controls, quotes, lone surrogates, or "<", ">"
/// and
/// "&", so that it may stand in a page as it is.
std::string jsonText(const std::string& text);

/// "2026-11-21T14:30:00" between quotes; null where the date is not set or not finite, the serial number
/// where it is outside the calendar.
std::string jsonDate(Date date);

/// Puts an object together, member by member.
class JsonObject {
 public:
  JsonObject& add(const char* name, const std::string& json);
  JsonObject& addText(const char* name, const std::string& text) { return add(name, jsonText(text)); }
  std::string text() const { return '{' + members_ + '}'; }

 private:
  std::string members_;
};

}  // namespace orvane::cli
