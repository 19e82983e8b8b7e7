// Late binding by published name, on every platform: what the public boundary describes as a table of classes
// and members, and reading, assigning and calling any of them with variants.
//
//   ObjectRef factory = newVqDocumenti();
//   ObjectRef fax = std::get<ObjectRef>(call(factory, u"NuovoDocumentoFax"));
//   let(fax, u"Oggetto", u"Offerta");
//
// The table is constant and may be read by any thread; objects are used as their classes say.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <variant>

#include "core/Values.h"

namespace orvane {

struct EnumMember {
  TextView name;
  std::int32_t value;
};

struct EnumInfo {
  TextView name;
  std::span<const EnumMember> members;
};

enum class TypeKind : unsigned char {
  None,    ///< no result
  String,  ///< `Text`
  Long,
  Boolean,
  Date,
  Byte,
  Currency,
  Variant,
  Array,       ///< `VariantArray`
  Object,      ///< an object of any class, or none
  Enum,        ///< carried as a Long
  Class,       ///< an object of one class
  Enumerator,  ///< a `VariantArray` of the objects that a collection holds at the time
};

struct TypeInfo {
  TypeKind kind = TypeKind::None;
  const EnumInfo* enumeration = nullptr;   ///< of an Enum
  const ClassInfo* objectClass = nullptr;  ///< of a Class
};

struct Parameter {
  TextView name;
  TypeInfo type;
  bool byReference = false;  ///< of interest to automation clients; no member changes its arguments
  bool optional = false;
  std::variant<std::monostate, std::int32_t, TextView> defaultValue = {};
};

enum class MemberKind : unsigned char { Get, Let, Method };

using Arguments = std::span<const Variant>;

/// One slot of a class. A property that clients read and assign is two members of the same name and id.
struct MemberInfo {
  TextView name;
  std::int32_t id;  ///< dispatch id, unique to the name within its class
  MemberKind kind;
  TypeInfo result;
  std::span<const Parameter> parameters;  ///< of a Let: the indices, then the new value
  /// Does it. `args` must be exactly as many as `parameters` and of their types; `invoke` sees to that.
  Variant (*call)(const ObjectRef& self, Arguments args);
  TextView help;  ///< Italian, for users
};

struct ClassInfo {
  TextView name;                         ///< as the C++ class: VqDocLingua
  std::span<const MemberInfo> members;   ///< in slot order
  std::span<const std::uint8_t> byName;  ///< see MemberIndex
  std::span<const std::uint8_t> byId;    ///< see MemberIndex
  std::shared_ptr<void> (*make)();       ///< null where clients cannot create objects of the class
  TextView help;                         ///< Italian, for users
  bool creatable() const { return make != nullptr; }
};

/// All classes and all enumerations, in the order of the type library.
std::span<const ClassInfo> allClasses();
std::span<const EnumInfo> allEnumerations();

/// The entry of a published C++ class; "typelib/classes.h" defines it for each of them.
template <class T>
const ClassInfo& classOf();

/// Null where there is none. Names compare without case.
const ClassInfo* findClass(TextView name);
const EnumInfo* findEnumeration(TextView name);
const MemberInfo* findMember(const ClassInfo& type, TextView name, MemberKind kind);
const MemberInfo* findMember(const ClassInfo& type, std::int32_t id, MemberKind kind);

/// Any member of that name; all of them have the same id.
const MemberInfo* findMember(const ClassInfo& type, TextView name);

/// Reads a property. Errors of these three and of `invoke`, beside those of the member itself: 91 for no
/// object, 438 for an unknown name, 450 for a member that is of another kind or takes another number of
/// arguments, 13 and 6 for an argument that the declared type cannot take, 91 and 13 for no object and one of
/// a wrong class. An optional argument may be left out at the end or given as Empty.
Variant get(const ObjectRef& self, TextView name, Arguments args = {});

/// Assigns a property; the new value comes after the indices, if it takes any.
void let(const ObjectRef& self, TextView name, Arguments args);
void let(const ObjectRef& self, TextView name, const Variant& value);

/// Calls a method. Empty where it has no result.
Variant call(const ObjectRef& self, TextView name, Arguments args = {});

/// What the three above do with the member that they find; `self` must be an object of the member's class.
Variant invoke(const ObjectRef& self, const MemberInfo& member, Arguments args);

/// A new object; error 445 for a class that clients cannot create.
ObjectRef create(const ClassInfo& type);

/// The factory of documents, the one object that everything else comes from.
ObjectRef newVqDocumenti();

/// The most parameters of a member.
inline constexpr std::size_t kMostArguments = 4;

/// Where to look for a member: tables of slot numbers plus 1, with 0 for a free place. A member stands at the
/// place of its hash modulo the size, or at the next free one after it.
template <std::size_t Size>
struct MemberIndex {
  std::array<std::uint8_t, Size> byName{};
  std::array<std::uint8_t, Size> byId{};
};

/// The same for names that differ only in case.
constexpr std::uint32_t nameHash(TextView name) {
  std::uint32_t hash = 0;
  for (const char16_t unit : name) hash = (hash ^ (unit | 0x20u)) * 0x01000193u;
  return hash ^ hash >> 16;
}

constexpr std::uint32_t idHash(std::int32_t id) { return static_cast<std::uint32_t>(id) * 2; }

constexpr void enterMember(std::span<std::uint8_t> table, std::uint32_t hash, std::size_t slot) {
  std::size_t place = hash % table.size();
  while (table[place] != 0) place = (place + 1) % table.size();
  table[place] = static_cast<std::uint8_t>(slot + 1);
}

template <std::size_t Size>
consteval MemberIndex<Size> makeMemberIndex(std::span<const MemberInfo> members) {
  if (members.size() >= Size || members.size() > 254) throw std::length_error("too many members");
  MemberIndex<Size> index;
  for (std::size_t slot = 0; slot < members.size(); ++slot) {
    if (members[slot].parameters.size() > kMostArguments) throw std::length_error("too many parameters");
    enterMember(index.byName, nameHash(members[slot].name), slot);
    enterMember(index.byId, idHash(members[slot].id), slot);
  }
  return index;
}

}  // namespace orvane
