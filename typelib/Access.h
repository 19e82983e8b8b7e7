// How generated code reaches the published C++ classes. It states the published type of every result, so a
// class that gives another type than the boundary describes does not compile.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include "typelib/Members.h"

namespace orvane {

/// The object itself; `self` must be of that class.
template <class T>
T& target(const ObjectRef& self) {
  return *static_cast<T*>(self.object.get());
}

/// An argument that `invoke` has checked.
template <class T>
std::shared_ptr<T> objectArgument(const Variant& argument) {
  return std::static_pointer_cast<T>(std::get<ObjectRef>(argument).object);
}

/// The value of a property object, or the value itself.
template <class T, class Given>
T valueOf(Given&& given) {
  if constexpr (requires { given.get(); }) {
    static_assert(std::same_as<T, std::remove_cvref_t<decltype(given.get())>>);
    return given.get();
  } else {
    static_assert(std::same_as<T, std::remove_cvref_t<Given>>);
    return std::forward<Given>(given);
  }
}

/// An object that is its own owner, or none.
template <class T>
ObjectRef objectOf(std::shared_ptr<T> object) {
  if (!object) return {};
  return {std::shared_ptr<void>(std::move(object)), &classOf<T>()};
}

template <class T>
ObjectRef objectOf(const ObjectRef&, std::shared_ptr<T> object) {
  return objectOf<T>(std::move(object));
}

/// A component that lives inside `owner`, which it keeps alive.
template <class T>
ObjectRef objectOf(const ObjectRef& owner, T& component) {
  return {std::shared_ptr<void>(owner.object, static_cast<void*>(&component)), &classOf<T>()};
}

struct ObjectOfChoice {
  ObjectRef operator()(std::monostate) const { return {}; }
  template <class T>
  ObjectRef operator()(const std::shared_ptr<T>& object) const {
    return objectOf<T>(object);
  }
};

/// Whichever object the choice holds, or none.
template <class... Objects>
ObjectRef anyObjectOf(const std::variant<std::monostate, Objects...>& choice) {
  return std::visit(ObjectOfChoice{}, choice);
}

/// The objects that a collection holds now.
template <class Collection>
VariantArray snapshotOf(Collection& collection) {
  VariantArray objects;
  for (const auto& object : collection) objects.items.push_back(objectOf(object));
  objects.dimensions = {{0, static_cast<std::uint32_t>(objects.items.size())}};
  return objects;
}

template <class T>
std::shared_ptr<void> makeObject() {
  return std::make_shared<T>();
}

}  // namespace orvane
