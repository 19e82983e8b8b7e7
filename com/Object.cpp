#include "com/Object.h"

#include <unordered_map>

#include "com/Errors.h"
#include "com/Lock.h"

namespace orvane::com {

namespace {

struct Key {
  const void* object;
  const ClassInfo* type;
  bool operator==(const Key&) const = default;
};

struct KeyHash {
  std::size_t operator()(const Key& key) const {
    return std::hash<const void*>()(key.object) * 31 + std::hash<const void*>()(key.type);
  }
};

constinit SRWLOCK objectsLock = SRWLOCK_INIT;

using Objects = std::unordered_map<Key, Object*, KeyHash>;

// Never destroyed: at the end of a process another module's static objects may end after this module's.
Objects& objects() {
  static Objects& all = *new Objects;
  return all;
}

// Keeps no memory for none.
void remove(Objects::iterator place) noexcept {
  objects().erase(place);
  if (objects().empty()) Objects().swap(objects());
}

Key keyOf(const ObjectRef& self) { return {self.object.get(), self.type}; }

// A successor may have been made while this one was on its way out.
void forget(const Object& object) noexcept {
  const Lock lock(objectsLock);
  const auto found = objects().find(keyOf(object.self()));
  if (found != objects().end() && found->second == &object) remove(found);
}

// Presented by own objects under the id of the library; no other object answers to it.
IProvideClassInfo2* presented(IUnknown* given) noexcept {
  void* own = nullptr;
  const HRESULT result = given->QueryInterface(libraryIdentity().id, &own);
  return SUCCEEDED(result) ? static_cast<IProvideClassInfo2*>(own) : nullptr;
}

}  // namespace

bool Object::tryAddReference() noexcept {
  for (LONG count = references_; count != 0;) {
    const LONG seen = InterlockedCompareExchange(&references_, count + 1, count);
    if (seen == count) return true;
    count = seen;
  }
  return false;
}

ULONG Object::releaseReference() noexcept {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) {
    forget(*this);
    delete this;
  }
  return static_cast<ULONG>(left);
}

HRESULT Object::query(REFIID iid, void** out) noexcept {
  if (!out) return E_POINTER;
  if (iid == IID_IUnknown || iid == IID_IDispatch || iid == identity_.interfaceId) {
    *out = dispatch();
  } else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2 || iid == libraryIdentity().id) {
    *out = static_cast<IProvideClassInfo2*>(this);
  } else if (iid == IID_ISupportErrorInfo) {
    *out = static_cast<ISupportErrorInfo*>(this);
  } else {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  addReference();
  return S_OK;
}

STDMETHODIMP Object::GetClassInfo(ITypeInfo** info) { return Module::typeInfo(identity_.classId, info); }

// The objects raise no events.
STDMETHODIMP Object::GetGUID(DWORD kind, GUID* id) {
  if (!id) return E_POINTER;
  *id = GUID_NULL;
  return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? E_NOTIMPL : E_INVALIDARG;
}

STDMETHODIMP Object::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == identity_.interfaceId ? S_OK : S_FALSE;
}

Object* automationObject(const ObjectRef& self) {
  if (!self) return nullptr;
  const Lock lock(objectsLock);
  const auto place = objects().try_emplace(keyOf(self), nullptr).first;
  Object*& object = place->second;
  if (object && object->tryAddReference()) return object;
  try {
    return object = identityOf(*self.type).make(self);
  } catch (...) {
    remove(place);
    throw;
  }
}

Object* findOwnObject(IUnknown* given) noexcept {
  IProvideClassInfo2* const own = presented(given);
  if (!own) return nullptr;
  own->Release();  // the caller's reference keeps it
  return static_cast<Object*>(own);
}

ObjectRef ownObject(IUnknown* given) {
  if (!given) return {};
  Object* const own = findOwnObject(given);
  if (!own) throw Failure{E_INVALIDARG};
  return own->self();
}

}  // namespace orvane::com
