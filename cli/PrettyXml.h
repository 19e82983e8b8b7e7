// XML for people.
#pragma once

#include <string>

namespace orvane::cli {

/// The library's XML with each element on a line of its own, indented by two blanks a level. White space is
/// added only beside tags, so it is for reading and not for programs.
std::string prettyXml(const std::string& xml);

}  // namespace orvane::cli
