#include "script/runtime_fixture.h"

namespace kestrun::vbs {
namespace {

using RuntimeNumbersTest = RuntimeTest;

TEST_F(RuntimeNumbersTest, AbsKeepsTheType) {
  CheckTable(context, R"t(
Abs(-5) => Integer 5
Abs(5) => Integer 5
Abs(CLng(-5)) => Long 5
Abs(CByte(5)) => Byte 5
Abs(-5.5) => Double 5.5
Abs(CSng(-5.5)) => Single 5.5
Abs(CCur(-5.5)) => Currency 5.5
Abs(CInt(-32768)) => Long 32768
Abs(CLng("-2147483648")) => Double 2147483648
Abs("-5") => Double 5
Abs("abc") !! 13
Abs("") !! 13
Abs(Null) => Null
Abs(Empty) => Integer 0
Abs(True) => Integer 1
Abs(CDate(-2)) => Date 1/1/1900
Abs(Nothing) !! 91
Abs(Array(1)) !! 13
)t");
}

TEST_F(RuntimeNumbersTest, IntRoundsDownAndFixTowardsZero) {
  CheckTable(context, R"t(
Int(2.7) => Double 2
Int(-2.7) => Double -3
Int(-0.5) => Double -1
Fix(2.7) => Double 2
Fix(-2.7) => Double -2
Int(5) => Integer 5
Int(CLng(5)) => Long 5
Int(CByte(5)) => Byte 5
Int(CSng(-2.5)) => Single -3
Fix(CSng(-2.5)) => Single -2
Int(CCur(-2.5)) => Currency -3
Fix(CCur(-2.5)) => Currency -2
Int(CCur(2.5)) => Currency 2
Int("2.7") => Double 2
Fix("-2.7") => Double -2
Int(CDate(2.5)) => Date 1/1/1900
Int(True) => Integer -1
Int(Empty) => Integer 0
Int(Null) => Null
Fix(Null) => Null
Int("x") !! 13
Int(1e300) => Double 1E+300
)t");
}

TEST_F(RuntimeNumbersTest, RoundTakesTiesToEven) {
  CheckTable(context, R"t(
Round(0.5) => Double 0
Round(1.5) => Double 2
Round(2.5) => Double 2
Round(-2.5) => Double -2
Round(2.6) => Double 3
Round(2.125, 2) => Double 2.12
Round(2.355, 1) => Double 2.4
Round(1234.5678, 3) => Double 1234.568
Round(5) => Integer 5
Round(CLng(5)) => Long 5
Round(CSng(2.25), 1) => Single 2.2
Round(CCur(2.25), 1) => Currency 2.2
Round("2.5") => Double 2
Round(1.5, -1) !! 5
Round(1.5, 23) !! 5
Round(1.5, 22) => Double 1.5
Round(Null) !! 94
Round("x") !! 13
Round(1e300, 5) => Double 1E+300
Round(2.5, ) => Double 2
)t");
}

TEST_F(RuntimeNumbersTest, SgnIsAnInteger) {
  CheckTable(context, R"t(
Sgn(5.5) => Integer 1
Sgn(-5) => Integer -1
Sgn(0) => Integer 0
Sgn(Empty) => Integer 0
Sgn("-3") => Integer -1
Sgn(True) => Integer -1
Sgn(Null) !! 94
Sgn("x") !! 13
)t");
}

TEST_F(RuntimeNumbersTest, TranscendentalFunctionsGiveDoubles) {
  CheckTable(context, R"t(
Sin(0) => Double 0
Cos(0) => Double 1
Tan(0) => Double 0
Atn(1) => Double 0.785398163397448
Exp(0) => Double 1
Exp(1) => Double 2.71828182845905
Exp(710) !! 6
Exp(-1000) => Double 0
Log(1) => Double 0
Log(10) => Double 2.30258509299405
Log(0) !! 5
Log(-1) !! 5
Sqr(9) => Double 3
Sqr(2) => Double 1.4142135623731
Sqr("16") => Double 4
Sqr(-1) !! 5
Sqr(Empty) => Double 0
Sin("1") => Double 0.841470984807897
Sin(True) => Double -0.841470984807897
Cos(Null) !! 94
Sin(Null) !! 94
Tan(Null) !! 94
Atn(Null) !! 94
Exp(Null) !! 94
Log(Null) !! 94
Sqr(Null) !! 94
Sin("x") !! 13
Sin(Nothing) !! 91
Sqr(Array(1)) !! 13
)t");
}

TEST_F(RuntimeNumbersTest, HexAndOctShowTheBits) {
  CheckTable(context, R"t(
Hex(255) => String FF
Hex(0) => String 0
Hex(10) => String A
Hex(65535.0) => String FFFF
Hex(-1) => String FFFF
Hex(CLng(-1)) => String FFFFFFFF
Hex(-32768) => String FFFF8000
Hex(CInt(-32768)) => String 8000
Hex("255") => String FF
Hex("-1") => String FFFFFFFF
Hex(15.5) => String 10
Hex(16.5) => String 10
Hex(2147483648.0) !! 6
Hex(Empty) => String 0
Hex(Null) => Null
Hex("x") !! 13
Hex(CByte(200)) => String C8
Oct(8) => String 10
Oct(64) => String 100
Oct(-1) => String 177777
Oct(CLng(-1)) => String 37777777777
Oct(Null) => Null
Oct(Empty) => String 0
)t");
}

TEST_F(RuntimeNumbersTest, RgbCapsItsParts) {
  CheckTable(context, R"t(
RGB(0, 0, 0) => Long 0
RGB(255, 0, 0) => Long 255
RGB(1, 2, 3) => Long 197121
RGB(300, 0, 0) => Long 255
RGB(255, 255, 255) => Long 16777215
RGB(-1, 0, 0) !! 5
RGB(0, -1, 0) !! 5
RGB(0, 0, -1) !! 5
RGB(40000, 0, 0) !! 6
RGB(Null, 0, 0) !! 94
RGB("x", 0, 0) !! 13
)t");
}

TEST_F(RuntimeNumbersTest, RndDrawsTheClassicSequence) {
  CheckTable(context, R"t(
Rnd() => Single 0.7055475
Rnd() => Single 0.533424
Rnd() => Single 0.5795186
Rnd() => Single 0.2895625
Rnd(0) => Single 0.2895625
Rnd(1) => Single 0.301948
Rnd(-1) => Single 0.224007
Rnd(-1) => Single 0.224007
Rnd(0) => Single 0.224007
Rnd(Null) !! 94
Rnd("x") !! 13
)t");
}

TEST_F(RuntimeNumbersTest, RandomizeWithTheSameNumberRepeatsBehindANegativeDraw) {
  const auto draw = [&] { return Outcome(context, "Rnd()"); };
  static_cast<void>(Evaluate(context, "Rnd(-1)"));
  static_cast<void>(Evaluate(context, "Randomize(5)"));
  const std::string first = draw();
  static_cast<void>(Evaluate(context, "Rnd(-1)"));
  static_cast<void>(Evaluate(context, "Randomize(5)"));
  EXPECT_EQ(draw(), first);
  static_cast<void>(Evaluate(context, "Rnd(-1)"));
  static_cast<void>(Evaluate(context, "Randomize(6)"));
  EXPECT_NE(draw(), first);
}

TEST_F(RuntimeNumbersTest, RandomizeAloneTakesTheClock) {
  machine.now = 43832.25;
  static_cast<void>(Evaluate(context, "Randomize()"));
  const uint32_t morning = context.random;
  context.random = kFirstRandomState;
  machine.now = 43832.5;
  static_cast<void>(Evaluate(context, "Randomize()"));
  EXPECT_NE(context.random, morning);
}

}  // namespace
}  // namespace kestrun::vbs
