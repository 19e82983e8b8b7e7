#include "tests/automation/RandomValues.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace client {

namespace {

constexpr int kDeepest = 4;

VARIANT ofType(VARTYPE type) {
  VARIANT value{};
  value.vt = type;
  return value;
}

bool same(const VARIANT& one, const VARIANT& two) { return std::memcmp(&one, &two, sizeof one) == 0; }

}  // namespace

STDMETHODIMP Stranger::QueryInterface(REFIID iid, void** out) {
  *out = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
  if (*out) AddRef();
  return *out ? S_OK : E_NOINTERFACE;
}

LONG RandomValues::number() {
  static constexpr LONG kNumbers[] = {0,  1,   2,   3,     4,     10,      -1,       -2,
                                      99, 255, 256, 32767, 65536, 1000000, LONG_MAX, LONG_MIN};
  return once(8) ? static_cast<LONG>(random_()) : oneOf(kNumbers);
}

std::wstring RandomValues::randomText() {
  static constexpr wchar_t kUnits[] = {L'a',  L'Z',   L'0', L'9',   L'-',   L' ',  L'=', L'[',
                                       L']',  L';',   L'"', L'<',   L'&',   0,     1,    L'\n',
                                       L'\r', 0x241B, 0xE9, 0x20AC, 0xD800, 0xDC00};
  std::wstring made(below(once(50) ? 5000 : 12), L'\0');
  for (wchar_t& unit : made) unit = oneOf(kUnits);
  return made;
}

VARIANT RandomValues::text() {
  VARIANT value = ofType(VT_BSTR);
  if (once(10)) return value;
  const std::wstring chosen = once(2) ? randomText() : texts[below(texts.size())];
  value.bstrVal = SysAllocStringLen(chosen.data(), static_cast<UINT>(chosen.size()));
  return keep(value);
}

VARIANT RandomValues::object() {
  VARIANT value = ofType(once(4) ? VT_UNKNOWN : VT_DISPATCH);
  if (once(8)) return value;
  value.pdispVal = objects[below(objects.size())];
  value.pdispVal->AddRef();
  return keep(value);
}

VARIANT RandomValues::ofSmallType(VARTYPE type) {
  VARIANT value = ofType(type);
  static constexpr double kReals[] = {0, -0.5, 1, 2.5, 1e10, -1e300, 45000.75, 2958466, 1e-310};
  if (type == VT_R8 || type == VT_DATE) {
    value.dblVal = once(10) ? std::numeric_limits<double>::quiet_NaN() : oneOf(kReals);
  } else if (type == VT_R4) {
    value.fltVal = static_cast<float>(number());
  } else if (type == VT_DECIMAL) {
    value.decVal.Lo64 = static_cast<ULONGLONG>(number());
    value.decVal.Hi32 = once(4) ? static_cast<ULONG>(number()) : 0;
    value.decVal.scale = static_cast<BYTE>(below(once(10) ? 256 : 29));
    value.decVal.sign = once(2) ? DECIMAL_NEG : 0;
    value.vt = type;
  } else {
    value.llVal = once(4) ? static_cast<LONGLONG>(number()) << 32 : number();
  }
  return value;
}

// Types that are no value's, with nothing in them.
VARIANT RandomValues::meaningless() {
  static constexpr VARTYPE kTypes[] = {VT_VOID,
                                       VT_HRESULT,
                                       VT_PTR,
                                       VT_SAFEARRAY,
                                       VT_CARRAY,
                                       VT_LPSTR,
                                       VT_USERDEFINED,
                                       VT_LPWSTR,
                                       VT_RECORD,
                                       VT_INT_PTR,
                                       VT_CLSID,
                                       VT_FILETIME,
                                       VT_BLOB,
                                       VT_VECTOR | VT_I4,
                                       VT_RESERVED,
                                       VT_VARIANT,
                                       15,
                                       0xFFF,
                                       VT_VECTOR | VT_VARIANT,
                                       0xFFFF};
  return ofType(once(10) ? static_cast<VARTYPE>(random_() & ~(VT_BYREF | VT_ARRAY)) : oneOf(kTypes));
}

VARIANT RandomValues::arrayOf(VARTYPE type) {
  SAFEARRAYBOUND bounds[3];
  static constexpr LONG kLowest[] = {0, 0, 0, 1, -1, -5, 1000000, LONG_MIN};
  for (SAFEARRAYBOUND& bound : bounds) bound = {static_cast<ULONG>(below(4)), oneOf(kLowest)};
  VARIANT value = ofType(static_cast<VARTYPE>(VT_ARRAY | type));
  value.parray = SafeArrayCreate(type, 1 + static_cast<UINT>(below(3)), bounds);
  return keep(value);
}

void RandomValues::fill(SAFEARRAY* array, int depth) {
  ULONG count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) count *= array->rgsabound[i].cElements;
  auto* const items = static_cast<VARIANT*>(array->pvData);
  for (ULONG i = 0; i < count; ++i) {
    const VARIANT item = value(depth + 1);
    if (item.vt & VT_BYREF) {
      items[i] = item;
    } else {
      VariantCopy(&items[i], const_cast<VARIANT*>(&item));
    }
  }
}

VARIANT RandomValues::array(int depth) {
  static constexpr VARTYPE kTypes[] = {VT_I4, VT_BSTR, VT_UI1, VT_R8, VT_DISPATCH};
  if (once(8)) return ofType(VT_ARRAY | VT_VARIANT);
  if (once(4)) return arrayOf(oneOf(kTypes));
  const VARIANT value = arrayOf(VT_VARIANT);
  if (depth < kDeepest) fill(value.parray, depth);
  return value;
}

// An array that holds a reference to itself.
VARIANT RandomValues::circle() {
  SAFEARRAYBOUND one{1, 0};
  VARIANT value = ofType(VT_ARRAY | VT_VARIANT);
  value.parray = SafeArrayCreate(VT_VARIANT, 1, &one);
  VARIANT& kept = keep(value);
  auto* const item = static_cast<VARIANT*>(value.parray->pvData);
  item->vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  item->pparray = &kept.parray;
  return value;
}

VARIANT RandomValues::byReference(int depth) {
  const VARIANT referred = depth < kDeepest && once(6) ? value(depth + 1) : plain(depth);
  const bool whole = (referred.vt & VT_BYREF) || once(3);
  VARIANT value = ofType(static_cast<VARTYPE>(VT_BYREF | (whole ? VARTYPE{VT_VARIANT} : referred.vt)));
  if (once(10)) return value;
  VARIANT& room = made_.emplace_back(Made{referred, referred, {}, false}).value;
  value.byref = whole ? static_cast<void*>(&room) : &room.llVal;
  if (referred.vt == VT_DECIMAL && !whole) value.pdecVal = &room.decVal;
  return value;
}

VARIANT RandomValues::plain(int depth) {
  static constexpr VARTYPE kSmall[] = {VT_I1, VT_UI1,  VT_I2,   VT_UI2,     VT_I4,   VT_UI4,
                                       VT_I8, VT_UI8,  VT_INT,  VT_UINT,    VT_R4,   VT_R8,
                                       VT_CY, VT_DATE, VT_BOOL, VT_DECIMAL, VT_ERROR};
  switch (below(14)) {
    case 0:
      return ofType(once(2) ? VT_EMPTY : VT_NULL);
    case 1: {
      VARIANT missing = ofType(VT_ERROR);
      missing.scode = DISP_E_PARAMNOTFOUND;
      return missing;
    }
    case 2:
      return meaningless();
    case 3:
      return array(depth);
    case 4:
    case 5:
    case 6:
      return object();
    case 7:
    case 8:
    case 9:
    case 10:
      return text();
    default:
      return ofSmallType(oneOf(kSmall));
  }
}

VARIANT RandomValues::value(int depth) { return once(5) ? byReference(depth) : plain(depth); }

VARIANT RandomValues::fitting(orvane::TypeKind kind) {
  switch (kind) {
    case orvane::TypeKind::String:
      return text();
    case orvane::TypeKind::Array:
      return once(40) ? circle() : array(0);
    case orvane::TypeKind::Object:
    case orvane::TypeKind::Class:
      return object();
    case orvane::TypeKind::Variant:
      return value();
    default:
      return ofSmallType(once(4) ? VT_R8 : VT_I4);
  }
}

VARIANT& RandomValues::keep(const VARIANT& value) {
  const std::wstring text =
      value.vt == VT_BSTR ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : std::wstring();
  return made_.emplace_back(Made{value, value, text, true}).value;
}

bool RandomValues::isUntouched() const {
  return std::all_of(made_.begin(), made_.end(), [](const Made& made) {
    if (!same(made.value, made.original)) return false;
    const bool isText = made.owned && made.value.vt == VT_BSTR;
    return !isText || std::wstring_view(made.value.bstrVal, SysStringLen(made.value.bstrVal)) == made.text;
  });
}

bool RandomValues::clear() {
  bool free = true;
  for (Made& made : made_) free = (!made.owned || SUCCEEDED(VariantClear(&made.value))) && free;
  made_.clear();
  return free;
}

}  // namespace client
