// A night that is played in advance.
#include "game/run/rehearsal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/number.h"
#include "formats/bms/bms_writer.h"
#include "game/memory/type_message.h"
#include "game/run/rehearse_all.h"
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
  const Rehearsal night = RehearseAll(plan);
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
  const Rehearsal night = RehearseAll(plan);
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
  const Rehearsal night = RehearseAll(plan);
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
  const Rehearsal night = RehearseAll(plan);
  EXPECT_TRUE(std::ranges::is_sorted(night.lines, {}, &RehearsalLine::at_ms));
}

TEST_F(RehearsalTest, AMessengerThatIsSetToAnotherGameIsTold) {
  plan.messenger.messages = {{"hello", 84}};
  plan.messenger.seconds = "60";
  plan.messenger.build = 2;
  EXPECT_THAT(RehearseAll(plan).told, ElementsAre("The auto messenger is set to another game: no message goes out."));
}

TEST_F(RehearsalTest, AFileThatIsNoMissionIsRefusedByTheGameUntilTheNextMapComes) {
  WriteFile(Map("Alpha"), "no mission");
  plan.uses_game_timer = false;
  plan.minutes = "0";
  plan.seconds = "30";
  const Rehearsal night = RehearseAll(plan);
  EXPECT_THAT(All(night, Kind::kRefused)[0], HasSubstr("D08M03.BMS from the loose file: it is cut off"));
}

TEST_F(RehearsalTest, AWebAddressIsNotFetched) {
  plan.rows = {"http://maps.test/Harbour.bms"};
  const Rehearsal night = RehearseAll(plan);
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
  const Rehearsal night = RehearseAll(plan);
  const std::vector<std::string> typed = All(night, Kind::kMessage);
  ASSERT_FALSE(typed.empty());
  EXPECT_EQ(typed[0], "console resetgames");
}

TEST_F(RehearsalTest, MessagesGoOutWithTheirWordsFilledIn) {
  plan.messenger.messages = {{"Now %map%, then %next%", 84}};
  plan.messenger.seconds = "600";
  plan.messenger.fills_in = true;
  const Rehearsal night = RehearseAll(plan);
  const std::vector<std::string> messages = All(night, Kind::kMessage);
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages[0], "public chat Now Alpha, then Bravo");
  EXPECT_EQ(night.messages, static_cast<int>(messages.size()));
}

TEST_F(RehearsalTest, WithoutTheirCheckBoxMessagesGoOutByteForByte) {
  plan.messenger.messages = {{"Now %map%", 84}};
  plan.messenger.seconds = "600";
  EXPECT_EQ(All(RehearseAll(plan), Kind::kMessage)[0], "public chat Now %map%");
}

TEST_F(RehearsalTest, TheLongestTimeWithoutAChangeIsMeasured) {
  const Rehearsal night = RehearseAll(plan);
  // A round of 900 seconds, and what the game takes to leave it and to begin the next one.
  EXPECT_GE(night.longest_ms, 900'000U);
  EXPECT_LE(night.longest_ms, 920'000U);
}

TEST_F(RehearsalTest, TheGamesFolderIsNotTouched) {
  TellGameFolder();
  WriteFile(GamePath("D08M03.BMS"), "the game's own");
  static_cast<void>(RehearseAll(plan));
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), "the game's own");
  EXPECT_EQ(native_files.List(Path("game")).size(), 1U);
}

TEST_F(RehearsalTest, TheSameListIsDrawnTheSameWayEachTime) {
  plan.random = true;
  EXPECT_EQ(RehearsalTexts(RehearseAll(plan)), RehearsalTexts(RehearseAll(plan)));
}

// The program's draws, run through from their beginning up to the one that it made last.
std::mt19937 DrawsBehind(double last) {
  std::mt19937 draws(std::mt19937::default_seed);
  constexpr int kMostDraws = 10'000'000;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    if (draws() / 4294967296.0 == last) return draws;
  }
  ADD_FAILURE() << "the program has made no such draw";
  return draws;
}

TEST_F(RehearsalTest, TheProgramsNextDrawsAreWhatTheyWere) {
  plan.random = true;
  plan.messenger.messages = {{"one", 84}, {"two", 84}};
  plan.messenger.seconds = "60";
  plan.messenger.random = true;
  std::mt19937 draws = DrawsBehind(RandomDraw());
  const Rehearsal night = RehearseAll(plan);
  EXPECT_GT(night.inserted, 2);
  EXPECT_GT(night.messages, 2);
  for (int draw = 0; draw < 3; ++draw) EXPECT_EQ(RandomDraw(), draws() / 4294967296.0);
}

// The message that is typed lets window events through, such as a click on "Rehearse".
TEST_F(RehearsalTest, ANightIsTheSameWhileALineIsTypedIntoTheGameBesideIt) {
  plan.messenger.messages = {{"hello", 84}};
  plan.messenger.seconds = "60";
  const Rehearsal before = RehearseAll(plan);
  ASSERT_GT(before.messages, 0);
  const std::shared_ptr<HeadlessGame> game = desktop.running_games().Start("A game");
  game->AddMemory(0x1000, 256);
  const std::unique_ptr<GameMemory> memory = desktop.running_games().MakeMemory({});
  ASSERT_TRUE(memory->AttachToWindow("A game"));
  Rehearsal meanwhile;
  bool was_taken = false;
  desktop.clock().Post([&] {
    was_taken = IsTextLineTaken();
    meanwhile = RehearseAll(plan);
    EXPECT_TRUE(IsTextLineTaken()) << "the line of the game beside is still the other's";
  });
  TypeMessage(*memory, desktop.clock(), {kPublicChatKey, 0x1000, 700}, "hello");
  EXPECT_TRUE(was_taken);
  EXPECT_EQ(RehearsalTexts(meanwhile), RehearsalTexts(before));
  EXPECT_FALSE(IsTextLineTaken());
}

TEST_F(RehearsalTest, AFolderThatIsClosedFailsEachMapAsThePutWould) {
  plan.uses_game_timer = false;
  plan.rows.push_back(Path("gone.bms"));
  plan.put_refusal = "The game's folder needs administrator rights: C:\\Game";
  const Rehearsal night = RehearseAll(plan);
  EXPECT_EQ(night.inserted, 0);
  // The first ten failures are followed by another try at once, and the eleventh ends the tries.
  ASSERT_GE(night.failed, 11);
  for (int failure = 0; failure < 11; ++failure) EXPECT_EQ(night.lines[failure].at_ms, 999U);
  EXPECT_EQ(night.lines[0].kind, Kind::kFailed);
  EXPECT_EQ(night.lines[0].row, 0);
  EXPECT_EQ(night.lines[0].reason, "The game's folder needs administrator rights: C:\\Game");
  EXPECT_THAT(night.lines[3].reason, HasSubstr("File not found")) << "a put reads the map first";
}

TEST_F(RehearsalTest, AMapThatIsNotReadCountsAsGoodAndIsNamed) {
  const Rehearsal night = Rehearse(plan, {});
  EXPECT_THAT(night.unread, ElementsAre(Map("Alpha"), Map("Bravo"), Map("Charlie")));
  EXPECT_EQ(night.inserted, 4);
  EXPECT_EQ(night.failed, 0);
  EXPECT_THAT(Played(night), ElementsAre("Alpha", "Bravo", "Charlie", "Alpha"));
  EXPECT_EQ(RehearsalSummary(night, 1)[0], "Not read, and taken for good: 3 maps, the first is " + Map("Alpha") + ".");
}

TEST_F(RehearsalTest, AMapThatFailsLeadsTheNightToMapsThatItDidNotAskForBefore) {
  plan.uses_game_timer = false;
  plan.rows = {Path("gone.bms"), Map("Bravo"), Map("Charlie")};
  const Rehearsal first = Rehearse(plan, {});
  RehearsedMaps maps;
  maps.emplace(plan.rows[0], ReadRehearsedMap(native_files, plan.rows[0]));
  const Rehearsal second = Rehearse(plan, maps);
  EXPECT_EQ(first.unread.front(), plan.rows[0]);
  EXPECT_EQ(second.unread.front(), plan.rows[1]);
  EXPECT_EQ(second.lines[0].kind, Kind::kFailed);
  EXPECT_EQ(second.lines[1].what, plan.rows[1]);
  EXPECT_EQ(second.lines[1].at_ms, 999U);
}

TEST_F(RehearsalTest, AnEmptyListIsToldAndPlaysNothing) {
  plan.rows.clear();
  const Rehearsal night = RehearseAll(plan);
  EXPECT_THAT(night.told, ElementsAre("No maps?"));
  EXPECT_TRUE(night.lines.empty());
  EXPECT_THAT(RehearsalSummary(night, 8),
              ElementsAre("No maps?", "In 8 hours: 0 maps inserted, 0 failures, 0 messages."));
}

TEST_F(RehearsalTest, WithoutAFileNameNothingIsPut) {
  plan.Rename.clear();
  const Rehearsal night = RehearseAll(plan);
  ASSERT_FALSE(night.lines.empty());
  EXPECT_EQ(night.lines[0].kind, Kind::kFailed);
  EXPECT_EQ(night.lines[0].reason, "There is no file name to put the map under.");
}

TEST_F(RehearsalTest, EightHoursOfAThousandMapsArePlayedToTheirEnd) {
  plan.rows.assign(1000, Map("Alpha"));
  plan.hours = 8;
  plan.round_seconds = 60;
  const Rehearsal night = RehearseAll(plan);
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
