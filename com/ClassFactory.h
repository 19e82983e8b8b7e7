// Makes objects of a class that clients create.
#pragma once

#include "com/Identity.h"
#include "com/Module.h"

namespace orvane::com {

/// Begins with one reference.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ClassIdentity& identity) : identity_(identity) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;

  /// CLASS_E_NOAGGREGATION where there is an outer object.
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  ~ClassFactory() = default;

  const ModuleUse module_;
  const ClassIdentity& identity_;
  LONG references_ = 1;
};

}  // namespace orvane::com
