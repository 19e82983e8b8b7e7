#include "cli/PrettyXml.h"

#include <algorithm>
#include <cstddef>

namespace orvane::cli {

namespace {

// The tag or the text that begins at `at`.
std::string tokenAt(const std::string& xml, std::size_t at) {
  const bool tag = xml[at] == '<';
  const std::size_t end = tag ? xml.find('>', at) : xml.find('<', at);
  return xml.substr(at, std::min(end, xml.size()) - at + (tag ? 1 : 0));
}

bool isClosing(const std::string& token) { return token.compare(0, 2, "</") == 0; }
bool isEmpty(const std::string& token) { return token.size() > 2 && token[token.size() - 2] == '/'; }

std::string newLine(std::size_t depth) { return '\n' + std::string(2 * depth, ' '); }

}  // namespace

std::string prettyXml(const std::string& xml) {
  std::string result;
  std::size_t depth = 0;
  bool afterElement = false;
  for (std::size_t at = 0; at < xml.size();) {
    const std::string token = tokenAt(xml, at);
    at += token.size();
    if (token[0] != '<') {
      result += token;
    } else if (isClosing(token)) {
      --depth;
      result += (afterElement ? newLine(depth) : std::string()) + token;
      afterElement = true;
    } else {
      result += (result.empty() ? std::string() : newLine(depth)) + token;
      afterElement = isEmpty(token);
      depth += afterElement ? 0 : 1;
    }
  }
  return result;
}

}  // namespace orvane::cli
