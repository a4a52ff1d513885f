// Buttons and menu items: their words, what they do, and when they cannot be used.
#include "support/failing_files.h"
#include "support/registered_window.h"
#include "windows/main/frmain_fixture.h"
#include "windows/map_info/frmmapinfo.h"

namespace kestrun {
namespace {

// What the menus read, top to bottom; a submenu follows its item in brackets, a line is "-", what is disabled has "~".
std::string Describe(const std::vector<MenuItem*>& items) {
  std::string text;
  for (const MenuItem* item : items) {
    text += (item->Enabled ? "" : "~") + item->Caption.get();
    if (!item->Items().empty()) text += "[" + Describe(item->Items()) + "]";
    text += "|";
  }
  return text;
}

std::string Captions(const MenuItem& menu) {
  std::string text;
  for (const MenuItem* item : menu.Items()) text += item->Caption.get() + "|";
  return text;
}

TEST_F(MainWindowTest, TheMenusReadAsPlayersKnowThem) {
  Main().Show();
  EXPECT_EQ(Captions(Main().mnu_file),
            "Put &map in DFLW|I'm already &playing|-|&Load map from|-|Show map &info|&Large map preview|&Load map "
            "preview|&Search map preview|-|C&opy map to ...|&Rename map|&Delete selected map|Copy map "
            "&name|-|&Change folder|&Open folder|&Refresh list|-|&Exit|");
  EXPECT_EQ(Captions(Main().mnu_loadmap), "&URL|&File on hard disk|");
  EXPECT_EQ(Captions(Main().mnu_view), "&Refresh list|R&efresh banner|Open the news &page|-|&Status bar|-|&Options|");
  EXPECT_EQ(Captions(Main().mnu_actions),
            "&Launch DFLW|Launch &Editor|Restore &stock missions ...|-|&Make maplist (auto host)|&Auto "
            "Messenger|Launch &name editor|&Map "
            "updater|&Skin creator|-|Make &room for more players|Launch &BMS => MIS |Launch &color picker|-|Add &your "
            "program|");
  EXPECT_EQ(Captions(Main().mnu_internet),
            "Connect to &internet|-|Check for &update|Check for &new maps|&Upload maps|-|DFLW Demo lobby|DFLW Full "
            "version lobby|");
  EXPECT_EQ(Captions(Main().mnu_help), "Index|&Online help document|-|&Tips|-|&About|");
  EXPECT_EQ(Describe(Main().TopMenus()).substr(0, 7), "&File[P");
}

TEST_F(MainWindowTest, TheKeysOfTheListStandBesideTheirItems) {
  EXPECT_EQ(Main().mnu_putmapin.KeyHint.get(), "Enter");
  EXPECT_EQ(Main().mnu_renamemap.KeyHint.get(), "F2");
  EXPECT_EQ(Main().mnu_deletemap.KeyHint.get(), "Del");
  EXPECT_EQ(Main().mnu_refreshmaplist.KeyHint.get(), "F5");
  EXPECT_EQ(Main().mnu_refresh.Shortcut.get(), "F5");
  // A key in the folder box must not delete a map.
  EXPECT_EQ(Main().mnu_deletemap.Shortcut.get(), "");
}

TEST_F(MainWindowTest, TheButtonsReadAsPlayersKnowThem) {
  EXPECT_EQ(Main().Command1.Caption.get(), "Browse");
  EXPECT_EQ(Main().Command4.Caption.get(), "Launch &Editor");
  EXPECT_EQ(Main().Command5.Caption.get(), "&Options");
  EXPECT_EQ(Main().Command6.Caption.get(), "&Refresh list");
  EXPECT_EQ(Main().Command8.Caption.get(), "&Auto Messenger");
}

TEST_F(MainWindowTest, NoTwoAccessKeysOfTheWindowAreTheSame) {
  Main().Show();
  std::string keys;
  const auto take = [&](const std::string& caption) {
    const size_t at = caption.find('&');
    if (at == std::string::npos) return;
    const std::string key = ToLower(caption.substr(at + 1, 1));
    EXPECT_EQ(keys.find(key), std::string::npos) << caption;
    keys += key;
  };
  for (const MenuItem* menu : Main().TopMenus()) {
    if (menu->Visible) take(menu->Caption);
  }
  for (const Ref<Control>& control : Main().controls()) {
    if (const auto* button = dynamic_cast<const CommandButton*>(control.get())) take(button->Caption);
    if (const auto* label = dynamic_cast<const Label*>(control.get())) take(label->Caption);
    if (const auto* frame = dynamic_cast<const Frame*>(control.get())) take(frame->Caption);
  }
  EXPECT_EQ(keys.size(), 15U);
}

TEST_F(MainWindowTest, TheTabKeyGoesThroughTheWindowInReadingOrder) {
  Main().Show();
  std::string order;
  for (const Control* control : Main().TabOrder()) order += control->Name() + " ";
  EXPECT_EQ(order,
            "Text1 Command1 ListBox Command6 opcapflag opdeath oprename txtoutput Command2 Command7 Command3 Command4 "
            "Command8 Command5 ");
}

// ---- windows of their own ------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, WhatLeadsToAWindowThatIsNotThereIsDisabled) {
  const WithoutWindow style_editor("FrmEdit");
  Main().Show();
  EXPECT_FALSE(Main().mnu_Editor.Enabled);
  EXPECT_FALSE(Main().mnu_Editor.Choose());
  EXPECT_FALSE(Main().mnu_connectinternet.Enabled);
  EXPECT_FALSE(Main().mnu_makeroomfor.Enabled);
  EXPECT_TRUE(Main().mnu_helpAbout.Enabled);
  EXPECT_TRUE(Main().mnu_showmapinfo.Enabled);
}

TEST_F(MainWindowTest, AnItemComesAliveWhenItsWindowIsThere) {
  {
    const WithoutWindow name_editor("frmname");
    Main().Show();
    EXPECT_FALSE(Main().mnu_nameeditor.Enabled);
    CloseAllWindows();
  }
  const StandInWindow<Form> name_editor("frmname");
  Main().Show();
  EXPECT_TRUE(Main().mnu_nameeditor.Choose());
  EXPECT_TRUE(LoadedWindow("frmname"));
}

TEST_F(MainWindowTest, AboutAndLoadMapOpenTheirWindows) {
  Main().Show();
  Main().mnu_helpAbout.Choose();
  EXPECT_TRUE(LoadedWindow("frmhelp"));
  Main().mnu_loadfromURL.Choose();
  EXPECT_TRUE(LoadedWindow("frmopenmap"));
  CloseAllWindows();
  Main().Show();
  Main().mnu_loadmapfromhd.Choose();
  EXPECT_TRUE(LoadedWindow("frmopenmap"));
}

TEST_F(MainWindowTest, MapInfoGetsTheSelectedMap) {
  MainOnMaps();
  desktop.dialogs().ExpectBox("Select map!");
  Main().mnu_showmapinfo.Choose();
  ClickRow(1);
  std::string caption;
  desktop.windowing().ExpectModal("frmmapinfo", [&](Form& form) {
    caption = form.Caption;
    form.Unload();
  });
  Main().mnu_showmapinfo.Choose();
  EXPECT_EQ(caption, "Map info Oasis.bms");
}

// Stands for the window of previews.
class PreviewManager final : public Form {
 public:
  PreviewManager() : Form("frmpicture") {}
  Label& lblmap = Add<Label>("lblmap");
};

TEST_F(MainWindowTest, ThePreviewWindowGetsTheSelectedMap) {
  {
    const WithoutWindow preview_manager("frmpicture");
    MainOnMaps();
    Main().ImgPreview.Click();  // nobody is there to take it
    CloseAllWindows();
  }
  const StandInWindow<PreviewManager> preview_manager("frmpicture");
  MainOnMaps();
  desktop.dialogs().ExpectBox("Select map!");
  Main().ImgPreview.Click();
  ClickRow(1);
  Main().mnu_loadpreview.Choose();
  ASSERT_TRUE(LoadedWindow("frmpicture"));
  EXPECT_EQ(static_cast<Label*>(LoadedWindow("frmpicture")->FindControl("lblmap"))->Caption.get(),
            MapPath("Oasis.bms"));
}

// ---- programs ------------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheEditorStartsInTheGameFolder) {
  WriteFile(GamePath("DFLWMEDFC2.EXE"), "editor");
  for (const char* name : {"TEXT.BIN", "Df3items.bin", "SUNSETS.DEF"}) WriteFile(GamePath(name), "there");
  Main().Show();
  Main().Command4.Press();
  const std::vector<ShellOpening> expected{{"open", GamePath("DFLWMEDFC2.EXE"), "0", Path("game"), 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(MainWindowTest, TheEditorStartsAlsoWithoutItsFiles) {
  WriteFile(GamePath("DFLWMEDFC2.EXE"), "editor");
  desktop.dialogs().ExpectBox("The editor needs the 'text.bin' file do you want to extract it now?", BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Error: Extracting editor files326\r\nResource with identifier '105' not found");
  desktop.dialogs().ExpectBox("Failed to extract the files to the right folder. Editor may not work properly.");
  Main().mnu_launcheditor.Choose();
  EXPECT_EQ(desktop.shell().openings.size(), 1U);
}

TEST_F(MainWindowTest, AMissingEditorIsTold) {
  Main().Show();
  desktop.dialogs().ExpectBox("Can't find the editor program! Please select it in the options window.");
  Main().Command4.Press();
  EXPECT_TRUE(desktop.shell().openings.empty());
  ASSERT_TRUE(LoadedWindow("frmoptions"));
  EXPECT_TRUE(LoadedWindow("frmoptions")->IsShown());
}

TEST_F(MainWindowTest, TheConverterAndTheColourPickerStartInTheirOwnFolders) {
  WriteFile(ProgramPath("DF3BMStoMIS.exe"), "converter");
  WriteFile(ProgramPath("ColorPicker.EXE"), "picker");
  Main().mnu_bmstomis.Choose();
  Main().mnu_colorpicker.Choose();
  const std::vector<ShellOpening> expected{{"open", ProgramPath("DF3BMStoMIS.exe"), "", Path("program"), 1},
                                           {"open", ProgramPath("ColorPicker.EXE"), "", Path("program"), 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(MainWindowTest, AMissingConverterOrColourPickerIsToldWithItsPath) {
  desktop.dialogs().ExpectBox("can't find the file 'DF3BMStoMIS.exe' please select it in the options window.\r\n" +
                              ProgramPath("DF3BMStoMIS.exe"));
  desktop.windowing().ExpectModal("frmoptions", [](Form& form) { form.Unload(); });
  Main().mnu_bmstomis.Choose();
  desktop.dialogs().ExpectBox("can't find the file 'ColorPicker.EXE' please select it in the options window.\r\n" +
                              ProgramPath("ColorPicker.EXE"));
  desktop.windowing().ExpectModal("frmoptions", [](Form& form) { form.Unload(); });
  Main().mnu_colorpicker.Choose();
  EXPECT_TRUE(desktop.shell().openings.empty());
}

TEST_F(MainWindowTest, FoldersPagesAndTheHelpFileOpenInTheShell) {
  MainOnMaps();
  Main().mnu_OpenFolder.Choose();
  Main().mnu_helpindex.Choose();
  Main().dflwdemolobby.Choose();
  Main().dflwfullversionlobby.Choose();
  const auto& openings = desktop.shell().openings;
  ASSERT_EQ(openings.size(), 4U);
  EXPECT_EQ(openings[0].file, Path("maps"));
  EXPECT_EQ(openings[1].file, ProgramPath("kestrun.chm"));
  EXPECT_TRUE(openings[2].file.ends_with("/DFStartup.htm"));
  EXPECT_TRUE(openings[3].file.ends_with("/DFFVstartup.htm"));
}

TEST_F(MainWindowTest, TheUsersProgramsStandInTheActionsMenu) {
  WriteFile(ProgramPath("tool.exe"), "tool");
  WriteIni(
      "[launcher]\r\nSHOWQUICKLINKS=1\r\n[PROGRAMS]\r\nTOT=2\r\n[PROGRAM0]\r\nNAME=My &tool\r\nPATH=tool.exe\r\n"
      "[PROGRAM2]\r\nNAME=Gone\r\nPATH=Z:\\nowhere\\gone.exe\r\n");
  Main().Show();
  EXPECT_TRUE(Captions(Main().mnu_actions).ends_with("|Add &your program|My &tool|Gone|"));
  EXPECT_TRUE(Main().FindControl("mnu_launchprogram", 1));
  EXPECT_FALSE(Main().FindControl("mnu_launchprogram", 2));
  auto& gone = static_cast<MenuItem&>(*Main().FindControl("mnu_launchprogram", 3));
  desktop.dialogs().ExpectBox("File not found please change the program path.");
  gone.Choose();
}

TEST_F(MainWindowTest, AnAbsurdCountOfProgramsDoesNotHoldTheStartUp) {
  WriteIni("[launcher]\r\nSHOWQUICKLINKS=1\r\n[PROGRAMS]\r\nTOT=2000000000\r\n");
  Main().Show();
  EXPECT_FALSE(Main().FindControl("mnu_launchprogram", 1));
}

TEST_F(MainWindowTest, ACountOfProgramsThatIsNoNumberIsTold) {
  WriteIni("[launcher]\r\nSHOWQUICKLINKS=1\r\n[PROGRAMS]\r\nTOT=many\r\n");
  desktop.dialogs().ExpectBox("Error: Load_Programs()13\r\nType mismatch");
  Main().Show();
}

// ---- files for the editor ------------------------------------------------------------------------------------------

class EditorFilesTest : public MainWindowTest {
 protected:
  EditorFilesTest() {
    desktop.program().resources[{"FILE", 105}] = {'R', 'T', 'X', 'T', 1};
    desktop.program().resources[{"FILE", 106}] = {'R', 'T', 'X', 'T', 2};
    desktop.program().resources[{"FILE", 107}] = {'s', 'u', 'n'};
  }
  void Expect(const std::string& file, BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("The editor needs the '" + file + "' file do you want to extract it now?", answer)
        .WithButtons(BoxButtons::kYesNo);
  }
};

TEST_F(EditorFilesTest, EachMissingFileIsWrittenAsItIsAfterAYes) {
  Expect("text.bin", BoxAnswer::kYes);
  Expect("Df3items.bin", BoxAnswer::kNo);
  Expect("sunsets.def", BoxAnswer::kYes);
  EXPECT_TRUE(Main().ExtractEditorFiles(Path("game")));
  EXPECT_EQ(ReadFile(GamePath("TEXT.BIN")), std::string("RTXT\x01"));
  EXPECT_FALSE(FileIsThere(GamePath("Df3items.bin")));
  EXPECT_EQ(ReadFile(GamePath("SUNSETS.DEF")), "sun");
}

TEST_F(EditorFilesTest, AFileThatIsThereIsNotAskedAboutAndStays) {
  WriteFile(GamePath("TEXT.BIN"), "mine");
  WriteFile(GamePath("Df3items.bin"), "mine");
  WriteFile(GamePath("SUNSETS.DEF"), "mine");
  EXPECT_TRUE(Main().ExtractEditorFiles(Path("game")));
  EXPECT_EQ(ReadFile(GamePath("TEXT.BIN")), "mine");
}

TEST_F(EditorFilesTest, AFolderThatCannotBeWrittenIsToldAndNoMoreIsAsked) {
  Expect("text.bin", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: Extracting editor files76\r\nPath not found", Path("nowhere\\TEXT.BIN"));
  EXPECT_FALSE(Main().ExtractEditorFiles(Path("nowhere")));
}

// What was left of it passed for the whole file at the next start of the editor.
TEST_F(EditorFilesTest, AFileThatBreaksOffDoesNotStay) {
  Main().Show();
  FailingFiles full_disk(native_files, 1);
  desktop.UseFiles(full_disk);
  Expect("text.bin", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: Extracting editor files61\r\nDisk full", GamePath("TEXT.BIN"));
  EXPECT_FALSE(Main().ExtractEditorFiles(Path("game")));
  desktop.UseFiles(native_files);
  EXPECT_FALSE(FileIsThere(GamePath("TEXT.BIN")));
}

TEST_F(EditorFilesTest, ScriptsCallThePublicOperationsByName) {
  WriteFile(GamePath("TEXT.BIN"), "mine");
  WriteFile(GamePath("Df3items.bin"), "mine");
  WriteFile(GamePath("SUNSETS.DEF"), "mine");
  EXPECT_TRUE(ToBoolean(CallMember(Main(), "extracteditorfiles", {Path("game")})));
  for (const char* name : {"PlayDownload", "PlayAutoHost", "LoadMenuIcons", "mnu_checkforupdate_Click"}) {
    EXPECT_NO_THROW(CallMember(Main(), name)) << name;
  }
  CallMember(Main(), "GetNewBanner", {"http://maps.example/MAPS.INI"});
  EXPECT_THROW(CallMember(Main(), "SetFlashingArrow", {"Command2"}), RuntimeError);
}

}  // namespace
}  // namespace kestrun
