// The XML that is expected, as texts written by hand in tests/unit/expected.
#pragma once

#include <map>
#include <string>

namespace orvane::test {

/// Read `expected/<name>.xml`. Line breaks, and blanks at the beginnings of lines, are for the reader alone:
/// they are taken away. `{word}` stands for the value of that word, or else for the file of that name.
/// Throws where there is neither.
std::string expectedXml(const std::string& name, const std::map<std::string, std::string>& words = {});

}  // namespace orvane::test
