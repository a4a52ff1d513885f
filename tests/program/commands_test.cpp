#include "program/commands.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/member_rows.h"
#include "forms/text_box.h"
#include "platform/command_result.h"
#include "program/frame_fixture.h"
#include "program/start_up.h"
#include "program/style_hook.h"
#include "support/registered_window.h"

namespace kestrun {
namespace {

// Stands for every window of the table that is opened by a word alone.
class PlainWindow final : public Form {
 public:
  using Form::Form;
};

// Takes files the way the real windows of these names do.
class FileWindow final : public Form {
 public:
  using Form::Form;
  void LoadMap(const std::string& path) { file = path; }
  void LoadStyle(const std::string& path) { file = path; }
  [[nodiscard]] const MemberTable& Members() const override;
  std::string file;
};

constexpr Member kRows[]{MethodRow<&FileWindow::LoadMap>("LoadMap"), MethodRow<&FileWindow::LoadStyle>("LoadStyle")};
const MemberTable kTable{&Form::kFormMembers, kRows};
const MemberTable& FileWindow::Members() const { return kTable; }

struct WordRow {
  const char* word;
  const char* window;
};

constexpr WordRow kWords[]{
    {"-open", "frmopenmap"},
    {"-autohost", "frmputlist"},
    {"-nameeditor", "frmname"},
    {"-url", "frmopenmap"},
    {"-messenger", "frmchat"},
    {"-ihelp", "frmdwnlhelp"},
    {"-about", "frmhelp"},
    {"-mapupdate", "frmmapupd"},
    {"-options", "frmoptions"},
    {"-frmaddinmngr", "FrmAddinMngr"},
    {"-frmaddmessage", "frmaddmessage"},
    {"-frmaddprogram", "frmaddprogram"},
    {"-frmain", "frmain"},
    {"-frmchat", "frmchat"},
    {"-frmdfversion", "Frmdfversion"},
    {"-frmhelp", "frmhelp"},
    {"-frmlargeprev", "frmLargeprev"},
    {"-frmmapinfo", "frmmapinfo"},
    {"-frmmapupd", "frmmapupd"},
    {"-frmname", "frmname"},
    {"-frmopenmap", "frmopenmap"},
    {"-frmoptions", "frmoptions"},
    {"-frmoverwrite", "FrmOverWrite"},
    {"-frmpicture", "frmpicture"},
    {"-frmputlist", "frmputlist"},
    {"-frmrestore", "frmrestore"},
    {"-frmsplash", "frmsplash"},
    {"-frmupdate", "FrmUpdate"},
    {"-frmzip", "frmzip"},
    {"-frmcenter", "FrmCenter"},
    {"-frmpictureselect", "FrmpictureSelect"},
};

class CommandsTest : public FrameTest {
 protected:
  CommandsTest() { SetSafeMode(true); }
};

TEST_F(CommandsTest, EveryWordOpensItsWindowInAnyCase) {
  for (const WordRow& row : kWords) {
    const StandInWindow<PlainWindow> stand_in(row.window);
    EXPECT_EQ(ProcessCommand(ToUpper(row.word)), kCommandCarriedOut) << row.word;
    Form* window = LoadedWindow(row.window);
    ASSERT_NE(window, nullptr) << row.word;
    EXPECT_TRUE(window->IsShown()) << row.word;
    CloseAllWindows();
  }
}

TEST_F(CommandsTest, AWordWithAnythingBehindItMatchesNoRow) {
  EXPECT_EQ(ProcessCommand("-options "), kCommandIsFileName);
  EXPECT_EQ(ProcessCommand("\"-options\""), kCommandIsFileName);
  EXPECT_EQ(ProcessCommand("-moreplayers"), kCommandIsFileName);
  EXPECT_EQ(ProcessCommand("-safe"), kCommandIsFileName);
}

TEST_F(CommandsTest, HelpShowsItsTwoPages) {
  for (const char* word : {"?", "/?", "-?"}) {
    desktop.dialogs().ExpectBox(
        "Kestrun Command Line Parameters:\r\n"
        "\r\n"
        "? or /? -?: Shows this message.\r\n"
        "filename :filename can be a .bms map, .lst auto host list or a .stl style file. Kestrun will load the file in "
        "it's default editor.\r\n"
        "-open: shows the load map from screen.\r\n"
        "-autohost: loads the autohost.\r\n"
        "-nameeditor: loads the name editor.\r\n"
        "-url: shows the load map from URL screen.\r\n"
        "-messenger: shows the auto messenger screen.\r\n"
        "-ihelp: downloads the new help form internet.\r\n"
        "-about: shows the about screen.\r\n"
        "-mapupdate: shows the map updater.\r\n"
        "-moreplayers: shows the make room for more players screen.\r\n"
        "-update: connects to internet and downloads the new update.\r\n"
        "C:\\map.bms: loads map c:\\map.bms\r\n"
        "-options: shows the options screen.\r\n"
        "-mapinfo filename: shows the map info of filename\r\n"
        "-safe: use safe mode (don't load too much things at startup) use this if kestrun has errors at startup\r\n"
        "-style filename: use a style file\r\n"
        "\r\n"
        "     Page 1 of 2\r\n");
    desktop.dialogs().ExpectBox(
        "-<FORMNAME>: loads a window with name=<FORMNAME>\r\n"
        "-pack \"pfffile\" \"rename\" \"filepath or url\" /z: packs a file into the pfffile with 'rename' as filename "
        "downloads urls, use /z to for zipped file extraction.\r\n"
        "All command line parameters can be used with the kestrun:// protocol in Internet Explorer.\r\n"
        "\r\n"
        "     Page 2 of 2\r\n");
    EXPECT_EQ(ProcessCommand(word), kCommandCarriedOut);
  }
}

TEST_F(CommandsTest, MapInfoHandsEverythingBehindItsBlankToTheWindowAndShowsIt) {
  const StandInWindow<FileWindow> map_info("frmmapinfo");
  EXPECT_EQ(ProcessCommand("-mapinfo C:\\My maps\\Oasis.bms"), kCommandCarriedOut);
  Form* window = LoadedWindow("frmmapinfo");
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->IsShown());
  EXPECT_EQ(static_cast<FileWindow*>(window)->file, "C:\\My maps\\Oasis.bms");
  EXPECT_EQ(ProcessCommand("-mapinfo"), kCommandCarriedOut);
  EXPECT_EQ(static_cast<FileWindow*>(LoadedWindow("frmmapinfo"))->file, "");
}

TEST_F(CommandsTest, MapInfoInCapitalsDoesNotMatchItsRow) {
  EXPECT_EQ(ProcessCommand("-MAPINFO c:\\a.bms"), kCommandIsFileName);
}

TEST_F(CommandsTest, EditOfAFileThatDoesNotExistIsAFileName) {
  EXPECT_EQ(ProcessCommand("-edit c:\\nowhere.stl"), kCommandIsFileName);
}

TEST_F(CommandsTest, EditOpensTheStyleEditorOnTheTrimmedPath) {
  WriteFile(Path("my.stl"), "style");
  const StandInWindow<FileWindow> editor("FrmEdit");
  EXPECT_EQ(ProcessCommand("-edit   " + Path("my.stl") + "  "), kCommandCarriedOut);
  EXPECT_EQ(static_cast<FileWindow*>(LoadedWindow("FrmEdit"))->file, Path("my.stl"));
}

class StyleCommandTest : public CommandsTest {
 protected:
  StyleCommandTest() {
    InstallStyleRuntime({[] { return false; }, [this](const std::string& path) { loaded = path; }, [](Form&) {}});
  }
  ~StyleCommandTest() override { InstallStyleRuntime({}); }

  std::string loaded;
};

TEST_F(StyleCommandTest, AnotherStyleIsOfferedAsDefaultAndLoadedWhateverTheAnswer) {
  desktop.dialogs()
      .ExpectBox("Do you want to set this style file as default style?", BoxAnswer::kNo)
      .WithButtons(BoxButtons::kYesNo);
  EXPECT_EQ(ProcessCommand("-style c:\\dark.stl "), kCommandStyleLoaded);
  EXPECT_EQ(loaded, "c:\\dark.stl");
  EXPECT_EQ(Ini("launcher", "STYLE"), "(none)");
}

TEST_F(StyleCommandTest, YesStoresTheStyleAndTheNextTimeNothingIsAsked) {
  desktop.dialogs().ExpectBox("Do you want to set this style file as default style?", BoxAnswer::kYes);
  EXPECT_EQ(ProcessCommand("-style c:\\dark.stl"), kCommandStyleLoaded);
  EXPECT_EQ(Ini("launcher", "style"), "c:\\dark.stl");
  EXPECT_EQ(ProcessCommand("-style c:\\dark.stl"), kCommandStyleLoaded);
}

TEST_F(StyleCommandTest, TheComparisonWithTheDefaultIsExactInCase) {
  WriteIni("[launcher]\r\nSTYLE=c:\\dark.stl\r\n");
  desktop.dialogs().ExpectBox("Do you want to set this style file as default style?", BoxAnswer::kNo);
  EXPECT_EQ(ProcessCommand("-style C:\\DARK.stl"), kCommandStyleLoaded);
}

// ---- -checkstyle ---------------------------------------------------------------------------------------------------

// Plays the style runtime and the main program.
class CheckStyleCommandTest : public FrameTest {
 protected:
  CheckStyleCommandTest() {
    before_ = InstallStyleRuntime(
        {.is_active = {}, .load_file = {}, .apply = {}, .identity = {}, .check = [this](const std::string& path) {
           checked = path;
           if (is_missing) Raise(error::kFileNotFound);
           return faults;
         }});
    InstallCommandOutput([this](std::string_view line) { lines.emplace_back(line); });
  }
  ~CheckStyleCommandTest() override {
    InstallStyleRuntime(before_);
    InstallCommandOutput({});
    SetExitCode(0);
  }

  std::string checked;
  std::vector<std::string> faults;
  std::vector<std::string> lines;
  bool is_missing = false;

 private:
  StyleRuntime before_;
};

TEST_F(CheckStyleCommandTest, AStyleWithoutAFaultSaysNothingAndEndsWithZero) {
  EXPECT_EQ(ProcessCommand("-checkstyle \"C:\\my styles\\sand.stl\""), kCommandCarriedOut);
  EXPECT_EQ(checked, "C:\\my styles\\sand.stl");
  EXPECT_TRUE(lines.empty());
  EXPECT_EQ(ExitCode(), 0);
}

TEST_F(CheckStyleCommandTest, EachFaultIsALineAndTheExitCodeIsOne) {
  faults = {"main.vbs(1): one", "main.vbs(2): two"};
  EXPECT_EQ(ProcessCommand("-checkstyle sand.stl"), kCommandCarriedOut);
  EXPECT_EQ(lines, faults);
  EXPECT_EQ(ExitCode(), 1);
}

TEST_F(CheckStyleCommandTest, AFileThatCannotBeReadIsALine) {
  is_missing = true;
  ProcessCommand("-checkstyle lost.stl");
  EXPECT_EQ(lines, (std::vector<std::string>{"lost.stl: File not found."}));
  EXPECT_EQ(ExitCode(), 1);
}

// No splash window, no question, no default style in front of it.
TEST_F(CheckStyleCommandTest, ItTakesThePlaceOfTheWholeStart) {
  Form splash("frmsplash");
  Label& version = splash.Add<Label>("lblversion");
  RunStartUp(splash, version, "-checkstyle sand.stl");
  EXPECT_EQ(checked, "sand.stl");
  EXPECT_TRUE(desktop.dialogs().shown_boxes.empty());
  EXPECT_TRUE(desktop.windowing().shown_forms.empty());
  EXPECT_FALSE(RunsUnseen("-style sand.stl"));
}

}  // namespace
}  // namespace kestrun
