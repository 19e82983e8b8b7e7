#include "tests/unit/Expected.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace orvane::test {

namespace {

// Every line without the blanks before it and the break after it.
std::string joinedLines(const std::string& name) {
  const auto path = std::filesystem::path(ORVANE_EXPECTED) / (name + ".xml");
  std::ifstream file(path);
  if (!file) throw std::runtime_error("no file and no word: " + path.string());
  std::string out;
  for (std::string line; std::getline(file, line);)
    out += line.substr(std::min(line.find_first_not_of(' '), line.size()));
  return out;
}

}  // namespace

std::string expectedXml(const std::string& name, const std::map<std::string, std::string>& words) {
  const std::string text = joinedLines(name);
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const auto open = std::min(text.find('{', at), text.size());
    out += text.substr(at, open - at);
    if (open == text.size()) break;
    const auto close = text.find('}', open);
    if (close == std::string::npos) throw std::runtime_error("an open brace in " + name);
    const std::string word = text.substr(open + 1, close - open - 1);
    const auto given = words.find(word);
    out += given == words.end() ? expectedXml(word, words) : given->second;
    at = close + 1;
  }
  return out;
}

}  // namespace orvane::test
