// For Each over a collection.
#include "tests/automation/Client.h"

namespace {

using namespace client;

class Enumerators : public Automation {
 protected:
  void SetUp() override {
    Automation::SetUp();
    ASSERT_EQ(S_OK, newStampa()->get_Pagine(pagine.out()));
  }
  void TearDown() override {
    pagine.reset();
    Automation::TearDown();
  }
  void add(int count) {
    for (int i = 0; i < count; ++i) {
      Ptr<_VqDocPagina> pagina;
      ASSERT_EQ(S_OK, pagine->Nuova(pagina.out()));
      _VqDocPagina* page = pagina.get();
      ASSERT_EQ(S_OK, pagine->Add(&page));
    }
  }
  Ptr<IEnumVARIANT> enumerator() {
    Ptr<IUnknown> unknown;
    EXPECT_EQ(S_OK, pagine->get_NewEnum(unknown.out()));
    Ptr<IEnumVARIANT> items;
    EXPECT_EQ(S_OK, unknown->QueryInterface(IID_IEnumVARIANT, items.outVoid()));
    return items;
  }
  // 0 where there is no further page.
  static LONG numberOfNext(IEnumVARIANT* items) {
    Value item;
    ULONG fetched = 9;
    if (items->Next(1, &item, &fetched) != S_OK || fetched != 1) return 0;
    Ptr<_VqDocPagina> page;
    EXPECT_EQ(VT_DISPATCH, item.vt);
    EXPECT_EQ(S_OK, item.pdispVal->QueryInterface(__uuidof(_VqDocPagina), page.outVoid()));
    LONG number = 0;
    EXPECT_EQ(S_OK, page->get_Numero(&number));
    return number;
  }

  Ptr<_VqDocPagine> pagine;
};

TEST_F(Enumerators, OfNothingEndsAtOnce) {
  const auto items = enumerator();
  Value item(5L);
  ULONG fetched = 9;
  EXPECT_EQ(S_FALSE, items->Next(1, &item, &fetched));
  EXPECT_EQ(0u, fetched);
  EXPECT_EQ(VT_EMPTY, item.vt);
  EXPECT_EQ(S_OK, items->Next(0, nullptr, &fetched));
  EXPECT_EQ(S_FALSE, items->Skip(1));
}

TEST_F(Enumerators, OfOneGivesIt) {
  add(1);
  const auto items = enumerator();
  EXPECT_EQ(1, numberOfNext(items.get()));
  EXPECT_EQ(0, numberOfNext(items.get()));
}

TEST_F(Enumerators, OfManyGoInOrderSkipAndBeginAgain) {
  add(5);
  const auto items = enumerator();
  Value three[3];
  ULONG fetched = 0;
  EXPECT_EQ(S_OK, items->Next(3, three, &fetched));
  EXPECT_EQ(3u, fetched);
  EXPECT_EQ(4, numberOfNext(items.get()));
  EXPECT_EQ(S_OK, items->Reset());
  EXPECT_EQ(S_OK, items->Skip(4));
  Value rest[3];
  EXPECT_EQ(S_FALSE, items->Next(3, rest, &fetched));
  EXPECT_EQ(1u, fetched);
}

TEST_F(Enumerators, NeedACountForMoreThanOne) {
  add(2);
  const auto items = enumerator();
  Value one, two[2];
  EXPECT_EQ(E_POINTER, items->Next(2, two, nullptr));
  EXPECT_EQ(S_OK, items->Next(1, &one, nullptr));
  EXPECT_EQ(E_POINTER, items->Next(1, nullptr, nullptr));
  EXPECT_EQ(E_POINTER, items->Clone(nullptr));
}

TEST_F(Enumerators, KeepWhatTheCollectionHeld) {
  add(3);
  const auto items = enumerator();
  EXPECT_EQ(1, numberOfNext(items.get()));
  ASSERT_EQ(S_OK, pagine->RemoveAll());
  add(1);
  EXPECT_EQ(2, numberOfNext(items.get()));
  EXPECT_EQ(3, numberOfNext(items.get()));
  EXPECT_EQ(0, numberOfNext(items.get()));
}

TEST_F(Enumerators, CloneFromWhereTheyStand) {
  add(3);
  const auto items = enumerator();
  items->Skip(1);
  Ptr<IEnumVARIANT> twin;
  ASSERT_EQ(S_OK, items->Clone(twin.out()));
  EXPECT_EQ(2, numberOfNext(twin.get()));
  EXPECT_EQ(2, numberOfNext(items.get()));
  EXPECT_EQ(3, numberOfNext(twin.get()));
}

TEST_F(Enumerators, OutliveTheirCollection) {
  add(2);
  const auto items = enumerator();
  pagine.reset();
  EXPECT_EQ(1, numberOfNext(items.get()));
}

}  // namespace
