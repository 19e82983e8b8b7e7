#include "typelib/Members.h"

#include "core/Error.h"

namespace orvane {

namespace {

template <class Info>
const Info* findByName(std::span<const Info> table, TextView name) {
  for (const Info& info : table) {
    if (equalIgnoringCase(info.name, name)) return &info;
  }
  return nullptr;
}

// The usual client spells a name as it is published.
bool isNamed(const MemberInfo& member, TextView name) {
  return member.name == name || equalIgnoringCase(member.name, name);
}

template <class Accept>
const MemberInfo* probe(const ClassInfo& type, std::span<const std::uint8_t> index, std::uint32_t hash,
                        Accept accept) {
  for (std::size_t place = hash % index.size(); index[place] != 0; place = (place + 1) % index.size()) {
    const MemberInfo& member = type.members[index[place] - 1u];
    if (accept(member)) return &member;
  }
  return nullptr;
}

const MemberInfo& memberFor(const ObjectRef& self, TextView name, MemberKind kind) {
  if (!self) throw Error(ErrorNumber::ObjectNotSet);
  if (const MemberInfo* member = findMember(*self.type, name, kind)) return *member;
  const bool known = findMember(*self.type, name) != nullptr;
  throw Error(known ? ErrorNumber::WrongArguments : ErrorNumber::NoSuchMember);
}

Variant checkedArray(const Variant& value) {
  if (!std::holds_alternative<VariantArray>(value)) throw Error(ErrorNumber::TypeMismatch);
  return value;
}

// Any class where `objectClass` is null.
Variant checkedObject(const Variant& value, const ClassInfo* objectClass) {
  const auto* object = std::get_if<ObjectRef>(&value);
  if (!object) throw Error(ErrorNumber::TypeMismatch);
  if (!*object) throw Error(ErrorNumber::ObjectNotSet);
  if (objectClass && object->type != objectClass) throw Error(ErrorNumber::TypeMismatch);
  return value;
}

Variant converted(const Variant& value, const TypeInfo& type) {
  switch (type.kind) {
    case TypeKind::String:
      return toText(value);
    case TypeKind::Long:
    case TypeKind::Enum:
      return toLong(value);
    case TypeKind::Boolean:
      return toBoolean(value);
    case TypeKind::Date:
      return toDate(value);
    case TypeKind::Byte:
      return toByte(value);
    case TypeKind::Currency:
      return toCurrency(value);
    case TypeKind::Array:
      return checkedArray(value);
    case TypeKind::Object:
    case TypeKind::Class:
      return checkedObject(value, type.objectClass);
    case TypeKind::Variant:
    case TypeKind::Enumerator:
    case TypeKind::None:
      break;
  }
  return value;
}

Variant defaultOf(const Parameter& parameter) {
  if (const auto* number = std::get_if<std::int32_t>(&parameter.defaultValue)) return *number;
  if (const auto* text = std::get_if<TextView>(&parameter.defaultValue)) return Text(*text);
  return {};
}

Variant argumentFor(const Parameter& parameter, const Variant* given) {
  const bool missing = !given || given->isEmpty();
  return converted(missing && parameter.optional ? defaultOf(parameter) : *given, parameter.type);
}

// Optional parameters are the last ones.
void checkCount(std::span<const Parameter> parameters, std::size_t given) {
  const bool enough = given >= parameters.size() || parameters[given].optional;
  if (!enough || given > parameters.size()) throw Error(ErrorNumber::WrongArguments);
}

}  // namespace

const ClassInfo* findClass(TextView name) { return findByName(allClasses(), name); }
const EnumInfo* findEnumeration(TextView name) { return findByName(allEnumerations(), name); }

const MemberInfo* findMember(const ClassInfo& type, TextView name, MemberKind kind) {
  return probe(type, type.byName, nameHash(name),
               [&](const MemberInfo& member) { return member.kind == kind && isNamed(member, name); });
}

const MemberInfo* findMember(const ClassInfo& type, TextView name) {
  return probe(type, type.byName, nameHash(name),
               [&](const MemberInfo& member) { return isNamed(member, name); });
}

const MemberInfo* findMember(const ClassInfo& type, std::int32_t id, MemberKind kind) {
  return probe(type, type.byId, idHash(id),
               [&](const MemberInfo& member) { return member.kind == kind && member.id == id; });
}

Variant invoke(const ObjectRef& self, const MemberInfo& member, Arguments args) {
  if (!self) throw Error(ErrorNumber::ObjectNotSet);
  const auto parameters = member.parameters;
  checkCount(parameters, args.size());
  std::array<Variant, kMostArguments> ready;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    ready[i] = argumentFor(parameters[i], i < args.size() ? &args[i] : nullptr);
  }
  return member.call(self, Arguments(ready).first(parameters.size()));
}

Variant get(const ObjectRef& self, TextView name, Arguments args) {
  return invoke(self, memberFor(self, name, MemberKind::Get), args);
}

void let(const ObjectRef& self, TextView name, Arguments args) {
  invoke(self, memberFor(self, name, MemberKind::Let), args);
}

void let(const ObjectRef& self, TextView name, const Variant& value) {
  let(self, name, Arguments(&value, 1));
}

Variant call(const ObjectRef& self, TextView name, Arguments args) {
  return invoke(self, memberFor(self, name, MemberKind::Method), args);
}

ObjectRef create(const ClassInfo& type) {
  if (!type.make) throw Error(ErrorNumber::NotSupportedAction);
  return {type.make(), &type};
}

ObjectRef newVqDocumenti() { return create(*findClass(u"VqDocumenti")); }

}  // namespace orvane
