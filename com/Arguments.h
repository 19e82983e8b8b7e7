// The arguments of a late-bound call, as the member takes them.
#pragma once

#include <array>

#include "com/Windows.h"
#include "typelib/Members.h"

namespace orvane::com {

/// Fills `out` with the arguments of `member`, each of the declared type. Throws Failure
/// DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL, DISP_E_TYPEMISMATCH or
/// DISP_E_OVERFLOW; where one argument is to blame, `*wrongArgument` (which may be null) is its index in the
/// client's array. Error 91 for no object where one must be.
void readArguments(std::array<Variant, kMostArguments>& out, const MemberInfo& member,
                   const DISPPARAMS& given, LCID locale, UINT* wrongArgument);

}  // namespace orvane::com
