#include "base/convert.h"

#include "base/object.h"
#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeConversionsTest = RuntimeTest;

TEST_F(RuntimeConversionsTest, NumbersInTexts) {
  CheckTable(context, R"t(
CDbl("5") => Double 5
CDbl(" 5 ") => Double 5
CDbl("-5") => Double -5
CDbl("- 5") => Double -5
CDbl("+5") => Double 5
CDbl("5-") => Double -5
CDbl("5+") => Double 5
CDbl("(5)") => Double -5
CDbl("(5") !! 13
CDbl("5)") !! 13
CDbl("(-5)") !! 13
CDbl("--5") !! 13
CDbl("-5-") !! 13
CDbl("$5") => Double 5
CDbl("-$5") => Double -5
CDbl("$-5") => Double -5
CDbl("$$5") !! 13
CDbl("5%") !! 13
CDbl("1,234.5") => Double 1234.5
CDbl("1,2,3") => Double 123
CDbl(",1") !! 13
CDbl("1.2.3") !! 13
CDbl(".5") => Double 0.5
CDbl("1.") => Double 1
CDbl(".") !! 13
CDbl("1e5") => Double 100000
CDbl("1E+5") => Double 100000
CDbl("1e-2") => Double 0.01
CDbl("1d3") => Double 1000
CDbl("1e") !! 13
CDbl("1e+") !! 13
CDbl("1e400") !! 6
CDbl("1e-400") => Double 0
CDbl("1 2") !! 13
CDbl("") !! 13
CDbl(" ") !! 13
CDbl("abc") !! 13
CDbl("5a") !! 13
CDbl("&HFF") => Double 255
CDbl("&hff") => Double 255
CDbl("&O17") => Double 15
CDbl("&H") !! 13
CDbl("&HG") !! 13
CDbl("&H1FFFFFFFF") !! 6
CDbl(vbTab) !! 13
CDbl("True") !! 13
CDbl("٣") !! 13
)t");
}

TEST_F(RuntimeConversionsTest, CIntAndCLngRoundToEven) {
  CheckTable(context, R"t(
CInt(2.5) => Integer 2
CInt(3.5) => Integer 4
CInt(-2.5) => Integer -2
CInt(0.5) => Integer 0
CInt("3.5") => Integer 4
CInt(32767) => Integer 32767
CInt(32767.4) => Integer 32767
CInt(32767.5) !! 6
CInt(-32768.5) => Integer -32768
CInt(32768) !! 6
CInt("40000") !! 6
CInt("&H8000") => Integer -32768
CInt("&HFFFF") => Integer -1
CInt(True) => Integer -1
CInt(Empty) => Integer 0
CInt(Null) !! 94
CInt("a") !! 13
CInt(Nothing) !! 91
CInt(Array(1)) !! 13
CInt(#1/2/1900#) => Integer 3
CLng(2.5) => Long 2
CLng(2147483647.4) => Long 2147483647
CLng(2147483647.5) !! 6
CLng(-2147483648.5) => Long -2147483648
CLng("&HFFFF") => Long 65535
CLng("&HFFFFFFFF") => Long -1
CLng("12,345") => Long 12345
CLng(True) => Long -1
CLng(Null) !! 94
CLng("x") !! 13
CLng(CCur(1.5)) => Long 2
)t");
}

TEST_F(RuntimeConversionsTest, CByteHoldsEightBits) {
  CheckTable(context, R"t(
CByte(0) => Byte 0
CByte(255) => Byte 255
CByte(255.4) => Byte 255
CByte(255.5) !! 6
CByte(256) !! 6
CByte(-1) !! 6
CByte(-0.5) => Byte 0
CByte(True) => Byte 255
CByte(False) => Byte 0
CByte("12") => Byte 12
CByte("x") !! 13
CByte(Null) !! 94
CByte(Empty) => Byte 0
)t");
}

TEST_F(RuntimeConversionsTest, CSngAndCCur) {
  CheckTable(context, R"t(
CSng(1.5) => Single 1.5
CSng("1.5") => Single 1.5
CSng(0.1) => Single 0.1
CSng(1e39) !! 6
CSng(-1e39) !! 6
CSng(1e-50) => Single 0
CSng(Null) !! 94
CSng("x") !! 13
CDbl(CSng(0.1)) => Double 0.100000001490116
CCur(1.5) => Currency 1.5
CCur(1.23456) => Currency 1.2346
CCur(1.00005) => Currency 1.0001
CCur("1.5") => Currency 1.5
CCur("922337203685477.5807") => Currency 922337203685477.5807
CCur("-922337203685477.5808") => Currency -922337203685477.5808
CCur("922337203685477.5808") !! 6
CCur("$1,234.56") => Currency 1234.56
CCur("(1)") => Currency -1
CCur(1e15) !! 6
CCur("1e3") => Currency 1000
CCur(True) => Currency -1
CCur(Null) !! 94
CCur("x") !! 13
)t");
}

TEST_F(RuntimeConversionsTest, CBoolTakesWordsAndNumbers) {
  CheckTable(context, R"t(
CBool(0) => Boolean False
CBool(1) => Boolean True
CBool(-0.1) => Boolean True
CBool("True") => Boolean True
CBool("FALSE") => Boolean False
CBool("#TRUE#") => Boolean True
CBool("0") => Boolean False
CBool("1e1") => Boolean True
CBool("") !! 13
CBool("abc") !! 13
CBool(Empty) => Boolean False
CBool(Null) !! 94
CBool(#1/2/2020#) => Boolean True
CBool(Nothing) !! 91
)t");
}

TEST_F(RuntimeConversionsTest, CStrWritesNumbersShort) {
  CheckTable(context, R"t(
CStr(5) => String 5
CStr(-5) => String -5
CStr(0.5) => String 0.5
CStr(-0.5) => String -0.5
CStr(1e14) => String 100000000000000
CStr(1e15) => String 1E+15
CStr(1e100) => String 1E+100
CStr(123456789012345678.0) => String 1.23456789012346E+17
CStr(0.0001) => String 0.0001
CStr(0.00001) => String 1E-05
CStr(1.5e-5) => String 1.5E-05
CStr(0.1) => String 0.1
CStr(CSng(0.1)) => String 0.1
CStr(CSng(1e6)) => String 1000000
CStr(CSng(1e7)) => String 1E+07
CStr(CCur(1.5)) => String 1.5
CStr(CCur(-0.5)) => String -0.5
CStr(True) => String True
CStr(False) => String False
CStr(Empty) => String 
CStr(Null) !! 94
CStr(Nothing) !! 91
CStr(Array(1)) !! 13
CStr("abc") => String abc
CStr(#1/2/2020#) => String 1/2/2020
CStr(#3:04:05 PM#) => String 3:04:05 PM
CStr(CDate(43832.25)) => String 1/2/2020 6:00:00 AM
)t");
}

TEST_F(RuntimeConversionsTest, QuestionsAboutTypes) {
  CheckTable(context, R"t(
IsNumeric("5") => Boolean True
IsNumeric("$5") => Boolean True
IsNumeric("1d5") => Boolean True
IsNumeric("&HFF") => Boolean True
IsNumeric("") => Boolean False
IsNumeric(" ") => Boolean False
IsNumeric("abc") => Boolean False
IsNumeric("1e400") => Boolean False
IsNumeric(5) => Boolean True
IsNumeric(CCur(1)) => Boolean True
IsNumeric(True) => Boolean True
IsNumeric(Empty) => Boolean True
IsNumeric(Null) => Boolean False
IsNumeric(#1/2/2020#) => Boolean False
IsNumeric(Nothing) => Boolean False
IsNumeric(Array(1)) => Boolean False
IsDate("1/2/2020") => Boolean True
IsDate("3:04") => Boolean True
IsDate("abc") => Boolean False
IsDate("5") => Boolean False
IsDate(5) => Boolean False
IsDate(#1/2/2020#) => Boolean True
IsDate(Null) => Boolean False
IsDate(Empty) => Boolean False
IsDate(Nothing) => Boolean False
IsArray(Array()) => Boolean True
IsArray(5) => Boolean False
IsEmpty(Empty) => Boolean True
IsEmpty("") => Boolean False
IsEmpty(Null) => Boolean False
IsNull(Null) => Boolean True
IsNull(Empty) => Boolean False
IsObject(Nothing) => Boolean True
IsObject(CreateObject("Scripting.Dictionary")) => Boolean True
IsObject(5) => Boolean False
TypeName(Empty) => String Empty
TypeName(Null) => String Null
TypeName(5) => String Integer
TypeName(70000) => String Long
TypeName(1.5) => String Double
TypeName(CSng(1)) => String Single
TypeName(CCur(1)) => String Currency
TypeName(CByte(1)) => String Byte
TypeName(#1/2/2020#) => String Date
TypeName("a") => String String
TypeName(True) => String Boolean
TypeName(Nothing) => String Nothing
TypeName(Array(1)) => String Variant()
TypeName(CreateObject("Scripting.Dictionary")) => String Dictionary
TypeName(CreateObject("VBScript.RegExp")) => String IRegExp2
VarType(Empty) => Integer 0
VarType(Null) => Integer 1
VarType(5) => Integer 2
VarType(CLng(5)) => Integer 3
VarType(CSng(5)) => Integer 4
VarType(5.5) => Integer 5
VarType(CCur(5)) => Integer 6
VarType(#1/2/2020#) => Integer 7
VarType("") => Integer 8
VarType(Nothing) => Integer 9
VarType(True) => Integer 11
VarType(CByte(1)) => Integer 17
VarType(Array(1)) => Integer 8204
VarType(CreateObject("Scripting.Dictionary")) => Integer 9
)t");
}

// Its default member answers with the object itself: resolving it must end.
class Ring final : public Object {
 public:
  std::string TypeName() const override { return "Ring"; }
  MemberId FindMember(std::string_view) const override { return kNoMember; }
  MemberId DefaultMember() const override { return 0; }
  std::vector<MemberInfo> ListMembers() const override { return {}; }
  Variant Get(MemberId, Arguments) override { return Variant(this); }
  void Put(MemberId, Arguments, const Variant&) override {}
};

TEST_F(RuntimeConversionsTest, ARingOfDefaultMembersIsRefused) {
  const Ref<Ring> ring = MakeRef<Ring>();
  std::vector<Variant> arguments{Variant(ring)};
  for (const char* name : {"CStr", "CInt", "CDate", "Len", "Abs", "CCur"}) {
    try {
      static_cast<void>(FindBuiltin(name)->call(context, arguments));
      ADD_FAILURE() << name;
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.number(), 438) << name;
    }
  }
}

TEST(BaseConvertTest, TextsOfTheGroundFloorFollowTheSameRules) {
  EXPECT_EQ(TextToDouble("$1,234.50"), 1234.5);
  EXPECT_EQ(TextToLong("&HFFFF"), 65535);
  EXPECT_EQ(DoubleToText(0.00001), "1E-05");
  EXPECT_EQ(DoubleToText(1e15), "1E+15");
  EXPECT_EQ(SingleToText(0.1F), "0.1");
  EXPECT_EQ(LeadingNumber(" 12abc"), 12);
  EXPECT_EQ(ToText(Variant::Date(43832.75)), "1/2/2020 6:00:00 PM");
  EXPECT_TRUE(kestrun::IsDate(Variant("Jan 2, 2020")));
}

}  // namespace
}  // namespace kestrun::vbs
