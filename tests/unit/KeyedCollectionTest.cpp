#include "core/KeyedCollection.h"

#include "tests/support/JobTest.h"
#include "tests/support/Rows.h"

namespace orvane::test {
namespace {

struct Key : Row {
  Variant key;
  std::optional<std::int64_t> position;
  std::optional<Text> text;
};

class CollectionKeys : public testing::TestWithParam<Key> {};

TEST_P(CollectionKeys, ArePositionsOrTexts) {
  const CollectionKey key(GetParam().key);
  EXPECT_EQ(key.position, GetParam().position);
  EXPECT_EQ(key.text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Positions, CollectionKeys,
                         testing::Values(Key{"Long", 2, 2, {}}, Key{"Byte", std::uint8_t{2}, 2, {}},
                                         Key{"Integer", std::int16_t{-1}, -1, {}}, Key{"Double", 2.0, 2, {}},
                                         Key{"Currency", Currency{20000}, 2, {}}, Key{"Digits", u"2", 2, {}},
                                         Key{"Zero", u"0", 0, {}}, Key{"NegativeDigits", u"-1", -1, {}},
                                         // 3.5 + 1 is 4.5, whose half goes to the even 4, the fourth item.
                                         Key{"Half", u"3.5", 3, {}}, Key{"HalfAsNumber", 0.5, 1, {}},
                                         Key{"Small", u"0.00001", 0, {}},
                                         Key{"SmallWithExponent", u"1E-16", 0, {}},
                                         Key{"FarPastTheEnd", 1e300, -1, {}},
                                         Key{"FarPastTheEndAsText", u"1E+20", -1, {}}),
                         rowName);

INSTANTIATE_TEST_SUITE_P(
    Texts, CollectionKeys,
    testing::Values(Key{"Word", u"A1", {}, u"A1"}, Key{"LeadingZero", u"007", {}, u"007"},
                    Key{"TwoZeros", u"00", {}, u"00"}, Key{"BlankBefore", u" 2", {}, u" 2"},
                    Key{"BlankAfter", u"2 ", {}, u"2 "}, Key{"Plus", u"+2", {}, u"+2"},
                    Key{"PointWithoutFraction", u"2.0", {}, u"2.0"}, Key{"Exponent", u"1e2", {}, u"1e2"},
                    Key{"NeedlessExponent", u"1E-05", {}, u"1E-05"},
                    Key{"SixteenDecimals", u"0.0416666666666667", {}, u"0.0416666666666667"},
                    Key{"MinusZero", u"-0", {}, u"-0"}, Key{"Empty", u"", {}, u""},
                    Key{"DigitsAndMore", u"2_7", {}, u"2_7"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Neither, CollectionKeys,
                         testing::Values(Key{"Omitted", {}, {}, {}}, Key{"Null", Null{}, {}, {}},
                                         Key{"Date", Date{1}, {}, {}}, Key{"Array", VariantArray{1}, {}, {}},
                                         Key{"Object", ObjectRef{}, {}, {}}),
                         rowName);

class KeyedCollectionTest : public testing::Test {
 protected:
  using Items = KeyedCollection<int>;
  Items items;
  void SetUp() override {
    items.add(u"Rosso", std::make_shared<int>(10));
    items.add(u"Verde", std::make_shared<int>(20));
    items.add(u"Blu", std::make_shared<int>(30));
  }
  std::vector<int> values() const {
    std::vector<int> out;
    for (const auto& item : items) out.push_back(*item);
    return out;
  }
  Items::Pointer find(const Variant& key) const { return items.find(CollectionKey(key)); }
};

TEST_F(KeyedCollectionTest, KeepsTheOrderOfAddition) {
  EXPECT_EQ(items.size(), 3);
  EXPECT_EQ(values(), (std::vector{10, 20, 30}));
}

TEST_F(KeyedCollectionTest, FindsByKeyWithoutCase) {
  ASSERT_NE(find(u"VERDE"), nullptr);
  EXPECT_EQ(*find(u"VERDE"), 20);
  EXPECT_EQ(find(u"Giallo"), nullptr);
}

TEST_F(KeyedCollectionTest, FindsByPositionFromZero) {
  EXPECT_EQ(*find(0), 10);
  EXPECT_EQ(*find(u"2"), 30);
  EXPECT_EQ(find(3), nullptr);
  EXPECT_EQ(find(-1), nullptr);
}

TEST_F(KeyedCollectionTest, RefusesAKeyThatIsTakenAndAddsNothing) {
  EXPECT_EQ(errorOf([&] { items.add(u"rosso", std::make_shared<int>(99)); }), 457);
  EXPECT_EQ(values(), (std::vector{10, 20, 30}));
  EXPECT_EQ(*find(u"Rosso"), 10);
}

TEST_F(KeyedCollectionTest, RemovesByKeyAndByPosition) {
  items.remove(CollectionKey(u"verde"));
  items.remove(CollectionKey(1));
  EXPECT_EQ(values(), (std::vector{10}));
  EXPECT_EQ(find(u"Blu"), nullptr);
}

TEST_F(KeyedCollectionTest, ReportsWhatItCannotRemove) {
  EXPECT_EQ(errorOf([&] { items.remove(CollectionKey(3)); }), 9);
  EXPECT_EQ(errorOf([&] { items.remove(CollectionKey(u"Giallo")); }), 5);
  EXPECT_EQ(errorOf([&] { items.remove(CollectionKey(Variant())); }), 5);
  EXPECT_EQ(items.size(), 3);
}

TEST_F(KeyedCollectionTest, FreesTheKeyOfWhatIsRemoved) {
  items.remove(CollectionKey(u"Rosso"));
  items.add(u"Rosso", std::make_shared<int>(40));
  EXPECT_EQ(values(), (std::vector{20, 30, 40}));
}

TEST_F(KeyedCollectionTest, LeavesAnItemToWhoeverHoldsIt) {
  const auto held = find(u"Rosso");
  items.clear();
  EXPECT_EQ(items.size(), 0);
  EXPECT_EQ(find(u"Rosso"), nullptr);
  EXPECT_EQ(*held, 10);
}

TEST_F(KeyedCollectionTest, LetsItemsGoFirstToLast) {
  std::vector<int> gone;
  items.clear();
  for (const char16_t* key : {u"c", u"a", u"b"})
    items.add(key, Items::Pointer(new int(*key), [&](int* item) { gone.push_back(*item), delete item; }));
  items.clear();
  EXPECT_EQ(gone, (std::vector<int>{u'c', u'a', u'b'}));
}

// A client's item may do so when it ends.
TEST_F(KeyedCollectionTest, MayBeChangedWhileItIsCleared) {
  items.add(u"Bianco", Items::Pointer(new int(50), [&](int* item) {
              items.add(u"Rosso", std::make_shared<int>(60));
              delete item;
            }));
  items.clear();
  EXPECT_EQ(values(), (std::vector{60}));
  EXPECT_EQ(*find(u"Rosso"), 60);
}

}  // namespace
}  // namespace orvane::test
