#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeStringsTest = RuntimeTest;

TEST_F(RuntimeStringsTest, LengthsCountUnits) {
  CheckTable(context, R"t(
Len("") => Long 0
Len("abc") => Long 3
Len(12345) => Long 5
Len(-1.5) => Long 4
Len(True) => Long 4
Len(Empty) => Long 0
Len(Null) => Null
Len(Nothing) !! 91
Len(Array(1)) !! 13
Len(#1/2/2020#) => Long 8
Len(vbCrLf) => Long 2
Len(ChrW(8364)) => Long 1
LenB("abc") => Long 6
LenB("") => Long 0
LenB(Null) => Null
Len() !! 450
Len("a", "b") !! 450
)t");
}

TEST_F(RuntimeStringsTest, LeftRightAndMidTakeWhatThereIs) {
  CheckTable(context, R"t(
Left("abcdef", 3) => String abc
Left("abc", 3) => String abc
Left("abc", 99) => String abc
Left("abc", 0) => String 
Left("", 2) => String 
Left("abc", 1.5) => String ab
Left("abc", 2.5) => String ab
Left("abc", "2") => String ab
Left("abc", -1) !! 5
Left("abc", "x") !! 13
Left("abc", Null) !! 94
Left(Null, 1) => Null
Left(Empty, 1) => String 
Left(12345, 2) => String 12
Left("abc", 3000000000.0) !! 6
Right("abcdef", 2) => String ef
Right("abc", 3) => String abc
Right("abc", 99) => String abc
Right("abc", 0) => String 
Right("abc", -1) !! 5
Right(Null, 1) => Null
Right(True, 2) => String ue
Mid("abcdef", 2) => String bcdef
Mid("abcdef", 2, 3) => String bcd
Mid("abcdef", 1) => String abcdef
Mid("abcdef", 6) => String f
Mid("abcdef", 7) => String 
Mid("abcdef", 99) => String 
Mid("abcdef", 5, 99) => String ef
Mid("abcdef", 3, 0) => String 
Mid("abcdef", 0) !! 5
Mid("abcdef", -1) !! 5
Mid("abcdef", 1, -1) !! 5
Mid("abcdef", 2, ) => String bcdef
Mid(Null, 1) => Null
Mid(123456, 3, 2) => String 34
Mid("abc", Null) !! 94
Mid("abc", 1, Null) !! 94
)t");
}

TEST_F(RuntimeStringsTest, ByteFormsCountTwoBytesPerUnit) {
  CheckTable(context, R"t(
LeftB("abc", 2) => String a
LeftB("abc", 4) => String ab
LeftB("abc", 0) => String 
LeftB("abc", -1) !! 5
LeftB(Null, 1) => Null
RightB("abc", 2) => String c
RightB("abc", 99) => String abc
RightB(Null, 1) => Null
MidB("abc", 3, 2) => String b
MidB("abc", 3) => String bc
MidB("abc", 99) => String 
MidB("abc", 0) !! 5
MidB("abc", 1, -1) !! 5
MidB(Null, 1) => Null
AscB("A") => Byte 65
AscB("") !! 5
AscB(Null) !! 94
ChrB(65) => String A
ChrB(256) !! 5
ChrB(-1) !! 5
InStrB("abc", "b") => Long 3
InStrB("abc", "x") => Long 0
InStrB(4, "abcb", "b") => Long 7
InStrB(0, "abc", "b") !! 5
InStrB(Null, "b") => Null
)t");
}

TEST_F(RuntimeStringsTest, InStrFindsFromTheStart) {
  CheckTable(context, R"t(
InStr("abc", "b") => Long 2
InStr("abc", "abc") => Long 1
InStr("abc", "abcd") => Long 0
InStr("abc", "x") => Long 0
InStr("abc", "") => Long 1
InStr("", "") => Long 0
InStr("", "a") => Long 0
InStr("aXbX", "X") => Long 2
InStr(3, "aXbX", "X") => Long 4
InStr(4, "aXbX", "X") => Long 4
InStr(5, "aXbX", "X") => Long 0
InStr(3, "abc", "") => Long 3
InStr(4, "abc", "") => Long 0
InStr(0, "abc", "a") !! 5
InStr(-1, "abc", "a") !! 5
InStr("x", "abc", "a") !! 13
InStr(Null, "abc", "a") !! 94
InStr(Null, "a") => Null
InStr("abc", Null) => Null
InStr(1, Null, "a") => Null
InStr(1, "a", Null) => Null
InStr("ABC", "b") => Long 0
InStr(1, "ABC", "b", 0) => Long 0
InStr(1, "ABC", "b", 1) => Long 2
InStr(1, "ABC", "b", vbTextCompare) => Long 2
InStr(1, "abc", "BC", 1) => Long 2
InStr(1, "abc", "b", 2) !! 5
InStr(1, "abc", "b", -1) !! 5
InStr(1, "abc", "b", Null) !! 94
InStr(12345, 3) => Long 3
InStr(1, 12345, 45) => Long 4
InStr(Empty, "a") => Long 0
InStr("aab", "ab") => Long 2
InStr("aaaaab", "aab") => Long 4
)t");
}

TEST_F(RuntimeStringsTest, InStrRevFindsFromTheEnd) {
  CheckTable(context, R"t(
InStrRev("abcabc", "b") => Long 5
InStrRev("abcabc", "bc", 5) => Long 2
InStrRev("abcabc", "bc", 6) => Long 5
InStrRev("abcabc", "bc", 1) => Long 0
InStrRev("abc", "c", 10) => Long 0
InStrRev("abc", "x") => Long 0
InStrRev("abc", "") => Long 3
InStrRev("abc", "", 2) => Long 2
InStrRev("", "a") => Long 0
InStrRev("", "") => Long 0
InStrRev("abc", "a", 0) !! 5
InStrRev("abc", "a", -2) !! 5
InStrRev("abc", "a", -1) => Long 1
InStrRev("ABC", "b", -1, 1) => Long 2
InStrRev("ABC", "b", -1, 0) => Long 0
InStrRev("ABC", "b", , 1) => Long 2
InStrRev("ABC", "b", -1, 3) !! 5
InStrRev(Null, "b") !! 94
InStrRev("b", Null) !! 94
InStrRev("abc", "abcd") => Long 0
)t");
}

TEST_F(RuntimeStringsTest, CaseMapsEveryLetter) {
  CheckTable(context, R"t(
LCase("ABC xyz 1") => String abc xyz 1
UCase("abc XYZ 1") => String ABC XYZ 1
LCase("ÄÖÜ") => String äöü
UCase("äöüß") => String ÄÖÜß
UCase("жук") => String ЖУК
LCase(Null) => Null
UCase(Null) => Null
LCase(True) => String true
UCase(Empty) => String 
UCase(Array(1)) !! 13
LCase(Nothing) !! 91
)t");
}

TEST_F(RuntimeStringsTest, TrimTakesBlanksOnly) {
  CheckTable(context, R"t(
Len(Trim("  ab  ")) => Long 2
Len(LTrim("  ab  ")) => Long 4
Len(RTrim("  ab  ")) => Long 4
Trim("ab") => String ab
Trim("   ") => String 
Trim("") => String 
LTrim("   ") => String 
RTrim("   ") => String 
Len(Trim(vbTab)) => Long 1
Len(Trim(vbCrLf)) => Long 2
Trim(Null) => Null
LTrim(Null) => Null
RTrim(Null) => Null
Trim(5) => String 5
Trim(" a b ") => String a b
)t");
}

TEST_F(RuntimeStringsTest, ReplaceBeginsAtItsStart) {
  CheckTable(context, R"t(
Replace("abcabc", "b", "x") => String axcaxc
Replace("abcabc", "b", "") => String acac
Replace("abcabc", "b", "long") => String alongcalongc
Replace("abcabc", "b", "x", 3) => String caxc
Replace("abcabc", "b", "x", 1, 1) => String axcabc
Replace("abcabc", "b", "x", 1, 0) => String abcabc
Replace("abcabc", "b", "x", 2, 0) => String bcabc
Replace("abcabc", "B", "x") => String abcabc
Replace("abcabc", "B", "x", 1, -1, 1) => String axcaxc
Replace("abcabc", "B", "x", , , 1) => String axcaxc
Replace("abc", "", "x") => String abc
Replace("", "a", "b") => String 
Replace("abc", "b", "x", 10) => String 
Replace("abc", "b", "x", 0) !! 5
Replace("abc", "b", "x", -1) !! 5
Replace("abc", "b", "x", 1, -2) !! 5
Replace("abc", "b", "x", 1, -1, 2) !! 5
Replace(Null, "a", "b") !! 94
Replace("a", Null, "b") !! 94
Replace("a", "a", Null) !! 94
Replace("aaa", "aa", "b") => String ba
Replace("aaa", "a", "aa") => String aaaaaa
Replace(12321, 2, 9) => String 19391
)t");
}

TEST_F(RuntimeStringsTest, SpaceAndStringRepeat) {
  CheckTable(context, R"t(
Len(Space(5)) => Long 5
Space(0) => String 
Space(-1) !! 5
Space(Null) !! 94
Space("x") !! 13
String(3, "ab") => String aaa
String(3, 65) => String AAA
String(3, 321) => String AAA
String(0, "a") => String 
String(3, "") !! 5
String(-1, "a") !! 5
String(Null, "a") => Null
String(3, Null) => Null
String("3", "x") => String xxx
String(2.5, "x") => String xx
)t");
}

TEST_F(RuntimeStringsTest, StrCompOrders) {
  CheckTable(context, R"t(
StrComp("a", "b") => Integer -1
StrComp("b", "a") => Integer 1
StrComp("a", "a") => Integer 0
StrComp("a", "B") => Integer 1
StrComp("a", "B", 1) => Integer -1
StrComp("ABC", "abc", 1) => Integer 0
StrComp("ABC", "abc", 0) => Integer -1
StrComp("ABC", "abc") => Integer -1
StrComp("ab", "abc") => Integer -1
StrComp("abc", "ab", 1) => Integer 1
StrComp("", "") => Integer 0
StrComp("", "a") => Integer -1
StrComp(Null, "a") => Null
StrComp("a", Null) => Null
StrComp("a", "b", 2) !! 5
StrComp("a", "b", -1) !! 5
StrComp(1, "1") => Integer 0
StrComp(Empty, "") => Integer 0
)t");
}

TEST_F(RuntimeStringsTest, CodesOfCharacters) {
  CheckTable(context, R"t(
Asc("A") => Integer 65
Asc("ABC") => Integer 65
Asc("") !! 5
Asc(Null) !! 94
Asc(Empty) !! 5
Asc(5) => Integer 53
Asc("€") => Integer 128
Asc("ä") => Integer 228
Asc("ж") => Integer 63
AscW("A") => Integer 65
AscW("€") => Integer 8364
AscW(ChrW(65535)) => Integer -1
AscW(ChrW(-1)) => Integer -1
AscW("") !! 5
Chr(65) => String A
Chr(128) => String €
Chr(228) => String ä
Len(Chr(0)) => Long 1
AscW(Chr(0)) => Integer 0
Chr(256) !! 5
Chr(-1) !! 5
Chr("x") !! 13
Chr(Null) !! 94
Chr(65.4) => String A
ChrW(8364) => String €
ChrW(65536) !! 5
ChrW(-32769) !! 5
ChrW("65") => String A
StrReverse("abc") => String cba
StrReverse("") => String 
StrReverse(123) => String 321
StrReverse(Null) !! 94
)t");
}

TEST_F(RuntimeStringsTest, EscapeAndUnescapeAreInverse) {
  CheckTable(context, R"t(
Escape("abc XYZ") => String abc%20XYZ
Escape("@*_+-./") => String @*_+-./
Escape("ä") => String %E4
Escape("€") => String %u20AC
Escape("%") => String %25
Escape("") => String 
Escape(Null) => Null
Unescape("abc%20XYZ") => String abc XYZ
Unescape("%u20AC") => String €
Unescape("%E4") => String ä
Unescape("%e4") => String ä
Unescape("%") => String %
Unescape("%4") => String %4
Unescape("%zz") => String %zz
Unescape("%u20A") => String %u20A
Unescape("%u20Ag") => String %u20Ag
Unescape(Null) => Null
)t");
}

TEST_F(RuntimeStringsTest, LargeResultsAreAskedForFirst) {
  context.memory_limit = 1 << 20;
  EXPECT_EQ(Outcome(context, "Space(10000000)"), "!! 7");
  EXPECT_EQ(Outcome(context, "Replace(Space(400000), \" \", \"xxxxxxxx\")"), "!! 7");
  EXPECT_EQ(Outcome(context, "Len(Space(400000))"), "=> Long 400000");
}

TEST_F(RuntimeStringsTest, NoTextIsLongerThanTheLongest) {
  EXPECT_EQ(Outcome(context, "Space(100000000)"), "!! 14");
  EXPECT_EQ(Outcome(context, "String(2000000000, \"x\")"), "!! 14");
  EXPECT_EQ(Outcome(context, "Len(Replace(Space(1000000), \" \", Space(1000)))"), "!! 14");
}

TEST_F(RuntimeStringsTest, ASlowSearchEndsWithTheTimeLimit) {
  context.step_limit = 100000;
  // Each place of the text agrees with half of the wanted one before it differs.
  const std::u16string text(100000, u'a');
  std::vector<Variant> arguments{Variant(text), Variant(text.substr(50000) + u"b")};
  EXPECT_THROW(static_cast<void>(FindBuiltin("InStr")->call(context, arguments)), OutOfTime);
}

}  // namespace
}  // namespace kestrun::vbs
