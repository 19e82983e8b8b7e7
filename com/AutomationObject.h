// What the generated glue is made of: an automation object of one published class.
#pragma once

#include <concepts>

#include "com/Conversions.h"
#include "com/Dispatch.h"
#include "com/Errors.h"
#include "com/Object.h"
#include "orvane.h"
#include "typelib/Access.h"

namespace orvane::com {

/// The object of class `T` that an argument names, or none. Throws Failure E_INVALIDARG for a foreign one.
template <class T>
std::shared_ptr<T> takeObject(IDispatch* given) {
  const ObjectRef object = ownObject(given);
  if (object && object.type != &orvane::classOf<T>()) throw Failure{E_INVALIDARG};
  return std::static_pointer_cast<T>(object.object);
}

template <std::derived_from<IDispatch> Interface>
void put(Interface** out, const ObjectRef& object) {
  Object* const made = automationObject(object);
  *out = made ? static_cast<Interface*>(made->dispatch()) : nullptr;
}

template <class Published, class Core>
requires std::is_enum_v<Published> && std::is_enum_v<Core>
void put(Published* out, Core value) { *out = static_cast<Published>(value); }

/// `Interface` is the published interface of the class `Core`. The glue derives from it and adds the
/// interface's own slots, each through `run` or `give`.
template <class Interface, class Core>
class AutomationObject : public Interface, public Object {
 public:
  explicit AutomationObject(const ObjectRef& self) : Object(self) {}

  IDispatch* dispatch() noexcept override { return this; }

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override { return query(iid, out); }
  STDMETHODIMP_(ULONG) AddRef() override { return addReference(); }
  STDMETHODIMP_(ULONG) Release() override { return releaseReference(); }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return typeInfoCount(count); }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    return typeInfo(*this, index, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return idsOfNames(*self().type, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* error, UINT* wrongArgument) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return invokeMember(self(), {id, locale, flags}, given, {result, error, wrongArgument});
  }

 protected:
  Core& core() const { return target<Core>(self()); }

  /// Does `body`, which has no result.
  template <class Body>
  HRESULT run(Body body) noexcept {
    try {
      body();
      return S_OK;
    } catch (...) {
      return reportCurrent(identity().interfaceId);
    }
  }

  /// Puts the result of `body` into `*out`, which is clear after a failure.
  template <class Out, class Body>
  HRESULT give(Out* out, Body body) noexcept {
    if (!out) return E_POINTER;
    *out = {};
    return run([&] { put(out, body()); });
  }
};

}  // namespace orvane::com
