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
  EXPECT_EQ(runtimeError(28), pagina->put_ArrayTxt(array));
  EXPECT_EQ(0u, array->cLocks);
  SafeArrayDestroy(array);
}

// As a client has it that declared the bounds and has not made the items yet.
TEST_F(Arrays, AnArrayWithoutItemsIsEmpty) {
  SAFEARRAY* array = nullptr;
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptorEx(VT_VARIANT, 1, &array));
  array->rgsabound[0] = {3, 0};
  EXPECT_EQ(S_OK, pagina->put_ArrayTxt(array));
  EXPECT_EQ(0u, array->cLocks);
  SAFEARRAY* back = nullptr;
  EXPECT_EQ(S_OK, pagina->get_ArrayTxt(&back));
  EXPECT_EQ(nullptr, back);
  SafeArrayDestroyDescriptor(array);
}

TEST_F(Arrays, ArraysKeepTheirBoundsAndForeignValues) {
  SAFEARRAYBOUND bounds[] = {{2, -1}, {3, 5}};
  SAFEARRAY* const given = SafeArrayCreate(VT_VARIANT, 2, bounds);
  LONG place[] = {0, 7};
  Value decimal;
  const Value number(1234L);
  ASSERT_EQ(S_OK, VariantChangeType(&decimal, const_cast<Value*>(&number), 0, VT_DECIMAL));
  ASSERT_EQ(S_OK, SafeArrayPutElement(given, place, &decimal));
  ASSERT_EQ(S_OK, pagina->put_ArrayTxt(given));
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

}  // namespace
