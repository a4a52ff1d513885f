#include "script/vbscript/runtime/operators.h"

#include <map>
#include <sstream>

#include "base/convert.h"
#include "script/runtime_fixture.h"
#include "script/runtime_operator_table.h"
#include "script/vbscript/runtime/conversions.h"

namespace kestrun::vbs {
namespace {

using BinaryOperator = Variant (*)(const Variant&, const Variant&);

const std::map<std::string, BinaryOperator, std::less<>> kOperators{
    {"Add", Add},
    {"Subtract", Subtract},
    {"Multiply", Multiply},
    {"Divide", Divide},
    {"IntegerDivide", IntegerDivide},
    {"Modulo", Modulo},
    {"Power", Power},
    {"Concatenate", Concatenate},
    {"And", And},
    {"Or", Or},
    {"Xor", Xor},
    {"Eqv", Eqv},
    {"Imp", Imp},
};

const std::map<std::string, Variant, std::less<>> kOperands{
    {"Empty", Variant()},
    {"Null", Variant::Null()},
    {"Integer", Variant(int16_t{7})},
    {"Long", Variant(int32_t{3})},
    {"Single", Variant(2.5F)},
    {"Double", Variant(1.25)},
    {"Currency", Variant::Currency(45000)},
    {"Date", Variant::Date(2)},
    {"String", Variant("6")},
    {"Boolean", Variant(true)},
    {"Byte", Variant(uint8_t{5})},
    {"Text", Variant("abc")},
    {"Zero", Variant(int16_t{0})},
};

char TypeLetter(VarType type) {
  switch (type) {
    case VarType::kByte: return 'Y';
    case VarType::kInteger: return 'I';
    case VarType::kLong: return 'L';
    case VarType::kSingle: return 'S';
    case VarType::kDouble: return 'D';
    case VarType::kCurrency: return 'C';
    case VarType::kDate: return 'T';
    case VarType::kBoolean: return 'B';
    default: return '$';
  }
}

std::string Cell(BinaryOperator operation, const Variant& left, const Variant& right) {
  try {
    const Variant result = operation(left, right);
    if (result.Is(VarType::kNull)) return "Null";
    std::string text = ToText(result);
    for (char& character : text) {
      if (character == ' ') character = '_';
    }
    return TypeLetter(result.type()) + (":" + text);
  } catch (const RuntimeError& failure) {
    return "!" + std::to_string(failure.number());
  }
}

std::vector<std::string> Words(std::string_view line) {
  std::istringstream stream{std::string(line)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

class OperatorTableTest : public ::testing::TestWithParam<OperatorTable> {};

TEST_P(OperatorTableTest, EveryPairOfTypes) {
  const BinaryOperator operation = kOperators.find(GetParam().name)->second;
  const std::vector<std::string> names = Words(kOperandNames);
  std::istringstream rows{std::string(GetParam().rows)};
  size_t row_count = 0;
  for (std::string line; std::getline(rows, line);) {
    const std::vector<std::string> cells = Words(line);
    if (cells.empty()) continue;
    ASSERT_EQ(cells.size(), names.size() + 1) << line;
    ++row_count;
    for (size_t at = 0; at < names.size(); ++at) {
      EXPECT_EQ(Cell(operation, kOperands.at(cells[0]), kOperands.at(names[at])), cells[at + 1])
          << cells[0] << " with " << names[at];
    }
  }
  EXPECT_EQ(row_count, names.size());
}

INSTANTIATE_TEST_SUITE_P(All, OperatorTableTest, ::testing::ValuesIn(kOperatorTables),
                         [](const auto& instance) { return std::string(instance.param.name); });

int ErrorOf(BinaryOperator operation, const Variant& left, const Variant& right) {
  try {
    static_cast<void>(operation(left, right));
  } catch (const RuntimeError& failure) {
    return failure.number();
  }
  return 0;
}

const Variant kMaxInteger(int16_t{32767});
const Variant kMinInteger(int16_t{-32768});
const Variant kMaxLong(int32_t{2147483647});
const Variant kMinLong(std::numeric_limits<int32_t>::min());
const Variant kOne(int16_t{1});
const Variant kMinusOne(int16_t{-1});

TEST(OperatorOverflowTest, WholeNumbersGoOverIntoTheNextWiderType) {
  EXPECT_EQ(Show(Add(kMaxInteger, kOne)), "Long 32768");
  EXPECT_EQ(Show(Subtract(kMinInteger, kOne)), "Long -32769");
  EXPECT_EQ(Show(Multiply(kMaxInteger, kMaxInteger)), "Long 1073676289");
  EXPECT_EQ(Show(Add(kMaxLong, kOne)), "Double 2147483648");
  EXPECT_EQ(Show(Subtract(kMinLong, kOne)), "Double -2147483649");
  EXPECT_EQ(Show(Multiply(kMaxLong, kMaxLong)), "Double 4.61168601413242E+18");
  EXPECT_EQ(Show(Add(Variant(uint8_t{200}), Variant(uint8_t{100}))), "Integer 300");
  EXPECT_EQ(Show(Subtract(Variant(uint8_t{1}), Variant(uint8_t{2}))), "Integer -1");
  EXPECT_EQ(Show(Multiply(Variant(uint8_t{20}), Variant(uint8_t{20}))), "Integer 400");
  EXPECT_EQ(Show(Multiply(Variant(uint8_t{5}), Variant(uint8_t{5}))), "Byte 25");
  EXPECT_EQ(Show(Negate(kMinInteger)), "Long 32768");
  EXPECT_EQ(Show(Negate(kMinLong)), "Double 2147483648");
  EXPECT_EQ(Show(IntegerDivide(kMinInteger, kMinusOne)), "Long 32768");
  EXPECT_EQ(Show(Modulo(kMinLong, kMinusOne)), "Long 0");
}

TEST(OperatorOverflowTest, WhatHasNoWiderTypeRaisesError6) {
  EXPECT_EQ(ErrorOf(IntegerDivide, kMinLong, kMinusOne), 6);
  EXPECT_EQ(ErrorOf(IntegerDivide, Variant(3e9), kOne), 6);
  EXPECT_EQ(ErrorOf(Modulo, kOne, Variant(3e9)), 6);
  EXPECT_EQ(ErrorOf(Multiply, Variant(1e308), Variant(10.0)), 6);
  EXPECT_EQ(ErrorOf(Add, Variant(1.7e308), Variant(1.7e308)), 6);
  EXPECT_EQ(ErrorOf(Divide, Variant(1e308), Variant(0.1)), 6);
  EXPECT_EQ(ErrorOf(Power, Variant(10.0), Variant(400.0)), 6);
  const Variant large = Variant::Currency(std::numeric_limits<int64_t>::max());
  EXPECT_EQ(ErrorOf(Add, large, kOne), 6);
  EXPECT_EQ(ErrorOf(Subtract, Negate(large), Variant(int16_t{2})), 6);
  EXPECT_EQ(ErrorOf(Multiply, large, Variant(int16_t{2})), 6);
  EXPECT_EQ(ErrorOf(Add, Variant::Date(2958465), kOne), 6);
  EXPECT_EQ(ErrorOf(Subtract, Variant::Date(-657434), kOne), 6);
  EXPECT_EQ(ErrorOf(And, Variant(3e9), kOne), 6);
}

TEST(OperatorOverflowTest, ASingleGoesOverIntoADouble) {
  EXPECT_EQ(Show(Multiply(Variant(3e38F), Variant(10.0F))), "Double 3.00000000549776E+39");
  EXPECT_EQ(Show(Add(Variant(3e38F), Variant(3e38F))), "Double 6.00000001099551E+38");
}

TEST(CurrencyTest, ProductsAreExactToTheLastDigit) {
  EXPECT_EQ(Show(Multiply(Variant::Currency(12345678901), Variant::Currency(98765))), "Currency 12193209.7666");
  EXPECT_EQ(Show(Multiply(Variant::Currency(-15), Variant::Currency(1000))), "Currency -0.0002");
  EXPECT_EQ(Show(Multiply(Variant::Currency(5), Variant::Currency(1000))), "Currency 0");
  EXPECT_EQ(Show(Multiply(Variant::Currency(9223372036854775807), Variant::Currency(10000))),
            "Currency 922337203685477.5807");
  EXPECT_EQ(Show(Add(Variant::Currency(1), Variant::Currency(9999))), "Currency 1");
}

TEST(OperatorRoundingTest, WholeDivisionRoundsItsOperandsToEven) {
  EXPECT_EQ(Show(IntegerDivide(Variant(5.5), kOne)), "Long 6");
  EXPECT_EQ(Show(IntegerDivide(Variant(6.5), kOne)), "Long 6");
  EXPECT_EQ(Show(IntegerDivide(Variant(int16_t{-7}), Variant(int16_t{2}))), "Integer -3");
  EXPECT_EQ(Show(Modulo(Variant(int16_t{-7}), Variant(int16_t{3}))), "Integer -1");
  EXPECT_EQ(Show(Modulo(Variant(int16_t{7}), Variant(int16_t{-3}))), "Integer 1");
  EXPECT_EQ(Show(Modulo(Variant(10.5), Variant(3.0))), "Long 1");
  EXPECT_EQ(ErrorOf(IntegerDivide, kOne, Variant(0.4)), 11);
  EXPECT_EQ(ErrorOf(Modulo, kOne, Variant(0.5)), 11);
}

TEST(UnaryOperatorTest, NegateAndNotKnowEveryType) {
  const std::map<std::string, std::pair<std::string, std::string>> expected{
      {"Empty", {"Integer 0", "Integer -1"}},     {"Null", {"Null", "Null"}},
      {"Integer", {"Integer -7", "Integer -8"}},  {"Long", {"Long -3", "Long -4"}},
      {"Single", {"Single -2.5", "Long -3"}},     {"Double", {"Double -1.25", "Long -2"}},
      {"Currency", {"Currency -4.5", "Long -5"}}, {"Date", {"Date 12/28/1899", "Long -3"}},
      {"String", {"Double -6", "Long -7"}},       {"Boolean", {"Integer 1", "Boolean False"}},
      {"Byte", {"Integer -5", "Byte 250"}},       {"Zero", {"Integer 0", "Integer -1"}},
  };
  for (const auto& [name, outcomes] : expected) {
    EXPECT_EQ(Show(Negate(kOperands.at(name))), outcomes.first) << name;
    EXPECT_EQ(Show(Not(kOperands.at(name))), outcomes.second) << name;
    EXPECT_EQ(Show(UnaryPlus(kOperands.at(name))), Show(kOperands.at(name))) << name;
  }
  EXPECT_THROW(static_cast<void>(Negate(Variant("abc"))), RuntimeError);
  EXPECT_THROW(static_cast<void>(Not(Variant("abc"))), RuntimeError);
  EXPECT_EQ(Show(Not(Variant("True"))), "Boolean False");
}

TEST(OperatorRefusalTest, ArraysErrorsAndNothingAreNoOperands) {
  const Variant array(MakeRef<ArrayBody>(std::vector<int32_t>{2}));
  for (const auto& [name, operation] : kOperators) {
    EXPECT_EQ(ErrorOf(operation, array, kOne), 13) << name;
    EXPECT_EQ(ErrorOf(operation, kOne, array), 13) << name;
    EXPECT_EQ(ErrorOf(operation, Variant::Missing(), kOne), 13) << name;
    EXPECT_EQ(ErrorOf(operation, Variant::Nothing(), kOne), 91) << name;
    EXPECT_EQ(ErrorOf(operation, kOne, Variant::Nothing()), 91) << name;
  }
}

std::string Comparisons(const Variant& left, const Variant& right, unsigned literals = 0) {
  std::string holding;
  const std::pair<Comparison, const char*> all[] = {
      {Comparison::kEqual, "="},      {Comparison::kNotEqual, "<>"}, {Comparison::kLess, "<"},
      {Comparison::kLessEqual, "<="}, {Comparison::kGreater, ">"},   {Comparison::kGreaterEqual, ">="},
  };
  for (const auto& [comparison, sign] : all) {
    const Variant holds = Compare(left, right, comparison, literals);
    if (holds.Is(VarType::kNull)) return "Null";
    if (holds.boolean()) holding += std::string(sign) + " ";
  }
  return holding;
}

constexpr const char* kSame = "= <= >= ";
constexpr const char* kBelow = "<> < <= ";
constexpr const char* kAbove = "<> > >= ";

TEST(CompareTest, NumbersCompareByValueWhateverTheirType) {
  EXPECT_EQ(Comparisons(Variant(int16_t{1}), Variant(int32_t{1})), kSame);
  EXPECT_EQ(Comparisons(Variant(int16_t{1}), Variant(1.0)), kSame);
  EXPECT_EQ(Comparisons(Variant(uint8_t{1}), Variant(1.5)), kBelow);
  EXPECT_EQ(Comparisons(Variant::Currency(15000), Variant(1.5)), kSame);
  EXPECT_EQ(Comparisons(Variant::Currency(9223372036854775807), Variant::Currency(9223372036854775806)), kAbove);
  EXPECT_EQ(Comparisons(Variant::Date(2), Variant(int16_t{2})), kSame);
  EXPECT_EQ(Comparisons(Variant(true), Variant(int16_t{-1})), kSame);
  EXPECT_EQ(Comparisons(Variant(true), Variant(false)), kBelow);
  EXPECT_EQ(Comparisons(Variant(0.1F), Variant(0.1)), kSame);
  EXPECT_EQ(Comparisons(Variant(0.1), Variant(0.1F)), kSame);
  EXPECT_EQ(Comparisons(kMinLong, kMaxLong), kBelow);
}

TEST(CompareTest, TextsCompareUnitByUnit) {
  EXPECT_EQ(Comparisons(Variant("a"), Variant("b")), kBelow);
  EXPECT_EQ(Comparisons(Variant("a"), Variant("B")), kAbove);
  EXPECT_EQ(Comparisons(Variant("a"), Variant("a")), kSame);
  EXPECT_EQ(Comparisons(Variant("10"), Variant("9")), kBelow);
  EXPECT_EQ(Comparisons(Variant(""), Variant("a")), kBelow);
  EXPECT_EQ(Comparisons(Variant("ab"), Variant("abc")), kBelow);
}

TEST(CompareTest, ANumberIsLessThanAnyText) {
  EXPECT_EQ(Comparisons(Variant(int16_t{9}), Variant("1")), kBelow);
  EXPECT_EQ(Comparisons(Variant("1"), Variant(int16_t{9})), kAbove);
  EXPECT_EQ(Comparisons(Variant("1"), Variant(int16_t{1})), kAbove);
  EXPECT_EQ(Comparisons(Variant(true), Variant("True")), kBelow);
  EXPECT_EQ(Comparisons(Variant::Date(2), Variant("")), kBelow);
}

TEST(CompareTest, BesideANumberOfTheSourceATextIsReadAsANumber) {
  EXPECT_EQ(Comparisons(Variant("01"), Variant(int16_t{1}), kRightIsLiteral), kSame);
  EXPECT_EQ(Comparisons(Variant(int16_t{10}), Variant("9"), kLeftIsLiteral), kAbove);
  EXPECT_EQ(Comparisons(Variant("1/1/1900"), Variant::Date(2), kRightIsLiteral), kSame);
  EXPECT_THROW(Comparisons(Variant("abc"), Variant(int16_t{9}), kRightIsLiteral), RuntimeError);
  EXPECT_EQ(Comparisons(Variant("abc"), Variant(true), kRightIsLiteral), kAbove);
}

TEST(CompareTest, BesideATextOfTheSourceEverythingIsComparedAsText) {
  EXPECT_EQ(Comparisons(Variant("1"), Variant(int16_t{1}), kLeftIsLiteral), kSame);
  EXPECT_EQ(Comparisons(Variant(int16_t{10}), Variant("9"), kRightIsLiteral), kBelow);
  EXPECT_EQ(Comparisons(Variant(true), Variant("True"), kRightIsLiteral), kSame);
  EXPECT_EQ(Comparisons(Variant("1.0"), Variant(1.0), kLeftIsLiteral | kRightIsLiteral), kAbove);
}

TEST(CompareTest, EmptyEqualsZeroAndTheEmptyText) {
  EXPECT_EQ(Comparisons(Variant(), Variant()), kSame);
  EXPECT_EQ(Comparisons(Variant(), Variant(int16_t{0})), kSame);
  EXPECT_EQ(Comparisons(Variant(), Variant("")), kSame);
  EXPECT_EQ(Comparisons(Variant(""), Variant()), kSame);
  EXPECT_EQ(Comparisons(Variant(), Variant("a")), kBelow);
  EXPECT_EQ(Comparisons(Variant(), Variant(true)), kAbove);
  EXPECT_EQ(Comparisons(Variant(), Variant(false)), kSame);
}

TEST(CompareTest, NullMakesEveryComparisonNull) {
  for (const auto& [name, operand] : kOperands) {
    EXPECT_EQ(Comparisons(Variant::Null(), operand), "Null") << name;
    EXPECT_EQ(Comparisons(operand, Variant::Null()), "Null") << name;
  }
}

TEST(CompareTest, WhatHasNoOrderIsRefused) {
  const Variant array(MakeRef<ArrayBody>(std::vector<int32_t>{1}));
  const BinaryOperator equal = [](const Variant& left, const Variant& right) {
    return Compare(left, right, Comparison::kEqual);
  };
  EXPECT_EQ(ErrorOf(equal, array, kOne), 13);
  EXPECT_EQ(ErrorOf(equal, kOne, array), 13);
  EXPECT_EQ(ErrorOf(equal, array, Variant("a")), 13);
  EXPECT_EQ(ErrorOf(equal, Variant("a"), array), 13);
  EXPECT_EQ(ErrorOf(equal, Variant::Missing(), kOne), 13);
  EXPECT_EQ(ErrorOf(equal, Variant::Nothing(), kOne), 91);
}

TEST(IsOperatorTest, ReferencesAreComparedByIdentity) {
  TestContext context;
  const Variant one(CreateScriptObject("Scripting.Dictionary", context));
  const Variant other(CreateScriptObject("Scripting.Dictionary", context));
  EXPECT_EQ(Show(IsSame(one, one)), "Boolean True");
  EXPECT_EQ(Show(IsSame(one, other)), "Boolean False");
  EXPECT_EQ(Show(IsSame(one, Variant::Nothing())), "Boolean False");
  EXPECT_EQ(Show(IsSame(Variant::Nothing(), Variant::Nothing())), "Boolean True");
  EXPECT_EQ(ErrorOf(IsSame, kOne, Variant::Nothing()), 424);
  EXPECT_EQ(ErrorOf(IsSame, Variant::Nothing(), Variant()), 424);
}

TEST(IsTrueTest, NullIsFalseAndEverythingElseAsCBoolTakesIt) {
  EXPECT_FALSE(IsTrue(Variant::Null()));
  EXPECT_FALSE(IsTrue(Variant()));
  EXPECT_TRUE(IsTrue(Variant(0.1)));
  EXPECT_TRUE(IsTrue(Variant("True")));
  EXPECT_FALSE(IsTrue(Variant("0")));
  EXPECT_THROW(static_cast<void>(IsTrue(Variant("abc"))), RuntimeError);
  EXPECT_THROW(static_cast<void>(IsTrue(Variant::Nothing())), RuntimeError);
}

// Answers with seven, as a text box answers with its text.
class SevenObject final : public Object {
 public:
  std::string TypeName() const override { return "Seven"; }
  MemberId FindMember(std::string_view) const override { return kNoMember; }
  MemberId DefaultMember() const override { return 0; }
  std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId, Arguments) override { return Variant(int16_t{7}); }
  void Put(MemberId, Arguments, const Variant&) override {}
};

TEST(DefaultMemberTest, AnObjectStandsForItsDefaultMember) {
  const Variant seven{MakeRef<SevenObject>()};
  const Variant plain(int16_t{7});
  for (const auto& [name, operation] : kOperators) {
    for (const auto& [operand_name, operand] : kOperands) {
      EXPECT_EQ(Cell(operation, seven, operand), Cell(operation, plain, operand)) << name << " " << operand_name;
      EXPECT_EQ(Cell(operation, operand, seven), Cell(operation, operand, plain)) << name << " " << operand_name;
    }
  }
  EXPECT_EQ(Comparisons(seven, plain), kSame);
  EXPECT_EQ(Show(Negate(seven)), "Integer -7");
  EXPECT_EQ(Show(Not(seven)), "Integer -8");
  EXPECT_EQ(Show(UnaryPlus(seven)), "Object Seven");
  EXPECT_TRUE(IsTrue(seven));
}

}  // namespace
}  // namespace kestrun::vbs
