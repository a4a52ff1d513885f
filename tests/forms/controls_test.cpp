#include <gtest/gtest.h>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/file_list_box.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/option_button.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmsample final : public Form {
 public:
  frmsample() : Form("frmsample") {}

  Label& Label1 = Add<Label>("Label1");
  TextBox& Text1 = Add<TextBox>("Text1");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& first = Add<OptionButton>("options", 0);
  OptionButton& second = Add<OptionButton>("options", 1);
  OptionButton& elsewhere = Add<OptionButton>("elsewhere");
  CheckBox& Check1 = Add<CheckBox>("Check1");
  ListBox& List1 = Add<ListBox>("List1");
  FileListBox& File1 = Add<FileListBox>("File1");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = Add<CommandButton>("cmdCancel");
  Timer& Timer1 = Add<Timer>("Timer1");
  CommonDialog& Dialog1 = Add<CommonDialog>("Dialog1");
};

class ControlsTest : public HeadlessTest {
 protected:
  Ref<frmsample> form = MakeRef<frmsample>();
};

TEST_F(ControlsTest, AssigningTheSameTextIsNoChange) {
  int changes = 0;
  form->Text1.Change = [&] { ++changes; };
  form->Text1.Text = std::string("maps");
  form->Text1.Text = std::string("maps");
  EXPECT_EQ(changes, 1);
}

TEST_F(ControlsTest, TextIsCutToMaxLengthInCharactersNotBytes) {
  form->Text1.MaxLength = 3;
  form->Text1.Text = std::string("Карты");
  EXPECT_EQ(form->Text1.Text.get(), "Кар");
}

TEST_F(ControlsTest, SelectedTextIsReplacedAndTheInsertionPointStandsBehindIt) {
  form->Text1.Text = std::string("put map in");
  form->Text1.SelStart = 4;
  form->Text1.SelLength = 3;
  EXPECT_EQ(form->Text1.SelText(), "map");
  form->Text1.SetSelText("zip é");
  EXPECT_EQ(form->Text1.Text.get(), "put zip é in");
  EXPECT_EQ(form->Text1.SelStart, 9);
  EXPECT_EQ(form->Text1.SelLength, 0);
}

TEST_F(ControlsTest, OneOptionOfAContainerIsOnAndOtherContainersKeepTheirs) {
  form->first.SetContainer(form->Frame1);
  form->second.SetContainer(form->Frame1);
  form->elsewhere.Value = true;
  form->first.Value = true;
  form->second.Value = true;
  EXPECT_FALSE(form->first.Value);
  EXPECT_TRUE(form->second.Value);
  EXPECT_TRUE(form->elsewhere.Value);
}

TEST_F(ControlsTest, SwitchingAnOptionOnIsAClickAndBeingSwitchedOffIsNone) {
  std::string clicks;
  form->first.Click = [&] { clicks += "1"; };
  form->second.Click = [&] { clicks += "2"; };
  form->first.Value = true;
  form->second.Value = true;
  EXPECT_EQ(clicks, "12");
}

TEST_F(ControlsTest, EveryChangeOfACheckBoxIsAClick) {
  form->Show();
  int clicks = 0;
  form->Check1.Click = [&] { ++clicks; };
  form->Check1.Value = 1;
  EXPECT_TRUE(form->Check1.Press());
  EXPECT_EQ(form->Check1.Value, 0);
  EXPECT_EQ(clicks, 2);
}

TEST_F(ControlsTest, ADisabledContainerMakesItsControlsUnusable) {
  form->Show();
  form->cmdOK.SetContainer(form->Frame1);
  form->Frame1.Enabled = false;
  bool clicked = false;
  form->cmdOK.Click = [&] { clicked = true; };
  EXPECT_FALSE(form->cmdOK.Press());
  EXPECT_FALSE(clicked);
}

TEST_F(ControlsTest, TheLastDefaultButtonNamedIsTheOnlyOne) {
  form->cmdOK.Default = true;
  form->cmdCancel.Default = true;
  EXPECT_FALSE(form->cmdOK.Default);
  EXPECT_TRUE(form->cmdCancel.Default);
}

TEST_F(ControlsTest, ListKeepsItsCurrentRowWhileRowsComeAndGoAboveIt) {
  form->List1.AddItem("b");
  form->List1.AddItem("c");
  form->List1.ListIndex = 1;
  form->List1.AddItem("a", 0);
  EXPECT_EQ(form->List1.Text(), "c");
  form->List1.RemoveItem(0);
  EXPECT_EQ(form->List1.ListIndex, 1);
  form->List1.RemoveItem(1);
  EXPECT_EQ(form->List1.ListIndex, -1);
}

TEST_F(ControlsTest, SortedListPutsNewRowsInTheirPlaceWithoutRegardToCase) {
  form->List1.Sorted = true;
  for (const char* text : {"oasis", "Desert", "Harbour"}) form->List1.AddItem(text);
  EXPECT_EQ(form->List1.List(0), "Desert");
  EXPECT_EQ(form->List1.List(1), "Harbour");
  EXPECT_EQ(form->List1.List(2), "oasis");
  EXPECT_EQ(form->List1.NewIndex(), 1);
}

TEST_F(ControlsTest, ARowThatDoesNotExistIsAnInvalidProcedureCall) {
  for (const int row : {-2, 0, 5}) {
    try {
      form->List1.ListIndex = row;
      FAIL() << "row " << row;
    } catch (const RuntimeError& failure) {
      EXPECT_EQ(failure.number(), 5);
    }
    EXPECT_EQ(form->List1.ListIndex, -1);
  }
}

TEST_F(ControlsTest, FileListShowsMatchingFilesByNameWithoutRegardToCase) {
  native_files.MakeFolder(Path("maps"));
  native_files.MakeFolder(Path("maps\\folder.bms"));
  for (const char* name : {"oasis.BMS", "Desert.bms", "pack.zip", "readme.txt"}) {
    WriteFile(Path("maps\\") + name, "x");
  }
  int path_changes = 0;
  form->File1.PathChange = [&] { ++path_changes; };
  form->File1.Pattern = std::string("*.bms;*.zip");
  form->File1.SetPath(Path("maps\\"));
  EXPECT_EQ(form->File1.Path(), Path("maps"));
  EXPECT_EQ(path_changes, 1);
  ASSERT_EQ(form->File1.ListCount(), 3);
  EXPECT_EQ(form->File1.List(0), "Desert.bms");
  EXPECT_EQ(form->File1.List(1), "oasis.BMS");
  EXPECT_EQ(form->File1.List(2), "pack.zip");
}

TEST_F(ControlsTest, FileListRefusesAFolderThatDoesNotExistAndKeepsItsOwn) {
  native_files.MakeFolder(Path("maps"));
  form->File1.SetPath(Path("maps"));
  try {
    form->File1.SetPath(Path("nowhere"));
    FAIL();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 76);
    EXPECT_EQ(failure.description(), "Path not found");
  }
  EXPECT_EQ(form->File1.Path(), Path("maps"));
}

// The folder dialogue gives a drive as "C:\", and the last character goes.
TEST_F(ControlsTest, FileListTakesABareDriveForItsRoot) {
#ifndef _WIN32
  native_files.MapDrive('C', Folder());
#endif
  form->File1.SetPath("C:");
  EXPECT_EQ(form->File1.Path(), "C:\\");
}

TEST_F(ControlsTest, FileListOfAVanishedFolderIsEmptyAfterAReload) {
  native_files.MakeFolder(Path("maps"));
  WriteFile(Path("maps\\a.bms"), "x");
  form->File1.SetPath(Path("maps"));
  native_files.Delete(Path("maps\\a.bms"));
  native_files.RemoveFolder(Path("maps"));
  form->File1.Reload();
  EXPECT_EQ(form->File1.ListCount(), 0);
}

TEST_F(ControlsTest, TimerTicksOnlyWhileEnabledWithAnInterval) {
  int ticks = 0;
  form->Timer1.Tick = [&] { ++ticks; };
  desktop.clock().AdvanceMs(5000);
  EXPECT_EQ(ticks, 0);
  form->Timer1.Interval = 1000;
  desktop.clock().AdvanceMs(3500);
  EXPECT_EQ(ticks, 3);
  form->Timer1.Enabled = false;
  desktop.clock().AdvanceMs(3500);
  EXPECT_EQ(ticks, 3);
}

TEST_F(ControlsTest, ATimerWhoseHandlerFailsReportsItAndTicksOn) {
  int ticks = 0;
  form->Timer1.Tick = [&] {
    if (++ticks == 1) Raise(error::kFileNotFound);
  };
  desktop.dialogs().ExpectBox("Error: 53\r\nFile not found").WithIcon(BoxIcon::kCritical);
  form->Timer1.Interval = 1000;
  desktop.clock().AdvanceMs(2000);
  EXPECT_EQ(ticks, 2);
}

TEST_F(ControlsTest, FileDialogGivesItsChoiceAndCancelChangesNothing) {
  desktop.dialogs().ExpectFile("C:\\maps\\Oasis.bms");
  EXPECT_TRUE(form->Dialog1.ShowOpen());
  EXPECT_EQ(form->Dialog1.FileTitle(), "Oasis.bms");
  desktop.dialogs().ExpectFile(std::nullopt);
  EXPECT_FALSE(form->Dialog1.ShowSave());
  EXPECT_EQ(form->Dialog1.FileName.get(), "C:\\maps\\Oasis.bms");
}

TEST_F(ControlsTest, CancelRaisesItsErrorWhenItIsAskedTo) {
  form->Dialog1.CancelError = true;
  desktop.dialogs().ExpectFile(std::nullopt);
  try {
    form->Dialog1.ShowOpen();
    FAIL();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 32755);
    EXPECT_EQ(failure.description(), "Cancel was selected.");
  }
}

TEST_F(ControlsTest, TabOrderHoldsUsableStopsOnly) {
  form->Show();
  form->cmdOK.TabIndex = 0;
  form->Text1.TabIndex = 1;
  form->Check1.Enabled = false;
  form->List1.TabStop = false;
  const std::vector<Control*> order = form->TabOrder();
  ASSERT_GE(order.size(), 2U);
  EXPECT_EQ(order[0], &form->cmdOK);
  EXPECT_EQ(std::count(order.begin(), order.end(), &form->Check1), 0);
  EXPECT_EQ(std::count(order.begin(), order.end(), &form->List1), 0);
}

TEST_F(ControlsTest, DroppedFilesReachTheFormsHandlerOnlyWhileItIsShown) {
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  DropFiles(*form, {"C:\\maps\\Oasis.bms"});
  EXPECT_TRUE(arrived.empty());
  form->Show();
  DropFiles(*form, {"C:\\maps\\Oasis.bms", "C:\\maps\\Pack.zip"});
  EXPECT_EQ(arrived, (std::vector<std::string>{"C:\\maps\\Oasis.bms", "C:\\maps\\Pack.zip"}));
}

}  // namespace
}  // namespace kestrun
