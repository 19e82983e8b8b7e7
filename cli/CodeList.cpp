#include "cli/CodeList.h"

#include <algorithm>
#include <set>

#include "cli/Failure.h"
#include "cli/MemberList.h"
#include "cli/Suggest.h"
#include "cli/ValueText.h"

namespace orvane::cli {

namespace {

// A property that takes codes, in an object that belongs to no job.
struct CodeMember {
  ObjectRef object;
  const MemberInfo* get;

  std::string className() const { return toUtf8(object.type->name); }
  std::string enumName() const { return toUtf8(get->result.enumeration->name); }
};

std::vector<CodeMember> codesOf(const ObjectRef& object) {
  std::vector<CodeMember> found;
  for (const MemberInfo& member : object.type->members) {
    const bool isCode = member.kind == MemberKind::Get && member.result.kind == TypeKind::Enum;
    if (isCode && findMember(*object.type, member.name, MemberKind::Let)) found.push_back({object, &member});
  }
  return found;
}

// Each class once, wherever a document has it first. Pages are in no new document.
std::vector<CodeMember> allCodes(const Session& session) {
  std::vector<CodeMember> found;
  std::set<const ClassInfo*> seen;
  const auto visitor = [&](const ObjectRef& object) {
    if (!seen.insert(object.type).second) return;
    for (CodeMember& member : codesOf(object)) found.push_back(std::move(member));
  };
  for (const JobKind& kind : allJobKinds()) visitObjects(session.newDocument(kind), visitor);
  const ObjectRef document = session.newDocument(allJobKinds().front());
  visitObjects(std::get<ObjectRef>(call(objectOf(document, u"Pagine"), u"Nuova")), visitor);
  return found;
}

std::string shortName(const std::string& className) { return className.substr(std::string("VqDoc").size()); }

bool isMeant(const CodeMember& member, const std::string& name) {
  const Text text = fromUtf8(name);
  return equalIgnoringCase(fromUtf8(member.className()), text) ||
         equalIgnoringCase(fromUtf8(shortName(member.className())), text) ||
         equalIgnoringCase(fromUtf8(member.enumName()), text);
}

std::vector<std::string> namesOf(const std::vector<CodeMember>& members) {
  std::vector<std::string> names;
  for (const CodeMember& member : members) {
    names.insert(names.end(), {member.className(), shortName(member.className()), member.enumName()});
  }
  return names;
}

std::string pad(const std::string& text, std::size_t width) {
  return text + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

std::string padLeft(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string describe(const CodeMember& member, std::int32_t code) {
  const MemberInfo* description = descriptionOf(*member.object.type, *member.get);
  if (!description) return {};
  let(member.object, member.get->name, Variant(code));
  return printable(toUtf8(toText(invoke(member.object, *description, {}))));
}

void list(const CodeMember& member, std::ostream& out) {
  const EnumInfo& enumeration = *member.get->result.enumeration;
  std::size_t width = 0;
  for (const EnumMember& row : enumeration.members) width = std::max(width, row.name.size());
  out << member.className() << '.' << toUtf8(member.get->name) << "  (" << member.enumName() << ")\n";
  for (const EnumMember& row : enumeration.members) {
    const std::string text = describe(member, row.value);
    out << "  " << pad(toUtf8(row.name), width) << padLeft(std::to_string(row.value), 6)
        << (text.empty() ? "" : "  " + text) << '\n';
  }
}

}  // namespace

void listCodes(const Session& session, const std::string& only, std::ostream& out) {
  std::vector<CodeMember> members = allCodes(session);
  if (!only.empty()) {
    const std::vector<std::string> names = namesOf(members);
    std::erase_if(members, [&](const CodeMember& member) { return !isMeant(member, only); });
    if (members.empty())
      throw UsageError("no class or enumeration " + only + " has codes" + suggestion(only, names));
  }
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (i > 0) out << '\n';
    list(members[i], out);
  }
}

}  // namespace orvane::cli
