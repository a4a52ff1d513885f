// kestrun -checklist "file.lst"
#include <gmock/gmock.h>

#include "formats/bms/bms_writer.h"
#include "platform/command_result.h"
#include "program/commands.h"
#include "program/frame_fixture.h"

namespace kestrun {
namespace {

using testing::HasSubstr;

class CheckListCommandTest : public FrameTest {
 protected:
  CheckListCommandTest() {
    TellGameFolder();
    SetExitCode(0);
    InstallCommandOutput([this](std::string_view line) { output += std::string(line) + "\n"; });
    MissionFields fields;
    fields.game_types = 0x1000;
    WriteFile(MapPath("Oasis.bms"), WriteMission(fields));
  }
  ~CheckListCommandTest() override {
    InstallCommandOutput(nullptr);
    SetExitCode(0);
  }

  [[nodiscard]] std::string ListOf(const std::vector<std::string>& maps) {
    std::string text = "[LIST]\r\n";
    for (size_t row = 0; row < maps.size(); ++row) text += "MAP" + std::to_string(row) + "=" + maps[row] + "\r\n";
    WriteFile(Path("night.lst"), "\xEF\xBB\xBF" + text + "TOTAL=" + std::to_string(maps.size()) + "\r\n");
    return Path("night.lst");
  }
  std::string output;
};

TEST_F(CheckListCommandTest, AListOfGoodMapsEndsWithZero) {
  const std::string list = ListOf({MapPath("Oasis.bms")});
  EXPECT_EQ(ProcessCommand("-checklist \"" + list + "\""), kCommandCarriedOut);
  EXPECT_EQ(ExitCode(), 0);
  EXPECT_EQ(output, "Check of " + list + "\nMaps: 1 good.\nThey go in as D08M03.BMS.\n");
}

TEST_F(CheckListCommandTest, AListWithABadMapEndsWithOneAndSaysWhy) {
  const std::string list = ListOf({MapPath("Oasis.bms"), MapPath("gone.bms")});
  static_cast<void>(ProcessCommand("-checklist \"" + list + "\""));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_THAT(output, HasSubstr("  Row 2: " + MapPath("gone.bms") + "\n    The file is not there.\n"));
}

TEST_F(CheckListCommandTest, AKeyThatIsMissingInTheListIsABadRow) {
  WriteFile(Path("night.lst"), "[LIST]\r\nTOTAL=1\r\n");
  static_cast<void>(ProcessCommand("-checklist \"" + Path("night.lst") + "\""));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_THAT(output, HasSubstr("  Row 1: ERROR!\n    The file is not there.\n"));
}

TEST_F(CheckListCommandTest, QuotesAreNotNeededAroundTheFile) {
  static_cast<void>(ProcessCommand("-checklist " + ListOf({MapPath("Oasis.bms")})));
  EXPECT_EQ(ExitCode(), 0);
  EXPECT_THAT(output, HasSubstr("1 good"));
}

TEST_F(CheckListCommandTest, TheMissionBehindTheFileSaysWhichGameTypeIsWanted) {
  const std::string list = ListOf({MapPath("Oasis.bms")});
  static_cast<void>(ProcessCommand("-checklist \"" + list + "\" D08M04.BMS"));
  EXPECT_EQ(output, "Check of " + list +
                        "\nMaps: 1 doubtful.\nThey go in as D08M04.BMS.\n\n"
                        "Doubtful: these rows may not do what is wanted\n  Row 1: " +
                        MapPath("Oasis.bms") + "\n    It is made for Capture the flag, not for Deathmatch.\n");
  EXPECT_EQ(ExitCode(), 0);
}

TEST_F(CheckListCommandTest, AMissionInQuotesOrSmallLettersIsTheSameMission) {
  const std::string list = ListOf({MapPath("Oasis.bms")});
  static_cast<void>(ProcessCommand("-checklist \"" + list + "\" \"D08M04.BMS\""));
  EXPECT_THAT(output, HasSubstr("not for Deathmatch"));
  output.clear();
  static_cast<void>(ProcessCommand("-checklist " + list + " d08m03.bms"));
  EXPECT_THAT(output, HasSubstr("Maps: 1 good.\nThey go in as d08m03.bms.\n"));
}

TEST_F(CheckListCommandTest, OfANameOfTheUsersOwnTheGameTypeIsNotKnown) {
  const std::string list = ListOf({MapPath("Oasis.bms")});
  static_cast<void>(ProcessCommand("-checklist \"" + list + "\" MINE.BMS"));
  EXPECT_EQ(output, "Check of " + list + "\nMaps: 1 good.\nThey go in as MINE.BMS.\n");
}

TEST_F(CheckListCommandTest, ANameThatTheGameCannotHoldIsSaid) {
  static_cast<void>(ProcessCommand("-checklist \"" + ListOf({MapPath("Oasis.bms")}) + "\" \xE6\x97\xA5.BMS"));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_THAT(output, HasSubstr("The game cannot store the character '\xE6\x97\xA5'"));
}

TEST_F(CheckListCommandTest, AFolderWhoseNameEndsAsAListDoesNeedsNoQuotes) {
  native_files.MakeFolder(Path("my.lst files"));
  WriteFile(Path("my.lst files\\night.lst"), "[LIST]\r\nTOTAL=0\r\n");
  static_cast<void>(ProcessCommand("-checklist " + Path("my.lst files\\night.lst")));
  EXPECT_EQ(ExitCode(), 0);
  EXPECT_THAT(output, HasSubstr("Maps: no maps."));
}

TEST_F(CheckListCommandTest, ARefusalThatIsASentenceEndsInOneFullStop) {
  WriteFile(Path("night.lst"), "[LIST]\r\nTOTAL=100001\r\n");
  static_cast<void>(ProcessCommand("-checklist \"" + Path("night.lst") + "\""));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_EQ(output,
            Path("night.lst") + ": This list says that it holds 100001 maps. Kestrun loads lists of at most 100000.\n");
}

TEST_F(CheckListCommandTest, TheLogKeepsALineOfIt) {
  static_cast<void>(ProcessCommand("-checklist \"" + ListOf({MapPath("gone.bms")}) + "\""));
  EXPECT_THAT(ReadFile(ProgramPath("kestrun.log")), HasSubstr("night.lst checked ~>1 bad"));
}

TEST_F(CheckListCommandTest, AListThatIsNotThereEndsWithOne) {
  static_cast<void>(ProcessCommand("-checklist \"" + Path("none.lst") + "\""));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_EQ(output, Path("none.lst") + ": File not found.\n");
}

TEST_F(CheckListCommandTest, AnAddressInTheListIsAsked) {
  const char* const address = "http://maps.example/Oasis.bms";
  desktop.internet().Answer(address, {404, {}, {}});
  static_cast<void>(ProcessCommand("-checklist \"" + ListOf({address}) + "\""));
  EXPECT_EQ(ExitCode(), 1);
  EXPECT_THAT(output, HasSubstr("The web address does not answer: the server says 404."));
}

TEST_F(CheckListCommandTest, ALinkThatAsksForACheckIsShownFirst) {
  EXPECT_EQ(LinkWarning("-checklist \"a.lst\""), "It would read a list of maps and ask the web addresses in it.");
}

}  // namespace
}  // namespace kestrun
