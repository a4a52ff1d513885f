// The rules of the simulated game, watched from outside through its memory, as the program watches it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/crc32.h"
#include "formats/bms/bms_writer.h"
#include "game/builds.h"
#include "program/frame_fixture.h"
#include "support/game_in_memory.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr size_t kFullBuild = 1;
// Rows of the auto host's table.
const HostBuild& kDemo = HostBuildOf(0);
const HostBuild& kFull = HostBuildOf(1);

class SimulatedGameTest : public FrameTest {
 protected:
  SimulatedGameTest() {
    options.folder = Path("game");
    options.round_seconds = 60;
    options.pause_ms = 2000;
    options.leave_ms = 300;
    PackStockMission("Desert prison");
  }

  [[nodiscard]] static Bytes MissionNamed(const std::string& name) {
    MissionFields fields;
    fields.mission_name = name;
    return WriteMission(fields);
  }
  [[nodiscard]] static std::string CrcOf(const Bytes& bytes) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08X", static_cast<unsigned>(~crc32::Update(crc32::kStart, bytes)));
    return digits;
  }

  void PackStockMission(const std::string& name) {
    ClsPFF archive;
    archive.NewPffFile(GamePath("dflw.pff"));
    archive.PackFile(MissionNamed(name), "D08M03.BMS");
    archive.SavePffFile();
  }

  void Start() {
    game = std::make_unique<GameInMemory>(desktop, options);
    ASSERT_TRUE(memory->AttachToWindow(game->process().Title()));
  }
  void PassMs(uint64_t milliseconds) { desktop.clock().AdvanceMs(milliseconds); }
  // Up to the moment when the first round is under way.
  void StartRound() {
    Start();
    PassMs(options.pause_ms);
  }
  void Type(int key_code, std::string_view text, int32_t line) {
    memory->PressKey(key_code);
    memory->WriteTextAt(line, text);
    memory->PressKey(13);
  }
  [[nodiscard]] int Running() { return memory->ReadByteAt(kDemo.GameEndAddr); }
  [[nodiscard]] int ClockUnits() { return memory->ReadLongAt(kDemo.GameTimer); }

  GameOptions options;
  std::unique_ptr<GameInMemory> game;
  std::unique_ptr<GameMemory> memory = desktop.running_games().MakeMemory({});
};

TEST_F(SimulatedGameTest, BetweenRoundsNothingRunsAndTheClockStandsAtZero) {
  Start();
  EXPECT_EQ(Running(), 0);
  EXPECT_EQ(ClockUnits(), 0);
  PassMs(1999);
  EXPECT_EQ(Running(), 0);
  PassMs(1);
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, TheClockRunsDownAt62AndAHalfUnitsASecond) {
  StartRound();
  EXPECT_EQ(ClockUnits(), 3750);
  PassMs(1000);
  EXPECT_EQ(ClockUnits(), 3687);
  PassMs(1000);
  EXPECT_EQ(ClockUnits(), 3625);
  PassMs(57'999);
  EXPECT_EQ(ClockUnits(), 0);
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, ARoundOfFifteenMinutesTakesFifteenMinutes) {
  options.round_seconds = 900;
  StartRound();
  EXPECT_EQ(ClockUnits(), 56'250);
  PassMs(899'999);
  EXPECT_EQ(game->game().phase(), SimulatedGame::Phase::kPlaying);
  PassMs(1);
  EXPECT_EQ(game->game().phase(), SimulatedGame::Phase::kLeaving);
}

TEST_F(SimulatedGameTest, SpeedTurnsTheRoundClockFasterAndNothingElse) {
  options.speed = 30;
  StartRound();
  EXPECT_EQ(ClockUnits(), 3750);
  PassMs(1000);
  EXPECT_EQ(ClockUnits(), 1875);
  PassMs(1000 + options.leave_ms);
  EXPECT_EQ(Running(), 0);
  PassMs(options.pause_ms - 1);
  EXPECT_EQ(Running(), 0);
  PassMs(1);
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, TheRunningByteFallsWhenTheRoundWasLeft) {
  StartRound();
  PassMs(60'000);
  EXPECT_EQ(Running(), 1);
  PassMs(299);
  EXPECT_EQ(Running(), 1);
  PassMs(1);
  EXPECT_EQ(Running(), 0);
}

TEST_F(SimulatedGameTest, AGameThatIsSlowToLeaveKeepsTheRunningByteUp) {
  options.leave_ms = 8000;
  StartRound();
  Type(192, "resetgames", kDemo.MemoryAdress);
  PassMs(7999);
  EXPECT_EQ(Running(), 1);
  PassMs(1);
  EXPECT_EQ(Running(), 0);
}

TEST_F(SimulatedGameTest, TheRoundPlaysTheLooseFileWhenThereIsOne) {
  const Bytes oasis = MissionNamed("Oasis");
  WriteFile(GamePath("D08M03.BMS"), oasis);
  StartRound();
  EXPECT_THAT(game->LogOf("map"),
              ElementsAre("D08M03.BMS from the loose file, CRC " + CrcOf(oasis) + ", 256 bytes, \"Oasis\""));
  EXPECT_EQ(game->game().Mission().name, "Oasis");
}

TEST_F(SimulatedGameTest, WithoutALooseFileTheRoundPlaysTheArchives) {
  StartRound();
  EXPECT_THAT(game->LogOf("map"), ElementsAre("D08M03.BMS from the archive, CRC " +
                                              CrcOf(MissionNamed("Desert prison")) + ", 256 bytes, \"Desert prison\""));
}

TEST_F(SimulatedGameTest, AFileThatIsSwappedInTheMiddleOfARoundIsPlayedInTheNext) {
  WriteFile(GamePath("D08M03.BMS"), MissionNamed("Oasis"));
  StartRound();
  PassMs(30'000);
  WriteFile(GamePath("D08M03.BMS"), MissionNamed("Two Towers"));
  EXPECT_EQ(game->game().Mission().name, "Oasis");
  PassMs(30'000 + options.leave_ms + options.pause_ms);
  EXPECT_EQ(game->game().Mission().name, "Two Towers");
  EXPECT_THAT(game->LogOf("map"), SizeIs(2));
}

TEST_F(SimulatedGameTest, TheMissionIsReadAtTheMomentTheRoundStartsThoughNobodyLooks) {
  WriteFile(GamePath("D08M03.BMS"), MissionNamed("Oasis"));
  Start();
  PassMs(options.pause_ms);
  WriteFile(GamePath("D08M03.BMS"), MissionNamed("Two Towers"));
  PassMs(5000);
  EXPECT_EQ(game->game().Mission().name, "Oasis");
}

TEST_F(SimulatedGameTest, AnotherStockMissionIsAnotherFile) {
  options.mission = "D08M04.BMS";
  WriteFile(GamePath("D08M03.BMS"), MissionNamed("Oasis"));
  WriteFile(GamePath("D08M04.BMS"), MissionNamed("Harbour"));
  StartRound();
  EXPECT_EQ(game->game().Mission().name, "Harbour");
}

TEST_F(SimulatedGameTest, AMissingMissionIsRefusedAndTriedAgain) {
  options.mission = "D08M04.BMS";
  StartRound();
  EXPECT_EQ(Running(), 0);
  EXPECT_THAT(game->LogOf("refused"), ElementsAre("D08M04.BMS from the archive: it is not in the archive"));
  WriteFile(GamePath("D08M04.BMS"), MissionNamed("Harbour"));
  PassMs(options.pause_ms);
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, AMissingArchiveIsRefused) {
  options.archive = "other.pff";
  StartRound();
  EXPECT_THAT(game->LogOf("refused"), ElementsAre("D08M03.BMS from the archive: the archive cannot be read"));
}

TEST_F(SimulatedGameTest, BrokenLooseFilesAreRefusedWithTheirReason) {
  WriteFile(GamePath("D08M03.BMS"), "");
  StartRound();
  WriteFile(GamePath("D08M03.BMS"), "BMS and no more");
  PassMs(options.pause_ms);
  WriteFile(GamePath("D08M03.BMS"), std::string(300, 'x'));
  PassMs(options.pause_ms);
  EXPECT_THAT(game->LogOf("refused"), ElementsAre("D08M03.BMS from the loose file: it is empty",
                                                  "D08M03.BMS from the loose file: it is cut off",
                                                  "D08M03.BMS from the loose file: it is no mission"));
  EXPECT_THAT(game->LogOf("round"), IsEmpty());
}

TEST_F(SimulatedGameTest, OnDemandAnyFileIsPlayed) {
  options.plays_anything = true;
  WriteFile(GamePath("D08M03.BMS"), "x");
  StartRound();
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, ResetgamesInTheConsoleEndsTheRound) {
  StartRound();
  PassMs(20'000);
  Type(192, "resetgames", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("console"), ElementsAre("resetgames"));
  EXPECT_THAT(game->LogOf("end"), ElementsAre("of round 1: resetgames"));
  PassMs(options.leave_ms);
  EXPECT_EQ(Running(), 0);
  EXPECT_EQ(ClockUnits(), 2500) << "a round that was cut short leaves the clock where it stood";
  PassMs(options.pause_ms);
  EXPECT_EQ(Running(), 1);
  EXPECT_EQ(ClockUnits(), 3750);
}

TEST_F(SimulatedGameTest, ResetgamesInAnyCaseAndBetweenBlanksIsObeyed) {
  StartRound();
  Type(192, " ResetGames ", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("end"), SizeIs(1));
}

TEST_F(SimulatedGameTest, ResetgamesInAChatLineIsOnlySaid) {
  StartRound();
  Type(84, "resetgames", kDemo.MemoryAdress);
  Type(89, "resetgames", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre("resetgames"));
  EXPECT_THAT(game->LogOf("team chat"), ElementsAre("resetgames"));
  EXPECT_THAT(game->LogOf("end"), IsEmpty());
}

TEST_F(SimulatedGameTest, ResetgamesBetweenRoundsOrWhileOneIsLeftEndsNothing) {
  Start();
  Type(192, "resetgames", kDemo.MemoryAdress);
  PassMs(options.pause_ms);
  Type(192, "resetgames", kDemo.MemoryAdress);
  PassMs(100);
  Type(192, "resetgames", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("console"), SizeIs(3));
  EXPECT_THAT(game->LogOf("end"), SizeIs(1));
  PassMs(options.leave_ms - 100);
  EXPECT_EQ(Running(), 0);
}

TEST_F(SimulatedGameTest, ATextWithoutAnOpenLineIsNeverSent) {
  StartRound();
  memory->WriteTextAt(kDemo.MemoryAdress, "resetgames");
  memory->PressKey(13);
  EXPECT_THAT(game->LogOf("console"), IsEmpty());
  EXPECT_THAT(game->LogOf("end"), IsEmpty());
}

TEST_F(SimulatedGameTest, OpeningALineEmptiesIt) {
  StartRound();
  memory->WriteTextAt(kDemo.MemoryAdress, "old");
  memory->PressKey(84);
  EXPECT_EQ(game->process().TextAt(static_cast<uint32_t>(kDemo.MemoryAdress)), "");
  memory->PressKey(13);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre(""));
}

TEST_F(SimulatedGameTest, ALineCanBeTypedByHand) {
  StartRound();
  SimulatedGame& rules = game->game();
  rules.KeyDown(84);
  rules.Character('t');
  rules.KeyUp(84);
  for (const char c : std::string("hi allx")) rules.Character(static_cast<char16_t>(c));
  rules.Character(8);
  EXPECT_EQ(rules.OpenLine(), "public chat> hi all");
  rules.KeyDown(13);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre("hi all"));
  EXPECT_EQ(rules.OpenLine(), std::nullopt);
}

TEST_F(SimulatedGameTest, EscapeClosesALineAndSendsNothing) {
  StartRound();
  memory->PressKey(192);
  memory->WriteTextAt(kDemo.MemoryAdress, "resetgames");
  memory->PressKey(27);
  memory->PressKey(13);
  EXPECT_THAT(game->LogOf("console"), IsEmpty());
}

TEST_F(SimulatedGameTest, AnOpeningKeyInAnOpenLineOpensNoOther) {
  StartRound();
  memory->PressKey(84);
  memory->PressKey(192);
  memory->WriteTextAt(kDemo.MemoryAdress, "hello");
  memory->PressKey(13);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre("hello"));
}

TEST_F(SimulatedGameTest, ALongTextIsCutAtTheEndOfTheLine) {
  StartRound();
  SimulatedGame& rules = game->game();
  rules.KeyDown(192);
  rules.KeyUp(192);
  for (int count = 0; count < 200; ++count) rules.Character(u'a');
  rules.KeyDown(13);
  EXPECT_THAT(game->LogOf("console"), ElementsAre(std::string(127, 'a')));
}

TEST_F(SimulatedGameTest, TextsAreReadInTheCodePage) {
  StartRound();
  Type(84, "caf\xC3\xA9", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre("caf\xC3\xA9"));
  EXPECT_THAT(game->game().Lines(), ElementsAre("public chat: caf\xC3\xA9"));
}

TEST_F(SimulatedGameTest, OnlyTheLastLinesAreKeptForTheEye) {
  StartRound();
  for (int number = 1; number <= 10; ++number) Type(84, "line " + std::to_string(number), kDemo.MemoryAdress);
  EXPECT_THAT(game->game().Lines(), SizeIs(8));
  EXPECT_EQ(game->game().Lines().front(), "public chat: line 3");
  EXPECT_THAT(game->LogOf("public chat"), SizeIs(10));
}

TEST_F(SimulatedGameTest, BothTextLinesOfTheFullBuildAreRead) {
  options.build = kFullBuild;
  StartRound();
  Type(84, "from the auto host", kFull.MemoryAdress);
  Type(84, "from the messenger", kMessengerBuilds[kFullBuild].MemoryAdress);
  EXPECT_THAT(game->LogOf("public chat"), ElementsAre("from the auto host", "from the messenger"));
  EXPECT_EQ(memory->ReadByteAt(kFull.GameEndAddr), 1);
  EXPECT_EQ(memory->ReadLongAt(kFull.GameTimer), 3750);
}

TEST_F(SimulatedGameTest, IgnoredKeysOpenNothing) {
  options.ignores_keys = true;
  StartRound();
  Type(192, "resetgames", kDemo.MemoryAdress);
  EXPECT_THAT(game->LogOf("console"), IsEmpty());
  EXPECT_THAT(game->process().keys, ElementsAre(192, 13)) << "they were pressed all the same";
}

TEST_F(SimulatedGameTest, AGameThatIsKilledReadsZeroAndIsNotFoundAgain) {
  options.kill_after_ms = 10'000;
  StartRound();
  EXPECT_EQ(Running(), 1);
  PassMs(7999);
  EXPECT_EQ(Running(), 1);
  PassMs(1);
  EXPECT_EQ(Running(), 0);
  EXPECT_EQ(ClockUnits(), 0);
  EXPECT_FALSE(memory->AttachToWindow(kDemo.window_title));
  EXPECT_THAT(game->LogOf("killed"), ElementsAre("in the middle"));
}

TEST_F(SimulatedGameTest, AGameThatIsStartedAgainIsFoundAgain) {
  StartRound();
  game.reset();
  EXPECT_EQ(Running(), 0);
  StartRound();
  EXPECT_EQ(Running(), 1);
}

TEST_F(SimulatedGameTest, TheLogSaysWhatHappenedInOrder) {
  options.round_seconds = 10;
  StartRound();
  PassMs(10'000 + options.leave_ms);
  const std::string crc = CrcOf(MissionNamed("Desert prison"));
  EXPECT_THAT(
      game->log,
      ElementsAre("     0.000 start Delta Force Land Warrior, Demo V0.99.49", "     2.000 round 1 of 10 seconds",
                  "     2.000 map D08M03.BMS from the archive, CRC " + crc + ", 256 bytes, \"Desert prison\"",
                  "    12.000 end of round 1: the clock ran out", "    12.300 idle after round 1"));
}

TEST_F(SimulatedGameTest, NightsOfRoundsGoByOnTheVirtualClock) {
  StartRound();
  constexpr uint64_t kRoundMs = 62'300;
  PassMs(8 * 3600 * 1000ULL);
  EXPECT_EQ(static_cast<uint64_t>(game->game().Round()), 8 * 3600 * 1000ULL / kRoundMs + 1);
}

// Every title that the program looks for is a build that can be simulated, with its values at its addresses.
class EachBuild : public SimulatedGameTest, public testing::WithParamInterface<size_t> {};

TEST_P(EachBuild, HasItsRunningByteAndItsTextLineAtTheMessengersAddresses) {
  const MessengerBuild& build = kMessengerBuilds[GetParam()];
  options.build = GetParam();
  StartRound();
  ASSERT_TRUE(memory->AttachToWindow(build.window_title));
  EXPECT_EQ(memory->ReadByteAt(build.GameEndAddress), build.GameEndAddress == 0 ? 0 : 1);
  Type(89, "hello", build.MemoryAdress);
  EXPECT_THAT(game->LogOf("team chat"), ElementsAre("hello"));
}

INSTANTIATE_TEST_SUITE_P(Messenger, EachBuild, testing::Range(size_t{0}, kMessengerBuilds.size()));

class EachHostBuild : public SimulatedGameTest, public testing::WithParamInterface<int> {};

TEST_P(EachHostBuild, HasItsValuesAtTheAutoHostsAddresses) {
  const HostBuild& build = HostBuildOf(GetParam());
  const auto builds = SimulatedBuilds();
  options.build =
      static_cast<size_t>(std::ranges::find(builds, build.window_title, &SimulatedBuild::title) - builds.begin());
  StartRound();
  ASSERT_TRUE(memory->AttachToWindow(build.window_title));
  EXPECT_EQ(memory->ReadByteAt(build.GameEndAddr), 1);
  EXPECT_EQ(memory->ReadLongAt(build.GameTimer), 3750);
  Type(192, "resetgames", build.MemoryAdress);
  EXPECT_THAT(game->LogOf("console"), ElementsAre("resetgames"));
}

INSTANTIATE_TEST_SUITE_P(AutoHost, EachHostBuild, testing::Values(-1, 0, 1, 2));

}  // namespace
}  // namespace kestrun
