// The name editor: what it reads, keeps, writes and says.
#include "windows/names/frmname.h"

#include "game/originals/differences.h"
#include "game/players/name_history.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"

namespace kestrun {
namespace {

constexpr const char* kMissing = "Couldn't find the dflwplyr.sav file!\r\nPlease select your game folder!";

class NameEditorTest : public FrameTest {
 protected:
  NameEditorTest() { TellGameFolder(); }
  ~NameEditorTest() override {
    CloseAllWindows();
    InstallStyleRuntime({});
    desktop.UseFiles(native_files);
  }

  [[nodiscard]] std::string SaveFile() const { return GamePath("dflwplyr.sav"); }
  void WriteNames(const PlayerNames& names) {
    WriteFile(SaveFile(), WithPlayerNames(Bytes(12 + 5 * 2064, 'x'), names));
  }
  frmname& Open() {
    frmname& window = Window<frmname>();
    if (!window.IsShown()) window.Show();
    return window;
  }
  static ComboBox& Name(int player) { return Window<frmname>().players[static_cast<size_t>(player)].name; }
  static std::string Shown() {
    std::string names;
    for (int player = 0; player < 5; ++player) names += Name(player).Text.get() + "|";
    return names;
  }
  static std::string Rows(int player) {
    std::string rows;
    for (int row = 0; row < Name(player).ListCount(); ++row) rows += Name(player).List(row) + "|";
    return rows;
  }
  // What the user types into a combo box; a row with that text does not become the current one by it.
  static void Type(int player, const std::string& text) {
    ComboBox& box = Name(player);
    box.ListIndex.StoreQuietly(-1);
    box.Text = text;
  }
  std::string told_;
  void ExpectSaved() { desktop.dialogs().ExpectBox("Saved!"); }
};

TEST_F(NameEditorTest, ShowsTheFiveNamesOfTheGameFolder) {
  WriteNames({"Neo", "Trinity", "", "Zoé", "ABCDEFGHIJKLMNO"});
  frmname& window = Open();
  EXPECT_EQ(window.Caption.get(), "Kestrun - Name Editor");
  EXPECT_EQ(window.Text1.Text.get(), Path("game"));
  EXPECT_EQ(Shown(), "Neo|Trinity||Zoé|ABCDEFGHIJKLMNO|");
  EXPECT_EQ(window.players[3].in_file.Text.get(), "Zoé");
  EXPECT_EQ(window.LblNote.Caption.get(), "");
}

TEST_F(NameEditorTest, AFolderWithoutTheFileLeavesTheCombosEmptyAndSaysSo) {
  desktop.dialogs().ExpectBox(kMissing);
  Open();
  EXPECT_EQ(Shown(), "|||||");
  EXPECT_EQ(Rows(0), "");
}

TEST_F(NameEditorTest, WithoutAGameFolderTheProgramsOwnFolderIsTaken) {
  WriteIni("[name editor]\r\nDFLWPATH=\r\n");
  desktop.dialogs().ExpectBox(kMissing);
  EXPECT_EQ(Open().Text1.Text.get(), Path("program"));
}

TEST_F(NameEditorTest, SavingWritesTheNamesAndTheHistoryAndSaysSo) {
  WriteNames({"Neo", "b", "c", "d", "e"});
  Open();
  Type(0, "Morpheus");
  ExpectSaved();
  Window<frmname>().mnu_savenames.Choose();
  EXPECT_EQ(ReadPlayerFile(SaveFile()), (PlayerNames{"Morpheus", "b", "c", "d", "e"}));
  EXPECT_EQ(GetIniValue(ProgramPath("names.index"), "NAME0", "0", "(none)"), "Neo");
  EXPECT_EQ(GetIniValue(ProgramPath("names.index"), "NAME4", "0", "(none)"), "e");
  EXPECT_TRUE(Window<frmname>().IsShown());
}

TEST_F(NameEditorTest, AHistoryThatCannotBeStoredIsToldAndTheNamesAreWritten) {
  WriteNames({"Neo", "b", "c", "d", "e"});
  Open();
  Type(0, "Trinity");
  native_files.MakeFolder(ProgramPath("names.index"));
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", ProgramPath("names.index"));
  Open().mnu_savenames.Choose();
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "Trinity");
}

TEST_F(NameEditorTest, ATypedNameEntersTheHistoryByWayOfTheFile) {
  WriteNames({"Neo", "", "", "", ""});
  Open();
  Type(0, "Morpheus");
  ExpectSaved();
  Window<frmname>().SaveNames();
  EXPECT_EQ(Rows(0), "Neo|");
  Window<frmname>().mnu_loadnames.Choose();
  EXPECT_EQ(Rows(0), "Morpheus|Neo|");
  EXPECT_EQ(Name(0).ListIndex, 0);
  ExpectSaved();
  Window<frmname>().SaveNames();
  EXPECT_EQ(GetIniValue(ProgramPath("names.index"), "NAME0", "0", "(none)"), "Morpheus");
  EXPECT_EQ(GetIniValue(ProgramPath("names.index"), "NAME0", "1", "(none)"), "Neo");
}

TEST_F(NameEditorTest, TheHistorysRowOfTheNameInTheFileIsTheCurrentOne) {
  WriteFile(ProgramPath("names.index"), "[NAME0]\r\n0=Alpha\r\n1=Neo\r\n2=Beta\r\n[NAME1]\r\n0=Gamma\r\n");
  WriteNames({"Neo", "Neo", "", "", ""});
  Open();
  EXPECT_EQ(Rows(0), "Alpha|Neo|Beta|");
  EXPECT_EQ(Name(0).ListIndex, 1);
  EXPECT_EQ(Rows(1), "Neo|Gamma|");
  EXPECT_EQ(Name(1).ListIndex, 0);
}

TEST_F(NameEditorTest, AHistoryOfTwentyOneRowsIsReadInFullAndATwentySecondIsNot) {
  std::string history = "[NAME2]\r\n";
  for (int row = 0; row < 22; ++row) history += std::to_string(row) + "=name" + std::to_string(row) + "\r\n";
  WriteFile(ProgramPath("names.index"), history);
  WriteNames({"", "", "name0", "", ""});
  Open();
  EXPECT_EQ(Name(2).ListCount(), 21);
  EXPECT_EQ(Name(2).List(20), "name20");
}

TEST_F(NameEditorTest, RowsBeyondTwentyAreSavedAllTheSame) {
  std::string history = "[NAME2]\r\n";
  for (int row = 0; row < 21; ++row) history += std::to_string(row) + "=name" + std::to_string(row) + "\r\n";
  WriteFile(ProgramPath("names.index"), history);
  WriteNames({"", "", "another", "", ""});
  Open();
  EXPECT_EQ(Name(2).ListCount(), 22);
  ExpectSaved();
  Window<frmname>().SaveNames();
  EXPECT_EQ(GetIniValue(ProgramPath("names.index"), "NAME2", "21", "(none)"), "name20");
}

TEST_F(NameEditorTest, ASixteenthCharacterIsRefusedWithABeep) {
  WriteNames({"", "", "", "", ""});
  Open();
  Type(0, "ABCDEFGHIJKLMNO");
  EXPECT_EQ(desktop.windowing().beeps, 0);
  Type(0, "ABCDEFGHIJKLMNOP");
  EXPECT_EQ(desktop.windowing().beeps, 1);
  EXPECT_EQ(Name(0).Text.get(), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(Name(0).SelStart, 15);
}

TEST_F(NameEditorTest, ALongNameInTheFileIsCutWithoutABeep) {
  WriteFile(SaveFile(), std::string(12, 'x') + "ABCDEFGHIJKLMNOPQRS" + std::string(9000, '\0'));
  Open();
  TextBox& in_file = Window<frmname>().players[0].in_file;
  EXPECT_EQ(in_file.Text.get(), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(in_file.SelStart, 15);
  EXPECT_EQ(Name(0).Text.get(), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(desktop.windowing().beeps, 0);
}

TEST_F(NameEditorTest, ACharacterOfTwoUnitsIsNotCutInTheMiddle) {
  WriteNames({"", "", "", "", ""});
  Open();
  Type(0, "ABCDEFGHIJKLMN😀");
  EXPECT_EQ(Name(0).Text.get(), "ABCDEFGHIJKLMN");
}

TEST_F(NameEditorTest, ACharacterThatTheGameCannotHoldIsNamedBeforeItIsSaved) {
  WriteNames({"Neo", "b", "", "", ""});
  frmname& window = Open();
  Type(1, "Иван");
  EXPECT_EQ(window.LblNote.Caption.get(), "Player 2: the game cannot store И and gets ? for it.");
  ExpectSaved();
  window.SaveNames();
  EXPECT_EQ(ReadPlayerFile(SaveFile())[1], "????");
  Type(1, "Ivan");
  EXPECT_EQ(window.LblNote.Caption.get(), "");
}

TEST_F(NameEditorTest, EnterInTheFolderReadsTheFileThereAndSavesNothing) {
  WriteNames({"Neo", "", "", "", ""});
  native_files.MakeFolder(Path("other"));
  WriteFile(Path("other\\dflwplyr.sav"), WithPlayerNames({}, {"Smith", "", "", "", ""}));
  frmname& window = Open();
  window.Text1.Text = Path("other");
  int key = 13;
  window.Text1.KeyDown(key, 0);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(Name(0).Text.get(), "Smith");
}

TEST_F(NameEditorTest, BrowsingTakesTheFolderAndCancelKeepsIt) {
  WriteNames({"Neo", "", "", "", ""});
  native_files.MakeFolder(Path("other"));
  WriteFile(Path("other\\dflwplyr.sav"), WithPlayerNames({}, {"Smith", "", "", "", ""}));
  frmname& window = Open();
  desktop.dialogs().ExpectFolder("Please select the DFLW folder:", std::nullopt).StartingAt(Path("game"));
  window.Command2.Press();
  EXPECT_EQ(window.Text1.Text.get(), Path("game"));
  EXPECT_EQ(Name(0).Text.get(), "Neo");
  desktop.dialogs().ExpectFolder("Please select the DFLW folder:", Path("other"));
  window.Command2.Press();
  EXPECT_EQ(window.Text1.Text.get(), Path("other"));
  EXPECT_EQ(Name(0).Text.get(), "Smith");
}

TEST_F(NameEditorTest, AFolderOrTheFileItselfCanBeDropped) {
  WriteNames({"Neo", "", "", "", ""});
  native_files.MakeFolder(Path("other"));
  WriteFile(Path("other\\dflwplyr.sav"), WithPlayerNames({}, {"Smith", "", "", "", ""}));
  frmname& window = Open();
  DropFiles(window, {Path("other\\dflwplyr.sav")});
  EXPECT_EQ(Name(0).Text.get(), "Smith");
  DropFiles(window, {Path("game")});
  EXPECT_EQ(Name(0).Text.get(), "Neo");
  EXPECT_EQ(window.Text1.Text.get(), Path("game"));
}

TEST_F(NameEditorTest, SaveClosesTheWindowAndStoresTheFolder) {
  WriteNames({"Neo", "", "", "", ""});
  frmname& window = Open();
  Type(0, "Smith");
  ExpectSaved();
  window.cmdSave.Press();
  EXPECT_FALSE(LoadedWindow(frmname::kName));
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "Smith");
  EXPECT_EQ(Ini("name editor", "DFLWPATH"), Path("game"));
}

TEST_F(NameEditorTest, CancelChangesNoNameAndStoresTheFolderAllTheSame) {
  WriteNames({"Neo", "", "", "", ""});
  const std::string before = ReadFile(SaveFile());
  frmname& window = Open();
  Type(0, "Smith");
  window.Command1.Press();
  EXPECT_FALSE(LoadedWindow(frmname::kName));
  EXPECT_EQ(ReadFile(SaveFile()), before);
  EXPECT_FALSE(FileIsThere(ProgramPath("names.index")));
  EXPECT_EQ(Ini("name editor", "DFLWPATH"), Path("game"));
}

TEST_F(NameEditorTest, ASaveIntoAFolderWithoutTheFileMakesOneOfNamesOnly) {
  native_files.MakeFolder(Path("other"));
  WriteNames({"Neo", "", "", "", "Ed"});
  frmname& window = Open();
  window.Text1.Text = Path("other");
  ExpectSaved();
  window.SaveNames();
  EXPECT_EQ(ReadFile(Path("other\\dflwplyr.sav")).size(), 8268U + 2 + 2);
}

TEST_F(NameEditorTest, TheCharacterMapIsStartedAndAMissingOneIsTold) {
  WriteNames({"Neo", "", "", "", ""});
  frmname& window = Open();
  window.cmdCharMap.Press();
  EXPECT_EQ(desktop.shell().openings, (std::vector<ShellOpening>{{"open", "charmap.exe", "", "", 1}}));
  desktop.shell().open_result = 2;
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", "charmap.exe");
  window.cmdCharMap.Press();
}

// ---- what is kept --------------------------------------------------------------------------------------------------

TEST_F(NameEditorTest, TheFileGoesIntoTheLedgerBeforeItsFirstChangeAndComesBackWhole) {
  WriteNames({"Neo", "b", "c", "d", "e"});
  const std::string before = ReadFile(SaveFile());
  Open();
  for (const char* name : {"First", "Second"}) {
    Type(0, name);
    ExpectSaved();
    Window<frmname>().SaveNames();
  }
  const auto differences = originals::FindDifferences(Path("game"));
  ASSERT_EQ(differences.size(), 1U);
  EXPECT_EQ(differences[0].place.file, "dflwplyr.sav");
  EXPECT_EQ(differences[0].present, originals::Present::kOurs);
  originals::RestoreOriginal(differences[0], false);
  EXPECT_EQ(ReadFile(SaveFile()), before);
}

TEST_F(NameEditorTest, WhatTheGameWroteInBetweenIsKeptAsAFurtherVersion) {
  WriteNames({"Neo", "", "", "", ""});
  Open();
  Type(0, "First");
  ExpectSaved();
  Window<frmname>().SaveNames();
  WriteFile(SaveFile(), ReadFile(SaveFile()) + "scores of the game");
  Type(0, "Second");
  ExpectSaved();
  Window<frmname>().SaveNames();
  const auto differences = originals::FindRestorable(Path("game"));
  ASSERT_EQ(differences.size(), 1U);
  EXPECT_EQ(differences[0].further.size(), 1U);
}

// A file system on which the ledger cannot write.
class NoLedgerFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  void MakeFolder(std::string_view path) override {
    if (path.ends_with("originals")) Raise(error::kDiskFull);
    files().MakeFolder(path);
  }
};

TEST_F(NameEditorTest, WhereTheOriginalCannotBeKeptTheUserIsAskedBeforeAnythingIsWritten) {
  WriteNames({"Neo", "", "", "", ""});
  const std::string before = ReadFile(SaveFile());
  Open();
  Type(0, "Smith");
  NoLedgerFiles files(native_files);
  desktop.UseFiles(files);
  desktop.dialogs()
      .ExpectBox("The original of \"dflwplyr.sav\" cannot be kept. Go on without?", BoxAnswer::kNo)
      .WithButtons(BoxButtons::kYesNo)
      .WithDefaultButton(2);
  Window<frmname>().cmdSave.Press();
  EXPECT_EQ(ReadFile(SaveFile()), before);
  EXPECT_TRUE(Window<frmname>().IsShown());
  desktop.dialogs().ExpectBox("The original of \"dflwplyr.sav\" cannot be kept. Go on without?", BoxAnswer::kYes);
  ExpectSaved();
  Window<frmname>().SaveNames();
  EXPECT_EQ(ReadPlayerFile(SaveFile())[0], "Smith");
}

// ---- failures ------------------------------------------------------------------------------------------------------

// The game has its file open.
class HeldFiles final : public ForwardingFiles {
 public:
  HeldFiles(FileSystem& files, std::string path) : ForwardingFiles(files), path_(std::move(path)) {}
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    if (path == path_ && mode != OpenMode::kRead) Raise(error::kPermissionDenied);
    return files().Open(path, mode);
  }

 private:
  std::string path_;
};

TEST_F(NameEditorTest, AFileThatTheGameHoldsOpenIsNamedAndTheWindowStaysWithWhatWasTyped) {
  WriteNames({"Neo", "", "", "", ""});
  const std::string before = ReadFile(SaveFile());
  Open();
  Type(0, "Smith");
  HeldFiles files(native_files, SaveFile());
  desktop.UseFiles(files);
  desktop.processes().holders[SaveFile()] = {"Dflwdem.exe"};
  desktop.dialogs().ExpectBox("Error: 70\r\nPermission denied: " + SaveFile() +
                              "\r\nIt is open in Dflwdem.exe. Close that program, then try again.");
  Window<frmname>().cmdSave.Press();
  EXPECT_EQ(ReadFile(SaveFile()), before);
  EXPECT_EQ(Name(0).Text.get(), "Smith");
  EXPECT_FALSE(FileIsThere(ProgramPath("names.index")));
}

// Fails at the n-th write to one file, with half of the bytes written.
class BrokenDisk final : public ForwardingFiles {
 public:
  BrokenDisk(FileSystem& files, std::string path, int writes) : ForwardingFiles(files), path_(std::move(path)) {
    failing_ = std::make_unique<FailingFiles>(files, writes);
  }
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    return path == path_ && mode != OpenMode::kRead ? failing_->Open(path, mode) : files().Open(path, mode);
  }
  [[nodiscard]] bool HasFailed() const { return failing_->HasFailed(); }

 private:
  std::string path_;
  std::unique_ptr<FailingFiles> failing_;
};

TEST_F(NameEditorTest, AFailureAtAnyWriteIsToldWithoutSavedAndTouchesNoOtherBytes) {
  bool has_failed = true;
  for (int call = 0; has_failed; ++call) {
    WriteNames({"Neo", "b", "c", "d", "e"});
    const std::string before = ReadFile(SaveFile());
    Open();
    for (int player = 0; player < 5; ++player) Type(player, "ABCDEFGHIJKLMNO");
    BrokenDisk files(native_files, SaveFile(), call);
    desktop.UseFiles(files);
    // The seventh call closes the file; behind it there is none that could fail.
    if (call < 7) {
      desktop.dialogs().ExpectBox("Error: 61\r\nDisk full: " + SaveFile() +
                                  "\r\nMake room on this disk, then try again.");
    } else {
      ExpectSaved();
    }
    Window<frmname>().SaveNames();
    has_failed = files.HasFailed();
    desktop.UseFiles(native_files);
    const std::string after = ReadFile(SaveFile());
    ASSERT_EQ(after.size(), before.size());
    for (size_t offset = 0; offset < after.size(); ++offset) {
      const bool is_name = offset >= 12 && (offset - 12) % 2064 < 17;
      if (is_name) continue;
      ASSERT_EQ(after[offset], before[offset]) << "call " << call << ", offset " << offset;
    }
    Window<frmname>().Unload();
  }
}

TEST_F(NameEditorTest, AFailureOfTheLoadIsToldAndTheWindowOpens) {
  WriteNames({"Neo", "", "", "", ""});
  native_files.Delete(SaveFile());
  native_files.MakeFolder(SaveFile());  // it is there and cannot be read
  frmname& window = [this]() -> frmname& {
    desktop.OnUnexpected([this](const UnexpectedQuestion& question) { told_ = question.text; });
    return Open();
  }();
  EXPECT_TRUE(window.IsShown());
  EXPECT_NE(told_.find(SaveFile()), std::string::npos) << told_;
}

// ---- the window ----------------------------------------------------------------------------------------------------

TEST_F(NameEditorTest, TheKeyboardReachesEverythingInReadingOrder) {
  WriteNames({"Neo", "", "", "", ""});
  frmname& window = Open();
  std::string order;
  for (const Control* control : window.TabOrder()) order += control->Name() + "|";
  EXPECT_EQ(order, "Text1|Command2|CmbName|CmbName|CmbName|CmbName|CmbName|cmdCharMap|cmdSave|Command1|");
  EXPECT_EQ(window.mnu_loadnames.Shortcut.get(), "F5");
  EXPECT_EQ(window.mnu_savenames.Shortcut.get(), "Ctrl+S");
  EXPECT_TRUE(window.Command1.Cancel);
  EXPECT_TRUE(window.cmdSave.Default);
}

TEST_F(NameEditorTest, CaptionsAndTipsAreTheProgramsOwn) {
  WriteNames({"", "", "", "", ""});
  frmname& window = Open();
  EXPECT_EQ(window.LblFolder.Caption.get(), "Game Folder:");
  EXPECT_EQ(window.Text1.ToolTipText.get(), "Your DFLW demo or full version game folder.");
  EXPECT_EQ(window.Command2.ToolTipText.get(), "Browse for folder.");
  EXPECT_EQ(window.Frame1.Caption.get(), "Players:");
  EXPECT_EQ(window.players[4].label.Caption.get(), "Player 5");
  EXPECT_EQ(window.players[4].in_file.ToolTipText.get(), "Right click to paste your name here.");
  EXPECT_EQ(window.cmdSave.Caption.get() + "|" + window.cmdSave.ToolTipText.get(), "Save|Save everything.");
  EXPECT_EQ(window.Command1.Caption.get() + "|" + window.Command1.ToolTipText.get(), "Cancel|Cancel this.");
  EXPECT_EQ(window.cmdCharMap.Caption.get() + "|" + window.cmdCharMap.ToolTipText.get(),
            "Run Char Map|Run a special character map.");
  EXPECT_EQ(window.mnu_file.Caption.get() + window.mnu_loadnames.Caption.get() + window.mnu_savenames.Caption.get() +
                window.mnu_exit.Caption.get(),
            "FileLoad namesSave namesExit");
  EXPECT_TRUE(window.mnu_savenames.Picture.get());
}

TEST_F(NameEditorTest, TheStyleIsAppliedAtOnce) {
  WriteNames({"", "", "", "", ""});
  std::string dressed;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [&](Form& form) { dressed += form.Name(); }});
  Open();
  EXPECT_EQ(dressed, "frmname");
}

}  // namespace
}  // namespace kestrun
