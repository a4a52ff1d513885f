#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeArraysTest = RuntimeTest;

TEST_F(RuntimeArraysTest, ArrayKeepsItsValues) {
  CheckTable(context, R"t(
Array() => Array()
Array(1, "a", Null) => Array(Integer 1, String a, Null)
Array(Array(1)) => Array(Array(Integer 1))
UBound(Array()) => Long -1
UBound(Array(1, 2)) => Long 1
LBound(Array(1)) => Long 0
UBound(Array(1), 1) => Long 0
UBound(Array(1), 2) !! 9
UBound(Array(1), 0) !! 9
LBound(Array(1), 2) !! 9
UBound(5) !! 13
UBound("abc") !! 13
UBound(Empty) !! 13
UBound(Null) !! 13
UBound(Nothing) !! 13
UBound(Array(1), Null) !! 94
)t");
}

TEST_F(RuntimeArraysTest, EachDimensionHasItsBound) {
  std::vector<Variant> arguments{Variant(MakeRef<ArrayBody>(std::vector<int32_t>{3, 5})), Variant(int32_t{2})};
  EXPECT_EQ(Show(FindBuiltin("UBound")->call(context, arguments)), "Long 4");
  arguments[1] = Variant(int32_t{1});
  EXPECT_EQ(Show(FindBuiltin("UBound")->call(context, arguments)), "Long 2");
}

TEST_F(RuntimeArraysTest, AnArrayWithoutDimensionsHasNoBounds) {
  std::vector<Variant> arguments{Variant(MakeRef<ArrayBody>(std::vector<int32_t>{}))};
  try {
    static_cast<void>(FindBuiltin("UBound")->call(context, arguments));
    ADD_FAILURE();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 9);
    EXPECT_EQ(failure.description(), "Subscript out of range");
  }
}

TEST_F(RuntimeArraysTest, SplitCutsAtTheDelimiter) {
  CheckTable(context, R"t(
Split("a b c") => Array(String a, String b, String c)
Split("a,b,c", ",") => Array(String a, String b, String c)
Split("a,b,c", ",", 2) => Array(String a, String b,c)
Split("a,b,c", ",", 1) => Array(String a,b,c)
Split("a,b,c", ",", 0) => Array()
Split("a,b,c", ",", -1) => Array(String a, String b, String c)
Split("a,b,c", ",", -2) !! 5
Split("a,b,c", ",", 99) => Array(String a, String b, String c)
Split("", ",") => Array()
Split("abc", "") => Array(String abc)
Split("abc", ",") => Array(String abc)
Split(",a,", ",") => Array(String , String a, String )
Split("aXbxc", "x") => Array(String aXb, String c)
Split("aXbxc", "x", -1, 1) => Array(String a, String b, String c)
Split("aXbxc", "x", , vbTextCompare) => Array(String a, String b, String c)
Split("a,b", ",", -1, 2) !! 5
Split("a--b-c", "--") => Array(String a, String b-c)
Split(Null) !! 94
Split("a b", Null) !! 94
Split(12321, 2) => Array(String 1, String 3, String 1)
Split("a  b") => Array(String a, String , String b)
)t");
}

TEST_F(RuntimeArraysTest, JoinPutsTheDelimiterBetween) {
  CheckTable(context, R"t(
Join(Array("a", "b", "c")) => String a b c
Join(Array("a", "b"), ", ") => String a, b
Join(Array("a", "b"), "") => String ab
Join(Array()) => String 
Join(Array("a")) => String a
Join(Array(1, Empty, True)) => String 1  True
Join(Array(1, Null)) !! 13
Join(Array(1, Array(2))) !! 13
Join(Array(1, Nothing)) !! 91
Join("abc") !! 13
Join(Null) !! 13
Join(Array(1), Null) !! 94
Join(Split("a b c"), "-") => String a-b-c
)t");
}

TEST_F(RuntimeArraysTest, FilterKeepsWhatHoldsTheText) {
  CheckTable(context, R"t(
Filter(Array("ab", "b", "ca"), "a") => Array(String ab, String ca)
Filter(Array("ab", "b", "ca"), "a", False) => Array(String b)
Filter(Array("ab", "b"), "x") => Array()
Filter(Array("Ab", "b"), "a") => Array()
Filter(Array("Ab", "b"), "a", True, 1) => Array(String Ab)
Filter(Array("Ab", "b"), "a", , 1) => Array(String Ab)
Filter(Array(12, 23), 1) => Array(String 12)
Filter(Array("a", Null), "a") !! 13
Filter("abc", "a") !! 13
Filter(Array("a"), Null) !! 94
Filter(Array("a"), "a", "x") !! 13
Filter(Array("a"), "a", True, 2) !! 5
Filter(Array("a", "b"), "") => Array(String a, String b)
)t");
}

TEST_F(RuntimeArraysTest, ListFunctionsRefuseTwoDimensions) {
  const Variant table(MakeRef<ArrayBody>(std::vector<int32_t>{2, 2}));
  for (const char* name : {"Join", "Filter"}) {
    std::vector<Variant> arguments{table, Variant("a")};
    try {
      static_cast<void>(FindBuiltin(name)->call(context, arguments));
      ADD_FAILURE() << name;
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.number(), 5) << name;
    }
  }
}

}  // namespace
}  // namespace kestrun::vbs
