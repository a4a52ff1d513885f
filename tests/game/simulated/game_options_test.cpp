// The command line of the simulated game.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/simulated/game_options.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

using testing::HasSubstr;

TEST(GameOptions, WithoutWordsTheGameIsTheFirstBuildWithRoundsOfFifteenMinutes) {
  const GameOptions options = ParseGameOptions("");
  EXPECT_EQ(options.build, 0U);
  EXPECT_EQ(options.round_seconds, 900U);
  EXPECT_EQ(options.speed, 1U);
  EXPECT_EQ(options.mission, "D08M03.BMS");
  EXPECT_EQ(options.archive, "dflw.pff");
  EXPECT_FALSE(options.ignores_keys);
  EXPECT_FALSE(options.plays_anything);
}

TEST(GameOptions, EachWordSetsItsOption) {
  const GameOptions options = ParseGameOptions(
      "-build 6 -folder \"C:\\the game\" -archive a.pff -mission D08M04.BMS  -round 60 -speed 4 -pause 3000 -leave 0 "
      "-kill 20000 -keysignored -anyfile -log \"C:\\a log.txt\"");
  EXPECT_EQ(options.build, 6U);
  EXPECT_EQ(options.folder, "C:\\the game");
  EXPECT_EQ(options.archive, "a.pff");
  EXPECT_EQ(options.mission, "D08M04.BMS");
  EXPECT_EQ(options.round_seconds, 60U);
  EXPECT_EQ(options.speed, 4U);
  EXPECT_EQ(options.pause_ms, 3000U);
  EXPECT_EQ(options.leave_ms, 0U);
  EXPECT_EQ(options.kill_after_ms, 20'000U);
  EXPECT_TRUE(options.ignores_keys);
  EXPECT_TRUE(options.plays_anything);
  EXPECT_EQ(options.log, "C:\\a log.txt");
}

TEST(GameOptions, AnUnknownWordIsNamed) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(ParseGameOptions("-round 60 -fast")); }),
            "5: The word \"-fast\" is unknown");
}

TEST(GameOptions, ANumberOutOfRangeIsNamed) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(ParseGameOptions("-build 7")); }),
            "5: -build needs a number from 0 to 6, not \"7\"");
  EXPECT_EQ(ErrorOf([] { static_cast<void>(ParseGameOptions("-speed 0")); }),
            "5: -speed needs a number from 1 to 1000, not \"0\"");
  EXPECT_EQ(ErrorOf([] { static_cast<void>(ParseGameOptions("-round 1h")); }),
            "5: -round needs a number from 1 to 100000, not \"1h\"");
}

TEST(GameOptions, AMissingValueIsNamed) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(ParseGameOptions("-folder")); }), "5: Behind -folder something is missing");
}

TEST(GameOptions, TheUsageListsWordsAndBuilds) {
  EXPECT_THAT(GameOptionsUsage(), HasSubstr("    1 Delta Force Land Warrior,  V1.00.42\n"));
  EXPECT_THAT(GameOptionsUsage(), HasSubstr("-leave NUMBER: milliseconds that the game takes to leave a round\n"));
}

}  // namespace
}  // namespace kestrun
