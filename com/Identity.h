// The fixed identities of the public boundary; the table is generated from its description.
#pragma once

#include <span>

#include "com/Windows.h"
#include "typelib/Members.h"

namespace orvane::com {

class Object;

struct ClassIdentity {
  CLSID classId;
  IID interfaceId;               ///< of the default interface
  const wchar_t* interfaceName;  ///< its name: the class's after an underscore
  const wchar_t* programId;      ///< null where clients cannot create objects of the class
  const wchar_t* threading;      ///< the threading model, likewise
  const wchar_t* help;
  Object* (*make)(const ObjectRef& self);  ///< a new automation object with one reference
};

struct LibraryIdentity {
  GUID id;
  WORD major;
  WORD minor;
  const wchar_t* name;
  const wchar_t* help;
};

/// One a class, in the order of `allClasses`.
std::span<const ClassIdentity> classIdentities();
const LibraryIdentity& libraryIdentity();

inline const ClassIdentity& identityOf(const ClassInfo& type) {
  return classIdentities()[static_cast<std::size_t>(&type - allClasses().data())];
}

inline const ClassInfo& classOf(const ClassIdentity& identity) {
  return allClasses()[static_cast<std::size_t>(&identity - classIdentities().data())];
}

}  // namespace orvane::com
