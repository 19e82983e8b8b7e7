// The embedded type library against what clients were promised, slot by slot.
#include <map>
#include <set>

#include "tests/automation/Client.h"
#include "tests/support/Promised.h"

namespace {

using namespace client;

std::string narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

std::string nameOf(ITypeInfo* info) {
  Bstr name;
  info->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
  return narrow(name.text());
}

// The published name of a type; that of a class for its interface.
std::string typeName(ITypeInfo* info, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::string> names = {
      {VT_BSTR, "String"}, {VT_I4, "Long"},         {VT_BOOL, "Boolean"},    {VT_DATE, "Date"},
      {VT_UI1, "Byte"},    {VT_CY, "Currency"},     {VT_VARIANT, "Variant"}, {VT_SAFEARRAY, "Array"},
      {VT_VOID, ""},       {VT_DISPATCH, "Object"}, {VT_UNKNOWN, "Unknown"}};
  if (type.vt == VT_PTR) return typeName(info, *type.lptdesc);
  if (type.vt != VT_USERDEFINED) return names.count(type.vt) ? names.at(type.vt) : std::to_string(type.vt);
  Ptr<ITypeInfo> referred;
  if (FAILED(info->GetRefTypeInfo(type.hreftype, referred.out()))) return "?";
  const std::string name = nameOf(referred.get());
  return name[0] == '_' ? name.substr(1) : name;
}

bool isReference(const ELEMDESC& parameter) {
  return (parameter.paramdesc.wParamFlags & (PARAMFLAG_FIN | PARAMFLAG_FOUT)) ==
             (PARAMFLAG_FIN | PARAMFLAG_FOUT) &&
         parameter.tdesc.vt == VT_PTR;
}

std::string parameterText(ITypeInfo* info, const ELEMDESC& parameter) {
  const USHORT flags = parameter.paramdesc.wParamFlags;
  const bool optional = (flags & PARAMFLAG_FHASDEFAULT) != 0;
  std::string text = optional ? "Optional " : "";
  if (isReference(parameter)) text += "ByRef ";
  text += typeName(info, parameter.tdesc);
  if (!optional) return text;
  Value value;
  const VARIANT& given = parameter.paramdesc.pparamdescex->varDefaultValue;
  if (FAILED(VariantChangeType(&value, const_cast<VARIANT*>(&given), 0, VT_I4))) return text + " = ?";
  return text + " = " + std::to_string(value.lVal);
}

// The array that a client passes, if it passes one.
const ELEMDESC* arrayGiven(const FUNCDESC& function) {
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    const bool pointed = parameter.tdesc.vt == VT_PTR && parameter.tdesc.lptdesc->vt == VT_SAFEARRAY;
    const bool result = (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    if (!result && (pointed || parameter.tdesc.vt == VT_SAFEARRAY)) return &parameter;
  }
  return nullptr;
}

const char* kindName(INVOKEKIND kind) {
  return kind == INVOKE_PROPERTYGET   ? "Get"
         : kind == INVOKE_PROPERTYPUT ? "Let"
         : kind == INVOKE_FUNC        ? "Method"
                                      : "?";
}

std::string slotText(ITypeInfo* info, const FUNCDESC& function) {
  Bstr name;
  UINT count = 0;
  info->GetNames(function.memid, name.out(), 1, &count);
  std::string parameters, result;
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      result = " As " + typeName(info, parameter.tdesc);
    } else {
      parameters += (parameters.empty() ? "" : ", ") + parameterText(info, parameter);
    }
  }
  const std::size_t slot = static_cast<std::size_t>(function.oVft) / sizeof(void*) - 6;
  return std::to_string(slot) + " " + kindName(function.invkind) + " " + narrow(name.text()) + "(" +
         parameters + ")" + result;
}

// A member of an enumeration and its value.
std::string codeText(ITypeInfo* info, const VARDESC& member) {
  Bstr name;
  info->GetDocumentation(member.memid, name.out(), nullptr, nullptr, nullptr);
  EXPECT_EQ(VAR_CONST, member.varkind);
  EXPECT_EQ(VT_I4, member.lpvarValue->vt);
  return narrow(name.text()) + " " + std::to_string(member.lpvarValue->lVal);
}

// The vtable description of a dual interface.
Ptr<ITypeInfo> vtableOf(ITypeInfo* info) {
  HREFTYPE reference = 0;
  Ptr<ITypeInfo> vtable;
  EXPECT_EQ(S_OK, info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  EXPECT_EQ(S_OK, info->GetRefTypeInfo(reference, vtable.out()));
  return vtable;
}

class TypeLibrary : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(S_OK, CoInitialize(nullptr));
    ASSERT_EQ(S_OK, LoadTypeLibEx(Server::path().c_str(), REGKIND_NONE, library.out()));
  }
  void TearDown() override {
    library.reset();
    CoUninitialize();
  }
  template <class Body>
  void forEach(TYPEKIND kind, Body body) {
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      Ptr<ITypeInfo> info;
      ASSERT_EQ(S_OK, library->GetTypeInfo(i, info.out()));
      TYPEATTR* attributes = nullptr;
      ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
      if (attributes->typekind == kind) body(info.get(), *attributes);
      info->ReleaseTypeAttr(attributes);
    }
  }
  Ptr<ITypeLib> library;
};

TEST_F(TypeLibrary, HasEverySlotThatWasPromisedAndNoOther) {
  orvane::Promised slots(ORVANE_EXPECTED "/interfaces.txt");
  ASSERT_GT(slots.size(), 700u);
  forEach(TKIND_DISPATCH, [&](ITypeInfo* info, const TYPEATTR&) {
    const Ptr<ITypeInfo> vtable = vtableOf(info);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, vtable->GetTypeAttr(&attributes));
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      FUNCDESC* function = nullptr;
      ASSERT_EQ(S_OK, vtable->GetFuncDesc(i, &function));
      slots.meet(nameOf(info) + " " + slotText(vtable.get(), *function));
      vtable->ReleaseFuncDesc(function);
    }
    vtable->ReleaseTypeAttr(attributes);
  });
}

TEST_F(TypeLibrary, HasEveryCodeThatWasPromisedWithItsValue) {
  orvane::Promised members(ORVANE_EXPECTED "/enumerations.txt");
  EXPECT_EQ(542u, members.size());
  int enumerations = 0;
  forEach(TKIND_ENUM, [&](ITypeInfo* info, const TYPEATTR& attributes) {
    ++enumerations;
    for (UINT i = 0; i < attributes.cVars; ++i) {
      VARDESC* member = nullptr;
      ASSERT_EQ(S_OK, info->GetVarDesc(i, &member));
      members.meet(nameOf(info) + " " + codeText(info, *member));
      info->ReleaseVarDesc(member);
    }
  });
  EXPECT_EQ(38, enumerations);
}

TEST_F(TypeLibrary, LetsClientsCreateTheFactoryAlone) {
  int classes = 0;
  forEach(TKIND_COCLASS, [&](ITypeInfo* info, const TYPEATTR& attributes) {
    ++classes;
    EXPECT_EQ(nameOf(info) == "VqDocumenti", (attributes.wTypeFlags & TYPEFLAG_FCANCREATE) != 0)
        << nameOf(info);
  });
  EXPECT_EQ(65, classes);
}

TEST_F(TypeLibrary, ExplainsEveryMember) {
  forEach(TKIND_DISPATCH, [&](ITypeInfo* info, const TYPEATTR& attributes) {
    EXPECT_TRUE(attributes.wTypeFlags & TYPEFLAG_FDUAL);
    const Ptr<ITypeInfo> vtable = vtableOf(info);
    TYPEATTR* ofVtable = nullptr;
    ASSERT_EQ(S_OK, vtable->GetTypeAttr(&ofVtable));
    EXPECT_TRUE(ofVtable->wTypeFlags & TYPEFLAG_FOLEAUTOMATION) << nameOf(info);
    vtable->ReleaseTypeAttr(ofVtable);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(vtable->GetFuncDesc(i, &function)); ++i) {
      Bstr help;
      vtable->GetDocumentation(function->memid, nullptr, help.out(), nullptr, nullptr);
      EXPECT_FALSE(help.text().empty()) << nameOf(info) << " " << slotText(vtable.get(), *function);
      vtable->ReleaseFuncDesc(function);
    }
  });
}

// Basic compiles no call of a member that wants an array by value.
TEST_F(TypeLibrary, ArraysAreAssignedByReference) {
  std::set<std::string> assigned;
  forEach(TKIND_DISPATCH, [&](ITypeInfo* info, const TYPEATTR&) {
    const Ptr<ITypeInfo> vtable = vtableOf(info);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(vtable->GetFuncDesc(i, &function)); ++i) {
      if (const ELEMDESC* const array = arrayGiven(*function)) {
        assigned.insert(nameOf(info) + " " + slotText(vtable.get(), *function));
        EXPECT_EQ(PARAMFLAG_FIN | PARAMFLAG_FOUT, array->paramdesc.wParamFlags);
        ASSERT_EQ(VT_PTR, array->tdesc.vt);
        ASSERT_EQ(VT_SAFEARRAY, array->tdesc.lptdesc->vt);
        EXPECT_EQ(VT_VARIANT, array->tdesc.lptdesc->lptdesc->vt);
      }
      vtable->ReleaseFuncDesc(function);
    }
  });
  EXPECT_EQ((std::set<std::string>{"_VqDocPagina 19 Let ArrayTxt(ByRef Array)",
                                   "_VqDocPagina 21 Let ArrayScriptA(ByRef Array)",
                                   "_VqDocPagina 23 Let ArrayScriptB(ByRef Array)"}),
            assigned);
}

TEST_F(TypeLibrary, EnumeratorsHaveTheStandardId) {
  forEach(TKIND_DISPATCH, [&](ITypeInfo* info, const TYPEATTR&) {
    std::wstring name = L"NewEnum";
    LPOLESTR names = name.data();
    MEMBERID id = 0;
    const bool enumerated = SUCCEEDED(info->GetIDsOfNames(&names, 1, &id));
    EXPECT_TRUE(!enumerated || id == DISPID_NEWENUM) << nameOf(info);
  });
}

}  // namespace
