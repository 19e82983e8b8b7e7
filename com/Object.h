// What all automation objects have in common, and the one automation object of each C++ object.
#pragma once

#include "com/Identity.h"
#include "com/Module.h"

namespace orvane::com {

/// References may be counted by any thread; everything else is used on the thread that made the C++ object.
class Object : public IProvideClassInfo2, public ISupportErrorInfo {
 public:
  /// The C++ object, kept alive.
  const ObjectRef& self() const { return self_; }
  const ClassIdentity& identity() const { return identity_; }

  /// The default interface; no reference is added.
  virtual IDispatch* dispatch() noexcept = 0;

  /// Adds a reference unless the last one is gone already.
  bool tryAddReference() noexcept;

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

 protected:
  explicit Object(const ObjectRef& self) : self_(self), identity_(identityOf(*self.type)) {}
  virtual ~Object() = default;

  HRESULT query(REFIID iid, void** out) noexcept;
  ULONG addReference() noexcept { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
  ULONG releaseReference() noexcept;

 private:
  const ModuleUse module_;
  const ObjectRef self_;
  const ClassIdentity& identity_;
  LONG references_ = 1;
};

/// The automation object of `self`, with a reference for the caller; null for no object. As long as anyone
/// holds it, it is the same one.
Object* automationObject(const ObjectRef& self);

/// The object that `given` presents: no object where it is null. Throws Failure E_INVALIDARG for one that was
/// not made by this DLL, or only reaches this apartment through a proxy.
ObjectRef ownObject(IUnknown* given);

/// The same, but nullptr instead of the failure.
Object* findOwnObject(IUnknown* given) noexcept;

}  // namespace orvane::com
