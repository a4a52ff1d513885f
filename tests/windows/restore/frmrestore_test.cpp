#include "windows/restore/frmrestore.h"

#include <gtest/gtest.h>

#include "forms/keys.h"
#include "game/originals/originals_fixture.h"
#include "program/originals_hook.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

class RestoreWindowTest : public originals::OriginalsTest {
 protected:
  frmrestore& Open() {
    auto& window = Window<frmrestore>();
    window.Show();
    return window;
  }
  static std::string Rows(const McListBox& list) {
    std::string rows;
    for (int row = 0; row < list.ListCount(); ++row) rows += list.List(row) + "|";
    return rows;
  }
  void PutBoth() {
    EXPECT_TRUE(Put("Oasis.bms", kMission));
    EXPECT_TRUE(Put("Harbour.bms", "D08M04.BMS"));
  }
  void ExpectRemoval(BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("The loose files \"D08M03.BMS\", \"D08M04.BMS\" were not in the game before. Remove them?", answer)
        .WithButtons(BoxButtons::kYesNo);
  }
  // Selects the row with this text at its start, and no other.
  static void Select(frmrestore& window, const std::string& start) {
    for (int row = 0; row < window.LstMissions.ListCount(); ++row) {
      if (StartsWith(window.LstMissions.List(row), start)) window.LstMissions.SetListIndex(row);
    }
  }
};

TEST_F(RestoreWindowTest, AnUntouchedGameIsAnEmptyListWithASentence) {
  frmrestore& window = Open();
  EXPECT_EQ(window.Caption.get(), "Restore stock missions");
  EXPECT_EQ(window.LstFolders.ListCount(), 1);
  EXPECT_EQ(window.LstMissions.ListCount(), 0);
  EXPECT_EQ(window.LblState.Caption.get(), "Nothing in this folder differs from its originals.");
  for (const CommandButton* button : {&window.CmdRestore, &window.CmdRestoreAll, &window.CmdMapInfo}) {
    EXPECT_FALSE(button->Enabled);
  }
}

TEST_F(RestoreWindowTest, WithoutAnyGameItSaysThatNothingWasReplaced) {
  desktop.registry().Write(RegistryRoot::kLocalMachine,
                           "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path", "");
  EXPECT_EQ(Open().LblState.Caption.get(), "Kestrun has not replaced anything yet.");
}

TEST_F(RestoreWindowTest, ShowsWhatDiffersAndWhatIsThereNow) {
  PutBoth();
  frmrestore& window = Open();
  EXPECT_EQ(Rows(window.LstMissions),
            "D08M03.BMS, loose file:  Oasis.bms (Oasis)|D08M04.BMS, loose file:  Harbour.bms (Harbour)|D08M03.BMS in "
            "dflw.pff:  Oasis.bms (Oasis)|D08M04.BMS in dflw.pff:  Harbour.bms (Harbour)|");
  EXPECT_EQ(window.LblState.Caption.get(), "4 things in this folder differ from their originals.");
  window.LstMissions.SetListIndex(2);
  EXPECT_EQ(window.TxtWhere.Text->substr(0, 16), "\"D08M03.BMS\" in ");
  EXPECT_EQ(window.TxtNow.Text.get(), "Oasis.bms (Oasis)");
  EXPECT_EQ(window.TxtSince.Text->size(), std::string("2026-11-21 15:49:26").size());
  EXPECT_EQ(window.TxtSize.Text.get(), "186 bytes; the original: 436 bytes");
  window.LstMissions.SetListIndex(0);
  EXPECT_EQ(window.TxtSize.Text.get(), "186 bytes; it was not there before");
}

TEST_F(RestoreWindowTest, RestoreAllPutsEverythingBackAfterOneQuestion) {
  PutBoth();
  frmrestore& window = Open();
  ExpectRemoval(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("2 originals are back. 2 added files are removed.");
  window.CmdRestoreAll.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), stock_deathmatch);
  EXPECT_FALSE(FileIsThere(GamePath(kMission)));
  EXPECT_FALSE(FileIsThere(GamePath("D08M04.BMS")));
  EXPECT_EQ(window.LblState.Caption.get(), "Nothing in this folder differs from its originals.");
}

TEST_F(RestoreWindowTest, NoToTheQuestionLeavesTheAddedFilesAndRestoresTheRest) {
  PutBoth();
  frmrestore& window = Open();
  ExpectRemoval(BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("2 originals are back.");
  window.CmdRestoreAll.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
  EXPECT_TRUE(FileIsThere(GamePath(kMission)));
  EXPECT_EQ(window.LstMissions.ListCount(), 2);
}

TEST_F(RestoreWindowTest, RestoresOnlyWhatIsSelected) {
  PutBoth();
  frmrestore& window = Open();
  Select(window, "D08M04.BMS in");
  desktop.dialogs().ExpectBox("1 original is back.");
  window.CmdRestore.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), oasis);
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), stock_deathmatch);
  EXPECT_EQ(window.LstMissions.ListCount(), 3);
}

TEST_F(RestoreWindowTest, WithNothingSelectedItAsksForASelection) {
  PutBoth();
  frmrestore& window = Open();
  window.LstMissions.OnMouseDown(mouse::kLeft, shift::kCtrl, 30, 11);  // takes the first row out of the selection
  ASSERT_EQ(window.LstMissions.SelCount(), 0);
  desktop.dialogs().ExpectBox("Select what to restore!");
  window.CmdRestore.Press();
}

class ForeignContentTest : public RestoreWindowTest {
 protected:
  ForeignContentTest() {
    EXPECT_TRUE(Put("Oasis.bms", kMission));
    PackByHand("foreign", kMission);
  }
  frmrestore& OpenOnForeign(BoxAnswer answer) {
    frmrestore& window = Open();
    Select(window, "D08M03.BMS in");
    desktop.dialogs()
        .ExpectBox("\"D08M03.BMS\" holds something that Kestrun did not put there. Keep that too?", answer)
        .WithButtons(BoxButtons::kYesNoCancel);
    return window;
  }
};

TEST_F(ForeignContentTest, ItIsToldInTheList) {
  EXPECT_NE(Rows(Open().LstMissions).find("D08M03.BMS in dflw.pff:  not put there by Kestrun|"), std::string::npos);
}

TEST_F(ForeignContentTest, YesKeepsItBeforeTheOriginalComesBack) {
  frmrestore& window = OpenOnForeign(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("1 original is back.");
  window.CmdRestore.Press();
  EXPECT_TRUE(IsKept("foreign"));
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(ForeignContentTest, NoRestoresWithoutKeepingIt) {
  frmrestore& window = OpenOnForeign(BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("1 original is back.");
  window.CmdRestore.Press();
  EXPECT_FALSE(IsKept("foreign"));
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(ForeignContentTest, CancelRestoresNothing) {
  frmrestore& window = OpenOnForeign(BoxAnswer::kCancel);
  window.CmdRestore.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), "foreign");
}

TEST_F(ForeignContentTest, AFurtherVersionIsPutBackInTheOriginalsPlace) {
  frmrestore& window = OpenOnForeign(BoxAnswer::kYes);
  EXPECT_FALSE(window.CboVersion.Enabled);
  desktop.dialogs().ExpectBox("1 original is back.");
  window.CmdRestore.Press();
  EXPECT_EQ(window.LblState.Caption.get(),
            "1 thing in this folder differs from its original. 1 unchanged thing has further versions.");
  Select(window, "D08M03.BMS in dflw.pff:  Desert prison - the original");
  ASSERT_TRUE(window.CboVersion.Enabled);
  ASSERT_EQ(window.CboVersion.ListCount(), 2);
  EXPECT_EQ(window.CboVersion.List(0), "The original, 436 bytes");
  EXPECT_TRUE(StartsWith(window.CboVersion.List(1), "kept 20"));
  desktop.dialogs().ExpectBox("That is there already. Choose a further version to put back another one.");
  window.CmdRestore.Press();
  window.CboVersion.ListIndex = 1;
  desktop.dialogs().ExpectBox("1 further version is back.");
  window.CmdRestore.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), "foreign");
  Select(window, "D08M03.BMS in dflw.pff:  a further version that is kept");
  desktop.dialogs().ExpectBox("1 original is back.");
  window.CmdRestore.Press();
  EXPECT_EQ(EntryOf(Archive(), kMission), stock);
}

TEST_F(RestoreWindowTest, AnEntryThatWasNotThereIsRemovedAfterTheQuestion) {
  EXPECT_TRUE(Put("Oasis.bms", "NEW.BMS"));
  frmrestore& window = Open();
  EXPECT_EQ(Rows(window.LstMissions),
            "NEW.BMS in dflw.pff:  Oasis.bms (Oasis)|NEW.BMS, loose file:  Oasis.bms (Oasis)|");
  desktop.dialogs().ExpectBox(
      "The loose file \"NEW.BMS\" and the entry \"NEW.BMS\" were not in the game before. Remove them?",
      BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("2 added files are removed.");
  window.CmdRestoreAll.Press();
  EXPECT_EQ(window.LblState.Caption.get(), "Nothing in this folder differs from its originals.");
}

TEST_F(RestoreWindowTest, AFailureIsShownAndTheOthersAreRestored) {
  PutBoth();
  native_files.Delete(LedgerPath(Sha256Hex(AsBytes(stock))));
  frmrestore& window = Open();
  ExpectRemoval(BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", LedgerPath(Sha256Hex(AsBytes(stock))));
  desktop.dialogs().ExpectBox("1 original is back. 2 added files are removed.");
  window.CmdRestoreAll.Press();
  EXPECT_EQ(EntryOf(Archive(), "D08M04.BMS"), stock_deathmatch);
  EXPECT_EQ(window.LstMissions.ListCount(), 1);
}

TEST_F(RestoreWindowTest, EachFolderHasItsOwnList) {
  PutBoth();
  native_files.MakeFolder(Path("second"));
  MakeGameArchive(Path("second\\dflw.pff"));
  ClsPFF archive;
  ASSERT_TRUE(archive.LoadPff(Path("second\\dflw.pff")));
  const std::unique_ptr<OriginalsKeeper> keeper = KeepOriginals();
  keeper->KeepEntry(archive, kMission, AsBytes(harbour), "Harbour.bms");
  keeper->Finish();
  archive.PackFile(AsBytes(harbour), kMission);
  archive.SavePffFile();
  frmrestore& window = Open();
  ASSERT_EQ(window.LstFolders.ListCount(), 2);
  EXPECT_EQ(window.LstMissions.ListCount(), 4);
  window.LstFolders.ListIndex = 1;
  EXPECT_EQ(Rows(window.LstMissions), "D08M03.BMS in dflw.pff:  Harbour.bms (Harbour)|");
}

TEST_F(RestoreWindowTest, AGameThatWasMovedIsFoundByBrowsing) {
  PutBoth();
  native_files.Rename(Path("game"), Path("elsewhere"));
  frmrestore& window = Open();
  EXPECT_EQ(window.LblState.Caption.get(),
            "This folder is not there any more. Browse for the place that it was moved to.");
  desktop.dialogs().ExpectFolder("Select the folder of the game whose missions you want to restore.",
                                 Path("elsewhere"));
  window.CmdBrowse.Press();
  EXPECT_EQ(window.LstMissions.ListCount(), 4);
  ExpectRemoval(BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("2 originals are back. 2 added files are removed.");
  window.CmdRestoreAll.Press();
  EXPECT_EQ(EntryOf(Path("elsewhere\\dflw.pff"), kMission), stock);
}

TEST_F(RestoreWindowTest, F5LooksAgainAndCtrlASelectsAll) {
  frmrestore& window = Open();
  PutBoth();
  int f5 = key::kF5;
  window.KeyDown(f5, 0);
  EXPECT_EQ(f5, 0);
  EXPECT_EQ(window.LstMissions.ListCount(), 4);
  EXPECT_EQ(window.LstMissions.SelCount(), 1);
  window.SetActiveControl(&window.LstMissions);
  int a = 'A';
  window.KeyDown(a, shift::kCtrl);
  EXPECT_EQ(a, 0);
  EXPECT_EQ(window.LstMissions.SelCount(), 4);
}

TEST_F(RestoreWindowTest, EnterRestoresAndEscapeCloses) {
  frmrestore& window = Open();
  EXPECT_TRUE(window.CmdRestore.Default);
  EXPECT_TRUE(window.CmdClose.Cancel);
  window.CmdClose.Press();
  EXPECT_EQ(LoadedWindow("frmrestore"), nullptr);
}

TEST_F(RestoreWindowTest, NoAccessKeyIsThereTwice) {
  frmrestore& window = Open();
  std::string keys;
  for (const std::string& caption :
       {window.LblFolders.Caption.get(), window.CmdBrowse.Caption.get(), window.LblMissions.Caption.get(),
        window.CmdRestore.Caption.get(), window.CmdRestoreAll.Caption.get(), window.CmdMapInfo.Caption.get(),
        window.CmdRefresh.Caption.get(), window.LblVersion.Caption.get()}) {
    const size_t at = caption.find('&');
    ASSERT_NE(at, std::string::npos) << caption;
    const std::string key = ToLower(caption.substr(at + 1, 1));
    EXPECT_EQ(keys.find(key), std::string::npos) << caption;
    keys += key;
  }
}

TEST_F(RestoreWindowTest, MapInfoShowsWhatIsThereNow) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  frmrestore& window = Open();
  window.LstMissions.SetListIndex(1);
  desktop.windowing().ExpectModal("frmmapinfo", [](Form& form) {
    EXPECT_EQ(form.Caption.get(), "Map info D08M03.BMS");
    form.Unload();
  });
  window.CmdMapInfo.Press();
}

TEST_F(RestoreWindowTest, TheMainWindowOpensIt) {
  auto& main = Window<frmain>();
  main.Show();
  main.mnu_restoremissions.Choose();
  EXPECT_NE(LoadedWindow("frmrestore"), nullptr);
}

// ---- a damaged archive ---------------------------------------------------------------------------------------------

TEST_F(RestoreWindowTest, ADamagedArchiveIsNamedOnceWhenTheMainWindowOpens) {
  EXPECT_TRUE(Put("Oasis.bms", kMission));
  std::string bytes = ReadFile(Archive());
  bytes[16] = '\xFF', bytes[17] = '\xFF', bytes[18] = '\xFF', bytes[19] = '\x7F';  // the table lies behind the end
  WriteFile(Archive(), bytes);
  desktop.dialogs().ExpectBox(
      "The archive '" + Archive() +
      "' says that its table lies behind its end.\r\nOriginals are kept of "
      "\"D08M03.BMS\". Install the game's archive again, or take \"Restore stock missions ...\" in the Actions menu to "
      "put them back.");
  Window<frmain>().Show();
  Window<frmain>().Unload();
  Window<frmain>().Show();
  // The window knows the folder as the ledger keeps it, with backslashes.
  const std::string shown = ReplaceAll(Archive(), "/", "\\");
  EXPECT_EQ(Open().LblState.Caption.get(), "The archive '" + shown + "' says that its table lies behind its end.");
}

}  // namespace
}  // namespace kestrun
