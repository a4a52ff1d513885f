// What a script does is charged by its size, so that the time limit is looked at whatever it does. The clock here goes
// on by one millisecond whenever it is read, so that the number of readings is what is tested: a loop over large values
// that was charged by the turn only would come to its end before the clock has been read often enough.
#include <gtest/gtest.h>

#include "script/long_work.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {
namespace {

using Time = std::chrono::steady_clock::time_point;

Time present;

Time ReadClock() { return present += std::chrono::milliseconds(1); }

constexpr int kReadings = 8;
constexpr std::string_view kTurns = "300";
constexpr size_t kUnits = 262144;

class TimeLimitTest : public testing::Test {
 protected:
  TimeLimitTest() {
    engine_.limits().now = ReadClock;
    EXPECT_EQ(engine_.Report([&] { engine_.Load(engine_.Parse(LargeValues(kUnits))); }).number, 0);
    engine_.limits().timeout_ms = kReadings;
  }

  // Runs a statement again and again and gives the number of the error that ended that.
  int Loop(const std::string& statement) {
    const std::string script =
        "On Error Resume Next\nFor turn = 1 To " + std::string(kTurns) + "\n" + statement + "\nNext\n";
    return engine_.Report([&] { engine_.Load(engine_.Parse(script)); }).number;
  }

  void ExpectStopped(std::span<const std::string_view> statements) {
    for (const std::string_view statement : statements) {
      EXPECT_EQ(Loop(std::string(statement)), kTimeLimitNumber) << statement;
    }
  }

  Engine engine_;
};

TEST_F(TimeLimitTest, TextFunctionsAreChargedByTheTextsTheyWorkOn) {
  for (const LongCall& call : kTextCalls) {
    EXPECT_EQ(Loop(CallText(call.name, call.arguments)), kTimeLimitNumber) << CallText(call.name, call.arguments);
  }
}

TEST_F(TimeLimitTest, EveryOtherFunctionIsChargedForALongTextInAnyPlace) {
  for (const Builtin& builtin : Builtins()) {
    if (IsTextFunction(builtin.name)) continue;
    const auto count = static_cast<size_t>(std::min(builtin.most_arguments, 3));
    for (size_t place = 0; place < count; ++place) {
      const size_t given = std::max(place + 1, static_cast<size_t>(builtin.least_arguments));
      std::vector<std::string_view> arguments(given, "1");
      arguments[place] = "digits";
      EXPECT_EQ(Loop(CallText(builtin.name, arguments)), kTimeLimitNumber) << CallText(builtin.name, arguments);
    }
  }
}

TEST_F(TimeLimitTest, RandomizeIsChargedByTheTextOfItsSeed) { EXPECT_EQ(Loop("Randomize digits"), kTimeLimitNumber); }

TEST_F(TimeLimitTest, OperatorsAreChargedByTheirTexts) { ExpectStopped(kOperatorStatements); }

TEST_F(TimeLimitTest, ArraysAndCollectionsAreChargedByTheirElements) {
  for (const std::string_view statement : kArrayStatements) {
    std::string loop;
    for (int copy = 0; copy < 6; ++copy) loop += std::string(statement) + "\n";
    EXPECT_EQ(Loop(loop), kTimeLimitNumber) << statement;
  }
}

TEST_F(TimeLimitTest, PatternsAreChargedByWhatTheyWalk) { ExpectStopped(kPatternStatements); }

TEST_F(TimeLimitTest, CodeIsChargedByItsLength) { ExpectStopped(kCodeStatements); }

TEST_F(TimeLimitTest, ALoopThatDoesLittleIsNotStopped) {
  EXPECT_EQ(Loop("x = Len(s) : x = Mid(s, 100, 1) : x = Left(s, 3) : x = TypeName(s) : y = s : x = UBound(list)"), 0);
}

TEST_F(TimeLimitTest, ParsingAModuleIsPartOfTheTime) {
  std::string text;
  for (int line = 0; line < 60000; ++line) text += "x = 1 + 2 * 3 - 4\n";
  const ErrorReport report = engine_.Report([&] { static_cast<void>(engine_.Parse(text)); });
  EXPECT_EQ(report.number, kTimeLimitNumber);
  EXPECT_EQ(report.description, "The script ran longer than its time limit and was stopped");
}

}  // namespace
}  // namespace kestrun::vbs
