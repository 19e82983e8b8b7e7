#include "cli/ValueText.h"

#include <algorithm>
#include <cstdio>

#include "cli/DateText.h"
#include "cli/Failure.h"
#include "cli/Suggest.h"
#include "core/Numbers.h"

namespace orvane::cli {

namespace {

struct TruthWord {
  TextView word;
  bool value;
};
constexpr TruthWord kTruthWords[] = {{u"true", true},   {u"si", true},  {u"s\u00EC", true}, {u"vero", true},
                                     {u"yes", true},    {u"1", true},   {u"-1", true},      {u"false", false},
                                     {u"falso", false}, {u"no", false}, {u"0", false}};

std::string quoted(const std::string& text) { return '"' + text + '"'; }

[[noreturn]] void mismatch(const std::string& text, const std::string& what) {
  throw Failure(ErrorNumber::TypeMismatch, quoted(text) + " is no " + what);
}

bool parseTruth(const std::string& text) {
  for (const TruthWord& row : kTruthWords) {
    if (equalIgnoringCase(row.word, fromUtf8(text))) return row.value;
  }
  mismatch(text, "truth value (true, false, si, no, 1, 0)");
}

template <class Convert>
auto parseNumeric(const std::string& text, Convert convert) {
  try {
    return convert(Variant(fromUtf8(text)));
  } catch (const Error& error) {
    throw Failure(error, quoted(text) + (error.code() == ErrorNumber::TypeMismatch ? " is no number"
                                                                                   : " is out of range"));
  }
}

std::vector<std::string> namesOf(const EnumInfo& enumeration) {
  std::vector<std::string> names;
  for (const EnumMember& member : enumeration.members) names.push_back(toUtf8(member.name));
  return names;
}

std::int32_t parseOneCode(const std::string& text, const EnumInfo& enumeration) {
  const Text name = fromUtf8(text);
  for (const EnumMember& member : enumeration.members) {
    if (equalIgnoringCase(member.name, name)) return member.value;
  }
  if (parseNumber(name)) return parseNumeric(text, [](const Variant& value) { return toLong(value); });
  mismatch(text, "number or name of " + toUtf8(enumeration.name) + suggestion(text, namesOf(enumeration)));
}

std::int32_t parseCode(const std::string& text, const EnumInfo& enumeration) {
  std::int32_t code = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t plus = std::min(text.find('+', at), text.size());
    code |= parseOneCode(text.substr(at, plus - at), enumeration);
    at = plus + 1;
  }
  return code;
}

Date parseDateValue(const std::string& text) {
  if (const auto date = parseDate(text)) return *date;
  mismatch(text, "date (2026-11-21, 2026-11-21 14:30:00, now)");
}

struct ReadableText {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(Null) const { return {}; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(Date value) const { return dateText(value); }
  std::string operator()(Currency value) const { return toUtf8(numberText(toDouble(value))); }
  std::string operator()(const Text& value) const { return toUtf8(value); }
  std::string operator()(const ObjectRef& value) const {
    return value ? toUtf8(value.type->name) : std::string();
  }
  std::string operator()(const Opaque&) const { return {}; }
  std::string operator()(const VariantArray& value) const {
    std::string list;
    for (const Variant& item : value.items) list += (list.empty() ? "" : ", ") + std::visit(*this, item);
    return list;
  }
  template <class Number>
  std::string operator()(Number value) const {
    return toUtf8(numberText(static_cast<double>(value)));
  }
};

bool isNumeric(TypeKind kind) { return kind == TypeKind::Boolean || kind == TypeKind::Date; }

}  // namespace

Variant parseValue(const std::string& text, const TypeInfo& type) {
  switch (type.kind) {
    case TypeKind::Boolean:
      return parseTruth(text);
    case TypeKind::Date:
      return parseDateValue(text);
    case TypeKind::Enum:
      return parseCode(text, *type.enumeration);
    case TypeKind::Long:
      return parseNumeric(text, [](const Variant& value) { return toLong(value); });
    case TypeKind::Byte:
      return parseNumeric(text, [](const Variant& value) { return toByte(value); });
    case TypeKind::Currency:
      return parseNumeric(text, [](const Variant& value) { return toCurrency(value); });
    case TypeKind::String:
    case TypeKind::Variant:
      return fromUtf8(text);
    default:
      mismatch(text, "value for a member that holds objects or arrays");
  }
}

std::string valueText(const Variant& value, const TypeInfo& type, Form form) {
  if (form == Form::Raw && isNumeric(type.kind)) return toUtf8(numberText(toDouble(value)));
  if (form == Form::Readable && type.kind == TypeKind::Enum) {
    const std::string name = codeName(*type.enumeration, toLong(value));
    if (!name.empty()) return name;
  }
  return std::visit(ReadableText{}, static_cast<const Variant::variant&>(value));
}

std::string codeName(const EnumInfo& enumeration, std::int32_t code) {
  for (const EnumMember& member : enumeration.members) {
    if (member.value == code) return toUtf8(member.name);
  }
  return {};
}

std::string printable(const std::string& text) {
  std::string shown;
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) {
      shown += c;
    } else if (c == '\n' || c == '\r' || c == '\t') {
      shown += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(c));
      shown += escape;
    }
  }
  return shown;
}

}  // namespace orvane::cli
