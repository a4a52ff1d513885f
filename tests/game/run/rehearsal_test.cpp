// A night that is played in advance.
#include "game/run/rehearsal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/bms/bms_writer.h"
#include "game/simulated/stock_mission.h"
#include "program/frame_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Kind = RehearsalLine::Kind;

class RehearsalTest : public FrameTest {
 protected:
  RehearsalTest() {
    for (const char* name : {"Alpha", "Bravo", "Charlie"}) WriteFile(Map(name), Mission(name));
    plan.rows = {Map("Alpha"), Map("Bravo"), Map("Charlie")};
    plan.Rename = "D08M03.BMS";
    plan.minutes = "15";
    plan.seconds = "58";
    plan.uses_game_timer = true;
    plan.first_mission = MissionFromBytes(Mission("First"), "loose file", false);
    plan.hours = 1;
    plan.begins = 36892.5;
  }

  [[nodiscard]] std::string Map(const std::string& name) const { return Path(name + ".bms"); }
  [[nodiscard]] static Bytes Mission(const std::string& name) {
    MissionFields fields;
    fields.mission_name = name;
    return WriteMission(fields);
  }
  // Of the lines of a kind, what they say.
  [[nodiscard]] static std::vector<std::string> All(const Rehearsal& rehearsal, Kind kind) {
    std::vector<std::string> found;
    for (const RehearsalLine& line : rehearsal.lines) {
      if (line.kind == kind) found.push_back(line.what);
    }
    return found;
  }
  // The names of the missions that the server plays, in order.
  [[nodiscard]] static std::vector<std::string> Played(const Rehearsal& rehearsal) {
    std::vector<std::string> names;
    for (const std::string& map : All(rehearsal, Kind::kRound)) {
      const size_t name = map.find('"') + 1;
      names.push_back(map.substr(name, map.rfind('"') - name));
    }
    return names;
  }

  RehearsalPlan plan;
};

TEST_F(RehearsalTest, EachRoundOfTheGameBringsTheNextMap) {
  const Rehearsal night = Rehearse(plan);
  // The game is between two rounds when the run starts: its first round plays the first map already.
  EXPECT_THAT(Played(night), ElementsAre("Alpha", "Bravo", "Charlie", "Alpha"));
  EXPECT_EQ(night.inserted, 4);
  EXPECT_EQ(night.failed, 0);
  EXPECT_TRUE(night.told.empty());
  EXPECT_EQ(night.lines[0].what, Map("Alpha"));
  EXPECT_EQ(night.lines[0].row, 0);
  EXPECT_EQ(night.lines[0].reason, "the game ended");
  EXPECT_EQ(night.lines[0].at_ms, 999U);
}

TEST_F(RehearsalTest, TheCountdownInsertsAfterItsNineHundredFortyThreeTicks) {
  plan.uses_game_timer = false;
  const Rehearsal night = Rehearse(plan);
  // Nothing is attached: the first tick takes the game for one that has ended, and the times follow from there.
  ASSERT_GE(night.lines.size(), 2U);
  EXPECT_EQ(night.lines[0].at_ms, 999U);
  std::vector<uint64_t> inserted;
  for (const RehearsalLine& line : night.lines) {
    if (line.kind == Kind::kInserted) inserted.push_back(line.at_ms);
  }
  ASSERT_GE(inserted.size(), 3U);
  EXPECT_EQ(inserted[1] - inserted[0], 943U * 999U);
  EXPECT_EQ(inserted[2] - inserted[1], 943U * 999U);
}

TEST_F(RehearsalTest, AMapThatIsMissingFailsAndTheNextOneGoesIn) {
  plan.rows.insert(plan.rows.begin(), Path("gone.bms"));
  const Rehearsal night = Rehearse(plan);
  ASSERT_FALSE(night.lines.empty());
  EXPECT_EQ(night.lines[0].kind, Kind::kFailed);
  EXPECT_EQ(night.lines[0].what, Path("gone.bms"));
  EXPECT_THAT(night.lines[0].reason, HasSubstr("File not found"));
  for (const std::string& text : RehearsalTexts(night)) EXPECT_EQ(text.find_first_of("\r\n\t"), std::string::npos);
  EXPECT_EQ(night.lines[1].kind, Kind::kInserted);
  EXPECT_EQ(night.lines[1].reason, "the map before it failed");
  EXPECT_EQ(Played(night)[0], "Alpha");
}

TEST_F(RehearsalTest, LinesStandInTheOrderOfTimeAlsoWhereNothingIsAttached) {
  plan.uses_game_timer = false;
  plan.rows = {Path("gone.bms"), Map("Alpha")};
  const Rehearsal night = Rehearse(plan);
  EXPECT_TRUE(std::ranges::is_sorted(night.lines, {}, &RehearsalLine::at_ms));
}

TEST_F(RehearsalTest, AMessengerThatIsSetToAnotherGameIsTold) {
  plan.messenger.messages = {{"hello", 84}};
  plan.messenger.seconds = "60";
  plan.messenger.build = 2;
  EXPECT_THAT(Rehearse(plan).told, ElementsAre("The auto messenger is set to another game: no message goes out."));
}

TEST_F(RehearsalTest, AFileThatIsNoMissionIsRefusedByTheGameUntilTheNextMapComes) {
  WriteFile(Map("Alpha"), "no mission");
  plan.uses_game_timer = false;
  plan.minutes = "0";
  plan.seconds = "30";
  const Rehearsal night = Rehearse(plan);
  EXPECT_THAT(All(night, Kind::kRefused)[0], HasSubstr("D08M03.BMS from the loose file: it is cut off"));
}

TEST_F(RehearsalTest, AWebAddressIsNotFetched) {
  plan.rows = {"http://maps.test/Harbour.bms"};
  const Rehearsal night = Rehearse(plan);
  ASSERT_FALSE(night.lines.empty());
  EXPECT_EQ(night.lines[0].kind, Kind::kInserted);
  EXPECT_EQ(night.lines[0].what, "http://maps.test/Harbour.bms");
  EXPECT_EQ(night.lines[0].reason, "A web address is not fetched in a rehearsal.");
  EXPECT_TRUE(desktop.internet().requests.empty());
}

TEST_F(RehearsalTest, TheResetCommandIsTypedBeforeEachMap) {
  plan.sends_reset_games = true;
  plan.uses_game_timer = false;
  plan.minutes = "5";
  const Rehearsal night = Rehearse(plan);
  const std::vector<std::string> typed = All(night, Kind::kMessage);
  ASSERT_FALSE(typed.empty());
  EXPECT_EQ(typed[0], "console resetgames");
}

TEST_F(RehearsalTest, MessagesGoOutWithTheirWordsFilledIn) {
  plan.messenger.messages = {{"Now %map%, then %next%", 84}};
  plan.messenger.seconds = "600";
  plan.messenger.fills_in = true;
  const Rehearsal night = Rehearse(plan);
  const std::vector<std::string> messages = All(night, Kind::kMessage);
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages[0], "public chat Now Alpha, then Bravo");
  EXPECT_EQ(night.messages, static_cast<int>(messages.size()));
}

TEST_F(RehearsalTest, WithoutTheirCheckBoxMessagesGoOutByteForByte) {
  plan.messenger.messages = {{"Now %map%", 84}};
  plan.messenger.seconds = "600";
  EXPECT_EQ(All(Rehearse(plan), Kind::kMessage)[0], "public chat Now %map%");
}

TEST_F(RehearsalTest, TheLongestTimeWithoutAChangeIsMeasured) {
  const Rehearsal night = Rehearse(plan);
  // A round of 900 seconds, and what the game takes to leave it and to begin the next one.
  EXPECT_GE(night.longest_ms, 900'000U);
  EXPECT_LE(night.longest_ms, 920'000U);
}

TEST_F(RehearsalTest, TheGamesFolderIsNotTouched) {
  TellGameFolder();
  WriteFile(GamePath("D08M03.BMS"), "the game's own");
  static_cast<void>(Rehearse(plan));
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "the game's own");
  EXPECT_EQ(native_files.List(Path("game")).size(), 1U);
}

TEST_F(RehearsalTest, TheProgramsNextDrawsAreWhatTheyWere) {
  plan.random = true;
  const Rehearsal one = Rehearse(plan);
  const Rehearsal other = Rehearse(plan);
  EXPECT_EQ(RehearsalTexts(one), RehearsalTexts(other));
}

TEST_F(RehearsalTest, AnEmptyListIsToldAndPlaysNothing) {
  plan.rows.clear();
  const Rehearsal night = Rehearse(plan);
  EXPECT_THAT(night.told, ElementsAre("No maps?"));
  EXPECT_TRUE(night.lines.empty());
  EXPECT_THAT(RehearsalSummary(night, 8),
              ElementsAre("No maps?", "In 8 hours: 0 maps inserted, 0 failures, 0 messages."));
}

TEST_F(RehearsalTest, WithoutAFileNameNothingIsPut) {
  plan.Rename.clear();
  const Rehearsal night = Rehearse(plan);
  ASSERT_FALSE(night.lines.empty());
  EXPECT_EQ(night.lines[0].kind, Kind::kFailed);
  EXPECT_EQ(night.lines[0].reason, "There is no file name to put the map under.");
}

TEST_F(RehearsalTest, EightHoursOfAThousandMapsArePlayedToTheirEnd) {
  plan.rows.assign(1000, Map("Alpha"));
  plan.hours = 8;
  plan.round_seconds = 60;
  const Rehearsal night = Rehearse(plan);
  EXPECT_GT(night.inserted, 400);
  EXPECT_EQ(night.failed, 0);
}

TEST(RehearsalTextTest, ADurationHasHoursMinutesAndSeconds) {
  EXPECT_EQ(DurationText(0), "0:00:00");
  EXPECT_EQ(DurationText(3'723'999), "1:02:03");
  EXPECT_EQ(DurationText(36'000'000), "10:00:00");
}

TEST(RehearsalTextTest, LinesStandInColumns) {
  Rehearsal night;
  night.lines = {{999, Kind::kInserted, 0, "C:\\a.bms", "the game ended"},
                 {61'000, Kind::kMessage, -1, "team chat hi", ""}};
  EXPECT_THAT(RehearsalTexts(night), ElementsAre("0:00:00   Inserted  row 1    C:\\a.bms  (the game ended)",
                                                 "0:01:01   Message            team chat hi"));
}

TEST(RehearsalTextTest, TheReportBeginsWithTheSummary) {
  Rehearsal night;
  night.inserted = 1;
  night.messages = 2;
  night.longest_ms = 61'000;
  night.lines = {{999, Kind::kInserted, 0, "a", "b"}};
  EXPECT_EQ(RehearsalReport(night, 1),
            "In 1 hour: 1 map inserted, 0 failures, 2 messages.\r\n"
            "Longest time without a change: 0:01:01, from 0:00:00 on.\r\n"
            "0:00:00   Inserted  row 1    a  (b)\r\n");
}

}  // namespace
}  // namespace kestrun
