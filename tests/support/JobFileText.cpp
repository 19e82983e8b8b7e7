#include "tests/support/JobFileText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orvane::test {

namespace {

std::filesystem::path nativeOf(TextView path) {
  Text separated(path);
  std::replace(separated.begin(), separated.end(), u'\\', u'/');
  return separated;
}

Text unitsOf(const std::string& bytes) {
  if (!bytes.starts_with("\xFF\xFE") || bytes.size() % 2 != 0) throw std::runtime_error("not UTF-16LE");
  Text units;
  for (std::size_t i = 2; i < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]), high = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(high << 8 | low);
  }
  return units;
}

Text withoutBlanks(const Text& text) {
  const auto first = text.find_first_not_of(u" \t");
  if (first == Text::npos) return {};
  return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

// U+241B and four hexadecimal digits stand for one unit.
Text unescaped(const Text& stored) {
  Text out;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (stored[i] != 0x241B) {
      out += stored[i];
      continue;
    }
    if (stored.size() - i < 5) throw std::runtime_error("a control character is cut off");
    const std::string digits(stored.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                             stored.begin() + static_cast<std::ptrdiff_t>(i) + 5);
    out += static_cast<char16_t>(std::stoi(digits, nullptr, 16));
    i += 4;
  }
  return out;
}

Text valueOf(const Text& stored) {
  const Text inner = withoutBlanks(stored);
  const bool quoted = inner.size() >= 2 && inner.front() == u'"' && inner.back() == u'"';
  return unescaped(quoted ? inner.substr(1, inner.size() - 2) : inner);
}

void addLine(JobContent& content, const Text& line) {
  const auto equals = line.find(u'=');
  if (withoutBlanks(line).empty() || line.front() == u';') return;
  if (line.front() == u'[' && line.back() == u']') {
    content.sections.push_back({line.substr(1, line.size() - 2), {}});
  } else if (equals != Text::npos && !content.sections.empty()) {
    content.sections.back().keys.push_back({line.substr(0, equals), valueOf(line.substr(equals + 1))});
  } else {
    throw std::runtime_error("neither section nor key: " + toUtf8(line));
  }
}

Text linesOf(const JobSection& section) {
  Text out = u'[' + section.name + u"]\n";
  for (const JobKey& key : section.keys) out += key.name + u'=' + key.value + u'\n';
  return out;
}

}  // namespace

Text JobContent::value(TextView section, TextView key) const {
  for (const JobSection& s : sections) {
    if (s.name != section) continue;
    for (const JobKey& k : s.keys) {
      if (k.name == key) return k.value;
    }
  }
  return kAbsent;
}

bool JobContent::hasSection(TextView section) const { return !lines(section).empty(); }

Text JobContent::lines() const {
  Text out;
  for (const JobSection& section : sections) out += linesOf(section);
  return out;
}

Text JobContent::lines(TextView section) const {
  Text out;
  for (const JobSection& s : sections) {
    if (s.name == section) out += linesOf(s);
  }
  return out;
}

JobContent readJobFile(TextView path) {
  JobContent content;
  std::ifstream stream(nativeOf(path), std::ios::binary);
  if (!stream) return content;
  const Text text = unitsOf({std::istreambuf_iterator<char>(stream), {}});
  for (std::size_t at = 0; at < text.size();) {
    const auto end = text.find(u"\r\n", at);
    if (end == Text::npos) throw std::runtime_error("a line does not end in CRLF");
    addLine(content, text.substr(at, end - at));
    at = end + 2;
  }
  return content;
}

void writeJobFile(TextView path, TextView lines) {
  std::string bytes = "\xFF\xFE";
  const auto append = [&](char16_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  };
  for (const char16_t unit : lines) {
    if (unit == u'\n') append(u'\r');
    append(unit);
  }
  std::ofstream stream(nativeOf(path), std::ios::binary);
  stream << bytes;
  if (!stream.flush()) throw std::runtime_error("cannot write " + toUtf8(path));
}

}  // namespace orvane::test
