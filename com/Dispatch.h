// Late binding as automation clients ask for it, over the member table.
#pragma once

#include "com/Windows.h"
#include "typelib/Members.h"

namespace orvane::com {

HRESULT typeInfoCount(UINT* count) noexcept;
class Object;
HRESULT typeInfo(const Object& object, UINT index, ITypeInfo** info) noexcept;

/// Of a member, and of parameters of it where more than one name is given: their positions.
HRESULT idsOfNames(const ClassInfo& type, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// Which member, and what to do with it.
struct Request {
  DISPID id;
  LCID locale;
  WORD flags;
};

/// Where answers go; each may be null.
struct Answer {
  VARIANT* result;
  EXCEPINFO* error;
  UINT* wrongArgument;
};

/// Reads, assigns or calls. Scripts often cannot tell a method from a property, so either request finds
/// either. Arguments may be by reference, named, left out where they are optional, and of any type that
/// converts.
HRESULT invokeMember(const ObjectRef& self, const Request& request, const DISPPARAMS* given,
                     const Answer& answer) noexcept;

}  // namespace orvane::com
