// When the run inserts which map, on the virtual clock.
#include "game/run/run_fixture.h"

namespace kestrun {
namespace {

// ---- start ---------------------------------------------------------------------------------------------------------

TEST_F(RunTest, AnEmptyListIsNotStarted) {
  run.StartList();
  EXPECT_EQ(told, std::vector<std::string>{"No maps?"});
  EXPECT_TRUE(window.steps.empty());
}

TEST_F(RunTest, ATimeThatIsNoNumberIsAskedForRestoredAndGetsTheFocus) {
  Rows({"a"});
  LongestTime("", "58");
  run.StartList();
  EXPECT_EQ(told, std::vector<std::string>{"Enter a number for time!"});
  EXPECT_EQ(window.minutes, "15");
  EXPECT_EQ(window.focused, std::vector<TimeField>{TimeField::kMinutes});
  EXPECT_TRUE(window.steps.empty());
  LongestTime("15", "");
  run.StartList();
  EXPECT_EQ(window.seconds, "58");
  EXPECT_EQ(window.focused.back(), TimeField::kSeconds);
  EXPECT_TRUE(window.steps.empty());
}

TEST_F(RunTest, AGameThatIsNotOpenIsToldAndTheRunStartsAllTheSame) {
  Rows({"a"});
  window.uses_game_timer = true;
  run.fields.DfVersion = 1;
  run.StartList();
  EXPECT_EQ(told, std::vector<std::string>{"Dflw game is not open!"});
  EXPECT_EQ(window.steps, std::vector<RunStep>{RunStep::kStart});
  EXPECT_EQ(run.fields.MemoryAdress, 0x10FE6C0);
  EXPECT_EQ(run.fields.GameTimer, 0x648120);
  EXPECT_EQ(run.fields.GameEndAddr, 0x650274);
  EXPECT_TRUE(run.fields.NextMap);
}

TEST_F(RunTest, WithoutGameTimerAndResetCommandNothingIsAttached) {
  Rows({"a"});
  run.StartList();
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(run.fields.GameEndAddr, 0);
  EXPECT_EQ(window.shown_minutes, "15");
  EXPECT_EQ(window.shown_seconds, "58");
}

TEST_F(RunTest, TheGameTimerAloneAttachesTheThirdBuildByItsOwnTitle) {
  Rows({"a"});
  const auto game = games.Start("Delta Force Land Warrior,  V1.00.31");
  window.uses_game_timer = true;
  run.fields.DfVersion = 2;
  run.StartList();
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(run.fields.GameTimer, 0x63F4A0);
}

TEST_F(RunTest, AGameThatRunsAsAdministratorIsExplainedInASentenceBesideTheBox) {
  Rows({"a"});
  const auto game = StartGame(true);
  game->refuses_reading = true;
  window.uses_game_timer = true;
  run.fields.DfVersion = 0;
  run.StartList();
  EXPECT_EQ(told, std::vector<std::string>{"Dflw game is not open!"});
  EXPECT_EQ(window.refusal, kGameNotReadable);
}

TEST_F(RunTest, StopZeroesTheErrorsAndAllCountsAndHidesTheStrip) {
  Rows({"a", "b"});
  window.rows[1].inserts = 4;
  run.fields.Errors = 7;
  window.ShowFailure("x");
  run.StopList();
  EXPECT_EQ(window.rows[1].inserts, 0);
  EXPECT_EQ(run.fields.Errors, 0);
  EXPECT_FALSE(window.failure_is_shown);
  EXPECT_EQ(window.steps, std::vector<RunStep>{RunStep::kStop});
}

// ---- the countdown -------------------------------------------------------------------------------------------------

// With a game that runs, so that its end sets nothing off.
class CountdownTest : public RunTest {
 protected:
  CountdownTest() {
    Rows({"a", "b", "c"});
    AttachTo(*game_);
    // The game leaves its mission when it is asked, at once.
    game_->before_access = [this] { ++reads_; };
  }
  // How many ticks until the first insert.
  int TicksToInsert() {
    run.StartList();
    for (int tick = 1; tick <= 20000; ++tick) {
      Ticks(1);
      if (!put_maps.empty()) return tick;
    }
    return -1;
  }
  std::shared_ptr<HeadlessGame> game_ = StartGame(true);
  int reads_ = 0;
};

TEST_F(CountdownTest, FifteenFiftyEightTakesNineHundredFortyThreeTicks) { EXPECT_EQ(TicksToInsert(), 943); }

TEST_F(CountdownTest, AMinuteIsFiftyNineTicksLong) {
  LongestTime("1", "0");
  EXPECT_EQ(TicksToInsert(), 60);
}

TEST_F(CountdownTest, OneSecondTakesOneTick) {
  LongestTime("0", "1");
  EXPECT_EQ(TicksToInsert(), 1);
}

TEST_F(CountdownTest, AClockAtZeroAtTheStartInsertsAtTheFirstTick) {
  LongestTime("0", "0");
  EXPECT_EQ(TicksToInsert(), 1);
}

TEST_F(CountdownTest, ThreeHundredMinutesShowAsFiftyNine) {
  LongestTime("300", "0");
  run.StartList();
  EXPECT_EQ(window.shown_minutes, "59");
  EXPECT_EQ(LimitedMinutes("240"), "240");
  EXPECT_EQ(LimitedMinutes("241"), "59");
  EXPECT_EQ(LimitedMinutes("-1"), "0");
  EXPECT_EQ(LimitedSeconds("60"), "59");
  EXPECT_EQ(LimitedSeconds("-1"), "0");
  EXPECT_EQ(LimitedSeconds("soon"), "soon");
}

TEST_F(CountdownTest, TheClockBeginsAnewAfterAnInsert) {
  LongestTime("0", "5");
  run.StartList();
  Ticks(5);
  EXPECT_EQ(Put(), "a|");
  EXPECT_EQ(window.shown_seconds, "5");
  Ticks(5);
  EXPECT_EQ(Put(), "a|b|");
}

TEST_F(CountdownTest, ATimedInsertInARunningGameWaitsFiveSecondsAndThenPuts) {
  LongestTime("0", "1");
  run.StartList();
  const uint64_t before = clock.NowMs();
  run.Tick();
  EXPECT_EQ(clock.NowMs() - before, 5000u);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(CountdownTest, ATextThatIsNoNumberStopsTheClockAndNothingElse) {
  run.StartList();
  window.shown_seconds = "soon";
  Ticks(3);
  EXPECT_TRUE(put_maps.empty());
  SetRunning(*game_, false);
  Ticks(1);
  EXPECT_EQ(Put(), "a|");
  EXPECT_TRUE(reported.empty());
}

// ---- the game's clock and byte -------------------------------------------------------------------------------------

class GameTimerTest : public RunTest {
 protected:
  GameTimerTest() {
    Rows({"a", "b", "c"});
    window.uses_game_timer = true;
    run.fields.DfVersion = 0;
  }
  std::shared_ptr<HeadlessGame> game_ = StartGame(true);
};

TEST_F(GameTimerTest, TheClockOfTheRoundIsShownInMinutesAndSeconds) {
  run.StartList();
  SetRoundClock(*game_, 3600 + 125);
  Ticks(1);
  EXPECT_EQ(window.shown_minutes, "62");
  EXPECT_EQ(window.shown_seconds, "5");
  EXPECT_EQ(run.fields.LTime, 3725);
}

TEST_F(GameTimerTest, HalfSecondsRoundToTheEvenOne) {
  run.StartList();
  SetRoundClock(*game_, 0);
  game_->SetLong(static_cast<uint32_t>(kBuild.GameTimer), 94);  // 1.504
  Ticks(1);
  EXPECT_EQ(run.fields.LTime, 2);
  game_->SetLong(static_cast<uint32_t>(kBuild.GameTimer), 31);  // 0.496
  Ticks(1);
  EXPECT_EQ(run.fields.LTime, 0);
}

TEST_F(GameTimerTest, AClockThatStandsAtZeroWhenTheRunStartsFiresNothing) {
  run.StartList();
  Ticks(10);
  EXPECT_EQ(Put(), "");
}

TEST_F(GameTimerTest, AClockThatRanAndThenReadsZeroInsertsOnce) {
  run.StartList();
  SetRoundClock(*game_, 30);
  Ticks(3);
  SetRoundClock(*game_, 0);
  SetRunning(*game_, false);
  Ticks(5);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(GameTimerTest, TheTimeOfTheLastRunCountsInTheNext) {
  run.StartList();
  SetRoundClock(*game_, 30);
  Ticks(1);
  run.StopList();
  SetRoundClock(*game_, 0);
  run.StartList();
  Ticks(1);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(GameTimerTest, EachFallOfTheByteGivesOneInsert) {
  run.StartList();
  for (int round = 0; round < 3; ++round) {
    SetRunning(*game_, false);
    Ticks(4);
    SetRunning(*game_, true);
    Ticks(4);
  }
  EXPECT_EQ(Put(), "a|b|c|");
}

TEST_F(GameTimerTest, AGameThatDoesNotRunGetsAMapAtTheFirstTick) {
  SetRunning(*game_, false);
  run.StartList();
  Ticks(1);
  EXPECT_EQ(Put(), "a|");
  Ticks(20);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(GameTimerTest, AGameThatWasKilledReadsAsOneThatHasEnded) {
  run.StartList();
  Ticks(2);
  game_->ended = true;
  Ticks(5);
  EXPECT_EQ(Put(), "a|");
  EXPECT_TRUE(told.empty());
  EXPECT_TRUE(reported.empty());
}

TEST_F(RunTest, AnUnattachedRunInsertsAMapAtItsFirstTick) {
  Rows({"a"});
  run.StartList();
  Ticks(1);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(RunTest, ATickThatComesWhileOneIsAtWorkIsLeftOut) {
  Rows({"a", "b", "c"});
  const auto game = StartGame(true);
  AttachTo(*game);
  window.uses_game_timer = true;
  run.StartList();
  SetRoundClock(*game, 5);
  const TimerId timer = clock.StartTimer(AutoHostRun::kTickMs, [this] { run.Tick(); });
  clock.AdvanceMs(AutoHostRun::kTickMs);
  SetRoundClock(*game, 0);
  clock.AdvanceMs(12 * AutoHostRun::kTickMs);
  clock.StopTimer(timer);
  EXPECT_EQ(Put(), "a|");
}

// ---- which map -----------------------------------------------------------------------------------------------------

TEST_F(RunTest, AListOfOneMapIsInsertedEachTimeAndStaysSelected) {
  Rows({"a"});
  run.InsertNow();
  run.InsertNow();
  EXPECT_EQ(Put(), "a|a|");
  EXPECT_EQ(window.rows[0].inserts, 2);
  EXPECT_EQ(window.current, 0);
  EXPECT_TRUE(window.rows[0].selected);
}

TEST_F(RunTest, BehindTheLastRowComesTheFirst) {
  Rows({"a", "b"});
  for (int insert = 0; insert < 3; ++insert) run.InsertNow();
  EXPECT_EQ(Put(), "a|b|a|");
  EXPECT_FALSE(window.rows[1].selected);
  EXPECT_TRUE(window.rows[0].selected);
}

TEST_F(RunTest, OneRowAtRandomIsAlwaysThatRow) {
  Rows({"a"});
  run.fields.Random = true;
  draws = {0.0, 0.49, 0.99};
  for (int insert = 0; insert < 3; ++insert) run.InsertNow();
  EXPECT_EQ(Put(), "a|a|a|");
}

TEST_F(RunTest, ADrawIsRoundedToTheNearestRowTiesToEven) {
  Rows({"a", "b", "c", "d"});
  run.fields.Random = true;
  draws = {0.0, 0.5 / 3, 1.5 / 3, 2.5 / 3, 0.999};
  for (int insert = 0; insert < 5; ++insert) run.InsertNow();
  EXPECT_EQ(Put(), "a|a|c|c|d|");
  EXPECT_EQ(window.drawn, "d");
  EXPECT_EQ(window.current, -1);
}

TEST_F(RunTest, AWebAddressIsFetchedAndWhatLiesThereIsPut) {
  Rows({"http://maps.example/a.bms"});
  run.InsertNow();
  EXPECT_EQ(downloads, std::vector<std::string>{"http://maps.example/a.bms"});
  EXPECT_EQ(Put(), "file.tmp|");
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].reason, "it was asked for");
}

TEST_F(RunTest, ADownloadThatFailsPutsWhatAnEarlierOneLeftAndTheLogSaysSo) {
  Rows({"http://maps.example/a.bms"});
  dead_urls = {"http://maps.example/a.bms"};
  run.InsertNow();
  EXPECT_EQ(Put(), "file.tmp|");
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, RunEvent::Kind::kInserted);
  EXPECT_EQ(events[0].row, 0);
  EXPECT_EQ(events[0].map, "http://maps.example/a.bms");
  EXPECT_EQ(events[0].reason, "it was asked for; the download failed: the map of an earlier download went in");
}

TEST_F(RunTest, ADownloadThatFailsWithNothingLeftByAnEarlierOneIsAFailureOfItsRow) {
  Rows({"http://maps.example/a.bms", "b"});
  dead_urls = {"http://maps.example/a.bms"};
  bad_maps = {"file.tmp"};
  run.InsertNow();
  EXPECT_EQ(Put(), "b|");
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].kind, RunEvent::Kind::kFailed);
  EXPECT_EQ(events[0].row, 0);
  EXPECT_EQ(events[0].reason, "The download failed. File not found: file.tmp");
}

TEST_F(RunTest, AnInsertThatRaisesIsNotedWithItsRow) {
  Rows({"a", "b"});
  raising_maps = {"b"};
  run.InsertNow();
  run.InsertNow();
  EXPECT_EQ(reported, std::vector<int>{57});
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[1].kind, RunEvent::Kind::kFailed);
  EXPECT_EQ(events[1].row, 1);
  EXPECT_EQ(events[1].map, "b");
  EXPECT_EQ(events[1].reason, "Device I/O error");
}

TEST_F(RunTest, AnInsertThatFindsNoRowIsNotedWithoutOne) {
  Rows({});
  run.InsertNow();
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].row, -1);
  EXPECT_EQ(events[0].map, "");
}

TEST_F(RunTest, TheMissionsNameIsTheOneOfTheMoment) {
  Rows({"a"});
  run.fields.Rename = "D08M03.BMS";
  run.InsertNow();
  EXPECT_EQ(missions, std::vector<std::string>{"D08M03.BMS"});
}

TEST_F(RunTest, AListThatWasEmptiedInTheMiddleIsReportedAndTheRunGoesOn) {
  Rows({"a"});
  run.StartList();
  Rows({});
  Ticks(1);
  EXPECT_EQ(reported, std::vector<int>{5});
  Rows({"b"});
  run.InsertNow();
  EXPECT_EQ(Put(), "b|");
}

// ---- insert now, pause ---------------------------------------------------------------------------------------------

TEST_F(RunTest, InsertNowStartsTheClockAnewAndSetsTheState) {
  Rows({"a"});
  window.shown_minutes = "3";
  run.InsertNow();
  EXPECT_TRUE(run.fields.PState);
  EXPECT_EQ(window.shown_minutes, "15");
  EXPECT_EQ(window.shown_seconds, "58");
}

TEST_F(RunTest, InsertNowWithoutATimeShowsTenFifty) {
  Rows({"a"});
  LongestTime("", "58");
  run.InsertNow();
  EXPECT_EQ(window.shown_minutes, "10");
  EXPECT_EQ(window.shown_seconds, "50");
}

TEST_F(RunTest, InsertNowWhilePausedInsertsAndLeavesTheRunPaused) {
  Rows({"a"});
  run.StartList();
  run.Pause();
  run.InsertNow();
  EXPECT_EQ(Put(), "a|");
  EXPECT_EQ(window.steps, (std::vector<RunStep>{RunStep::kStart, RunStep::kPause}));
  run.Continue();
  EXPECT_EQ(window.steps.back(), RunStep::kContinue);
}

// ---- failures ------------------------------------------------------------------------------------------------------

TEST_F(RunTest, AFailedMapIsToldAndTheNextOneTriedAtOnce) {
  Rows({"a", "b"});
  bad_maps = {"a"};
  run.InsertNow();
  EXPECT_EQ(Put(), "b|");
  EXPECT_EQ(window.failure, "WARNING ERROR INSERTING MAP a ACTION TAKEN: NEXT MAP INSERTED.");
  EXPECT_EQ(run.fields.Errors, 1);
  EXPECT_EQ(window.rows[0].inserts, 1);
}

TEST_F(RunTest, TheEleventhFailureEndsTheRetriesAndALaterSuccessLeavesItsText) {
  Rows({"a"});
  bad_maps = {"a"};
  run.InsertNow();
  EXPECT_EQ(run.fields.Errors, 10);
  EXPECT_EQ(window.rows[0].inserts, 11);
  EXPECT_EQ(window.failure, "WARNING ERROR INSERTING LAST 10 MAPS FAILED!!!");
  bad_maps.clear();
  run.InsertNow();
  EXPECT_EQ(Put(), "a|");
  EXPECT_EQ(window.failure, "WARNING ERROR INSERTING LAST 10 MAPS FAILED!!!");
  EXPECT_TRUE(window.failure_is_shown);
  run.StopList();
  EXPECT_FALSE(window.failure_is_shown);
}

TEST_F(RunTest, AfterTheEleventhFailureTimedInsertsGoOn) {
  Rows({"a"});
  bad_maps = {"a"};
  LongestTime("0", "2");
  const auto game = StartGame(true);
  AttachTo(*game);
  run.StartList();
  Ticks(2);
  EXPECT_EQ(window.rows[0].inserts, 11);
  Ticks(2);
  EXPECT_EQ(window.rows[0].inserts, 12);
  EXPECT_EQ(window.failure, "WARNING ERROR INSERTING LAST 10 MAPS FAILED!!!");
}

// ---- the console ---------------------------------------------------------------------------------------------------

TEST_F(RunTest, TheResetCommandIsTypedIntoTheConsoleBeforeTheMapIsPut) {
  Rows({"a"});
  const auto game = StartGame(true);
  AttachTo(*game);
  window.sends_reset = true;
  std::vector<std::pair<int32_t, uint64_t>> keys;
  game->on_key = [&](int32_t key) {
    keys.emplace_back(key, clock.NowMs());
    EXPECT_TRUE(put_maps.empty());
    if (key == 13) SetRunning(*game, false);
  };
  run.InsertNow();
  const std::vector<std::pair<int32_t, uint64_t>> expected{{192, 0}, {13, 1400}};
  EXPECT_EQ(keys, expected);
  EXPECT_EQ(game->TextAt(static_cast<uint32_t>(kBuild.MemoryAdress)), "resetgames");
  EXPECT_EQ(clock.NowMs(), 1400u);
  EXPECT_EQ(Put(), "a|");
}

TEST_F(RunTest, AWholeRoundWithResetCommandInsertsOneMap) {
  Rows({"a", "b"});
  const auto game = StartGame(true);
  window.uses_game_timer = true;
  window.sends_reset = true;
  run.fields.DfVersion = 0;
  game->on_key = [&](int32_t key) {
    if (key == 13) SetRunning(*game, false);
  };
  run.StartList();
  SetRoundClock(*game, 100);
  Ticks(3);
  SetRoundClock(*game, 0);
  Ticks(1);
  EXPECT_EQ(Put(), "a|");
  Ticks(3);
  EXPECT_EQ(Put(), "a|");
  SetRoundClock(*game, 900);
  SetRunning(*game, true);
  Ticks(5);
  EXPECT_EQ(Put(), "a|");
  SetRunning(*game, false);
  Ticks(2);
  EXPECT_EQ(Put(), "a|b|");
}

TEST_F(RunTest, AWindowThatClosesDuringTheWaitPutsNothing) {
  Rows({"a"});
  const auto game = StartGame(true);
  AttachTo(*game);
  const TimerId timer = clock.StartTimer(1000, [this] { window.open = false; });
  run.InsertNow();
  clock.StopTimer(timer);
  EXPECT_EQ(Put(), "");
  EXPECT_LE(clock.NowMs(), 1010u);
}

}  // namespace
}  // namespace kestrun
