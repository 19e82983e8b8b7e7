#include "core/XmlWriter.h"

#include "core/Numbers.h"

namespace orvane {

namespace {

constexpr std::size_t kTypicalDocument = 8192;  // units; a full fax job needs about this much

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Units that need a look: everything else is copied in runs.
constexpr bool isPlain(char16_t unit) {
  return unit >= 0x20 && unit != u'&' && unit != u'<' && unit != u'>' && unit < 0xD800;
}

// What stands for a unit that is not plain and is no part of a surrogate pair.
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
      return unit >= 0xE000 && unit <= 0xFFFD ? TextView{&unit, 1} : TextView{u"\uFFFD"};
  }
}

}  // namespace

XmlWriter::XmlWriter() : separator_(decimalSeparator()) { out_.reserve(kTypicalDocument); }

void XmlWriter::begin(TextView name) { (out_ += u'<').append(name) += u'>'; }

void XmlWriter::end(TextView name) { out_.append(u"</").append(name) += u'>'; }

void XmlWriter::element(TextView name, TextView value) {
  if (value.empty()) {
    (out_ += u'<').append(name).append(u"/>");
    return;
  }
  begin(name);
  escape(value);
  end(name);
}

void XmlWriter::element(TextView name, std::int32_t value) { element(name, TextView(decimalText(value))); }

void XmlWriter::element(TextView name, Date value) {
  element(name, TextView(displayText(value.days, separator_)));
}

void XmlWriter::escape(TextView value) {
  for (std::size_t i = 0; i < value.size();) {
    std::size_t run = i;
    while (run < value.size() && isPlain(value[run])) ++run;
    out_.append(value, i, run - i);
    if (run == value.size()) return;
    const bool pair = isHighSurrogate(value[run]) && run + 1 < value.size() && isLowSurrogate(value[run + 1]);
    out_.append(pair ? value.substr(run, 2) : replacement(value[run]));
    i = run + (pair ? 2 : 1);
  }
}

}  // namespace orvane
