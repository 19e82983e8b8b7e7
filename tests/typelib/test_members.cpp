// Late binding by name, over the member table that is generated from data/boxes.idl and the classes of
// fake/orvane.h.
#include <gtest/gtest.h>

#include "core/Error.h"
#include "typelib/Access.h"
#include "typelib/classes.h"

namespace orvane {
namespace {

template <class Action>
int errorOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

class Members : public testing::Test {
 protected:
  ObjectRef newBox(const char16_t* name) {
    const std::array<Variant, 1> args{Variant(name)};
    return std::get<ObjectRef>(call(factory, u"NuovaScatola", args));
  }
  VqDocScatola& cpp() { return target<VqDocScatola>(box); }
  ObjectRef part(const char16_t* name) { return std::get<ObjectRef>(get(box, name)); }
  int letError(const char16_t* name, const Variant& value) {
    return errorOf([&] { let(box, name, value); });
  }
  int newBoxError(Arguments args) {
    return errorOf([&] { call(factory, u"NuovaScatola", args); });
  }

  ObjectRef factory = newVqDocumenti();
  ObjectRef box = newBox(u"Uno");
};

TEST_F(Members, PropertiesComeBackInTheirPublishedType) {
  const std::pair<const char16_t*, Variant> rows[] = {
      {u"Nome", u"Due"},
      {u"Aperta", true},
      {u"Data", Date{45000.5}},
      {u"Prezzo", Currency{12345}},
      {u"Materiale", std::int32_t{7}},
      {u"Righe", VariantArray{Variant(u"a"), Variant(2.5)}},
  };
  for (const auto& [name, value] : rows) {
    let(box, name, value);
    EXPECT_EQ(get(box, name), value) << toUtf8(name);
  }
}

TEST_F(Members, ArgumentsAreConvertedToTheDeclaredType) {
  const std::tuple<const char16_t*, Variant, Variant> rows[] = {
      {u"Nome", std::int32_t{12}, u"12"},
      {u"Aperta", std::int32_t{5}, true},
      {u"Data", u"2.5", Date{2.5}},
      {u"Prezzo", 1.25, Currency{12500}},
      {u"Materiale", u"-1", std::int32_t{-1}},
      {u"Aperta", Variant(), false},
  };
  for (const auto& [name, given, kept] : rows) {
    let(box, name, given);
    EXPECT_EQ(get(box, name), kept) << toUtf8(name);
  }
}

TEST_F(Members, NamesCompareWithoutCase) {
  let(box, u"nOME", u"Tre");  // a literal is a value too
  EXPECT_EQ(get(box, u"NOME"), Variant(u"Tre"));
  EXPECT_EQ(findClass(u"VQDOCSCATOLA"), box.type);
}

TEST_F(Members, IndicesComeBeforeTheNewValue) {
  const std::array<Variant, 2> indexAndValue{Variant(std::int32_t{6}), Variant(u"200")};
  let(box, u"Byte", indexAndValue);
  EXPECT_EQ(get(box, u"Byte", Arguments(indexAndValue).first(1)), Variant(std::uint8_t{200}));
}

TEST_F(Members, LeftOutOptionalArgumentsGetTheirDefaults) {
  EXPECT_EQ(cpp().Lati(), 3);
  EXPECT_EQ(cpp().Parola, u"blu");
  const std::array<Variant, 3> args{Variant(u"Due"), Variant(), Variant(u"rosso")};
  const ObjectRef second = std::get<ObjectRef>(call(factory, u"NuovaScatola", args));
  EXPECT_EQ(target<VqDocScatola>(second).Lati(), 3);
  EXPECT_EQ(target<VqDocScatola>(second).Parola, u"rosso");
}

TEST_F(Members, WrongCountIsError450BeforeAnyConversion) {
  const std::array<Variant, 4> args{Null(), Null(), Null(), Null()};
  EXPECT_EQ(newBoxError({}), 450);
  EXPECT_EQ(newBoxError(args), 450);
  EXPECT_EQ(newBoxError(Arguments(args).first(1)), 13);
}

TEST_F(Members, UnknownNameIsError438AndWrongKindIsError450) {
  EXPECT_EQ(errorOf([&] { get(box, u"Altezza"); }), 438);
  EXPECT_EQ(errorOf([&] { get(box, u""); }), 438);
  EXPECT_EQ(errorOf([&] { get(box, u"Parola"); }), 450);
  EXPECT_EQ(letError(u"Lati", 4), 450);
  EXPECT_EQ(errorOf([&] { get(factory, u"NuovaScatola"); }), 450);
  EXPECT_EQ(errorOf([&] { call(box, u"Nome"); }), 450);
}

TEST_F(Members, ValuesThatDoNotConvertAreRefusedAndNothingIsAssigned) {
  EXPECT_EQ(letError(u"Materiale", u"carta"), 13);
  EXPECT_EQ(letError(u"Materiale", 3e9), 6);
  EXPECT_EQ(letError(u"Righe", u"testo"), 13);
  EXPECT_EQ(letError(u"Nome", box), 13);
  EXPECT_EQ(get(box, u"Materiale"), Variant(std::int32_t{0}));
}

TEST_F(Members, ObjectArgumentsMustBeOfTheDeclaredClass) {
  const ObjectRef boxes = part(u"Scatole");
  const auto add = [&](const Variant& given) {
    return errorOf([&] { call(boxes, u"Add", Arguments(&given, 1)); });
  };
  EXPECT_EQ(add(ObjectRef{}), 91);
  EXPECT_EQ(add(part(u"Etichetta")), 13);
  EXPECT_EQ(add(u"Uno"), 13);
  EXPECT_EQ(get(boxes, u"Count"), Variant(std::int32_t{0}));
  EXPECT_EQ(add(newBox(u"Due")), 0);
  EXPECT_EQ(get(boxes, u"Count"), Variant(std::int32_t{1}));
}

TEST_F(Members, NoObjectIsError91) {
  EXPECT_EQ(errorOf([] { get({}, u"Nome"); }), 91);
  EXPECT_EQ(errorOf([&] { invoke({}, box.type->members[0], {}); }), 91);
}

TEST_F(Members, AComponentKeepsItsDocumentAlive) {
  const ObjectRef label = part(u"Etichetta");
  const std::weak_ptr<void> document = box.object;
  box = {};
  EXPECT_FALSE(document.expired());
  let(label, u"Testo", u"fragile");
  EXPECT_EQ(get(label, u"Testo"), Variant(u"fragile"));
  EXPECT_EQ(label.type, &classOf<VqDocEtichetta>());
}

TEST_F(Members, AComponentIsTheSameObjectEachTime) { EXPECT_EQ(part(u"Etichetta"), part(u"Etichetta")); }

TEST_F(Members, AnObjectOfAnyClassComesWithItsClass) {
  EXPECT_EQ(part(u"Contenuto"), ObjectRef{});
  cpp().Contenuto = std::make_shared<VqDocEtichetta>();
  EXPECT_EQ(part(u"Contenuto").type, &classOf<VqDocEtichetta>());
}

TEST_F(Members, AMissingItemIsNoObject) {
  const std::array<Variant, 1> key{Variant(u"Uno")};
  EXPECT_EQ(get(part(u"Scatole"), u"Item", key), Variant(ObjectRef{}));
}

TEST_F(Members, TheEnumeratorIsASnapshotOfTheCollection) {
  const ObjectRef second = newBox(u"Due");
  const ObjectRef boxes = part(u"Scatole");
  const std::array<Variant, 2> args{Variant(box), Variant(second)};
  for (const Variant& arg : args) call(boxes, u"Add", Arguments(&arg, 1));
  const Variant snapshot = get(boxes, u"NewEnum");
  call(boxes, u"RemoveAll");
  EXPECT_EQ(snapshot, Variant(VariantArray{args[0], args[1]}));
}

TEST_F(Members, OnlyTheFactoryCanBeCreated) {
  EXPECT_EQ(create(classOf<VqDocumenti>()).type, factory.type);
  EXPECT_EQ(errorOf([] { create(classOf<VqDocScatola>()); }), 445);
}

TEST(MemberTable, EveryMemberIsFoundByNameAndById) {
  for (const ClassInfo& type : allClasses()) {
    for (const MemberInfo& member : type.members) {
      EXPECT_EQ(findMember(type, member.name, member.kind), &member) << toUtf8(member.name);
      EXPECT_EQ(findMember(type, member.id, member.kind), &member) << toUtf8(member.name);
      EXPECT_EQ(findMember(type, member.name)->id, member.id) << toUtf8(member.name);
    }
  }
}

TEST(MemberTable, KeepsSlotOrderAndDescription) {
  const ClassInfo& type = classOf<VqDocScatola>();
  EXPECT_EQ(type.members[0].help, u"Nome \"esteso\"");
  EXPECT_EQ(type.members[1].name, u"Lati");
  EXPECT_EQ(type.members[2].kind, MemberKind::Let);
  const Parameter& boxes = classOf<VqDocScatole>().members[0].parameters[0];
  EXPECT_TRUE(boxes.byReference);
  EXPECT_EQ(boxes.type.objectClass, &type);
}

TEST(MemberTable, UnknownIdsAndNamesAreNotFound) {
  const ClassInfo& type = classOf<VqDocScatola>();
  EXPECT_EQ(findMember(type, 13, MemberKind::Get), nullptr);
  EXPECT_EQ(findMember(type, 2, MemberKind::Let), nullptr);
  EXPECT_EQ(findMember(type, u"Nom"), nullptr);
  EXPECT_EQ(findClass(u"VqDoc"), nullptr);
}

TEST(MemberTable, NamesTheMembersOfEnumerations) {
  const EnumInfo* material = findEnumeration(u"enmMateriale");
  ASSERT_NE(material, nullptr);
  EXPECT_EQ(material->members[1].name, u"mat_Legno");
  EXPECT_EQ(material->members[2].value, -1);
  EXPECT_EQ(findMember(classOf<VqDocScatola>(), u"Materiale")->result.enumeration, material);
  EXPECT_EQ(lim_Minimo, std::numeric_limits<std::int32_t>::min());
}

}  // namespace
}  // namespace orvane
