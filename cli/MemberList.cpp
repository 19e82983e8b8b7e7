#include "cli/MemberList.h"

#include <algorithm>
#include <set>

#include "cli/Session.h"
#include "core/Error.h"

namespace orvane::cli {

namespace {

using Seen = std::set<std::pair<const void*, const ClassInfo*>>;

bool markSeen(Seen& seen, const ObjectRef& object) {
  return seen.emplace(object.object.get(), object.type).second;
}

bool isObject(const TypeInfo& type) { return type.kind == TypeKind::Class || type.kind == TypeKind::Object; }
bool isNamed(const ObjectRef& object, TextView name) { return object.type->name == name; }
bool startsWith(TextView text, TextView start) { return text.substr(0, start.size()) == start; }

// An identity that differs from object to object, the whole document, and other spellings of what is listed.
bool isHidden(const MemberInfo& member) {
  constexpr TextView names[] = {u"Guid", u"Inizializzato", u"Xml", u"Note"};
  return std::find(std::begin(names), std::end(names), member.name) != std::end(names) ||
         startsWith(member.name, u"StrChr") || startsWith(member.name, u"StrAsc");
}

// The one property whose reading writes to the job file; its text does not.
bool writesWhenRead(const MemberInfo& member) { return member.name == u"CodiceWidth"; }

Text replaced(TextView text, TextView part, TextView by) {
  const std::size_t at = text.find(part);
  return at == TextView::npos ? Text()
                              : Text(text.substr(0, at)).append(by).append(text.substr(at + part.size()));
}

// A description is shown with its code.
bool describesCode(const ClassInfo& type, const MemberInfo& member) {
  const Text code = replaced(member.name, u"Descrizione", u"Codice");
  return !code.empty() && findMember(type, code) != nullptr;
}

std::string errorText(const Error& error) {
  return std::string(error.what()) + " (" + std::to_string(error.number()) + ')';
}

template <class Read>
std::string textOrError(Read read) {
  try {
    return read();
  } catch (const Error& error) {
    return errorText(error);
  }
}

// Lists one object after the other into its lines.
class Lister {
 public:
  explicit Lister(Form form) : form_(form) {}

  void list(const ObjectRef& object, const std::string& prefix) {
    if (!markSeen(seen_, object)) return;
    for (const MemberInfo& member : object.type->members) listMember(object, member, prefix);
  }

  std::vector<MemberLine> result() && { return std::move(lines_); }

 private:
  void listMember(const ObjectRef& object, const MemberInfo& member, const std::string& prefix) {
    const bool read =
        member.kind == MemberKind::Get || (member.kind == MemberKind::Method && isValue(member));
    if (!read || isHidden(member) || describesCode(*object.type, member)) return;
    const std::string path = prefix + toUtf8(member.name);
    if (member.name == u"Item") {
      listItems(object, member, path);
    } else if (member.parameters.size() == 1) {
      listIndexed(object, member, path);
    } else if (isObject(member.result)) {
      listObject(object, member, path);
    } else if (member.parameters.empty() && isValue(member)) {
      lines_.push_back({path, textOrError([&] { return memberText(object, member); })});
    }
  }

  static bool isValue(const MemberInfo& member) {
    const TypeKind kind = member.result.kind;
    return kind != TypeKind::None && kind != TypeKind::Enumerator && !isObject(member.result) &&
           (member.kind == MemberKind::Get || member.parameters.empty());
  }

  std::string memberText(const ObjectRef& object, const MemberInfo& member) const {
    if (member.result.kind == TypeKind::Enum) return codeText(object, member, form_);
    return valueText(invoke(object, member, {}), member.result, form_);
  }

  void listObject(const ObjectRef& object, const MemberInfo& member, const std::string& path) {
    try {
      const ObjectRef part = std::get<ObjectRef>(invoke(object, member, {}));
      if (part) listPart(part, path);
    } catch (const Error& error) {
      lines_.push_back({path, errorText(error)});
    }
  }

  void listPart(const ObjectRef& part, const std::string& path) {
    if (isNamed(part, u"VqDocFile")) {
      if (markSeen(seen_, part)) lines_.push_back({path, fileText(part)});
    } else if (findMember(*part.type, u"Coda") && !isOwner(path)) {
      lines_.push_back({path, documentText(part)});
    } else {
      list(part, path + '.');
    }
  }

  // Of all documents on the way only the inner one of a publication or preview belongs to its owner.
  static bool isOwner(const std::string& path) { return path == "Documento"; }

  static std::string fileText(const ObjectRef& file) {
    const bool empty = textOf(file, u"Percorso").empty() && textOf(file, u"Nome").empty();
    return empty ? std::string() : toUtf8(toText(call(file, u"File")));
  }

  static std::string documentText(const ObjectRef& document) {
    const ObjectRef properties = orvane::cli::objectOf(document, u"Proprieta");
    const ObjectRef queue = orvane::cli::objectOf(document, u"Coda");
    return textOf(properties, u"Id") + "  " +
           fileText(orvane::cli::objectOf(properties, u"FileIntestazione")) + "  " +
           toUtf8(toText(call(queue, u"Descrizione")));
  }

  void listItems(const ObjectRef& object, const MemberInfo& item, const std::string& path) {
    const bool fromOne = item.parameters[0].type.kind == TypeKind::Long;
    const VariantArray items = std::get<VariantArray>(get(object, u"NewEnum"));
    std::size_t position = fromOne ? 1 : 0;
    for (const Variant& each : items.items) {
      listPart(std::get<ObjectRef>(each), path + '(' + std::to_string(position++) + ')');
    }
  }

  // The index counts from 0 until it is out of range.
  void listIndexed(const ObjectRef& object, const MemberInfo& member, const std::string& path) {
    std::string bytes;
    for (std::int32_t index = 0;; ++index) {
      const std::string value = indexedText(object, member, index);
      if (outOfRange_) break;
      if (member.result.kind != TypeKind::Byte) {
        lines_.push_back({path + '(' + std::to_string(index) + ')', value});
      } else {
        bytes += (bytes.empty() ? "" : " ") + value;
      }
    }
    if (!bytes.empty()) lines_.push_back({path, bytes});
  }

  std::string indexedText(const ObjectRef& object, const MemberInfo& member, std::int32_t index) {
    const Variant argument = index;
    try {
      outOfRange_ = false;
      return valueText(invoke(object, member, Arguments(&argument, 1)), member.result, form_);
    } catch (const Error&) {
      outOfRange_ = true;
      return {};
    }
  }

  Form form_;
  Seen seen_;
  std::vector<MemberLine> lines_;
  bool outOfRange_ = false;
};

// No object where the member cannot be read, as the parts of an inner document that is not there.
ObjectRef partOf(const ObjectRef& object, const MemberInfo& member) {
  const bool isPart = member.kind == MemberKind::Get && member.parameters.empty() && isObject(member.result);
  try {
    return isPart ? std::get<ObjectRef>(invoke(object, member, {})) : ObjectRef();
  } catch (const Error&) {
    return {};
  }
}

void visit(Seen& seen, const ObjectRef& object, const std::function<void(const ObjectRef&)>& visitor) {
  if (!markSeen(seen, object)) return;
  visitor(object);
  for (const MemberInfo& member : object.type->members) {
    if (const ObjectRef part = partOf(object, member)) visit(seen, part, visitor);
  }
}

}  // namespace

std::vector<MemberLine> listMembers(const ObjectRef& object, Form form) {
  Lister lister(form);
  lister.list(object, {});
  return std::move(lister).result();
}

const MemberInfo* descriptionOf(const ClassInfo& type, const MemberInfo& member) {
  const Text name = replaced(member.name, u"Codice", u"Descrizione");
  if (name.empty()) return nullptr;
  const MemberInfo* method = findMember(type, name, MemberKind::Method);
  return method ? method : findMember(type, name, MemberKind::Get);
}

std::string codeText(const ObjectRef& object, const MemberInfo& member, Form form) {
  const MemberInfo* description = descriptionOf(*object.type, member);
  const std::string text = description ? toUtf8(toText(invoke(object, *description, {}))) : std::string();
  if (writesWhenRead(member)) return text;
  const std::int32_t code = toLong(invoke(object, member, {}));
  if (form == Form::Raw) return std::to_string(code);
  const std::string name = codeName(*member.result.enumeration, code);
  const std::string number = name.empty() ? std::to_string(code) : name + " (" + std::to_string(code) + ')';
  return text.empty() ? number : number + "  " + text;
}

void visitObjects(const ObjectRef& object, const std::function<void(const ObjectRef&)>& visitor) {
  Seen seen;
  visit(seen, object, visitor);
}

}  // namespace orvane::cli
