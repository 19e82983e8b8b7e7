// Late binding as scripts and careless clients use it.
#include "tests/automation/Client.h"

namespace {

using namespace client;

constexpr WORD kScript = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class Dispatch : public Automation {
 protected:
  void SetUp() override {
    Automation::SetUp();
    stampa = newStampa();
    ASSERT_EQ(S_OK, stampa->get_Pagine(pagine.out()));
  }
  void TearDown() override {
    pagine.reset();
    stampa.reset();
    Automation::TearDown();
  }
  HRESULT assign(const wchar_t* name, const VARIANT& value) {
    Outcome outcome;
    invoke(outcome, stampa.get(), name, DISPATCH_PROPERTYPUT, {&value});
    return outcome.result;
  }
  LONG copies() {
    LONG copies = -1;
    stampa->get_Copie(&copies);
    return copies;
  }

  Ptr<_VqDocStampa> stampa;
  Ptr<_VqDocPagine> pagine;
};

TEST_F(Dispatch, NamesAreFoundWithoutCase) {
  EXPECT_EQ(idOf(stampa.get(), L"Copie"), idOf(stampa.get(), L"COPIE"));
  EXPECT_NE(DISPID_UNKNOWN, idOf(stampa.get(), L"copie"));
  EXPECT_EQ(DISPID_UNKNOWN, idOf(stampa.get(), L"Copia"));
  EXPECT_EQ(DISPID_NEWENUM, idOf(pagine.get(), L"NewEnum"));
}

TEST_F(Dispatch, ParametersHaveTheirPositionsAsIds) {
  wchar_t names[][20] = {L"Carica", L"nomefile", L"Percorso", L"Nessuno"};
  LPOLESTR asked[] = {names[0], names[1], names[2], names[3]};
  DISPID ids[4];
  EXPECT_EQ(S_OK, stampa->GetIDsOfNames(IID_NULL, asked, 3, 0, ids));
  EXPECT_EQ(1, ids[1]);
  EXPECT_EQ(0, ids[2]);
  EXPECT_EQ(DISP_E_UNKNOWNNAME, stampa->GetIDsOfNames(IID_NULL, asked, 4, 0, ids));
  EXPECT_EQ(1, ids[1]);
  EXPECT_EQ(DISPID_UNKNOWN, ids[3]);
}

TEST_F(Dispatch, UnknownIdsKindsAndInterfacesAreRefused) {
  DISPPARAMS none{};
  const auto call = [&](DISPID id, REFIID reserved, WORD flags) {
    return stampa->Invoke(id, reserved, 0, flags, &none, nullptr, nullptr, nullptr);
  };
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, call(9999, IID_NULL, kScript));
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, call(DISPID_VALUE, IID_NULL, kScript));
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, call(DISPID_UNKNOWN, IID_NULL, kScript));
  EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, call(idOf(stampa.get(), L"Copie"), IID_IDispatch, kScript));
  const Value object(stampa.get());
  Outcome outcome;
  invoke(outcome, stampa.get(), L"Inizializzato", DISPATCH_PROPERTYPUT, {&object});
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, outcome.result) << "a read-only property";
  Outcome reference;
  invoke(reference, stampa.get(), L"Proprieta", DISPATCH_PROPERTYPUTREF, {&object});
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, reference.result);
}

TEST_F(Dispatch, CountsOfArgumentsAreChecked) {
  const Value one(L"a");
  const auto count = [&](const std::vector<const VARIANT*>& arguments) {
    Outcome outcome;
    invoke(outcome, stampa.get(), L"Carica", kScript, arguments);
    return outcome.result;
  };
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, count({}));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, count({&one}));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, count({&one, &one, &one}));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, count({&one, &one, &one, &one, &one, &one}));
}

TEST_F(Dispatch, AWrongTypeIsRefusedAndItsPlaceTold) {
  const Value number(1L), object(stampa.get()), folder(L"x");
  Outcome outcome;
  invoke(outcome, stampa.get(), L"Inizializza", kScript, {&number, &object, &number});
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.result);
  EXPECT_EQ(1u, outcome.wrongArgument) << "counted as the client's array is, last argument first";
  const Value text(L"molte");
  EXPECT_EQ(DISP_E_TYPEMISMATCH, assign(L"Copie", text));
  Value huge;
  huge.vt = VT_R8, huge.dblVal = 1e10;
  EXPECT_EQ(DISP_E_OVERFLOW, assign(L"Copie", huge));
}

TEST_F(Dispatch, AnyNumberServes) {
  const auto check = [&](VARTYPE type, LONG expected) {
    Value three(3L), value;
    ASSERT_EQ(S_OK, VariantChangeType(&value, &three, 0, type)) << type;
    ASSERT_EQ(S_OK, assign(L"Copie", value)) << type;
    EXPECT_EQ(expected, copies()) << type;
    const Value one(1L);
    assign(L"Copie", one);
  };
  for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT,
                             VT_R4, VT_R8, VT_CY, VT_DATE, VT_DECIMAL, VT_BSTR}) {
    check(static_cast<VARTYPE>(type), 3);
  }
}

TEST_F(Dispatch, ValuesMayComeByReference) {
  SHORT number = 7;
  Value small;
  small.vt = VT_BYREF | VT_I2, small.piVal = &number;
  EXPECT_EQ(S_OK, assign(L"Copie", small));
  EXPECT_EQ(7, copies());
  Value inner(9L), outer;
  outer.vt = VT_BYREF | VT_VARIANT, outer.pvarVal = &inner;
  EXPECT_EQ(S_OK, assign(L"Copie", outer));
  EXPECT_EQ(9, copies());
  Value null;
  null.vt = VT_BYREF | VT_I2;
  EXPECT_EQ(E_INVALIDARG, assign(L"Copie", null));
  small.vt = VT_EMPTY;
  outer.vt = VT_EMPTY;
  null.vt = VT_EMPTY;
}

TEST_F(Dispatch, AnObjectMayStandInAVariableByReference) {
  Ptr<_VqDocPagina> pagina;
  ASSERT_EQ(S_OK, pagine->Nuova(pagina.out()));
  Value inner(pagina.get()), outer;
  outer.vt = VT_BYREF | VT_VARIANT, outer.pvarVal = &inner;
  Outcome added;
  invoke(added, pagine.get(), L"Add", kScript, {&outer});
  EXPECT_EQ(S_OK, added.result);
  LONG count = 0;
  pagine->get_Count(&count);
  EXPECT_EQ(1, count);
  outer.vt = VT_EMPTY;
}

TEST_F(Dispatch, NoObjectWhereOneMustStandIsError91) {
  const Value nothing(static_cast<IDispatch*>(nullptr));
  Outcome outcome;
  invoke(outcome, pagine.get(), L"Add", kScript, {&nothing});
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.result);
  EXPECT_EQ(runtimeError(91), outcome.error.scode);
}

TEST_F(Dispatch, OptionalArgumentsMayBeMissing) {
  Value missing;
  missing.vt = VT_ERROR, missing.scode = DISP_E_PARAMNOTFOUND;
  const Value id(L"7"), folder(newFolder().c_str());
  Outcome outcome;
  invoke(outcome, stampa.get(), L"Inizializza", kScript, {&id, &folder, &missing});
  EXPECT_EQ(S_OK, outcome.result);
  const auto second = newStampa();
  Outcome shorter;
  invoke(shorter, second.get(), L"Inizializza", kScript, {&id, &folder});
  EXPECT_EQ(S_OK, shorter.result);
  const auto third = newStampa();
  Outcome incomplete;
  invoke(incomplete, third.get(), L"Inizializza", kScript, {&missing, &folder});
  EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, incomplete.result);
  EXPECT_EQ(1u, incomplete.wrongArgument);
}

TEST_F(Dispatch, ArgumentsMayBeNamed) {
  const std::wstring folder = newFolder();
  Value arguments[] = {Value(folder.c_str()), Value(L"8")};
  DISPID names[] = {1, 0};
  DISPPARAMS given{arguments, names, 2, 2};
  const DISPID member = idOf(stampa.get(), L"Inizializza");
  EXPECT_EQ(S_OK, stampa->Invoke(member, IID_NULL, 0, kScript, &given, nullptr, nullptr, nullptr));
  DISPID unknown[] = {1, 17};
  DISPPARAMS wrong{arguments, unknown, 2, 2};
  UINT place = 99;
  EXPECT_EQ(DISP_E_PARAMNOTFOUND,
            newStampa()->Invoke(member, IID_NULL, 0, kScript, &wrong, nullptr, nullptr, &place));
  EXPECT_EQ(1u, place);
}

TEST_F(Dispatch, PropertiesAndMethodsAnswerToEitherRequest) {
  for (const WORD flags :
       {static_cast<WORD>(DISPATCH_METHOD), static_cast<WORD>(DISPATCH_PROPERTYGET), kScript}) {
    Outcome property, method, enumerator;
    invoke(property, stampa.get(), L"Copie", flags);
    invoke(method, stampa.get(), L"Xml", flags);
    invoke(enumerator, pagine.get(), L"NewEnum", flags);
    EXPECT_EQ(S_OK, property.result);
    EXPECT_EQ(VT_I4, property.value.vt);
    EXPECT_EQ(S_OK, method.result);
    EXPECT_EQ(VT_BSTR, method.value.vt);
    EXPECT_EQ(S_OK, enumerator.result);
    EXPECT_EQ(VT_UNKNOWN, enumerator.value.vt);
  }
}

}  // namespace
