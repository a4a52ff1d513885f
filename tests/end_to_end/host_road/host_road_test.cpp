// The auto host beside a game, as a server runs them over night: kestrun.exe and the simulated game as processes, the
// window driven by its buttons, the game believed by its log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/win32/game_process.h"
#include "desktop/win32/host_window.h"
#include "desktop/win32/system/win32_game_memory.h"
#include "game/builds.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Row of the builds that both the auto host and the game are set to.
constexpr size_t kBuild = 0;

// What the window is set to before it opens.
struct HostSettings {
  bool game_timer = false;
  bool reset_games = false;
  int minutes = 15;
  int seconds = 58;
};

class HostRoadTest : public testing::Test {
 protected:
  HostRoadTest() {
    for (const char* name : {"Alpha", "Bravo", "Charlie"}) {
      files.WriteAll(MapPath(name), MissionNamed(name));
    }
    files.WriteAll(game_folder->path() + "\\D08M03.BMS", MissionNamed("First"));
    files.Copy(ProgramBesideTests("kestrun.exe"), Path("kestrun.exe"));
    WriteText(Path("rotation.lst"), "[LIST]\r\nMAP0=" + MapPath("Alpha") + "\r\nMAP1=" + MapPath("Bravo") +
                                        "\r\nMAP2=" + MapPath("Charlie") + "\r\nTOTAL=3\r\n");
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder.path() + "\\" + name; }
  [[nodiscard]] std::string MapPath(const std::string& name) const { return Path(name + ".bms"); }
  [[nodiscard]] static Bytes MissionNamed(const std::string& name) {
    MissionFields fields;
    fields.mission_name = name;
    return WriteMission(fields);
  }
  // With the mark of UTF-8: the folder's name has letters that no code page holds.
  void WriteText(const std::string& path, const std::string& text) {
    files.WriteAll(path, AsBytes("\xEF\xBB\xBF" + text));
  }

  void StartHost(const HostSettings& settings) {
    WriteText(Path("packit.ini"),
              "[FOLDERS]\r\nDFLW=" + game_folder->path() + "\r\n[launcher]\r\nPATH=" + folder.path() +
                  "\r\nCHECKLWPATH=False\r\nFIRSTRUN=False\r\nDFVERSION=0\r\nGAMETIMER=" +
                  std::to_string(settings.game_timer ? 1 : 0) + "\r\nRESETGAMES=" +
                  std::to_string(settings.reset_games ? 1 : 0) + "\r\nTIMEMIN=" + std::to_string(settings.minutes) +
                  "\r\nTIMESEC=" + std::to_string(settings.seconds) + "\r\n");
    host = std::make_unique<HostWindow>(Path("kestrun.exe"), Path("rotation.lst"));
    ASSERT_TRUE(host->IsThere());
    ASSERT_EQ(HostWindow::RowCount(), 3);
  }
  void StartGame(const std::string& words) {
    game = std::make_unique<GameProcess>(kBuild, words, game_folder);
    ASSERT_TRUE(game->IsThere());
  }
  // The auto host with its list, and the game; the run is started once the game plays the map that was there before.
  void StartBoth(const HostSettings& settings, const std::string& game_words) {
    ASSERT_NO_FATAL_FAILURE(StartHost(settings));
    ASSERT_NO_FATAL_FAILURE(StartGame(game_words));
    ASSERT_TRUE(game->Logs("\"First\""));
    ASSERT_TRUE(HostWindow::Press(L"Start"));
  }

  // As an administrator does in the game's own console, in the middle of a round: the auto host, which looks once a
  // second, has seen the round when its clock shows another time than it kept from the one before.
  void EndRoundAtTheServer() {
    const HostBuild& build = HostBuildOf(static_cast<int>(kBuild));
    const std::unique_ptr<GameMemory> console = Win32Games().MakeMemory({});
    ASSERT_TRUE(console->AttachToWindow(build.window_title));
    ASSERT_TRUE(WaitFor([&] { return console->ReadByteAt(build.GameEndAddr) == 1; }));
    const std::wstring shown_before = HostWindow::FieldTexts();
    ASSERT_TRUE(WaitFor([&] { return HostWindow::FieldTexts() != shown_before; }));
    console->PressKey(192);
    ::Sleep(300);
    console->WriteTextAt(build.MemoryAdress, "resetgames");
    console->PressKey(13);
  }

  // The names of the maps that the game has played, in order.
  [[nodiscard]] std::vector<std::string> PlayedMaps() const {
    std::vector<std::string> maps;
    for (const std::string& line : Split(game->Log(), "\r\n")) {
      if (line.find(" map ") == std::string::npos) continue;
      const size_t name = line.find('"') + 1;
      maps.push_back(line.substr(name, line.rfind('"') - name));
    }
    return maps;
  }
  // The game plays that map in the end, and the window shows its row.
  void ExpectMap(const std::string& name) {
    EXPECT_TRUE(WaitFor([&] {
      const std::vector<std::string> maps = PlayedMaps();
      return !maps.empty() && maps.back() == name;
    })) << "the game did not come to play "
        << name << "\n"
        << game->Log();
    EXPECT_EQ(HostWindow::CurrentMap(), name + ".bms");
    EXPECT_EQ(HostWindow::Box(), nullptr)
        << "a box that nobody expected: " << FromWide(HostWindow::Box() ? TextOf(HostWindow::Box()) : L"");
  }
  // After the map that was there before anybody came, each map of the list is played once, in order.
  void ExpectRotation() {
    for (const char* name : {"Alpha", "Bravo", "Charlie"}) ExpectMap(name);
    EXPECT_THAT(PlayedMaps(), ElementsAre("First", "Alpha", "Bravo", "Charlie"));
    EXPECT_THAT(game->Log(), Not(HasSubstr("refused")));
  }

  Win32FileSystem files;
  TemporaryFolder folder;
  std::shared_ptr<TemporaryFolder> game_folder = std::make_shared<TemporaryFolder>();
  std::unique_ptr<GameProcess> game;
  std::unique_ptr<HostWindow> host;
};

// Somebody at the server ends each of the long rounds, whose clock never gets to 0.
TEST_F(HostRoadTest, TheEndOfEachGameBringsTheNextMapAndAfterTheLastTheFirst) {
  HostSettings settings;
  settings.game_timer = true;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 900 -pause 3500 -leave 0"));
  ASSERT_TRUE(WaitFor([] { return HostWindow::HasButton(L"Reset"); }));
  for (const char* name : {"Alpha", "Bravo", "Charlie", "Alpha"}) {
    ASSERT_NO_FATAL_FAILURE(EndRoundAtTheServer());
    ExpectMap(name);
  }
  EXPECT_THAT(PlayedMaps(), ElementsAre("First", "Alpha", "Bravo", "Charlie", "Alpha"));
  EXPECT_THAT(game->Log(), Not(HasSubstr("the clock ran out")));
}

// Rounds of three seconds, and a countdown that is far too long to matter.
TEST_F(HostRoadTest, TheEndOfEachGameBringsTheNextMapAndTheResetIsTyped) {
  HostSettings settings;
  settings.reset_games = true;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 60 -speed 20 -pause 5500 -leave 0"));
  ExpectRotation();
  EXPECT_THAT(game->Log(), HasSubstr("console resetgames"));
}

// The clock is seen at 0 while the game still leaves its round.
TEST_F(HostRoadTest, TheRoundClockBringsTheNextMap) {
  HostSettings settings;
  settings.game_timer = true;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 60 -speed 20 -pause 3500 -leave 1500"));
  ExpectRotation();
  EXPECT_THAT(game->Log(), Not(HasSubstr("console")));
}

TEST_F(HostRoadTest, TheRoundClockBringsTheNextMapAndTheResetIsTyped) {
  HostSettings settings;
  settings.game_timer = true;
  settings.reset_games = true;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 60 -speed 20 -pause 5000 -leave 2000"));
  ExpectRotation();
  EXPECT_THAT(game->Log(), HasSubstr("console resetgames"));
}

// The rounds last a quarter of an hour: each map comes because the countdown ended the one before.
TEST_F(HostRoadTest, TheCountdownWithTheResetEndsTheGameForTheNextMap) {
  HostSettings settings;
  settings.reset_games = true;
  settings.minutes = 0;
  settings.seconds = 6;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 900 -pause 3000 -leave 300"));
  ExpectRotation();
  EXPECT_THAT(game->Log(), HasSubstr("end of round 1: resetgames"));
  EXPECT_THAT(game->Log(), Not(HasSubstr("the clock ran out")));
}

// Such a run watches no game: the first map goes in at once, and each later one under a running round. The game plays
// it in its next round.
TEST_F(HostRoadTest, TheCountdownWithoutTheResetChangesTheFileUnderTheRunningGame) {
  HostSettings settings;
  settings.minutes = 0;
  settings.seconds = 8;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 60 -speed 30 -pause 500 -leave 0"));
  for (const char* name : {"Alpha", "Bravo", "Charlie"}) ExpectMap(name);
  std::vector<std::string> maps = PlayedMaps();
  maps.erase(std::unique(maps.begin(), maps.end()), maps.end());
  EXPECT_THAT(maps, ElementsAre("First", "Alpha", "Bravo", "Charlie"));
  EXPECT_THAT(game->Log(), Not(HasSubstr("console")));
}

TEST_F(HostRoadTest, AGameThatIsKilledStopsNothingAndIsServedAgainOnceTheRunIsStartedAnew) {
  HostSettings settings;
  settings.game_timer = true;
  ASSERT_NO_FATAL_FAILURE(StartBoth(settings, "-round 60 -speed 6 -pause 2500 -leave 0 -kill 6000"));
  ASSERT_TRUE(WaitFor([this] { return game->HasEnded(); }));
  EXPECT_THAT(game->Log(), HasSubstr("killed in the middle"));
  // Its clock and its byte fell with the process: one map goes in, and no more.
  EXPECT_TRUE(WaitFor([] { return HostWindow::CurrentMap() == "Alpha.bms"; }));
  ::Sleep(3500);
  EXPECT_EQ(HostWindow::CurrentMap(), "Alpha.bms");
  EXPECT_EQ(HostWindow::Box(), nullptr);

  game.reset();
  StartGame("-round 60 -speed 20 -pause 3500 -leave 0");
  ExpectMap("Alpha");
  ASSERT_TRUE(HostWindow::Press(L"Reset"));
  ASSERT_TRUE(HostWindow::Press(L"START!"));
  ExpectMap("Bravo");
  ExpectMap("Charlie");
}

}  // namespace
}  // namespace kestrun
