#include "script/vbscript/runtime/dictionary.h"

#include "base/convert.h"
#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

class RuntimeDictionaryTest : public RuntimeTest {
 protected:
  template <class Action>
  static int ErrorOf(Action action) {
    try {
      action();
    } catch (const RuntimeError& failure) {
      return failure.number();
    }
    return 0;
  }

  Ref<Dictionary> dictionary = MakeRef<Dictionary>(context);
};

TEST_F(RuntimeDictionaryTest, ItemsComeBackByTheirKeys) {
  dictionary->Add(Variant("a"), Variant(int32_t{1}));
  dictionary->Add(Variant("b"), Variant("two"));
  EXPECT_EQ(Show(dictionary->Item(Variant("a"))), "Long 1");
  EXPECT_EQ(Show(dictionary->Item(Variant("b"))), "String two");
  EXPECT_EQ(dictionary->Count(), 2U);
  EXPECT_EQ(Show(dictionary->Keys()), "Array(String a, String b)");
  EXPECT_EQ(Show(dictionary->Items()), "Array(Long 1, String two)");
}

TEST_F(RuntimeDictionaryTest, ReadingAMissingKeyAddsIt) {
  EXPECT_EQ(Show(dictionary->Item(Variant("x"))), "Empty");
  EXPECT_TRUE(dictionary->Exists(Variant("x")));
  EXPECT_EQ(dictionary->Count(), 1U);
}

TEST_F(RuntimeDictionaryTest, AddRefusesAKeyThatIsThere) {
  dictionary->Add(Variant("a"), Variant());
  EXPECT_EQ(ErrorOf([&] { dictionary->Add(Variant("a"), Variant()); }), 457);
  try {
    dictionary->Add(Variant("a"), Variant());
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.description(), "This key is already associated with an element of this collection");
  }
}

TEST_F(RuntimeDictionaryTest, RemoveTakesKeysOut) {
  dictionary->Add(Variant("a"), Variant(int32_t{1}));
  dictionary->Add(Variant("b"), Variant(int32_t{2}));
  dictionary->Remove(Variant("a"));
  EXPECT_FALSE(dictionary->Exists(Variant("a")));
  EXPECT_EQ(Show(dictionary->Keys()), "Array(String b)");
  EXPECT_EQ(ErrorOf([&] { dictionary->Remove(Variant("a")); }), 32811);
  dictionary->RemoveAll();
  EXPECT_EQ(dictionary->Count(), 0U);
  EXPECT_EQ(Show(dictionary->Items()), "Array()");
}

TEST_F(RuntimeDictionaryTest, KeyRenamesAnItem) {
  dictionary->Add(Variant("a"), Variant(int32_t{1}));
  dictionary->Add(Variant("b"), Variant(int32_t{2}));
  dictionary->ChangeKey(Variant("a"), Variant("c"));
  EXPECT_EQ(Show(dictionary->Keys()), "Array(String c, String b)");
  EXPECT_EQ(Show(dictionary->Item(Variant("c"))), "Long 1");
  EXPECT_EQ(ErrorOf([&] { dictionary->ChangeKey(Variant("x"), Variant("y")); }), 32811);
  EXPECT_EQ(ErrorOf([&] { dictionary->ChangeKey(Variant("b"), Variant("c")); }), 457);
  dictionary->ChangeKey(Variant("b"), Variant("b"));
  EXPECT_EQ(Show(dictionary->Item(Variant("b"))), "Long 2");
}

TEST_F(RuntimeDictionaryTest, NumbersOfAnyTypeAreTheSameKey) {
  dictionary->Add(Variant(int16_t{1}), Variant("one"));
  EXPECT_TRUE(dictionary->Exists(Variant(int32_t{1})));
  EXPECT_TRUE(dictionary->Exists(Variant(1.0)));
  EXPECT_TRUE(dictionary->Exists(Variant(uint8_t{1})));
  EXPECT_TRUE(dictionary->Exists(Variant(1.0F)));
  EXPECT_TRUE(dictionary->Exists(Variant::Currency(10000)));
  EXPECT_TRUE(dictionary->Exists(Variant::Date(1)));
  EXPECT_FALSE(dictionary->Exists(Variant("1")));
  EXPECT_FALSE(dictionary->Exists(Variant(1.5)));
  EXPECT_FALSE(dictionary->Exists(Variant(true)));
}

TEST_F(RuntimeDictionaryTest, OtherTypesAreKeysToo) {
  const Ref<Object> object = MakeRef<Dictionary>(context);
  for (const Variant& key :
       {Variant(), Variant::Null(), Variant(true), Variant(false), Variant(object), Variant::Nothing(), Variant("")}) {
    dictionary->Add(key, Variant());
  }
  EXPECT_EQ(dictionary->Count(), 7U);
  EXPECT_TRUE(dictionary->Exists(Variant(object)));
  EXPECT_EQ(ErrorOf([&] { dictionary->Add(Evaluate(context, "Array(1)"), Variant()); }), 5);
  EXPECT_EQ(ErrorOf([&] { dictionary->Add(Variant::Missing(), Variant()); }), 5);
}

TEST_F(RuntimeDictionaryTest, TextsCompareByCaseUnlessToldOtherwise) {
  dictionary->Add(Variant("a"), Variant());
  EXPECT_FALSE(dictionary->Exists(Variant("A")));
  EXPECT_EQ(ErrorOf([&] { dictionary->set_compare_mode(1); }), 5) << "only while it is empty";
  dictionary->RemoveAll();
  dictionary->set_compare_mode(1);
  EXPECT_EQ(dictionary->compare_mode(), 1);
  dictionary->Add(Variant("a"), Variant());
  EXPECT_TRUE(dictionary->Exists(Variant("A")));
  EXPECT_EQ(ErrorOf([&] { dictionary->Add(Variant("A"), Variant()); }), 457);
  dictionary->RemoveAll();
  EXPECT_EQ(ErrorOf([&] { dictionary->set_compare_mode(5); }), 5);
}

TEST_F(RuntimeDictionaryTest, ForEachWalksTheKeysOfItsBeginning) {
  for (int32_t key = 0; key < 5; ++key) dictionary->Add(Variant(key), Variant());
  const auto walk = dictionary->Enumerate();
  Variant key;
  std::string seen;
  while (walk->Next(key)) {
    seen += ToText(key);
    dictionary->Remove(key);
  }
  EXPECT_EQ(seen, "01234");
  EXPECT_EQ(dictionary->Count(), 0U);
}

TEST_F(RuntimeDictionaryTest, OrderSurvivesManyRemovals) {
  for (int32_t key = 0; key < 1000; ++key) dictionary->Add(Variant(key), Variant(key * 2));
  for (int32_t key = 0; key < 1000; ++key) {
    if (key % 10 != 0) dictionary->Remove(Variant(key));
  }
  for (int32_t key = 2000; key < 2100; ++key) dictionary->Add(Variant(key), Variant(key * 2));
  const Variant keys = dictionary->Keys();
  ASSERT_EQ(keys.array().elements.size(), 200U);
  EXPECT_EQ(keys.array().elements[1].whole(), 10);
  EXPECT_EQ(keys.array().elements[100].whole(), 2000);
  for (const Variant& key : keys.array().elements) EXPECT_EQ(dictionary->Item(key).whole(), key.whole() * 2);
}

TEST_F(RuntimeDictionaryTest, ManyRenamesKeepEveryItem) {
  for (int32_t key = 0; key < 10; ++key) dictionary->Add(Variant(key), Variant(key));
  for (int32_t turn = 0; turn < 1000; ++turn) dictionary->ChangeKey(Variant(turn * 10), Variant(turn * 10 + 10));
  EXPECT_EQ(dictionary->Count(), 10U);
  EXPECT_EQ(dictionary->Item(Variant(int32_t{10000})).whole(), 0);
  for (int32_t key = 1; key < 10; ++key) EXPECT_EQ(dictionary->Item(Variant(key)).whole(), key);
  EXPECT_EQ(dictionary->Count(), 10U);
}

TEST_F(RuntimeDictionaryTest, AddingAndRemovingByTurnsStaysSmall) {
  for (int32_t turn = 0; turn < 100000; ++turn) {
    dictionary->Add(Variant(turn), Variant("x"));
    dictionary->Remove(Variant(turn));
  }
  EXPECT_EQ(dictionary->Count(), 0U);
  dictionary->Add(Variant(0.0), Variant("zero"));
  EXPECT_TRUE(dictionary->Exists(Variant(-0.0)));
}

TEST_F(RuntimeDictionaryTest, MembersAreReachedByName) {
  const Ref<Object> object = CreateScriptObject("scripting.dictionary", context);
  CallMember(*object, "add", {Variant("a"), Variant(int32_t{1})});
  PutMember(*object, "Item", Variant(int32_t{2}), {Variant("b")});
  PutMember(*object, "Key", Variant("c"), {Variant("a")});
  EXPECT_EQ(Show(GetMember(*object, "Count")), "Long 2");
  EXPECT_EQ(Show(CallMember(*object, "Exists", {Variant("c")})), "Boolean True");
  EXPECT_EQ(Show(CallMember(*object, "Keys")), "Array(String c, String b)");
  EXPECT_EQ(Show(CallMember(*object, "Items")), "Array(Long 1, Long 2)");
  std::vector<Variant> arguments{Variant("b")};
  EXPECT_EQ(Show(object->Get(object->DefaultMember(), arguments)), "Long 2");
  CallMember(*object, "Remove", {Variant("b")});
  CallMember(*object, "RemoveAll");
  PutMember(*object, "CompareMode", Variant(int32_t{1}));
  EXPECT_EQ(Show(GetMember(*object, "CompareMode")), "Long 1");
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*object, "Item")); }), 450);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*object, "Key", {Variant("a")})); }), 438);
  EXPECT_EQ(ErrorOf([&] { PutMember(*object, "Count", Variant(int32_t{1})); }), 383);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(GetMember(*object, "Nonsense")); }), 438);
}

}  // namespace
}  // namespace kestrun::vbs
