#include "com/Dispatch.h"

#include <algorithm>

#include "com/Arguments.h"
#include "com/Conversions.h"
#include "com/Errors.h"
#include "com/Object.h"

namespace orvane::com {

namespace {

constexpr WORD kAssign = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

TextView viewOf(const OLECHAR* name) { return TextView(reinterpret_cast<const char16_t*>(name)); }

// Of any member of that id: a property's two accessors name their parameters apart.
DISPID parameterId(const ClassInfo& type, DISPID member, TextView name) {
  for (const MemberInfo& candidate : type.members) {
    if (candidate.id != member) continue;
    const auto found =
        std::find_if(candidate.parameters.begin(), candidate.parameters.end(),
                     [&](const Parameter& parameter) { return equalIgnoringCase(parameter.name, name); });
    if (found != candidate.parameters.end()) return static_cast<DISPID>(found - candidate.parameters.begin());
  }
  return DISPID_UNKNOWN;
}

const MemberInfo* requested(const ClassInfo& type, const Request& request) {
  if (request.flags & DISPATCH_PROPERTYPUT) return findMember(type, request.id, MemberKind::Let);
  if (request.flags & kAssign) return nullptr;  // nothing is assigned by reference
  const MemberInfo* const get = findMember(type, request.id, MemberKind::Get);
  return get ? get : findMember(type, request.id, MemberKind::Method);
}

Variant called(const ObjectRef& self, const MemberInfo& member, const DISPPARAMS& given,
               const Request& request, UINT* wrongArgument) {
  if (member.parameters.empty() && given.cArgs == 0) return member.call(self, {});
  std::array<Variant, kMostArguments> arguments;
  readArguments(arguments, member, given, request.locale, wrongArgument);
  return member.call(self, orvane::Arguments(arguments).first(member.parameters.size()));
}

void answerWith(VARIANT* out, const MemberInfo& member, const Variant& value) {
  *out = {};
  if (member.result.kind == TypeKind::Enumerator) {
    put(&out->punkVal, std::get<VariantArray>(value));
    out->vt = VT_UNKNOWN;
  } else {
    put(out, value);
  }
}

}  // namespace

HRESULT typeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT typeInfo(const Object& object, UINT index, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  return index == 0 ? Module::typeInfo(object.identity().interfaceId, info) : DISP_E_BADINDEX;
}

HRESULT idsOfNames(const ClassInfo& type, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (!names || !ids) return E_POINTER;
  if (count == 0) return S_OK;
  if (std::find(names, names + count, nullptr) != names + count) return E_INVALIDARG;
  const MemberInfo* const member = findMember(type, viewOf(names[0]));
  ids[0] = member ? member->id : DISPID_UNKNOWN;
  HRESULT result = member ? S_OK : DISP_E_UNKNOWNNAME;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = member ? parameterId(type, member->id, viewOf(names[i])) : DISPID_UNKNOWN;
    if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
  }
  return result;
}

HRESULT invokeMember(const ObjectRef& self, const Request& request, const DISPPARAMS* given,
                     const Answer& answer) noexcept {
  if (answer.result) *answer.result = {};
  if (!given || (given->cArgs != 0 && !given->rgvarg) ||
      (given->cNamedArgs != 0 && !given->rgdispidNamedArgs)) {
    return E_INVALIDARG;
  }
  const MemberInfo* const member = requested(*self.type, request);
  if (!member) return DISP_E_MEMBERNOTFOUND;
  try {
    const Variant value = called(self, *member, *given, request, answer.wrongArgument);
    if (answer.result) answerWith(answer.result, *member, value);
    return S_OK;
  } catch (...) {
    return describeCurrent(answer.error);
  }
}

}  // namespace orvane::com
