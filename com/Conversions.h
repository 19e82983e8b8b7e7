// Between automation's values and the library's.
#pragma once

#include "com/Errors.h"
#include "core/Values.h"

namespace orvane::com {

/// What an argument holds. A null string is the empty text; of an array bounds and dimensions are kept; a
/// null array has no dimensions. Error 28 for arrays that lie in each other too deep.
inline std::int32_t take(LONG value) { return static_cast<std::int32_t>(value); }
inline bool take(VARIANT_BOOL value) { return value != VARIANT_FALSE; }
inline Date take(DATE value) { return {value}; }
inline std::uint8_t take(BYTE value) { return value; }
inline Currency take(CURRENCY value) { return {value.int64}; }
Text take(BSTR value);
VariantArray take(SAFEARRAY* array);

/// By reference or not; whole numbers of any width are Longs if they fit, else doubles, and decimals are
/// doubles. An omitted argument is Empty.
Variant take(const VARIANT& value);

/// An argument by reference. Throws Failure E_POINTER for a null pointer.
template <class T>
T pointed(T* argument) {
  if (!argument) throw Failure{E_POINTER};
  return *argument;
}

/// Puts a result into `*out`, which holds nothing; after an exception it still holds nothing.
inline void put(LONG* out, std::int32_t value) { *out = value; }
inline void put(VARIANT_BOOL* out, bool value) { *out = value ? VARIANT_TRUE : VARIANT_FALSE; }
inline void put(DATE* out, Date value) { *out = value.days; }
inline void put(BYTE* out, std::uint8_t value) { *out = value; }
inline void put(CURRENCY* out, Currency value) { out->int64 = value.tenThousandths; }
void put(BSTR* out, TextView value);
void put(SAFEARRAY** out, const VariantArray& value);
void put(VARIANT* out, const Variant& value);

/// An enumerator over the objects of a snapshot.
void put(IUnknown** out, const VariantArray& snapshot);

/// What a value by reference refers to, by way of `room`, which then owns nothing of its own. Throws Failure
/// E_INVALIDARG for a null reference.
const VARIANT& dereferenced(const VARIANT& value, VARIANT& room);

/// For functions of the system that only read a value, but do not say so.
inline VARIANT* readable(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

/// The argument was left out.
inline bool isOmitted(const VARIANT& value) {
  return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace orvane::com
