// The options window: what it shows, what it stores and in which order, and what it asks.
#include "windows/options/frmoptions.h"

#include "forms/drop_target.h"
#include "program/commands.h"
#include "program/frame_fixture.h"
#include "program/shell_integration.h"
#include "program/style_hook.h"
#include "support/access_keys.h"

namespace kestrun {
namespace {

// The folders of a test cannot be named in a settings file: relative paths stand for them.
class OptionsTest : public FrameTest {
 protected:
  OptionsTest() {
    TellGameFolder();
    InstallStyleRuntime({[this] { return style_active; },
                         [this](const std::string& path) { loaded_styles.push_back(path); },
                         [this](Form& form) { dressed.push_back(form.Name()); }});
  }
  ~OptionsTest() override {
    CloseAllWindows();
    InstallShellIntegration({});
    InstallStyleRuntime({});
  }

  frmoptions& Open() {
    frmoptions& window = Window<frmoptions>();
    if (!window.IsShown()) window.Show();
    return window;
  }
  void Save() { Open().Command1.Press(); }
  // A shell in which each of the nine associations answers from `associated` and notes what was done.
  void InstallShell() {
    ShellIntegration shell;
    const auto ending = [this](const std::string& name, std::function<bool()>& is, std::function<bool()>& associate,
                               std::function<bool()>& remove) {
      is = [this, name] { return associated == name; };
      associate = [this, name] { return done.push_back("associate " + name), shell_works; };
      remove = [this, name] { return done.push_back("remove " + name), shell_works; };
    };
    ending("bms", shell.is_bms_associated, shell.associate_bms, shell.remove_bms);
    ending("lst", shell.is_lst_associated, shell.associate_lst, shell.remove_lst);
    ending("stl", shell.is_stl_associated, shell.associate_stl, shell.remove_stl);
    shell.is_protocol_registered = [this](std::string&) { return protocol; };
    shell.register_protocol = [this] { return done.push_back("register protocol"), true; };
    shell.clear_protocol = [this] { done.push_back("clear protocol"); };
    shell.create_shortcut = [this](const std::string& link) {
      done.push_back("link " + link);
      if (shell_works) native_files.WriteAll(link, AsBytes("link"));
      return shell_works;
    };
    InstallShellIntegration(shell);
  }
  // The editor stands in the game folder, so that saving has nothing to say about it.
  void PutEditor() { WriteFile(GamePath("DFLWMEDFC2.EXE"), "editor"); }

  static bool IsMarked(frmoptions& window, const TextBox& box) {
    const TextBox* const order[]{&window.TxtGameFolder, &window.TxtGame,  &window.TxtEditor,
                                 &window.TxtMapFolder,  &window.txtPack,  &window.TxtPlaying,
                                 &window.txtbms,        &window.txtcolor, &window.txtStyleFile};
    const auto at = std::find(std::begin(order), std::end(order), &box) - std::begin(order);
    return window.FindControl("LblMissing", static_cast<int>(at))->Visible;
  }

  bool style_active = false;
  std::vector<std::string> loaded_styles;
  std::vector<std::string> dressed;
  std::string associated;
  bool protocol = false;
  bool shell_works = true;
  std::vector<std::string> done;
};

TEST_F(OptionsTest, ShowsTheDefaultsOfAFreshInstallation) {
  frmoptions& window = Open();
  EXPECT_EQ(window.Caption.get(), "Kestrun - Options");
  EXPECT_EQ(window.txtcolor.Text.get(), ProgramPath("ColorPicker.EXE"));
  EXPECT_EQ(window.txtbms.Text.get(), ProgramPath("DF3BMStoMIS.exe"));
  EXPECT_EQ(window.txtStyleFile.Text.get(), ProgramPath("default.stl"));
  EXPECT_EQ(window.TxtGameFolder.Text.get(), Path("game"));
  EXPECT_EQ(window.TxtGame.Text.get(), "DFLWDEM.EXE");
  EXPECT_EQ(window.TxtEditor.Text.get(), "DFLWMEDFC2.EXE");
  EXPECT_EQ(window.TxtMapFolder.Text.get(), Path("game"));
  EXPECT_EQ(window.ChPack.Value, 0);
  EXPECT_EQ(window.ChPlaying.Value, 0);
  EXPECT_EQ(window.txtPack.Text.get(), "pack.exe");
  EXPECT_EQ(window.TxtPlaying.Text.get(), "pack.exe");
  EXPECT_EQ(window.TxtDFLWParameters.Text.get(), "");
}

TEST_F(OptionsTest, ShowsWhatIsStored) {
  WriteIni(
      "[FOLDERS]\r\nDFLW=C:\\game\r\n[launcher]\r\ncolor=C:\\c.exe\r\nCONVERTOR=C:\\b.exe\r\nSTYLE={none}\r\n"
      "DFLWDEM.EXE=g.exe\r\nDFLWEDIT.EXE=e.exe\r\nPATH=C:\\maps\r\nSHELLPACK=True\r\nSHELLIMPLAYING=True\r\n"
      "PACKIT.EXE=one.exe\r\nPACK.EXE=two.exe\r\nDFLWPAR=/D\r\n");
  frmoptions& window = Open();
  EXPECT_EQ(window.TxtGameFolder.Text.get(), "C:\\game");
  EXPECT_EQ(window.txtcolor.Text.get(), "C:\\c.exe");
  EXPECT_EQ(window.txtbms.Text.get(), "C:\\b.exe");
  EXPECT_EQ(window.txtStyleFile.Text.get(), "{none}");
  EXPECT_EQ(window.TxtGame.Text.get(), "g.exe");
  EXPECT_EQ(window.TxtEditor.Text.get(), "e.exe");
  EXPECT_EQ(window.TxtMapFolder.Text.get(), "C:\\maps");
  EXPECT_EQ(window.ChPack.Value, 1);
  EXPECT_EQ(window.ChPlaying.Value, 1);
  EXPECT_EQ(window.txtPack.Text.get(), "one.exe");
  EXPECT_EQ(window.TxtPlaying.Text.get(), "two.exe");
  EXPECT_EQ(window.TxtDFLWParameters.Text.get(), "/D");
  EXPECT_EQ(window.CboStyles.Text.get(), "No style");
}

TEST_F(OptionsTest, TipsSayWhatEachBoxHolds) {
  frmoptions& window = Open();
  EXPECT_EQ(window.txtcolor.ToolTipText.get(), "The full path of color picker");
  EXPECT_EQ(window.txtbms.ToolTipText.get(), "The full path of the program that converts *.bms to *.mis files");
  EXPECT_EQ(window.txtStyleFile.ToolTipText.get(), "The location of the style (skin) file for Kestrun");
  EXPECT_EQ(window.TxtGameFolder.ToolTipText.get(),
            "Enter the path to your dflw game folder here. Normaly this is C:\\program files\\novalogic\\delta force "
            "land warrior demo");
  EXPECT_EQ(window.TxtGame.ToolTipText.get(), "the dflw game .exe file name");
  EXPECT_EQ(window.TxtEditor.ToolTipText.get(), "The editor.exe file name");
  EXPECT_EQ(window.TxtMapFolder.ToolTipText.get(),
            "You default map folder where Kestrun will load maps from & download them");
  EXPECT_EQ(window.txtPack.ToolTipText.get(),
            "The name of the pack.exe file located in your game folder. NOT FULL PATH");
  EXPECT_EQ(window.TxtDFLWParameters.ToolTipText.get(),
            "Enter command line parameters to start the game here. Use /D /S /L /NOSKINS or leave blank.");
}

TEST_F(OptionsTest, CaptionsAreThoseThatPeopleKnowWithALetterForTheKeyboard) {
  frmoptions& window = Open();
  const auto words = [](const CheckBox& box) { return ReplaceAll(box.Caption.get(), "&", ""); };
  EXPECT_EQ(words(window.chshortcut), "Create shortcut in \"Send to\" menu (Windows Explorer).");
  EXPECT_EQ(words(window.ChPack), "Run program after packing a map:");
  EXPECT_EQ(words(window.ChPlaying), "Run program after 'I'm already playing' or auto host:");
  EXPECT_EQ(words(window.Check1), "Open all *.bms files with this program.");
  EXPECT_EQ(words(window.Check2), "Open all *.lst files with this program.");
  EXPECT_EQ(words(window.Check3), "Open all *.stl files with this program.");
  EXPECT_EQ(words(window.ChDefault), "This launcher is the default launcher for this computer.");
  EXPECT_EQ(words(window.ChProtocol), "Allow kestrun:// protocol in Internet Explorer");
  std::string keys = AccessKeys(window);
  std::sort(keys.begin(), keys.end());
  EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end()) << keys;
}

TEST_F(OptionsTest, NothingIsWrittenOnCancel) {
  Open().TxtGame.Text = "other.exe";
  Open().Command2.Press();
  EXPECT_FALSE(LoadedWindow("frmoptions"));
  EXPECT_EQ(Ini("launcher", "DFLWDEM.EXE"), "(none)");
}

TEST_F(OptionsTest, SavingStoresEveryKeyAndPackExeKeepsTheSecondValue) {
  WriteFile(GamePath("e.exe"), "editor");
  frmoptions& window = Open();
  window.TxtGame.Text = "g.exe";
  window.TxtEditor.Text = "e.exe";
  window.txtcolor.Text = "C:\\c.exe";
  window.txtbms.Text = "C:\\b.exe";
  window.TxtMapFolder.Text = "C:\\maps";
  window.txtPack.Text = "one.exe";
  window.TxtPlaying.Text = "two.exe";
  window.TxtDFLWParameters.Text = "/S";
  window.ChPack.Value = 1;
  Save();
  EXPECT_FALSE(LoadedWindow("frmoptions"));
  const std::vector<std::pair<std::string, std::string>> expected{
      {"EDITEXE", "e.exe"},      {"color", "C:\\c.exe"},    {"PACKEXE", "one.exe"}, {"CONVERTOR", "C:\\b.exe"},
      {"DFLWDEM.EXE", "g.exe"},  {"DFLWEDIT.EXE", "e.exe"}, {"SHELLPACK", "True"},  {"SHELLIMPLAYING", "False"},
      {"PACKIT.EXE", "one.exe"}, {"PACK.EXE", "two.exe"},   {"DFLWPAR", "/S"},      {"PATH", "C:\\maps"}};
  for (const auto& [key, value] : expected) EXPECT_EQ(Ini("launcher", key), value) << key;
  EXPECT_EQ(Ini("FOLDERS", "DFLW"), Path("game"));
}

TEST_F(OptionsTest, AGameFolderTypedWithABackslashIsStoredWithoutIt) {
  PutEditor();
  Open().TxtGameFolder.Text = Path("game") + "\\";
  Save();
  EXPECT_EQ(Ini("FOLDERS", "DFLW"), Path("game"));
}

TEST_F(OptionsTest, ADamagedArchiveInTheStoredGameFolderIsTold) {
  PutEditor();
  WriteFile(GamePath("dflw.pff"), "PFF");
  Open().TxtGameFolder.Text = Path("game");
  desktop.dialogs().ExpectBox("The archive '" + GamePath("dflw.pff") +
                              "' ends inside its header.\r\n"
                              "No originals of it are kept. Install the game's archive again.");
  Save();
}

TEST_F(OptionsTest, AMissingEditorIsToldWithTheGamesName) {
  desktop.dialogs().ExpectBox("Warning: the game.exe file 'DFLWDEM.EXE' was not found in your game folder!");
  Save();
  EXPECT_FALSE(LoadedWindow("frmoptions"));
}

TEST_F(OptionsTest, AnEditorElsewhereIsCopiedIntoTheGameFolderOnYes) {
  WriteFile(Path("maps\\ed.exe"), "editor");
  Open().TxtEditor.Text = Path("maps\\ed.exe");
  desktop.dialogs().ExpectBox("Warning: the game.exe file 'DFLWDEM.EXE' was not found in your game folder!");
  desktop.dialogs()
      .ExpectBox("Do you want to copy it to the game folder?", BoxAnswer::kYes)
      .WithButtons(BoxButtons::kYesNo);
  Save();
  EXPECT_EQ(ReadFile(GamePath("ed.exe")), "editor");
  EXPECT_EQ(Ini("launcher", "DFLWEDIT.EXE"), "ed.exe");
}

TEST_F(OptionsTest, AnEditorElsewhereStaysThereOnNo) {
  WriteFile(Path("maps\\ed.exe"), "editor");
  Open().TxtEditor.Text = Path("maps\\ed.exe");
  desktop.dialogs().ExpectBox("Warning: the game.exe file 'DFLWDEM.EXE' was not found in your game folder!");
  desktop.dialogs().ExpectBox("Do you want to copy it to the game folder?", BoxAnswer::kNo);
  Save();
  EXPECT_FALSE(FileIsThere(GamePath("ed.exe")));
  EXPECT_EQ(Ini("launcher", "DFLWEDIT.EXE"), Path("maps\\ed.exe"));
}

TEST_F(OptionsTest, ACopyThatFailsDoesNotKeepTheRestFromBeingSaved) {
  native_files.MakeFolder(Path("maps\\ed.exe"));  // a folder, which cannot be copied as a file
  frmoptions& window = Open();
  window.TxtEditor.Text = Path("maps\\ed.exe");
  window.TxtGame.Text = "g.exe";
  desktop.dialogs().ExpectBox("Warning: the game.exe file 'g.exe' was not found in your game folder!");
  desktop.dialogs().ExpectBox("Do you want to copy it to the game folder?", BoxAnswer::kYes);
  Save();
  EXPECT_EQ(Ini("launcher", "DFLWDEM.EXE"), "g.exe");
  EXPECT_FALSE(LoadedWindow("frmoptions"));
}

// ---- style ---------------------------------------------------------------------------------------------------------

TEST_F(OptionsTest, AnEmptyStyleIsStoredAsNoneAndTheBoxShowsIt) {
  PutEditor();
  const Ref<frmoptions> window(&Open());
  window->txtStyleFile.Text = "";
  Save();
  EXPECT_EQ(Ini("launcher", "STYLE"), "{none}");
  EXPECT_EQ(window->txtStyleFile.Text.get(), "{none}");
  EXPECT_TRUE(loaded_styles.empty());
}

TEST_F(OptionsTest, ANewStyleIsStoredAndLoadedAtOnceWhenItIsThere) {
  PutEditor();
  WriteFile(Path("dark.stl"), "style");
  Open().txtStyleFile.Text = Path("dark.stl");
  Save();
  EXPECT_EQ(Ini("launcher", "STYLE"), Path("dark.stl"));
  EXPECT_EQ(loaded_styles, std::vector<std::string>{Path("dark.stl")});
}

TEST_F(OptionsTest, AStyleThatIsNotThereIsStoredAndNotLoaded) {
  PutEditor();
  Open().txtStyleFile.Text = "C:\\gone.stl";
  Save();
  EXPECT_EQ(Ini("launcher", "STYLE"), "C:\\gone.stl");
  EXPECT_TRUE(loaded_styles.empty());
}

TEST_F(OptionsTest, TheSameStyleIsNeitherStoredNorLoaded) {
  PutEditor();
  WriteFile(ProgramPath("default.stl"), "style");
  Save();
  EXPECT_EQ(Ini("launcher", "STYLE"), "(none)");
  EXPECT_TRUE(loaded_styles.empty());
}

TEST_F(OptionsTest, StylesBesideTheProgramAreOffered) {
  native_files.MakeFolder(ProgramPath("styles"));
  WriteFile(ProgramPath("own.STL"), "");
  WriteFile(ProgramPath("styles\\night.stl"), "");
  WriteFile(ProgramPath("styles\\sand.stl"), "");
  WriteFile(ProgramPath("styles\\readme.txt"), "");
  frmoptions& window = Open();
  ASSERT_EQ(window.CboStyles.ListCount(), 4);
  EXPECT_EQ(window.CboStyles.List(1), "own");
  EXPECT_EQ(window.CboStyles.List(2), "night");
  EXPECT_EQ(window.CboStyles.ListIndex, -1) << "the default style is none of them";
  window.CboStyles.ListIndex = 2;
  EXPECT_EQ(window.txtStyleFile.Text.get(), ProgramPath("styles\\night.stl"));
  window.CboStyles.ListIndex = 0;
  EXPECT_EQ(window.txtStyleFile.Text.get(), "");
}

TEST_F(OptionsTest, AStyleIsPutOnAFiftiethOfASecondLater) {
  style_active = true;
  Open();
  desktop.clock().AdvanceMs(19);
  EXPECT_TRUE(dressed.empty());
  desktop.clock().AdvanceMs(100);
  EXPECT_EQ(dressed, std::vector<std::string>{"frmoptions"});
}

// ---- browsing ------------------------------------------------------------------------------------------------------

TEST_F(OptionsTest, BrowseButtonsAskWithTheirTitleAndPutThePathIntoTheirBox) {
  const std::string programs =
      "All supported programs|*.exe;*.bat;*.cmd|Windows Programs (*.exe)|*.exe|MS-DOS batch files "
      "(*.bat;*.cmd)|*.bat;*.cmd|All files (*.*)|*.*|";
  frmoptions& window = Open();
  struct Row {
    CommandButton& button;
    TextBox& box;
    std::string title;
    std::string filter;
  };
  for (const Row& row : {Row{window.cmdbms, window.txtbms, "SELECT BMS ==> MIS EXE", programs},
                         Row{window.Command6, window.txtcolor, "SELECT COLOR EXE", programs},
                         Row{window.Command10, window.txtStyleFile, "Select Style File",
                             "Style files (*.stl)|*.stl|All files (*.*)|*.*"},
                         Row{window.CmdPack, window.txtPack, "Select file.", programs},
                         Row{window.CmdBrowsePlaying, window.TxtPlaying, "Select file.", programs}}) {
    desktop.dialogs().ExpectFile("C:\\picked.exe").WithTitle(row.title).WithFilter(row.filter);
    row.button.Press();
    EXPECT_EQ(row.box.Text.get(), "C:\\picked.exe") << row.title;
    desktop.dialogs().ExpectFile(std::nullopt);
    row.button.Press();
    EXPECT_EQ(row.box.Text.get(), "C:\\picked.exe") << "Cancel leaves the field";
  }
}

TEST_F(OptionsTest, FoldersAreBrowsedForAndTakenWithoutTheirLastBackslash) {
  frmoptions& window = Open();
  desktop.dialogs().ExpectFolder("Select your game folder", Path("maps\\"));
  window.CmdGameFolder.Press();
  EXPECT_EQ(window.TxtGameFolder.Text.get(), Path("maps"));
  desktop.dialogs().ExpectFolder("Select a new folder", Path("temp\\"));
  window.CmdMapFolder.Press();
  EXPECT_EQ(window.TxtMapFolder.Text.get(), Path("temp"));
  desktop.dialogs().ExpectFolder("Select a new folder", std::nullopt);
  window.CmdMapFolder.Press();
  EXPECT_EQ(window.TxtMapFolder.Text.get(), Path("temp"));
}

TEST_F(OptionsTest, AnEditorOutsideTheGameFolderIsCopiedThereOnYes) {
  WriteFile(Path("maps\\ed.exe"), "editor");
  desktop.dialogs().ExpectFile(Path("maps\\ed.exe")).WithTitle("Select file.");
  desktop.dialogs()
      .ExpectBox("This file is not located in your game folder!\r\nDo you want to copy it to your game folder?",
                 BoxAnswer::kYes)
      .WithButtons(BoxButtons::kYesNo);
  Open().CmdEditor.Press();
  EXPECT_EQ(ReadFile(GamePath("ed.exe")), "editor");
  EXPECT_EQ(Open().TxtEditor.Text.get(), "ed.exe");
}

TEST_F(OptionsTest, AnEditorInsideTheGameFolderIsTakenWithoutAQuestion) {
  Open().TxtGameFolder.Text = Path("game") + "\\";
  desktop.dialogs().ExpectFile(GamePath("ed.exe"));
  Open().CmdEditor.Press();
  EXPECT_EQ(Open().TxtEditor.Text.get(), "ed.exe");
}

TEST_F(OptionsTest, AGameOutsideTheGameFolderMayBringItsFolderAlong) {
  const std::string question =
      "This file is not located in your game folder!\r\nDo you want to change your game folder to this file? CLICK YES";
  desktop.dialogs().ExpectFile(Path("maps\\lw.exe"));
  desktop.dialogs().ExpectBox(question, BoxAnswer::kNo).WithButtons(BoxButtons::kYesNo);
  Open().CmdGame.Press();
  EXPECT_EQ(Open().TxtGameFolder.Text.get(), Path("game"));
  EXPECT_EQ(Open().TxtGame.Text.get(), "lw.exe");
  desktop.dialogs().ExpectFile(Path("maps\\lw.exe"));
  desktop.dialogs().ExpectBox(question, BoxAnswer::kYes);
  Open().CmdGame.Press();
  EXPECT_EQ(Open().TxtGameFolder.Text.get(), Path("maps"));
}

// ---- dropping and marks --------------------------------------------------------------------------------------------

TEST_F(OptionsTest, APathIsDroppedOnItsBox) {
  frmoptions& window = Open();
  const auto drop = [&](Control& target, const std::string& path) {
    const DropTargetScope scope(&target);
    DropFiles(window, {path});
  };
  drop(window.txtcolor, "C:\\c.exe");
  EXPECT_EQ(window.txtcolor.Text.get(), "C:\\c.exe");
  drop(window.TxtMapFolder, Path("maps"));
  EXPECT_EQ(window.TxtMapFolder.Text.get(), Path("maps"));
  drop(window.TxtMapFolder, Path("temp\\a.bms"));
  EXPECT_EQ(window.TxtMapFolder.Text.get(), Path("temp")) << "a file stands for its folder";
  drop(window.TxtEditor, GamePath("ed.exe"));
  EXPECT_EQ(window.TxtEditor.Text.get(), "ed.exe");
  drop(window.Command1, "C:\\night.stl");
  EXPECT_EQ(window.txtStyleFile.Text.get(), "C:\\night.stl") << "a style knows its box";
  drop(window.Command1, "C:\\other.exe");
  EXPECT_EQ(window.txtcolor.Text.get(), "C:\\c.exe");
}

TEST_F(OptionsTest, WhatIsMissingIsMarkedBesideItsBoxWhileTyping) {
  PutEditor();
  frmoptions& window = Open();
  EXPECT_TRUE(IsMarked(window, window.TxtGame));
  EXPECT_FALSE(IsMarked(window, window.TxtEditor));
  EXPECT_FALSE(IsMarked(window, window.TxtGameFolder));
  EXPECT_FALSE(IsMarked(window, window.txtStyleFile)) << "few people have a default style";
  EXPECT_FALSE(IsMarked(window, window.txtPack)) << "it is not wanted";
  window.ChPack.Press();
  EXPECT_TRUE(IsMarked(window, window.txtPack));
  WriteFile(GamePath("lw.exe"), "game");
  window.TxtGame.Text = "lw.exe";
  EXPECT_FALSE(IsMarked(window, window.TxtGame));
  window.TxtGameFolder.Text = Path("gam");
  EXPECT_TRUE(IsMarked(window, window.TxtGameFolder));
  EXPECT_TRUE(IsMarked(window, window.TxtGame));
  window.txtStyleFile.Text = "{none}";
  EXPECT_FALSE(IsMarked(window, window.txtStyleFile));
  window.txtStyleFile.Text = "C:\\gone.stl";
  EXPECT_TRUE(IsMarked(window, window.txtStyleFile));
}

// ---- the shell -----------------------------------------------------------------------------------------------------

TEST_F(OptionsTest, BoxesWithNothingBehindThemAreDisabled) {
  frmoptions& window = Open();
  for (const CheckBox* box : {&window.Check1, &window.Check2, &window.Check3, &window.ChProtocol, &window.chshortcut}) {
    EXPECT_FALSE(box->Enabled) << box->Name();
  }
  EXPECT_TRUE(window.ChDefault.Enabled);
}

TEST_F(OptionsTest, OnlyWhatChangedIsAssociatedOrRemoved) {
  PutEditor();
  InstallShell();
  associated = "lst";
  frmoptions& window = Open();
  EXPECT_EQ(window.Check1.Value, 0);
  EXPECT_EQ(window.Check2.Value, 1);
  window.Check1.Press();
  window.Check2.Press();
  window.ChProtocol.Press();
  Save();
  EXPECT_EQ(done, (std::vector<std::string>{"associate bms", "remove lst", "register protocol"}));
}

TEST_F(OptionsTest, AProtocolThatIsUntickedIsCleared) {
  PutEditor();
  InstallShell();
  protocol = true;
  Open().ChProtocol.Press();
  Save();
  EXPECT_EQ(done, std::vector<std::string>{"clear protocol"});
}

TEST_F(OptionsTest, AssociationsThatFailAreTold) {
  PutEditor();
  InstallShell();
  shell_works = false;
  frmoptions& window = Open();
  for (CheckBox* box : {&window.Check1, &window.Check2, &window.Check3}) box->Press();
  desktop.dialogs().ExpectBox("Failed to associate *.bms files to this program.");
  desktop.dialogs().ExpectBox("Failed to associate *.lst files to this program.");
  desktop.dialogs().ExpectBox("Failed to associate  *.stl files to this program.");
  Save();
}

TEST_F(OptionsTest, RemovalsThatFailAreTold) {
  PutEditor();
  InstallShell();
  shell_works = false;
  for (const std::string ending : {"bms", "lst", "stl"}) {
    associated = ending;
    frmoptions& window = Open();
    CheckBox& box = ending == "bms" ? window.Check1 : ending == "lst" ? window.Check2 : window.Check3;
    box.Press();
    desktop.dialogs().ExpectBox("Failed to remove *." + ending + " files association with this program.");
    Save();
  }
}

TEST_F(OptionsTest, TheShortcutIsMadeAndTakenAwayAtOnce) {
  InstallShell();
  desktop.shell().shell_folders[9] = Path("temp");
  frmoptions& window = Open();
  EXPECT_TRUE(done.empty()) << "showing it makes nothing";
  window.chshortcut.Press();
  EXPECT_EQ(done, std::vector<std::string>{"link " + Path("temp\\DFLW.lnk")});
  EXPECT_TRUE(FileIsThere(Path("temp\\DFLW.lnk")));
  window.chshortcut.Press();
  EXPECT_FALSE(FileIsThere(Path("temp\\DFLW.lnk")));
  window.chshortcut.Press();
  window.Command2.Press();
  EXPECT_TRUE(FileIsThere(Path("temp\\DFLW.lnk"))) << "Cancel does not take it back";
  EXPECT_EQ(Open().chshortcut.Value, 1);
}

TEST_F(OptionsTest, AShortcutThatCouldNotBeMadeIsNotShownAsOne) {
  InstallShell();
  shell_works = false;
  desktop.shell().shell_folders[9] = Path("temp");
  Open().chshortcut.Press();
  EXPECT_EQ(Open().chshortcut.Value, 0);
}

TEST_F(OptionsTest, AShortcutWhoseMakingFailsIsReported) {
  InstallShell();
  ShellIntegration shell = shell_integration();
  shell.create_shortcut = [](const std::string&) -> bool { Raise(error::kPermissionDenied); };
  InstallShellIntegration(shell);
  frmoptions& window = Open();
  desktop.dialogs().ExpectBox("Error: 70\r\nPermission denied");
  window.chshortcut.Press();
}

TEST_F(OptionsTest, TheDefaultCopyIsStoredInTheUsersSettings) {
  PutEditor();
  EXPECT_EQ(Open().ChDefault.Value, 0);
  Open().ChDefault.Press();
  Save();
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "APP", ""), Path("program"));
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "EXE", ""), "kestrun.exe");
  EXPECT_EQ(Open().ChDefault.Value, 1);
  Open().ChDefault.Press();
  Save();
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "APP", "none"), "none");
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "EXE", "none"), "none");
}

TEST_F(OptionsTest, AnotherCopysValuesAreLeftAlone) {
  PutEditor();
  SaveSetting("Kes_Trun", "DEFAULT", "APP", "C:\\other");
  SaveSetting("Kes_Trun", "DEFAULT", "EXE", "kestrun.exe");
  EXPECT_EQ(Open().ChDefault.Value, 0);
  Save();
  EXPECT_EQ(GetSetting("Kes_Trun", "DEFAULT", "APP", ""), "C:\\other");
}

TEST_F(OptionsTest, TheCommandWordOpensIt) {
  EXPECT_EQ(ProcessCommand("-options"), kCommandCarriedOut);
  EXPECT_TRUE(LoadedWindow("frmoptions")->IsShown());
}

TEST_F(OptionsTest, WithoutAGameFolderTheUserIsAskedOnceAndTheWindowOpensAllTheSame) {
  desktop.registry().DeleteKey(RegistryRoot::kLocalMachine,
                               "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe");
  desktop.dialogs().ExpectBox(
      "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
      "the dflw game).");
  desktop.dialogs().ExpectFolder(
      "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
      "warrior...').",
      std::nullopt);
  EXPECT_EQ(Open().TxtGameFolder.Text.get(), "");
  EXPECT_EQ(Open().TxtMapFolder.Text.get(), "");
}

}  // namespace
}  // namespace kestrun
