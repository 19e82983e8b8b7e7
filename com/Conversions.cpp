#include "com/Conversions.h"

#include <new>

#include "com/EnumVariant.h"
#include "com/Object.h"
#include "core/Error.h"

namespace orvane::com {

namespace {

constexpr VARTYPE kVariantArray = VT_ARRAY | VT_VARIANT;

// How many bytes a value of a type takes; 0 for a type that cannot stand by reference.
std::size_t sizeOf(VARTYPE type) {
  if (type & VT_ARRAY) return sizeof(SAFEARRAY*);
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return 0;
  }
}

Variant foreign(const VARIANT& value) {
  const auto release = [](const VARIANT* kept) {
    VariantClear(const_cast<VARIANT*>(kept));
    delete kept;
  };
  std::shared_ptr<VARIANT> copy(new VARIANT{}, release);
  const HRESULT result = VariantCopy(copy.get(), readable(value));
  if (FAILED(result)) throw Failure{result};
  return Opaque{std::shared_ptr<const void>(copy)};
}

Variant objectIn(const VARIANT& value) {
  if (!value.punkVal) return ObjectRef{};
  Object* const own = findOwnObject(value.punkVal);
  return own ? Variant(own->self()) : foreign(value);
}

// Arrays in arrays deeper than this are refused: one may hold a reference to itself.
constexpr int kDeepestArray = 32;

VariantArray takeArray(SAFEARRAY* array, int depth);

// A value as it is, by the type that it has.
Variant carried(const VARIANT& value, int depth = 0) {
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return take(value.boolVal);
    case VT_UI1:
      return value.bVal;
    case VT_I2:
      return static_cast<std::int16_t>(value.iVal);
    case VT_I4:
      return take(value.lVal);
    case VT_R4:
      return value.fltVal;
    case VT_R8:
      return value.dblVal;
    case VT_CY:
      return take(value.cyVal);
    case VT_DATE:
      return take(value.date);
    case VT_BSTR:
      return take(value.bstrVal);
    case kVariantArray:
      return takeArray(value.parray, depth);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return objectIn(value);
    default:
      return foreign(value);
  }
}

bool isOddNumber(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI2:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_DECIMAL:
      return true;
    default:
      return false;
  }
}

Variant plainNumber(const VARIANT& value) {
  VARIANT number{};
  if (value.vt != VT_DECIMAL && SUCCEEDED(VariantChangeType(&number, readable(value), 0, VT_I4)))
    return take(number.lVal);
  const HRESULT result = VariantChangeType(&number, readable(value), 0, VT_R8);
  if (FAILED(result)) throw Failure{result};
  return number.dblVal;
}

class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY* array) : array_(array) {
    void* data = nullptr;
    const HRESULT result = SafeArrayAccessData(array, &data);
    if (FAILED(result)) throw Failure{result};
    items = static_cast<VARIANT*>(data);
  }
  ~ArrayAccess() { SafeArrayUnaccessData(array_); }
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;

  VARIANT* items = nullptr;

 private:
  SAFEARRAY* array_;
};

VariantArray::Dimension dimensionOf(SAFEARRAY* array, UINT number) {
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(array, number, &lower);
  SafeArrayGetUBound(array, number, &upper);
  return {static_cast<std::int32_t>(lower), static_cast<std::uint32_t>(upper - lower + 1)};
}

// Descriptors that a compiler lays out need not tell the type of the items.
bool holdsVariants(SAFEARRAY& array) {
  constexpr USHORT kTold = FADF_VARIANT | FADF_HAVEVARTYPE;
  if ((array.fFeatures & kTold) == FADF_VARIANT) return array.cbElements == sizeof(VARIANT);
  VARTYPE type = VT_EMPTY;
  return SUCCEEDED(SafeArrayGetVartype(&array, &type)) && type == VT_VARIANT;
}

VariantArray takeArray(SAFEARRAY* array, int depth) {
  if (depth > kDeepestArray) throw Error(ErrorNumber::OutOfStackSpace);
  VariantArray taken;
  if (!array) return taken;
  if (!holdsVariants(*array)) throw Failure{DISP_E_TYPEMISMATCH};
  if (!array->pvData) return taken;
  std::size_t count = 1;
  for (UINT number = 1; number <= SafeArrayGetDim(array); ++number) {
    taken.dimensions.push_back(dimensionOf(array, number));
    count *= taken.dimensions.back().count;
  }
  const ArrayAccess access(array);
  VARIANT room;
  for (std::size_t i = 0; i < count; ++i)
    taken.items.push_back(carried(dereferenced(access.items[i], room), depth + 1));
  return taken;
}

SAFEARRAY* newArray(const VariantArray& value) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const auto& dimension : value.dimensions) bounds.push_back({dimension.count, dimension.lowerBound});
  SAFEARRAY* const array = SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data());
  if (!array) throw std::bad_alloc();
  return array;
}

void fill(SAFEARRAY* array, const std::vector<Variant>& items) {
  const ArrayAccess access(array);
  for (std::size_t i = 0; i < items.size(); ++i) put(&access.items[i], items[i]);
}

struct Put {
  VARIANT* out;

  void operator()(std::monostate) const {}
  void operator()(Null) const { out->vt = VT_NULL; }
  void operator()(bool value) const { put(&out->boolVal, value), out->vt = VT_BOOL; }
  void operator()(std::uint8_t value) const { out->bVal = value, out->vt = VT_UI1; }
  void operator()(std::int16_t value) const { out->iVal = value, out->vt = VT_I2; }
  void operator()(std::int32_t value) const { out->lVal = value, out->vt = VT_I4; }
  void operator()(float value) const { out->fltVal = value, out->vt = VT_R4; }
  void operator()(double value) const { out->dblVal = value, out->vt = VT_R8; }
  void operator()(Currency value) const { put(&out->cyVal, value), out->vt = VT_CY; }
  void operator()(Date value) const { put(&out->date, value), out->vt = VT_DATE; }
  void operator()(const Text& value) const { put(&out->bstrVal, value), out->vt = VT_BSTR; }
  void operator()(const VariantArray& value) const { put(&out->parray, value), out->vt = kVariantArray; }
  void operator()(const ObjectRef& value) const {
    Object* const object = automationObject(value);
    out->pdispVal = object ? object->dispatch() : nullptr;
    out->vt = VT_DISPATCH;
  }
  void operator()(const Opaque& value) const {
    const HRESULT result = VariantCopy(out, readable(*static_cast<const VARIANT*>(value.value.get())));
    if (FAILED(result)) throw Failure{result};
  }
};

}  // namespace

Text take(BSTR value) {
  if (!value) return {};
  return Text(reinterpret_cast<const char16_t*>(value), SysStringLen(value));
}

VariantArray take(SAFEARRAY* array) { return takeArray(array, 0); }

Variant take(const VARIANT& value) {
  VARIANT room;
  const VARIANT& plain = dereferenced(value, room);
  if (isOmitted(plain)) return {};
  return isOddNumber(plain.vt) ? plainNumber(plain) : carried(plain);
}

const VARIANT& dereferenced(const VARIANT& value, VARIANT& room) {
  if (!(value.vt & VT_BYREF)) return value;
  if (!value.byref) throw Failure{E_INVALIDARG};
  const VARTYPE type = value.vt & static_cast<VARTYPE>(~VT_BYREF);
  if (type == VT_VARIANT) {
    const VARIANT inner = *value.pvarVal;
    if (inner.vt == (VT_BYREF | VT_VARIANT)) throw Failure{DISP_E_TYPEMISMATCH};
    return inner.vt & VT_BYREF ? dereferenced(*value.pvarVal, room) : *value.pvarVal;
  }
  if (type == VT_DECIMAL) {
    room.decVal = *value.pdecVal;
  } else if (const std::size_t size = sizeOf(type); size != 0) {
    memcpy(&room.llVal, value.byref, size);
  } else {
    throw Failure{DISP_E_TYPEMISMATCH};
  }
  room.vt = type;
  return room;
}

void put(BSTR* out, TextView value) {
  *out = SysAllocStringLen(reinterpret_cast<const wchar_t*>(value.data()), static_cast<UINT>(value.size()));
  if (!*out) throw std::bad_alloc();
}

void put(SAFEARRAY** out, const VariantArray& value) {
  if (value.dimensions.empty()) return;
  SAFEARRAY* const array = newArray(value);
  try {
    fill(array, value.items);
  } catch (...) {
    SafeArrayDestroy(array);
    throw;
  }
  *out = array;
}

void put(VARIANT* out, const Variant& value) {
  *out = {};
  std::visit(Put{out}, value);
}

void put(IUnknown** out, const VariantArray& snapshot) { *out = new EnumVariant(snapshot.items); }

}  // namespace orvane::com
