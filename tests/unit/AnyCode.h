// The code-value classes seen alike, for tests that go through all of them.
#pragma once

#include <memory>

#include "core/Component.h"
#include "tests/support/Rows.h"

namespace orvane::test {

/// One object of a code-value class.
class AnyCode {
 public:
  virtual ~AnyCode() = default;
  virtual void set(std::int32_t code) = 0;
  virtual std::int32_t code() const = 0;
  virtual Text description() const = 0;
  virtual Component& component() = 0;
};

/// For the classes whose code is `Codice`.
template <class Class>
class AnyCodeOf : public AnyCode {
 public:
  template <class... Arguments>
  explicit AnyCodeOf(Arguments... arguments) : object_(arguments...) {}
  void set(std::int32_t code) override { object_.Codice = code; }
  std::int32_t code() const override { return object_.Codice.get(); }
  Text description() const override { return object_.Descrizione(); }
  Component& component() override { return object_; }

 private:
  Class object_;
};

using MakeCode = std::unique_ptr<AnyCode> (*)();

template <class Class>
std::unique_ptr<AnyCode> makeCode() {
  return std::make_unique<AnyCodeOf<Class>>();
}

}  // namespace orvane::test
