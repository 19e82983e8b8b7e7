#include "core/XmlWriter.h"

#include <algorithm>

#include "core/Numbers.h"
#include "core/Units.h"

namespace orvane {

namespace {

constexpr std::size_t kTypicalDocument = 16384;  // units; a full fax job needs about 12,000
constexpr std::size_t kLongestReplacement = 5;   // units that one unit may become

// Units that need a look are few: everything else is copied in runs.
std::size_t endOfPlain(TextView text, std::size_t at) {
  return findMarked(text, at, [](std::uint64_t four) {
    const std::uint64_t markup = marksOf(four, u'&') | marksOf(four, u'<') | marksOf(four, u'>');
    return markup | marksBelow(four, 0x20) | (four & inAllPlaces(0x8000));
  });
}

bool isCharacter(char16_t unit) {
  return unit >= 0x20 && !isHighSurrogate(unit) && !isLowSurrogate(unit) && unit <= 0xFFFD;
}

// What stands for a unit that is no part of a surrogate pair.
TextView replacement(const char16_t& unit) {
  switch (unit) {
    case u'&':
      return u"&amp;";
    case u'<':
      return u"&lt;";
    case u'>':
      return u"&gt;";
    case u'\r':
      return u"&#13;";
    case u'\t':
    case u'\n':
      return {&unit, 1};
    default:
      return isCharacter(unit) ? TextView{&unit, 1} : TextView{u"\uFFFD"};
  }
}

}  // namespace

XmlWriter::XmlWriter() : XmlWriter(decimalSeparator()) {}

XmlWriter::XmlWriter(Text decimalSeparator)
    : out_(std::make_unique_for_overwrite<char16_t[]>(kTypicalDocument)),
      at_(out_.get()),
      end_(at_ + kTypicalDocument),
      separator_(std::move(decimalSeparator)) {}

void XmlWriter::grow(std::size_t units) {
  const auto used = static_cast<std::size_t>(at_ - out_.get());
  const std::size_t size = std::max(2 * static_cast<std::size_t>(end_ - out_.get()), used + units);
  auto larger = std::make_unique_for_overwrite<char16_t[]>(size);
  at_ = std::copy(out_.get(), at_, larger.get());
  end_ = larger.get() + size;
  out_ = std::move(larger);
}

void XmlWriter::begin(TextView name) {
  reserve(name.size() + 2);
  put(u'<'), put(name), put(u'>');
}

void XmlWriter::end(TextView name) {
  reserve(name.size() + 3);
  put(u'<'), put(u'/'), put(name), put(u'>');
}

void XmlWriter::text(TextView value) {
  reserve(kLongestReplacement * value.size());
  putEscaped(value);
}

void XmlWriter::element(TextView name, TextView value) {
  reserve(2 * name.size() + 5 + kLongestReplacement * value.size());
  put(u'<'), put(name);
  if (value.empty()) {
    put(u'/'), put(u'>');
    return;
  }
  put(u'>'), putEscaped(value), put(u'<'), put(u'/'), put(name), put(u'>');
}

void XmlWriter::element(TextView name, std::int32_t value) { element(name, TextView(decimalText(value))); }

void XmlWriter::element(TextView name, Date value) {
  element(name, TextView(displayText(value.days, separator_)));
}

void XmlWriter::putEscaped(TextView value) {
  for (std::size_t at = 0;; ++at) {
    const std::size_t end = endOfPlain(value, at);
    put(value.substr(at, end - at));
    at = end;
    if (at == value.size()) return;
    if (isHighSurrogate(value[at]) && at + 1 < value.size() && isLowSurrogate(value[at + 1])) {
      put(value[at]), put(value[++at]);
    } else {
      put(replacement(value[at]));
    }
  }
}

}  // namespace orvane
