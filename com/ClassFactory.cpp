#include "com/ClassFactory.h"

#include "com/Errors.h"
#include "com/Object.h"

namespace orvane::com {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
  if (!*out) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

STDMETHODIMP_(ULONG) ClassFactory::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) {
  if (!out) return E_POINTER;
  *out = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  try {
    IDispatch* const object = automationObject(create(classOf(identity_)))->dispatch();
    const HRESULT result = object->QueryInterface(iid, out);
    object->Release();
    return result;
  } catch (...) {
    return currentFailure();
  }
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    Module::enter();
  } else {
    Module::leave();
  }
  return S_OK;
}

}  // namespace orvane::com
