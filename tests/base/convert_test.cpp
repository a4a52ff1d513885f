#include "base/convert.h"

#include <gtest/gtest.h>

#include "base/object.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

// An object whose default member is one text.
class Named final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Named"; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kRows[]{
        {"Value", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return "12"; }, nullptr}};
    static const MemberTable table{nullptr, kRows};
    return table;
  }
  [[nodiscard]] MemberId DefaultMember() const override { return has_default ? 0 : kNoMember; }
  bool has_default = true;
};

TEST(ConvertTest, DecimalTextIsANumber) {
  EXPECT_EQ(TextToDouble("42"), 42);
  EXPECT_EQ(TextToDouble("  -1.5 "), -1.5);
  EXPECT_EQ(TextToDouble("+3"), 3);
  EXPECT_EQ(TextToDouble(".5"), 0.5);
  EXPECT_EQ(TextToDouble("5."), 5);
  EXPECT_EQ(TextToDouble("1,234,567"), 1234567);
  EXPECT_EQ(TextToDouble("1e3"), 1000);
  EXPECT_EQ(TextToDouble("1.5E-2"), 0.015);
}

TEST(ConvertTest, RadixTextIsANumber) {
  EXPECT_EQ(TextToDouble("&H1F"), 31);
  EXPECT_EQ(TextToDouble("&hff"), 255);
  EXPECT_EQ(TextToDouble("&O17"), 15);
}

TEST(ConvertTest, SixteenBitRadixTextIsSigned) {
  EXPECT_EQ(TextToDouble("&HFFFF"), -1);
  EXPECT_EQ(TextToDouble("&H10000"), 65536);
  EXPECT_EQ(TextToDouble("&HFFFFFFFF"), -1);
}

TEST(ConvertTest, TextThatIsNoNumberIsATypeMismatch) {
  for (const char* text :
       {"", " ", "abc", "1x", "1 2", "--1", "1e", "1e+", ".", "&H", "&HG", "1.2.3", "\xFF", "Infinity", "nan", "0x10"})
    EXPECT_EQ(ErrorOf([&] { return TextToDouble(text); }), "13: Type mismatch") << text;
}

TEST(ConvertTest, NumberThatIsTooLargeIsAnOverflow) {
  EXPECT_EQ(ErrorOf([] { return TextToDouble("1e999"); }), "6: Overflow");
  EXPECT_EQ(ErrorOf([] { return TextToLong("2147483648"); }), "6: Overflow");
  EXPECT_EQ(TextToDouble("1e-999"), 0);
}

TEST(ConvertTest, TextToLongRoundsTiesToEven) {
  EXPECT_EQ(TextToLong("2.5"), 2);
  EXPECT_EQ(TextToLong("3.5"), 4);
  EXPECT_EQ(TextToLong("-2147483648"), INT32_MIN);
}

TEST(ConvertTest, BooleanWordsAndNumbersAreBooleans) {
  EXPECT_TRUE(TextToBoolean("True"));
  EXPECT_TRUE(TextToBoolean("TRUE"));
  EXPECT_FALSE(TextToBoolean("false"));
  EXPECT_FALSE(TextToBoolean("0"));
  EXPECT_TRUE(TextToBoolean("-1"));
  EXPECT_TRUE(TextToBoolean("0.1"));
}

TEST(ConvertTest, OtherTextIsNoBoolean) {
  EXPECT_EQ(ErrorOf([] { return TextToBoolean("yes"); }), "13: Type mismatch");
  EXPECT_EQ(ErrorOf([] { return TextToBoolean(""); }), "13: Type mismatch");
}

TEST(ConvertTest, BooleansAreTheirEnglishWords) {
  EXPECT_EQ(BooleanToText(true), "True");
  EXPECT_EQ(BooleanToText(false), "False");
}

TEST(ConvertTest, NumbersTakeTheirShortestForm) {
  EXPECT_EQ(DoubleToText(0), "0");
  EXPECT_EQ(DoubleToText(-0.0), "0");
  EXPECT_EQ(DoubleToText(42), "42");
  EXPECT_EQ(DoubleToText(-1.5), "-1.5");
  EXPECT_EQ(DoubleToText(0.1), "0.1");
  EXPECT_EQ(DoubleToText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(DoubleToText(123456789012345.0), "123456789012345");
  EXPECT_EQ(SingleToText(0.1F), "0.1");
}

TEST(ConvertTest, NumbersOutsideTheirDigitsHaveAnExponent) {
  EXPECT_EQ(DoubleToText(1e15), "1E+15");
  EXPECT_EQ(DoubleToText(1.5e20), "1.5E+20");
  EXPECT_EQ(DoubleToText(1e-20), "1E-20");
  EXPECT_EQ(DoubleToText(1e300), "1E+300");
  EXPECT_EQ(SingleToText(1e7F), "1E+07");
}

TEST(ConvertTest, LeadingNumberStopsAtWhatIsNone) {
  EXPECT_EQ(LeadingNumber("58 seconds"), 58);
  EXPECT_EQ(LeadingNumber("-2.5x"), -2.5);
  EXPECT_EQ(LeadingNumber("1 2 3"), 123);
  EXPECT_EQ(LeadingNumber("abc"), 0);
  EXPECT_EQ(LeadingNumber(""), 0);
  EXPECT_EQ(LeadingNumber("-"), 0);
}

TEST(ConvertTest, VariantsBecomeNumbers) {
  EXPECT_EQ(ToDouble(Variant()), 0);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble("1.5"), 1.5);
  EXPECT_EQ(ToDouble(Variant::Currency(15000)), 1.5);
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToInteger("7"), 7);
}

TEST(ConvertTest, VariantsBecomeTexts) {
  EXPECT_EQ(ToText(Variant()), "");
  EXPECT_EQ(ToText("é"), "é");
  EXPECT_EQ(ToText(uint8_t{7}), "7");
  EXPECT_EQ(ToText(-70000), "-70000");
  EXPECT_EQ(ToText(1.5), "1.5");
  EXPECT_EQ(ToText(true), "True");
  EXPECT_EQ(ToText(Variant::Currency(-12300)), "-1.23");
}

TEST(ConvertTest, VariantsBecomeBooleans) {
  EXPECT_FALSE(ToBoolean(Variant()));
  EXPECT_TRUE(ToBoolean(2));
  EXPECT_FALSE(ToBoolean(0.0));
  EXPECT_TRUE(ToBoolean("true"));
}

TEST(ConvertTest, NullConvertsToNothing) {
  EXPECT_EQ(ErrorOf([] { return ToDouble(Variant::Null()); }), "94: Invalid use of Null");
  EXPECT_EQ(ErrorOf([] { return ToText(Variant::Null()); }), "94: Invalid use of Null");
  EXPECT_EQ(ErrorOf([] { return ToBoolean(Variant::Null()); }), "94: Invalid use of Null");
}

TEST(ConvertTest, ObjectConvertsThroughItsDefaultMember) {
  const Ref<Named> object = MakeRef<Named>();
  EXPECT_EQ(ToText(object), "12");
  EXPECT_EQ(ToLong(object), 12);
  EXPECT_TRUE(ToBoolean(object));
  object->has_default = false;
  EXPECT_EQ(ErrorNumberOf([&] { return ToText(object); }), error::kMemberNotFound);
}

TEST(ConvertTest, NothingConvertsToNoValue) {
  EXPECT_EQ(ErrorNumberOf([] { return ToText(Variant::Nothing()); }), error::kObjectNotSet);
  EXPECT_EQ(ErrorNumberOf([] { return ToDouble(Variant::Nothing()); }), error::kObjectNotSet);
}

TEST(ConvertTest, ArrayIsNoSingleValue) {
  const Variant array(MakeRef<ArrayBody>(std::vector<int32_t>{1}));
  EXPECT_EQ(ErrorNumberOf([&] { return ToText(array); }), error::kTypeMismatch);
  EXPECT_EQ(ErrorNumberOf([&] { return ToDouble(array); }), error::kTypeMismatch);
}

TEST(ConvertTest, NumericIsWhatBecomesANumber) {
  EXPECT_TRUE(IsNumeric(Variant()));
  EXPECT_TRUE(IsNumeric(" 1.5 "));
  EXPECT_TRUE(IsNumeric(true));
  EXPECT_FALSE(IsNumeric("x"));
  EXPECT_FALSE(IsNumeric(""));
  EXPECT_FALSE(IsNumeric(Variant::Null()));
  EXPECT_FALSE(IsNumeric(Variant::Date(1)));
  EXPECT_FALSE(IsNumeric(Variant::Nothing()));
}

}  // namespace
}  // namespace kestrun
