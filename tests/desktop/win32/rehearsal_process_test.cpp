// A rehearsal beside the night itself: the windows of the program, over a real clock that is sped up, beside the game
// as a process of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "base/convert.h"
#include "desktop/win32/game_process.h"
#include "desktop/win32/system/win32_clock.h"
#include "desktop/win32/system/win32_game_memory.h"
#include "game/run/rehearse_all.h"
#include "program/frame_fixture.h"
#include "windows/auto_host/frmputlist.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

// How many seconds of the night pass in one. The game's line has to open in the seventy milliseconds that are left of
// the messenger's seven hundred.
constexpr uint32_t kSpeed = 10;
// Ten times what a put may take: the map has to be there before the next round.
constexpr uint32_t kPauseMs = 10'000;
constexpr uint32_t kLeaveMs = 300;

// Waits take as much less time as the night goes faster.
class FastClock final : public Clock {
 public:
  uint64_t NowMs() override { return clock_.NowMs() * kSpeed; }
  double LocalDateTime() override { return clock_.LocalDateTime(); }
  void SleepMs(uint32_t milliseconds) override { clock_.SleepMs(milliseconds / kSpeed + 1); }
  void RunPendingEvents() override { clock_.RunPendingEvents(); }
  TimerId StartTimer(uint32_t interval_ms, std::function<void()> tick) override {
    return clock_.StartTimer(interval_ms / kSpeed, std::move(tick));
  }
  void StopTimer(TimerId timer) override { clock_.StopTimer(timer); }
  void Post(std::function<void()> task) override { clock_.Post(std::move(task)); }

 private:
  Win32Clock clock_;
};

// Real games and real time; windows without a screen, and folders of the test.
class NightPlatform final : public Platform {
 public:
  explicit NightPlatform(HeadlessPlatform& desktop) : desktop_(desktop) {}

  FileSystem& files() override { return desktop_.files(); }
  Program& program() override { return desktop_.program(); }
  UserSettings& user_settings() override { return desktop_.user_settings(); }
  Registry& registry() override { return desktop_.registry(); }
  Shell& shell() override { return desktop_.shell(); }
  Processes& processes() override { return desktop_.processes(); }
  Internet& internet() override { return desktop_.internet(); }
  Dialogs& dialogs() override { return desktop_.dialogs(); }
  Clipboard& clipboard() override { return desktop_.clipboard(); }
  Pictures& pictures() override { return desktop_.pictures(); }
  Clock& clock() override { return clock_; }
  Windowing& windowing() override { return desktop_.windowing(); }
  RunningGames& running_games() override { return games_; }

 private:
  HeadlessPlatform& desktop_;
  FastClock clock_;
  Win32Games games_;
};

// What the game did, line by line, and the changes of the map with the number of the game's lines before each. The run
// types its reset command for each change and then goes on at once, while the game hears of it when it comes to it: its
// console lines are not counted.
struct Night {
  struct Change {
    size_t behind = 0;
    std::string text;
    friend bool operator==(const Change&, const Change&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Change& change) {
      return out << "behind line " << change.behind << ": " << change.text;
    }
  };
  std::vector<std::string> game;
  std::vector<uint64_t> game_ms;  // since the first round
  std::vector<Change> changes;

  [[nodiscard]] size_t CountedLines() const {
    return game.size() - static_cast<size_t>(std::ranges::count_if(
                             game, [](const std::string& line) { return line.find("console ") != std::string::npos; }));
  }
};

std::string Column(std::string text, size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

// The table of a rehearsal without its times, which stand beside it.
Night NightOf(const Rehearsal& rehearsal) {
  constexpr size_t kTimeWidth = 10;
  Night night;
  uint64_t first_round_ms = 0;
  const std::vector<std::string> texts = RehearsalTexts(rehearsal);
  for (size_t row = 0; row < texts.size(); ++row) {
    const RehearsalLine& line = rehearsal.lines[row];
    const std::string text = texts[row].substr(kTimeWidth);
    if (line.kind == RehearsalLine::Kind::kInserted || line.kind == RehearsalLine::Kind::kFailed) {
      night.changes.push_back({night.CountedLines(), text});
      continue;
    }
    if (line.kind == RehearsalLine::Kind::kRound && first_round_ms == 0) first_round_ms = line.at_ms;
    night.game.push_back(text);
    night.game_ms.push_back(line.at_ms - std::min(first_round_ms, line.at_ms));
  }
  return night;
}

// Reads the logs of a night while it is played: that of the game's process, and autohost.log.
class NightReader {
 public:
  NightReader(const GameProcess& game, std::string run_log) : game_(game), run_log_(std::move(run_log)) {}

  void Read() {
    std::string log;
    Attempt([&] { log = AsChars(Win32FileSystem().ReadAll(run_log_)); });
    const std::vector<std::string> lines = Split(log, kCrLf);
    // What behind the last end of a line stands is not whole.
    std::vector<std::string> changes;
    for (size_t at = 0; at + 1 < lines.size(); ++at) TakeRunLine(lines[at], changes);
    ReadGame();
    for (size_t at = night.changes.size(); at < changes.size(); ++at) {
      night.changes.push_back({night.CountedLines(), changes[at]});
    }
  }

  Night night;

 private:
  // "2026-11-22 03:00:00 TAB row 2 TAB inserted TAB map TAB reason"
  static void TakeRunLine(const std::string& line, std::vector<std::string>& changes) {
    const std::vector<std::string> fields = Split(line, "\t");
    if (fields.size() != 5 || (fields[2] != "inserted" && fields[2] != "failed")) return;
    const std::string result = fields[2] == "inserted" ? "Inserted" : "Failed";
    changes.push_back(Column(result, 10) + Column(fields[1], 9) + fields[3] + "  (" + fields[4] + ")");
  }

  // "  12.345 map D08M03.BMS from the loose file, ..."
  void ReadGame() {
    const std::vector<std::string> lines = Split(game_.Log(), kCrLf);
    night.game.clear();
    night.game_ms.clear();
    uint64_t first_round_ms = 0;
    for (size_t at = 0; at + 1 < lines.size(); ++at) {
      const size_t text_at = lines[at].find(' ', lines[at].find('.')) + 1;
      const auto at_ms = static_cast<uint64_t>(std::llround(TextToDouble(lines[at].substr(0, text_at - 1)) * 1000));
      const std::string text = lines[at].substr(text_at);
      const bool is_round = text.starts_with("map ");
      const bool is_refused = text.starts_with("refused ");
      const bool is_said =
          text.starts_with("public chat ") || text.starts_with("team chat ") || text.starts_with("console ");
      if (!is_round && !is_refused && !is_said) continue;
      if (is_round && first_round_ms == 0) first_round_ms = at_ms;
      // The game may have tried a round before the run was there.
      if (is_refused && first_round_ms == 0) continue;
      night.game.push_back(is_round     ? Column("Round", 19) + text.substr(4)
                           : is_refused ? Column("Refused", 19) + text.substr(8)
                                        : Column("Message", 19) + text);
      night.game_ms.push_back((at_ms - std::min(first_round_ms, at_ms)) * kSpeed);
    }
  }

  const GameProcess& game_;
  std::string run_log_;
};

class RehearsalProcessTest : public FrameTest {
 protected:
  RehearsalProcessTest() {
    for (const char* name : {"Alpha", "Bravo", "Charlie"}) WriteFile(MapPath(name), MissionNamed(name));
    WriteFile(MapPath("Broken"), "no mission");
    WriteFile(Mission(), "");  // until the first map comes no round begins
    MakeArchive(game_folder->path() + "\\dflw.pff", {"D08M03.BMS", "OTHER.BMS"});
    archive_before = ReadFile(game_folder->path() + "\\dflw.pff");
    desktop.registry().Write(RegistryRoot::kLocalMachine,
                             "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path",
                             game_folder->path());
  }

  [[nodiscard]] std::string MapPath(const std::string& name) const { return Path("maps\\" + name + ".bms"); }
  [[nodiscard]] std::string Mission() const { return game_folder->path() + "\\D08M03.BMS"; }
  static Bytes MissionNamed(const std::string& name) {
    MissionFields fields;
    fields.mission_name = name;
    return WriteMission(fields);
  }
  static frmputlist& Host() { return Window<frmputlist>(); }
  static frmchat& Chat() { return Window<frmchat>(); }

  // What the windows show and have stored is what is rehearsed.
  static RehearsalPlan Plan(uint32_t round_seconds) {
    RehearsalPlan plan;
    plan.rows = Host().PlayList();
    plan.Rename = Host().run.fields.Rename;
    plan.uses_game_timer = Host().ChGameTimer.Value == 1;
    plan.sends_reset_games = Host().Check1.Value == 1;
    plan.minutes = Host().TxtTimeMin.Text;
    plan.seconds = Host().TxtTimeSec.Text;
    plan.DfVersion = Host().run.fields.DfVersion;
    plan.messenger = ReadMessengerSettings();
    plan.round_seconds = round_seconds;
    plan.pause_ms = kPauseMs;
    plan.hours = 1;
    return plan;
  }

  // Plays the list of the windows beside the game until its process has logged so many lines.
  [[nodiscard]] Night PlayForReal(uint32_t round_seconds, size_t lines) {
    const GameProcess game(0,
                           "-round " + std::to_string(round_seconds) + " -speed " + std::to_string(kSpeed) +
                               " -pause " + std::to_string(kPauseMs / kSpeed) + " -leave " +
                               std::to_string(kLeaveMs / kSpeed),
                           game_folder);
    EXPECT_TRUE(game.IsThere());
    NightReader reader(game, ProgramPath("autohost.log"));
    if (Chat().lstmsg.ListCount() > 0) Chat().Command3.Press();
    Host().Command2.Press();
    for (size_t seen = 1; seen <= lines; ++seen) {
      if (!WaitFor([&] {
            platform().clock().RunPendingEvents();
            reader.Read();
            return reader.night.game.size() >= seen;
          })) {
        break;
      }
    }
    Host().Command2.Press();
    if (Chat().lstmsg.ListCount() > 0) Chat().Command4.Press();
    return reader.night;
  }

  // Content and order are the same to the letter, as far as the real night was played.
  //
  // Of the times those of the rounds are the same: the game keeps them by its own clock, whatever the program beside it
  // does, and a thousandth of a second at that speed is ten of the night. A message and a reset come with a tick of
  // the program, whose time is the machine's: it is their order that counts.
  static void ExpectSame(const Night& played, const Night& rehearsed, bool rounds_keep_time) {
    ASSERT_LE(played.game.size(), rehearsed.game.size());
    ASSERT_LE(played.changes.size(), rehearsed.changes.size());
    for (size_t at = 0; at < played.game.size(); ++at) {
      EXPECT_EQ(played.game[at], rehearsed.game[at]) << "line " << at;
      if (!rounds_keep_time || played.game[at].starts_with("Message")) continue;
      const uint64_t rounding_ms = 10 * (at + 1);
      EXPECT_LE(
          std::max(played.game_ms[at], rehearsed.game_ms[at]) - std::min(played.game_ms[at], rehearsed.game_ms[at]),
          rounding_ms)
          << played.game[at] << " came at " << played.game_ms[at] << " and is rehearsed at " << rehearsed.game_ms[at];
    }
    EXPECT_EQ(played.changes,
              std::vector<Night::Change>(rehearsed.changes.begin(),
                                         rehearsed.changes.begin() + static_cast<ptrdiff_t>(played.changes.size())));
  }

  // Timers of the windows stand on the clock of this platform.
  static void CloseWindows() {
    Chat().Changed = false;
    CloseAllWindows();
  }

  std::shared_ptr<TemporaryFolder> game_folder = std::make_shared<TemporaryFolder>();
  std::string archive_before;
};

TEST_F(RehearsalProcessTest, TheTableIsTheLogOfANightByTheGamesClockWithMessages) {
  constexpr uint32_t kRoundSeconds = 60;
  // Two rounds of messages, a third of them, and a map that the game refuses again and again.
  constexpr size_t kLines = 12;
  WriteIni(
      "[launcher]\r\nGAMETIMER=1\r\nDFVERSION=0\r\n[Chat]\r\nTOTMSG=4\r\nTIME=50\r\nFILLIN=1\r\n"
      "MSG1=never first\r\nMSGKEY1=84\r\nMSG2=Now %map%, then %next%\r\nMSGKEY2=84\r\n"
      "MSG3=Welcome to %map%\r\nMSGKEY3=0\r\nMSG4=Mind the gap\r\nMSGKEY4=89\r\n");
  WriteFile(MapPath("Held"), MissionNamed("Held"));
  const FileHandle held(
      CreateFileW(ToWidePath(MapPath("Held")).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held.IsValid());
  NightPlatform night(desktop);
  const PlatformInstallation installation(night);
  Host().Show();
  Chat().Show();
  for (const char* name : {"Alpha", "Gone", "Bravo", "Held", "Charlie", "Broken"})
    Host().lstmaps.AddItem(MapPath(name));

  const Night rehearsed = NightOf(RehearseAll(Plan(kRoundSeconds)));
  const Night played = PlayForReal(kRoundSeconds, kLines);
  ASSERT_GE(played.game.size(), kLines);
  ASSERT_GE(played.changes.size(), 6U) << "every row had its turn";
  ExpectSame(played, rehearsed, true);
  EXPECT_THAT(played.game, testing::Contains("Message            public chat Welcome to Alpha"));
  EXPECT_THAT(played.game, testing::Contains("Message            public chat Now Alpha, then Gone"));
  EXPECT_THAT(played.game, testing::Contains(testing::StartsWith("Refused")));
  EXPECT_EQ(ReadFile(Mission()), "no mission") << "the program's own put has put the last map there";
  EXPECT_EQ(ReadFile(game_folder->path() + "\\dflw.pff"), archive_before);
  CloseWindows();
}

TEST_F(RehearsalProcessTest, TheTableIsTheLogOfANightByTheCountdownWithResets) {
  constexpr uint32_t kRoundSeconds = 900;
  constexpr size_t kLines = 7;
  WriteIni("[launcher]\r\nGAMETIMER=0\r\nDFVERSION=0\r\nRESETGAMES=1\r\nTIMEMIN=0\r\nTIMESEC=40\r\n");
  NightPlatform night(desktop);
  const PlatformInstallation installation(night);
  Host().Show();
  Chat().Show();
  for (const char* name : {"Alpha", "Gone", "Bravo", "Charlie"}) Host().lstmaps.AddItem(MapPath(name));

  const Night rehearsed = NightOf(RehearseAll(Plan(kRoundSeconds)));
  const Night played = PlayForReal(kRoundSeconds, kLines);
  ASSERT_GE(played.game.size(), kLines);
  ASSERT_GE(played.changes.size(), 4U);
  ExpectSame(played, rehearsed, false);
  EXPECT_EQ(played.game.front(), "Message            console resetgames");
  EXPECT_EQ(ReadFile(game_folder->path() + "\\dflw.pff"), archive_before);
  CloseWindows();
}

}  // namespace
}  // namespace kestrun
