// The messenger's run beside a simulated game: what is sent, when, on which line, and what is not.
#include "game/builds.h"
#include "game/run/rotation.h"
#include "windows/messenger/messenger_fixture.h"

namespace kestrun {
namespace {

constexpr int32_t kPublic = 84;
constexpr int32_t kTeam = 89;
constexpr int32_t kCommand = 192;
constexpr int32_t kStartPublic = 0;
constexpr int32_t kStartTeam = 1;
constexpr int32_t kStartCommand = 2;

class MessengerRunTest : public MessengerTest {};
class MessengerBuildTest : public MessengerTest, public testing::WithParamInterface<size_t> {};

// Only the lines that were sent while a round ran.
bool IsOnlySentInRounds(const std::vector<std::string>& log) {
  bool is_playing = false;
  for (const std::string& line : log) {
    const std::string text = line.substr(11);
    if (text.starts_with("round ")) is_playing = true;
    if (text.starts_with("idle ")) is_playing = false;
    const bool is_line = text.starts_with("public ") || text.starts_with("team ") || text.starts_with("console ");
    if (is_line && !is_playing) return false;
  }
  return true;
}

TEST_P(MessengerBuildTest, EachMessageGoesOutOnceInOrderOnItsLineWhileARoundRuns) {
  PutMission();
  GameInMemory game(desktop, Server(GetParam()));
  Fill({{"zero", kPublic}, {"one", kTeam}, {"two", kCommand}, {"three", kPublic}});
  Open().CmbVersion.ListIndex = static_cast<int>(GetParam());
  Chat().Text1.Text = "8";
  Chat().Command3.Press();
  Seconds(50);
  const bool has_byte = kMessengerBuilds[GetParam()].GameEndAddress != 0;
  EXPECT_EQ(Heard(game), has_byte ? "team one|console two|public three|public zero|" : "");
  Seconds(100);
  EXPECT_TRUE(IsOnlySentInRounds(game.log));
  EXPECT_EQ(Chat().run.MemoryAdress, kMessengerBuilds[GetParam()].MemoryAdress);
  EXPECT_EQ(Chat().run.GameEndAddress, kMessengerBuilds[GetParam()].GameEndAddress);
}

INSTANTIATE_TEST_SUITE_P(AllBuilds, MessengerBuildTest, testing::Range(size_t{0}, kMessengerBuilds.size()));

TEST_F(MessengerRunTest, TheBuildWithoutAnAddressReadsTheByteAtAddressZero) {
  const auto game = desktop.running_games().Start("Delta Force,  V1.3.0.37");
  game->SetByte(0, 1);
  game->AddMemory(0x8723E0, 256);
  Fill({{"hello", kPublic}});
  Open().CmbVersion.ListIndex = 4;
  Chat().Text1.Text = "2";
  Chat().Command3.Press();
  Seconds(4);
  EXPECT_EQ(game->keys, (std::vector<int32_t>{84, 13}));
  EXPECT_EQ(game->TextAt(0x8723E0), "hello");
}

TEST_F(MessengerRunTest, TheFirstMessageTakesOneTickMoreThanTheOthers) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->SetByte(0x5A7F54, 1);
  game->AddMemory(0xDE575C, 256);
  Fill({{"hello", kPublic}});
  Open().Text1.Text = "10";
  Chat().Command3.Press();
  EXPECT_EQ(Chat().lbltime.Caption.get(), "10");
  Seconds(10);
  EXPECT_EQ(Chat().lbltime.Caption.get(), "0");
  EXPECT_TRUE(game->keys.empty());
  Seconds(1);
  EXPECT_EQ(game->keys.size(), 2U);
  EXPECT_EQ(Chat().lbltime.Caption.get(), "9");
  // The send took 1.2 seconds: the tick that came due meanwhile fires at once.
  Seconds(8);
  EXPECT_EQ(game->keys.size(), 2U);
  Seconds(1);
  EXPECT_EQ(game->keys.size(), 4U);
}

TEST_F(MessengerRunTest, WordsAreFilledInWithWhatTheAutoHostPlaysOnlyWhenThatIsWished) {
  PutMission();
  GameInMemory game(desktop, Server(0));
  Fill({{"%map%, in %left% %next%, %time%", kPublic}});
  Open().Text1.Text = "5";
  Chat().Command3.Press();
  Seconds(18);
  EXPECT_EQ(Heard(game), "public %map%, in %left% %next%, %time%|");
  Chat().ChFillIn.Value = 1;
  SetPresentRotation({"Harbour", "Desert", "4:05"});
  Seconds(5);
  SetPresentRotation({});
  Seconds(5);
  EXPECT_EQ(Heard(game),
            "public %map%, in %left% %next%, %time%|public Harbour, in 4:05 Desert, 12:00|public ?, in ? ?, 12:00|");
}

TEST_F(MessengerRunTest, ATextThatBecomesTooLongForTheGamesLineIsCut) {
  PutMission();
  GameInMemory game(desktop, Server(0));
  Fill({{"%map%", kPublic}});
  Open().Text1.Text = "5";
  Chat().ChFillIn.Value = 1;
  SetPresentRotation({std::string(200, 'x'), "", ""});
  Chat().Command3.Press();
  Seconds(18);
  SetPresentRotation({});
  EXPECT_EQ(Heard(game), "public " + std::string(127, 'x') + "|");
}

TEST_F(MessengerRunTest, AListWithOnlyGameStartMessagesIsSentTwentySecondsAfterEachStartAndNeverByTheTick) {
  PutMission();
  GameInMemory game(desktop, Server(0));
  Fill({{"welcome", kStartPublic}, {"team up", kStartTeam}, {"motd", kStartCommand}});
  Open().Text1.Text = "3";
  Chat().Command3.Press();
  Seconds(75);
  EXPECT_EQ(Heard(game), "public welcome|team team up|console motd|");
  Seconds(70);
  EXPECT_EQ(Heard(game), "public welcome|team team up|console motd|public welcome|team team up|console motd|");
  EXPECT_EQ(Chat().lstmsg.ListIndex, 2);
}

TEST_F(MessengerRunTest, StartMessagesOfTwoGamesInARowGoOutOnceForEach) {
  PutMission();
  GameInMemory game(desktop, Server(0));
  Fill({{"welcome", kStartPublic}});
  Open().Command3.Press();
  Seconds(29);  // the round began after ten seconds and was seen at the next tick
  EXPECT_EQ(Heard(game), "");
  Seconds(5);
  EXPECT_EQ(Heard(game), "public welcome|");
  Seconds(70);
  EXPECT_EQ(Heard(game), "public welcome|public welcome|");
}

TEST_F(MessengerRunTest, AGameThatEndsWithinTheTwentySecondsGetsNoStartMessage) {
  PutMission();
  GameOptions options = Server(0);
  options.round_seconds = 15;
  options.pause_ms = 60000;
  GameInMemory game(desktop, options);
  Fill({{"welcome", kStartPublic}});
  Open().Command3.Press();
  Seconds(120);
  EXPECT_EQ(Heard(game), "");
}

TEST_F(MessengerRunTest, ASecondGameWithinTheTwentySecondsGetsItsOwnTime) {
  PutMission();
  GameOptions options = Server(0);
  options.round_seconds = 12;
  options.pause_ms = 4000;
  GameInMemory game(desktop, options);
  Fill({{"welcome", kStartPublic}});
  Open().Command3.Press();
  Seconds(100);
  EXPECT_EQ(Heard(game), "") << "no round lasts twenty seconds";
}

TEST_F(MessengerRunTest, TheTimerThatRunsFromOpeningFiresOnceAndSendsNothingWithoutAGame) {
  Fill({{"welcome", kStartPublic}});
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  EXPECT_TRUE(Open().TmrGameStart.Enabled);
  EXPECT_EQ(Chat().TmrGameStart.Interval, 20000);
  Seconds(21);
  EXPECT_FALSE(Chat().TmrGameStart.Enabled);
  EXPECT_TRUE(game->keys.empty());
}

TEST_F(MessengerRunTest, TheCommandResetgamesEndsTheRound) {
  PutMission();
  GameOptions options = Server(0);
  options.round_seconds = 600;
  GameInMemory game(desktop, options);
  Fill({{"resetgames", kCommand}});
  Open().Text1.Text = "30";
  Chat().Command3.Press();
  Seconds(60);
  EXPECT_EQ(game.LogOf("end"), (std::vector<std::string>{"of round 1: resetgames"}));
}

TEST_F(MessengerRunTest, AChangedIntervalCountsFromTheNextReloadOn) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->SetByte(0x5A7F54, 1);
  game->AddMemory(0xDE575C, 256);
  Fill({{"hello", kPublic}});
  Open().Text1.Text = "5";
  Chat().Command3.Press();
  Seconds(2);
  Chat().Text1.Text = "100";
  EXPECT_EQ(Chat().lbltime.Caption.get(), "3");
  Seconds(5);
  EXPECT_EQ(game->keys.size(), 2U);
  EXPECT_GT(std::stoi(Chat().lbltime.Caption.get()), 90);
}

TEST_F(MessengerRunTest, AnIntervalOfNothingSendsOneMessageAndNoFurtherOne) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->SetByte(0x5A7F54, 1);
  game->AddMemory(0xDE575C, 256);
  Fill({{"hello", kPublic}});
  Open().Text1.Text = "0";
  Chat().Command3.Press();
  Seconds(500);
  EXPECT_EQ(game->keys.size(), 2U);
  EXPECT_LT(std::stoi(Chat().lbltime.Caption.get()), 0);
}

TEST_F(MessengerRunTest, AnEmptyIntervalBecomesSixtyWithTheNextMessage) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->SetByte(0x5A7F54, 1);
  game->AddMemory(0xDE575C, 256);
  Fill({{"hello", kPublic}});
  Open().Text1.Text = "";
  Chat().Command3.Press();
  Seconds(1);
  EXPECT_EQ(game->keys.size(), 2U);
  EXPECT_EQ(Chat().Text1.Text.get(), "60");
}

TEST_F(MessengerRunTest, TheCountdownStandsStillBetweenGames) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->SetByte(0x5A7F54, 0);
  Fill({{"hello", kPublic}});
  Open().Command3.Press();
  Seconds(30);
  EXPECT_EQ(Chat().lbltime.Caption.get(), "60");
  EXPECT_EQ(Chat().LblState.Caption.get(), "Waiting for a game to run.");
  game->SetByte(0x5A7F54, 1);
  Seconds(1);
  EXPECT_EQ(Chat().lbltime.Caption.get(), "59");
  EXPECT_EQ(Chat().LblState.Caption.get(), "A game is running.");
}

TEST_F(MessengerRunTest, AGameStartMessageInTheListIsWalkedOver) {
  PutMission();
  GameOptions options = Server(0);
  options.round_seconds = 900;
  GameInMemory game(desktop, options);
  Fill({{"one", kPublic}, {"start", kStartPublic}, {"two", kTeam}, {"start", kStartPublic}});
  Open().Text1.Text = "30";
  Chat().Command3.Press();
  Seconds(180);
  // Behind the last timed row there is none: that tick sends nothing, and the next one wraps.
  EXPECT_EQ(Heard(game), "public start|public start|team two|public one|team two|");
}

TEST_F(MessengerRunTest, AtRandomOnlyTimedMessagesAreSentByTheTick) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->AddMemory(0xDE575C, 256);
  game->SetByte(0x5A7F54, 1);
  int timed = 0;
  game->on_key = [&](int32_t key) { timed += key == 13 && game->TextAt(0xDE575C) != "start" ? 1 : 0; };
  Fill({{"a", kPublic}, {"start", kStartPublic}, {"b", kTeam}, {"c", kPublic}});
  Open().Check1.Value = 1;
  Chat().Text1.Text = "5";
  Chat().Command3.Press();
  Seconds(1000);
  EXPECT_GT(timed, 150);
  EXPECT_GE(Chat().lstmsg.ListIndex, 0);
}

TEST_F(MessengerRunTest, AnyOtherNumberIsTheKeyOfATimedMessage) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->AddMemory(0xDE575C, 256);
  game->SetByte(0x5A7F54, 1);
  Fill({{"odd", 77}});
  Open().Text1.Text = "1";
  Chat().Command3.Press();
  Seconds(3);
  EXPECT_EQ(game->keys.at(0), 77);
}

TEST_F(MessengerRunTest, EnableWithAnEmptyListShowsTheErrorAndLeavesTheTimerOff) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  desktop.dialogs().ExpectBox("Error: 5\r\nInvalid procedure call or argument");
  Open().Command3.Press();
  EXPECT_TRUE(Chat().Command3.Enabled);
  EXPECT_FALSE(Chat().Command4.Enabled);
  EXPECT_FALSE(Chat().Timer.Enabled);
}

TEST_F(MessengerRunTest, WithoutTheGameTheUserIsAsked) {
  Fill({{"hello", kPublic}});
  ExpectNotOpen(BoxAnswer::kNo);
  Open().Command3.Press();
  EXPECT_FALSE(Chat().Timer.Enabled);
  ExpectNotOpen(BoxAnswer::kYes);
  Chat().Command3.Press();
  EXPECT_TRUE(Chat().Timer.Enabled);
  EXPECT_FALSE(Chat().Command3.Enabled);
  EXPECT_TRUE(Chat().Command4.Enabled);
  Chat().Command4.Press();
  EXPECT_FALSE(Chat().Timer.Enabled);
  EXPECT_TRUE(Chat().Command3.Enabled);
  EXPECT_FALSE(Chat().Command4.Enabled);
  EXPECT_EQ(Chat().LblState.Caption.get(), "Off: nothing is sent.");
}

TEST_F(MessengerRunTest, AGameThatTheSystemKeepsClosedSaysWhy) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->refuses_reading = true;
  Fill({{"hello", kPublic}});
  ExpectNotOpen(BoxAnswer::kNo);
  Open().Command3.Press();
  EXPECT_EQ(Chat().LblState.Caption.get(), kGameNotReadable);
}

TEST_F(MessengerRunTest, AGameThatHasGoneLosesItsMessagesSilently) {
  PutMission();
  GameInMemory game(desktop, Server(0));
  Fill({{"hello", kPublic}});
  Open().Text1.Text = "5";
  Chat().Command3.Press();
  Seconds(30);
  game.Kill();
  const std::string heard = Heard(game);
  Seconds(100);
  EXPECT_EQ(Heard(game), heard);
}

TEST_F(MessengerRunTest, ClosingTheWindowInTheMiddleOfAMessageEndsTheRun) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->AddMemory(0xDE575C, 256);
  game->SetByte(0x5A7F54, 1);
  Fill({{"hello", kPublic}, {"again", kPublic}});
  Open().Text1.Text = "1";
  game->on_key = [&](int32_t) { CloseAllWindows(); };
  Chat().Command3.Press();
  Seconds(60);
  EXPECT_EQ(game->keys, (std::vector<int32_t>{84, 13})) << "the line that is open is sent and closed";
}

TEST_F(MessengerRunTest, TheUserClosesTheWindowInTheMiddleOfAMessageAndTheLineIsStillWrittenAndClosed) {
  const auto game = desktop.running_games().Start(std::string(kMessengerBuilds[0].window_title));
  game->AddMemory(0xDE575C, 256);
  game->SetByte(0x5A7F54, 1);
  Fill({{"hello", kPublic}, {"again", kPublic}});
  Open().Text1.Text = "1";
  game->on_key = [&](int32_t key) {
    if (key == kPublic) desktop.clock().Post([this] { Chat().Unload(); });
  };
  Chat().Command3.Press();
  Seconds(60);
  EXPECT_EQ(game->keys, (std::vector<int32_t>{84, 13}));
  EXPECT_EQ(game->TextAt(0xDE575C), "again");
}

}  // namespace
}  // namespace kestrun
