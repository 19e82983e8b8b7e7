// Arrays as clients pass and get them.
#include "tests/automation/Client.h"

namespace {

using namespace client;

class Arrays : public Automation {
 protected:
  void SetUp() override {
    Automation::SetUp();
    stampa = newStampa();
    ASSERT_EQ(S_OK, stampa->get_Pagine(pagine.out()));
    ASSERT_EQ(S_OK, pagine->Nuova(pagina.out()));
  }
  void TearDown() override {
    pagina.reset();
    pagine.reset();
    stampa.reset();
    Automation::TearDown();
  }

  Ptr<_VqDocStampa> stampa;
  Ptr<_VqDocPagine> pagine;
  Ptr<_VqDocPagina> pagina;
};

TEST_F(Arrays, AnArrayThatHoldsItselfIsError28) {
  SAFEARRAYBOUND one{1, 0};
  SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 1, &one);
  auto* const item = static_cast<VARIANT*>(array->pvData);
  item->vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  item->pparray = &array;
  EXPECT_EQ(runtimeError(28), pagina->put_ArrayTxt(&array));
  EXPECT_EQ(0u, array->cLocks);
  SafeArrayDestroy(array);
}

// As a client has it that declared the bounds and has not made the items yet.
TEST_F(Arrays, AnArrayWithoutItemsIsEmpty) {
  SAFEARRAY* array = nullptr;
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptorEx(VT_VARIANT, 1, &array));
  array->rgsabound[0] = {3, 0};
  EXPECT_EQ(S_OK, pagina->put_ArrayTxt(&array));
  EXPECT_EQ(0u, array->cLocks);
  SAFEARRAY* back = nullptr;
  EXPECT_EQ(S_OK, pagina->get_ArrayTxt(&back));
  EXPECT_EQ(nullptr, back);
  SafeArrayDestroyDescriptor(array);
}

TEST_F(Arrays, ArraysKeepTheirBoundsAndForeignValues) {
  SAFEARRAYBOUND bounds[] = {{2, -1}, {3, 5}};
  SAFEARRAY* given = SafeArrayCreate(VT_VARIANT, 2, bounds);
  LONG place[] = {0, 7};
  Value decimal;
  const Value number(1234L);
  ASSERT_EQ(S_OK, VariantChangeType(&decimal, const_cast<Value*>(&number), 0, VT_DECIMAL));
  ASSERT_EQ(S_OK, SafeArrayPutElement(given, place, &decimal));
  ASSERT_EQ(S_OK, pagina->put_ArrayTxt(&given));
  SAFEARRAY* back = nullptr;
  ASSERT_EQ(S_OK, pagina->get_ArrayTxt(&back));
  ASSERT_NE(nullptr, back);
  ASSERT_EQ(2u, SafeArrayGetDim(back));
  LONG lower = 0, upper = 0;
  SafeArrayGetLBound(back, 1, &lower);
  SafeArrayGetUBound(back, 2, &upper);
  EXPECT_EQ(-1, lower);
  EXPECT_EQ(7, upper);
  Value item;
  ASSERT_EQ(S_OK, SafeArrayGetElement(back, place, &item));
  EXPECT_EQ(VT_DECIMAL, item.vt);
  SafeArrayDestroy(given);
  SafeArrayDestroy(back);
}

// Every byte that a client can see of an array of texts: its descriptor and its items.
struct Seen {
  explicit Seen(const SAFEARRAY* array) : descriptor(*array), bounds(array->rgsabound[0]) {
    const auto* const variants = static_cast<const VARIANT*>(array->pvData);
    for (ULONG i = 0; i < bounds.cElements; ++i) {
      texts.push_back(variants[i].bstrVal);
      contents.emplace_back(variants[i].bstrVal);
    }
  }
  bool operator==(const Seen& other) const {
    return memcmp(&descriptor, &other.descriptor, sizeof descriptor) == 0 &&
           bounds.lLbound == other.bounds.lLbound && texts == other.texts && contents == other.contents;
  }
  SAFEARRAY descriptor;
  SAFEARRAYBOUND bounds;
  std::vector<BSTR> texts;
  std::vector<std::wstring> contents;
};

// Two lines with the bounds 5 to 6, in memory of its own or of the client's stack.
struct Lines {
  explicit Lines(bool onStack = false) {
    if (onStack) {
      descriptor.cDims = 1;
      descriptor.fFeatures = FADF_AUTO | FADF_STATIC | FADF_FIXEDSIZE | FADF_VARIANT;
      descriptor.cbElements = sizeof(VARIANT);
      descriptor.pvData = items;
      descriptor.rgsabound[0] = {2, 5};
      array = &descriptor;
    } else {
      array = SafeArrayCreateVector(VT_VARIANT, 5, 2);
    }
    auto* const variants = static_cast<VARIANT*>(array->pvData);
    for (const int i : {0, 1})
      variants[i].vt = VT_BSTR, variants[i].bstrVal = SysAllocString(i ? L"due" : L"uno");
  }
  ~Lines() {
    if (array != &descriptor) SafeArrayDestroy(array);
  }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;
  SAFEARRAY* array = nullptr;
  SAFEARRAY descriptor{};
  Value items[2];
};

std::wstring textOf(SAFEARRAY* array) {
  if (!array) return L"nothing";
  std::wstring text;
  for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i)
    text += std::wstring(i ? L"," : L"") + static_cast<VARIANT*>(array->pvData)[i].bstrVal;
  return text;
}

// What the page holds; emptied for the next check.
std::wstring held(_VqDocPagina* page) {
  SAFEARRAY* back = nullptr;
  EXPECT_EQ(S_OK, page->get_ArrayScriptA(&back));
  const std::wstring text = textOf(back);
  SafeArrayDestroy(back);
  page->DistruggiArray();
  return text;
}

TEST_F(Arrays, TheCallersArrayStaysAsItIs) {
  for (const bool onStack : {false, true}) {
    for (const bool locked : {false, true}) {
      Lines lines(onStack);
      if (locked) SafeArrayLock(lines.array);
      SAFEARRAY* given = lines.array;
      const Seen before(given);
      EXPECT_EQ(S_OK, pagina->put_ArrayScriptA(&given));
      EXPECT_EQ(lines.array, given);
      EXPECT_TRUE(before == Seen(given)) << "on stack " << onStack << ", locked " << locked;
      EXPECT_EQ(L"uno,due", held(pagina.get()));
      if (locked) SafeArrayUnlock(lines.array);
    }
  }
}

TEST_F(Arrays, TheGivenAndTheKeptArrayAreApart) {
  Lines lines;
  ASSERT_EQ(S_OK, pagina->put_ArrayScriptA(&lines.array));
  SysReAllocString(&static_cast<VARIANT*>(lines.array->pvData)[0].bstrVal, L"altro");
  EXPECT_EQ(L"uno,due", held(pagina.get()));
}

TEST_F(Arrays, NoArrayIsAnEmptyOneAndNoPointerIsRefused) {
  Lines lines;
  ASSERT_EQ(S_OK, pagina->put_ArrayScriptA(&lines.array));
  EXPECT_EQ(E_POINTER, pagina->put_ArrayScriptA(nullptr));
  EXPECT_EQ(L"uno,due", held(pagina.get()));
  ASSERT_EQ(S_OK, pagina->put_ArrayScriptA(&lines.array));
  SAFEARRAY* none = nullptr;
  EXPECT_EQ(S_OK, pagina->put_ArrayScriptA(&none));
  EXPECT_EQ(nullptr, none);
  EXPECT_EQ(L"nothing", held(pagina.get()));
}

TEST_F(Arrays, LateBindingTakesAnArrayInEveryForm) {
  constexpr VARTYPE kArray = VT_ARRAY | VT_VARIANT;
  Lines lines;
  VARIANT value{}, reference{}, variable{}, variableOfReference{};
  value.vt = kArray, value.parray = lines.array;
  reference.vt = VT_BYREF | kArray, reference.pparray = &lines.array;
  variable.vt = VT_BYREF | VT_VARIANT, variable.pvarVal = &value;
  variableOfReference.vt = VT_BYREF | VT_VARIANT, variableOfReference.pvarVal = &reference;
  for (const VARIANT* given : {&value, &reference, &variable, &variableOfReference}) {
    const Seen before(lines.array);
    Outcome outcome;
    invoke(outcome, pagina.get(), L"ArrayScriptA", DISPATCH_PROPERTYPUT, {given});
    EXPECT_EQ(S_OK, outcome.result) << given->vt;
    EXPECT_TRUE(before == Seen(lines.array)) << given->vt;
    EXPECT_EQ(L"uno,due", held(pagina.get())) << given->vt;
  }
}

TEST_F(Arrays, ArraysOfOtherTypesAreRefused) {
  for (const VARTYPE type : {VT_BSTR, VT_I4, VT_UI1, VT_R8}) {
    SAFEARRAY* array = SafeArrayCreateVector(type, 0, 2);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, pagina->put_ArrayScriptA(&array)) << type;
    VARIANT value{}, reference{};
    value.vt = VT_ARRAY | type, value.parray = array;
    reference.vt = VT_BYREF | VT_ARRAY | type, reference.pparray = &array;
    for (const VARIANT* given : {&value, &reference}) {
      Outcome outcome;
      invoke(outcome, pagina.get(), L"ArrayScriptA", DISPATCH_PROPERTYPUT, {given});
      EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.result) << given->vt;
    }
    SafeArrayDestroy(array);
  }
}

}  // namespace
