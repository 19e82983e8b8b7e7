#include "com/EnumVariant.h"

#include <algorithm>

#include "com/Conversions.h"

namespace orvane::com {

STDMETHODIMP EnumVariant::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = iid == IID_IUnknown || iid == IID_IEnumVARIANT ? this : nullptr;
  if (!*out) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) EnumVariant::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

STDMETHODIMP_(ULONG) EnumVariant::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

ULONG EnumVariant::available(ULONG count) const {
  return static_cast<ULONG>(std::min<std::size_t>(count, items_->size() - next_));
}

STDMETHODIMP EnumVariant::Next(ULONG count, VARIANT* out, ULONG* fetched) {
  if (fetched) *fetched = 0;
  if ((!out && count != 0) || (!fetched && count != 1)) return E_POINTER;
  for (ULONG i = 0; i < count; ++i) out[i] = {};
  const ULONG taken = available(count);
  try {
    for (ULONG i = 0; i < taken; ++i) put(&out[i], (*items_)[next_ + i]);
  } catch (...) {
    for (ULONG i = 0; i < taken; ++i) VariantClear(&out[i]);
    return currentFailure();
  }
  next_ += taken;
  if (fetched) *fetched = taken;
  return taken == count ? S_OK : S_FALSE;
}

STDMETHODIMP EnumVariant::Skip(ULONG count) {
  const ULONG skipped = available(count);
  next_ += skipped;
  return skipped == count ? S_OK : S_FALSE;
}

STDMETHODIMP EnumVariant::Reset() {
  next_ = 0;
  return S_OK;
}

STDMETHODIMP EnumVariant::Clone(IEnumVARIANT** out) {
  if (!out) return E_POINTER;
  *out = new (std::nothrow) EnumVariant(*this);
  return *out ? S_OK : E_OUTOFMEMORY;
}

}  // namespace orvane::com
