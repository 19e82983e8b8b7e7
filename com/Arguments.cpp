#include "com/Arguments.h"

#include "com/Conversions.h"
#include "com/Object.h"
#include "core/Error.h"

namespace orvane::com {

namespace {

[[noreturn]] void refuse(HRESULT result) { throw Failure{result}; }

// A converted value, cleared at the end.
class Converted {
 public:
  Converted(const VARIANT& value, LCID locale, VARTYPE type) {
    const HRESULT result = VariantChangeTypeEx(&value_, readable(value), locale, 0, type);
    if (FAILED(result)) refuse(result);
  }
  ~Converted() { VariantClear(&value_); }
  Converted(const Converted&) = delete;
  Converted& operator=(const Converted&) = delete;
  const VARIANT& value() const { return value_; }

 private:
  VARIANT value_{};
};

// The value read by `member`, which holds values of type `type`.
template <auto member>
Variant taken(const VARIANT& value, LCID locale, VARTYPE type) {
  if (value.vt == type) return take(value.*member);
  return take(Converted(value, locale, type).value().*member);
}

Variant takenArray(const VARIANT& value) {
  if (value.vt != (VT_ARRAY | VT_VARIANT)) refuse(DISP_E_TYPEMISMATCH);
  return take(value.parray);
}

Variant takenObject(const VARIANT& value, const ClassInfo* objectClass) {
  if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) refuse(DISP_E_TYPEMISMATCH);
  if (!value.punkVal) throw Error(ErrorNumber::ObjectNotSet);
  const Object* const own = findOwnObject(value.punkVal);
  if (!own || (objectClass && own->self().type != objectClass)) refuse(DISP_E_TYPEMISMATCH);
  return own->self();
}

Variant typed(const VARIANT& value, const TypeInfo& type, LCID locale) {
  switch (type.kind) {
    case TypeKind::String:
      return taken<&VARIANT::bstrVal>(value, locale, VT_BSTR);
    case TypeKind::Long:
    case TypeKind::Enum:
      return taken<&VARIANT::lVal>(value, locale, VT_I4);
    case TypeKind::Boolean:
      return taken<&VARIANT::boolVal>(value, locale, VT_BOOL);
    case TypeKind::Date:
      return taken<&VARIANT::date>(value, locale, VT_DATE);
    case TypeKind::Byte:
      return taken<&VARIANT::bVal>(value, locale, VT_UI1);
    case TypeKind::Currency:
      return taken<&VARIANT::cyVal>(value, locale, VT_CY);
    case TypeKind::Array:
      return takenArray(value);
    case TypeKind::Object:
    case TypeKind::Class:
      return takenObject(value, type.objectClass);
    default:
      return take(value);
  }
}

Variant defaultOf(const Parameter& parameter) {
  if (!parameter.optional) refuse(DISP_E_PARAMNOTOPTIONAL);
  if (const auto* text = std::get_if<TextView>(&parameter.defaultValue)) return Text(*text);
  const std::int32_t number = std::get<std::int32_t>(parameter.defaultValue);
  return parameter.type.kind == TypeKind::Boolean ? Variant(number != 0) : Variant(number);
}

Variant argumentFor(const Parameter& parameter, const VARIANT* given, LCID locale) {
  if (!given) return defaultOf(parameter);
  VARIANT room;
  const VARIANT& value = dereferenced(*given, room);
  const bool missing = isOmitted(value) || (parameter.optional && value.vt == VT_EMPTY);
  return missing ? defaultOf(parameter) : typed(value, parameter.type, locale);
}

// Where the client put the argument of each parameter; null for one that it left out.
using Places = std::array<const VARIANT*, kMostArguments>;

std::size_t placeOf(DISPID name, std::size_t count) {
  if (name == DISPID_PROPERTYPUT) return count - 1;
  return name >= 0 && static_cast<std::size_t>(name) < count ? static_cast<std::size_t>(name) : count;
}

void placeNamed(Places& places, std::size_t count, const DISPPARAMS& given, UINT* wrongArgument) {
  for (UINT i = 0; i < given.cNamedArgs; ++i) {
    const std::size_t place = placeOf(given.rgdispidNamedArgs[i], count);
    if (place < count && !places[place]) {
      places[place] = &given.rgvarg[i];
      continue;
    }
    if (wrongArgument) *wrongArgument = i;
    refuse(DISP_E_PARAMNOTFOUND);
  }
}

// Clients pass the first argument last, and after those with names.
Places placed(const MemberInfo& member, const DISPPARAMS& given, UINT* wrongArgument) {
  const std::size_t count = member.parameters.size();
  if (given.cArgs > count || given.cNamedArgs > given.cArgs) refuse(DISP_E_BADPARAMCOUNT);
  Places places{};
  for (UINT i = 0; i < given.cArgs - given.cNamedArgs; ++i) places[i] = &given.rgvarg[given.cArgs - 1 - i];
  placeNamed(places, count, given, wrongArgument);
  return places;
}

void checkComplete(const Places& places, const MemberInfo& member) {
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    if (!places[i] && !member.parameters[i].optional) refuse(DISP_E_BADPARAMCOUNT);
  }
}

}  // namespace

void readArguments(std::array<Variant, kMostArguments>& out, const MemberInfo& member,
                   const DISPPARAMS& given, LCID locale, UINT* wrongArgument) {
  const Places places = placed(member, given, wrongArgument);
  checkComplete(places, member);
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    try {
      out[i] = argumentFor(member.parameters[i], places[i], locale);
    } catch (const Failure&) {
      if (wrongArgument && places[i]) *wrongArgument = static_cast<UINT>(places[i] - given.rgvarg);
      throw;
    }
  }
}

}  // namespace orvane::com
