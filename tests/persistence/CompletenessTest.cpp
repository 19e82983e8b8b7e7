// Nobody forgets a member: what the published classes have is walked from every kind of document, and each
// member that clients assign, or read as a value, stands in a table of this folder.
#include <algorithm>
#include <set>

#include "tests/persistence/Cases.h"

namespace orvane::test {
namespace {

using Names = std::set<std::string>;

// What clients read and no table holds: the identity, the state of the object itself, collections, and what
// shows the bytes of a control code, whose own member is in the tables.
bool isNoStoredValue(const std::string& path) {
  const std::string name = path.substr(path.rfind('.') + 1);
  return path == "Proprieta.Id" || path == "Proprieta.Guid" || name == "Inizializzato" || name == "Count" ||
         name == "NewEnum" || name == "Item" || name == "Numero" || name.starts_with("StrAsc");
}

bool isComponent(const MemberInfo& member) {
  return member.kind == MemberKind::Get && member.parameters.empty() &&
         (member.result.kind == TypeKind::Class || member.result.kind == TypeKind::Object);
}

// Members of a document and its components, by path. What the document inside a publication or preview has is
// walked from that document's own kind.
class Walk {
 public:
  explicit Walk(const ObjectRef& root) { from(root, ""); }

  Names assigned;
  Names read;
  std::set<const ClassInfo*> classes;

 private:
  void from(const ObjectRef& object, const std::string& prefix) {
    classes.insert(object.type);
    for (const MemberInfo& member : object.type->members) {
      const std::string path = prefix + toUtf8(member.name);
      if (isComponent(member)) {
        intoComponent(object, member, path);
      } else if (member.kind == MemberKind::Get) {
        enter(*object.type, member, path);
      } else if (member.kind == MemberKind::Let) {
        EXPECT_TRUE(findMember(*object.type, member.name, MemberKind::Get)) << path << " cannot be read";
      }
    }
  }

  void intoComponent(const ObjectRef& owner, const MemberInfo& member, const std::string& path) {
    const bool wrapping = findMember(*owner.type, u"Documento") != nullptr;
    const ObjectRef part = std::get<ObjectRef>(invoke(owner, member, {}));
    if (wrapping && isOfInner(owner, member, part)) return;
    from(part, path + '.');
  }

  static bool isOfInner(const ObjectRef& owner, const MemberInfo& member, const ObjectRef& part) {
    const ObjectRef inner = std::get<ObjectRef>(get(owner, u"Documento"));
    if (part == inner) return true;
    return findMember(*inner.type, member.name) && get(inner, member.name) == Variant(part);
  }

  void enter(const ClassInfo& type, const MemberInfo& member, const std::string& path) {
    const bool assignable = findMember(type, member.name, MemberKind::Let) != nullptr;
    if (assignable) {
      assigned.insert(path);
    } else if (!isNoStoredValue(path)) {
      read.insert(path);
    }
  }
};

std::string withoutIndex(const std::string& path) { return path.substr(0, path.find('(')); }

template <class Member>
void addPaths(Names& names, const Kind& kind, const std::vector<Member>& members) {
  for (const Member& member : members) {
    if (kind.isIn(member.kinds)) names.insert(withoutIndex(member.path));
  }
}

std::string without(const Names& names, const Names& others) {
  std::string left;
  for (const std::string& name : names) {
    if (!others.contains(name)) left += name + ' ';
  }
  return left;
}

class Table : public testing::TestWithParam<Kind> {};

TEST_P(Table, HoldsEveryMemberThatClientsAssign) {
  const Walk walk(Job(GetParam()).root());
  Names rows;
  addPaths(rows, GetParam(), keptMembers());
  addPaths(rows, GetParam(), unkeptMembers());
  EXPECT_EQ(without(walk.assigned, rows), "") << "in no table";
  EXPECT_EQ(without(rows, walk.assigned), "") << "in a table, but not published";
}

TEST_P(Table, HoldsEveryMemberThatClientsOnlyRead) {
  const Walk walk(Job(GetParam()).root());
  Names rows;
  addPaths(rows, GetParam(), queueMembers());
  EXPECT_EQ(without(walk.read, rows), "") << "in no table";
  EXPECT_EQ(without(rows, walk.read), "") << "in a table, but not published";
}

TEST_P(Table, HoldsNoMemberTwice) {
  Names paths;
  for (const KeptMember& member : keptMembers()) {
    if (GetParam().isIn(member.kinds)) {
      EXPECT_TRUE(paths.insert(member.path).second) << member.path;
    }
  }
  for (const UnkeptMember& member : unkeptMembers()) {
    if (GetParam().isIn(member.kinds)) {
      EXPECT_TRUE(paths.insert(member.path).second) << member.path;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Table, testing::ValuesIn(kinds()), kindName);

bool hasAssignableMember(const ClassInfo& type) {
  return std::any_of(type.members.begin(), type.members.end(),
                     [](const MemberInfo& m) { return m.kind == MemberKind::Let; });
}

TEST(Tables, ReachEveryClassWithMembersThatClientsAssign) {
  std::set<const ClassInfo*> reached;
  for (const Kind& kind : kinds()) reached.merge(Walk(Job(kind).root()).classes);
  for (const ClassInfo& type : allClasses()) {
    if (hasAssignableMember(type)) {
      EXPECT_TRUE(reached.contains(&type)) << toUtf8(type.name);
    }
  }
}

TEST(Tables, HoldEveryNote) {
  const std::pair<const Kind*, std::string> owners[] = {
      {&kinds()[1], "Frontespizio"}, {&kinds()[2], "Frontespizio"}, {&kinds()[3], "Messaggio"}};
  for (const auto& [kind, owner] : owners) {
    const Job job(*kind);
    Names rows;
    for (const KeptMember& m : keptMembers()) {
      if (kind->isIn(m.kinds)) rows.insert(m.path);
    }
    const std::int32_t last = toLong(callAt(job.root(), owner + ".UBoundNota"));
    for (std::int32_t i = toLong(callAt(job.root(), owner + ".LBoundNota")); i <= last; ++i) {
      EXPECT_TRUE(rows.contains(owner + ".Nota(" + std::to_string(i) + ')')) << owner << ' ' << i;
    }
  }
}

TEST(Wrapper, HoldsADocumentOfTheKindThatWasAsked) {
  for (const Kind& kind : kinds()) {
    if (kind.inner == 0) continue;
    const Job job(kind), composed(innerKind(kind));
    EXPECT_EQ(std::get<ObjectRef>(getAt(job.root(), "Documento")).type, composed.root().type) << kind.name;
    EXPECT_EQ(std::get<ObjectRef>(getAt(job.loaded(), "Documento")).type, composed.root().type) << kind.name;
  }
}

}  // namespace
}  // namespace orvane::test
