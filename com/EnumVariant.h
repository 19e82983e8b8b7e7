// The enumerator of a collection.
#pragma once

#include <memory>
#include <vector>

#include "com/Module.h"
#include "core/Values.h"

namespace orvane::com {

/// Walks over what the collection held when the enumerator was asked for, whatever becomes of the collection.
/// Begins with one reference.
class EnumVariant final : public IEnumVARIANT {
 public:
  explicit EnumVariant(std::vector<Variant> items)
      : items_(std::make_shared<const std::vector<Variant>>(std::move(items))) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;

  /// `fetched` may be null where `count` is 1. After a failure nothing is left in `out` and nothing is passed
  /// over.
  STDMETHODIMP Next(ULONG count, VARIANT* out, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG count) override;
  STDMETHODIMP Reset() override;

  /// Another enumerator that stands at the same item.
  STDMETHODIMP Clone(IEnumVARIANT** out) override;

 private:
  EnumVariant(const EnumVariant& other) : items_(other.items_), next_(other.next_) {}
  ~EnumVariant() = default;
  ULONG available(ULONG count) const;

  const ModuleUse module_;
  const std::shared_ptr<const std::vector<Variant>> items_;
  std::size_t next_ = 0;
  LONG references_ = 1;
};

}  // namespace orvane::com
