#include "tests/persistence/Paths.h"

#include <algorithm>

namespace orvane::test {

namespace {

constexpr std::int32_t kCodeBytes = 7;

// The last part of a path: an object, a name, and an index if the path gives one.
struct Place {
  ObjectRef object;
  Text name;
  std::vector<Variant> index;
};

Place parsed(const ObjectRef& object, const std::string& part) {
  const auto bracket = part.find('(');
  Place place{object, fromUtf8(part.substr(0, bracket)), {}};
  if (bracket != std::string::npos) place.index.push_back(std::stoi(part.substr(bracket + 1)));
  return place;
}

Place placeOf(ObjectRef object, const std::string& path) {
  const auto dot = path.find('.');
  const Place place = parsed(object, path.substr(0, dot));
  if (dot == std::string::npos) return place;
  return placeOf(std::get<ObjectRef>(get(place.object, place.name, place.index)), path.substr(dot + 1));
}

bool isWholeCode(const Place& place) {
  const MemberInfo* getter = findMember(*place.object.type, place.name, MemberKind::Get);
  return place.index.empty() && getter && getter->parameters.size() == 1;
}

}  // namespace

Variant getAt(const ObjectRef& root, const std::string& path) {
  const Place place = placeOf(root, path);
  if (!isWholeCode(place)) return get(place.object, place.name, place.index);
  VariantArray bytes{};
  for (std::int32_t i = 0; i < kCodeBytes; ++i) {
    bytes.items.push_back(get(place.object, place.name, std::vector<Variant>{i}));
  }
  bytes.dimensions = {{0, kCodeBytes}};
  return bytes;
}

void letAt(const ObjectRef& root, const std::string& path, const Variant& value) {
  const Place place = placeOf(root, path);
  if (!isWholeCode(place)) {
    std::vector<Variant> args = place.index;
    args.push_back(value);
    return let(place.object, place.name, args);
  }
  for (std::int32_t i = 0; i < kCodeBytes; ++i) {
    let(place.object, place.name, std::vector{Variant(i), std::get<VariantArray>(value).items.at(i)});
  }
}

Variant callAt(const ObjectRef& root, const std::string& path, Arguments args) {
  const Place place = placeOf(root, path);
  return call(place.object, place.name, args);
}

Variant descriptionAt(const ObjectRef& root, std::string path) {
  const std::string code = "Codice";
  path.replace(path.rfind(code), code.size(), "Descrizione");
  const Place place = placeOf(root, path);
  const bool isProperty = findMember(*place.object.type, place.name, MemberKind::Get) != nullptr;
  return isProperty ? get(place.object, place.name) : call(place.object, place.name);
}

std::string plainPath(const std::string& path) {
  std::string plain = path;
  std::erase_if(plain, [](char c) { return c == '.' || c == '(' || c == ')'; });
  return plain;
}

}  // namespace orvane::test
