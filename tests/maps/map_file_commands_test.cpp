#include "maps/map_file_commands.h"

#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "support/forwarding_files.h"

namespace kestrun {
namespace {

// Files whose deletion is refused, as for a map that the game holds open.
class KeptFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  void Copy(std::string_view from, std::string_view to) override {
    if (copies_refused) Raise(error::kPermissionDenied);
    files().Copy(from, to);
  }
  void Delete(std::string_view) override { Raise(error::kPermissionDenied); }

  bool copies_refused = false;
};

class MapFileCommandsTest : public FrameTest {
 protected:
  MapFileCommandsTest() {
    WriteFile(MapPath("Desert.bms"), "BMS desert");
    WriteFile(MapPath("Oasis.bms"), "BMS oasis");
    WriteFile(MapPath("Pack.zip"), "zip");
    FileMaps.Pattern = "*.bms;*.zip";
    FileMaps.SetPath(Path("maps"));
    FileMaps.SetFileName("Oasis.bms");
  }
  // The row of no map, as after a refresh.
  void SelectNothing() { FileMaps.ListIndex = -1; }

  [[nodiscard]] std::vector<std::string> Listed() const {
    std::vector<std::string> names;
    for (int row = 0; row < FileMaps.ListCount(); ++row) names.push_back(FileMaps.List(row));
    return names;
  }

  void ExpectSaveDialog(std::optional<std::string> answer) {
    desktop.dialogs()
        .ExpectFile(std::move(answer))
        .WithTitle("Select folder and filename to copy map to")
        .WithFilter("BMS files (*.bms)|*.bms|All files (*.*)|*.*|")
        .WithPreset("Oasis.bms");
  }
  void ExpectNameBox(std::optional<std::string> answer) {
    desktop.dialogs()
        .ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", std::move(answer))
        .WithPreset("Oasis.bms");
  }
  void ExpectTakenNameBox(BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("The new file name already exists are you sure you want to overwrite the map?", answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kNone)
        .WithDefaultButton(2);
  }
  void ExpectDeleteBox(const std::string& name, BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox("Are you sure you want to delete " + name + "?", answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kWarning)
        .WithDefaultButton(1);
  }

  const std::vector<std::string> all_maps{"Desert.bms", "Oasis.bms", "Pack.zip"};
  const Ref<Form> window = MakeRef<Form>("window");
  FileListBox& FileMaps = window->Add<FileListBox>("FileMaps");
  CommonDialog& dlgcopyto = window->Add<CommonDialog>("dlgcopyto");
};

TEST_F(MapFileCommandsTest, EachCommandSaysInItsOwnWordsThatNothingIsSelected) {
  SelectNothing();
  desktop.dialogs().ExpectBox("Select a map").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kNone);
  CopyMapTo(FileMaps, dlgcopyto);
  desktop.dialogs().ExpectBox("Select map!").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kNone);
  RenameMap(FileMaps);
  desktop.dialogs().ExpectBox("Select map!").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kNone);
  EXPECT_FALSE(DeleteMap(FileMaps));
  desktop.dialogs().ExpectBox("Please select map!").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kNone);
  CopyMapName(FileMaps);
}

TEST_F(MapFileCommandsTest, ACopyIntoAnotherFolderIsMadeAndTheVisibleListKeepsItsRows) {
  ExpectSaveDialog(GamePath("Copy.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(ReadFile(GamePath("Copy.bms")), "BMS oasis");
  EXPECT_EQ(Listed(), all_maps);
}

TEST_F(MapFileCommandsTest, AfterACopyIntoTheMapFolderOnlyTheFileListIsFresh) {
  ExpectSaveDialog(MapPath("Camp.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"Camp.bms", "Desert.bms", "Oasis.bms", "Pack.zip"}));
}

TEST_F(MapFileCommandsTest, ACancelledCopyIsSilent) {
  ExpectSaveDialog(std::nullopt);
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MapFileCommandsTest, ACancelledCopyIsSilentEvenWhereTheDialogueRaisesItsCancel) {
  dlgcopyto.CancelError = true;
  ExpectSaveDialog(std::nullopt);
  CopyMapTo(FileMaps, dlgcopyto);
}

TEST_F(MapFileCommandsTest, AnExistingTargetIsReplacedAfterAYes) {
  ExpectSaveDialog(MapPath("Desert.bms"));
  desktop.dialogs()
      .ExpectBox("This file already exists do you want to overwrite it?", BoxAnswer::kYes)
      .WithButtons(BoxButtons::kYesNo)
      .WithIcon(BoxIcon::kNone)
      .WithDefaultButton(1);
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(ReadFile(MapPath("Desert.bms")), "BMS oasis");
}

TEST_F(MapFileCommandsTest, AnExistingTargetIsKeptAfterANo) {
  ExpectSaveDialog(MapPath("Desert.bms"));
  desktop.dialogs().ExpectBox("This file already exists do you want to overwrite it?", BoxAnswer::kNo);
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(ReadFile(MapPath("Desert.bms")), "BMS desert");
  EXPECT_EQ(FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MapFileCommandsTest, ACopyOntoItselfLosesNothing) {
  ExpectSaveDialog(MapPath("Oasis.bms"));
  desktop.dialogs().ExpectBox("This file already exists do you want to overwrite it?", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 70\r\nPermission denied", MapPath("Oasis.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(MapFileCommandsTest, ACopyIntoAMissingFolderIsReportedAndTheListsKeepTheirState) {
  ExpectSaveDialog(Path("nowhere\\Oasis.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 76\r\nPath not found", Path("nowhere\\Oasis.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_EQ(FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MapFileCommandsTest, ACopyIntoAReadOnlyFolderIsReported) {
  KeptFiles files(native_files);
  files.copies_refused = true;
  desktop.UseFiles(files);
  ExpectSaveDialog(GamePath("Copy.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 70\r\nPermission denied", GamePath("Copy.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
  EXPECT_FALSE(FileIsThere(GamePath("Copy.bms")));
}

TEST_F(MapFileCommandsTest, AMapThatHasGoneSinceItWasListedIsReported) {
  native_files.Delete(MapPath("Oasis.bms"));
  ExpectSaveDialog(GamePath("Copy.bms"));
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", MapPath("Oasis.bms"));
  CopyMapTo(FileMaps, dlgcopyto);
}

TEST_F(MapFileCommandsTest, ARenamedMapKeepsItsBytesAndOnlyTheFileListIsFresh) {
  ExpectNameBox("Zoo.bms");
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Zoo.bms")), "BMS oasis");
  EXPECT_FALSE(FileIsThere(MapPath("Oasis.bms")));
  EXPECT_EQ(Listed(), (std::vector<std::string>{"Desert.bms", "Pack.zip", "Zoo.bms"}));
}

TEST_F(MapFileCommandsTest, ARenameOntoAnotherMapChangesNothingWhateverTheAnswer) {
  ExpectNameBox("Desert.bms");
  ExpectTakenNameBox(BoxAnswer::kYes);
  RenameMap(FileMaps);
  ExpectNameBox("Desert.bms");
  ExpectTakenNameBox(BoxAnswer::kNo);
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Desert.bms")), "BMS desert");
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(MapFileCommandsTest, ARenameThatOnlyChangesCapitalsChangesNothing) {
  ExpectNameBox("OASIS.BMS");
  ExpectTakenNameBox(BoxAnswer::kYes);
  RenameMap(FileMaps);
  EXPECT_EQ(native_files.List(Path("maps"))[1].name, "Oasis.bms");
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(MapFileCommandsTest, ACancelledNameBoxEndsInTheErrorBoxAndLosesNothing) {
  ExpectNameBox(std::nullopt);
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", MapPath(""));
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
  EXPECT_EQ(FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MapFileCommandsTest, AnEmptyNameIsTheSameAsACancelledBox) {
  ExpectNameBox("");
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", MapPath(""));
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
}

TEST_F(MapFileCommandsTest, ARenameWhoseOldFileCannotGoLosesNothing) {
  KeptFiles files(native_files);
  desktop.UseFiles(files);
  ExpectNameBox("Zoo.bms");
  desktop.dialogs().ExpectFileFailure("Error: 70\r\nPermission denied", MapPath("Oasis.bms"));
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
  EXPECT_EQ(Listed(), all_maps);
}

TEST_F(MapFileCommandsTest, ARenameInAReadOnlyFolderLosesNothing) {
  KeptFiles files(native_files);
  files.copies_refused = true;
  desktop.UseFiles(files);
  ExpectNameBox("Zoo.bms");
  desktop.dialogs().ExpectFileFailure("Error: 70\r\nPermission denied", MapPath("Zoo.bms"));
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
  EXPECT_FALSE(FileIsThere(MapPath("Zoo.bms")));
}

TEST_F(MapFileCommandsTest, ADeletedMapIsGoneAndTheVisibleListMustFollow) {
  ExpectDeleteBox("Oasis.bms", BoxAnswer::kYes);
  EXPECT_TRUE(DeleteMap(FileMaps));
  EXPECT_FALSE(FileIsThere(MapPath("Oasis.bms")));
  EXPECT_EQ(ReadFile(MapPath("Desert.bms")), "BMS desert");
}

TEST_F(MapFileCommandsTest, NoKeepsTheMap) {
  ExpectDeleteBox("Oasis.bms", BoxAnswer::kNo);
  EXPECT_FALSE(DeleteMap(FileMaps));
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
}

// What runs while a question stands, an add-in or a script, may show another folder.
TEST_F(MapFileCommandsTest, TheMapThatWasAskedAboutIsMeantThoughTheListShowsAnotherFolder) {
  WriteFile(GamePath("Oasis.bms"), "BMS of the game");
  desktop.dialogs().ExpectBox("Are you sure you want to delete Oasis.bms?", BoxAnswer::kYes).WhileShown([this] {
    FileMaps.SetPath(Path("game"));
  });
  EXPECT_TRUE(DeleteMap(FileMaps));
  EXPECT_EQ(ReadFile(GamePath("Oasis.bms")), "BMS of the game");
  EXPECT_FALSE(FileIsThere(MapPath("Oasis.bms")));
}

TEST_F(MapFileCommandsTest, ANewNameIsInTheMapsOwnFolderThoughTheListShowsAnother) {
  desktop.dialogs()
      .ExpectInput("Enter a new name for the map. Don't forget the .bms / .zip !", "Zoo.bms")
      .WhileShown([this] { FileMaps.SetPath(Path("game")); });
  RenameMap(FileMaps);
  EXPECT_EQ(ReadFile(MapPath("Zoo.bms")), "BMS oasis");
  EXPECT_FALSE(FileIsThere(GamePath("Zoo.bms")));
}

TEST_F(MapFileCommandsTest, DeletingTheLastMapLeavesAnEmptyList) {
  native_files.Delete(MapPath("Desert.bms"));
  native_files.Delete(MapPath("Pack.zip"));
  FileMaps.Reload();
  FileMaps.ListIndex = 0;
  ExpectDeleteBox("Oasis.bms", BoxAnswer::kYes);
  ASSERT_TRUE(DeleteMap(FileMaps));
  FileMaps.Reload();
  EXPECT_EQ(FileMaps.ListCount(), 0);
}

TEST_F(MapFileCommandsTest, AMapThatCannotBeDeletedIsReportedAndTheListsKeepTheirState) {
  KeptFiles files(native_files);
  desktop.UseFiles(files);
  ExpectDeleteBox("Oasis.bms", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 70\r\nPermission denied", MapPath("Oasis.bms"));
  EXPECT_FALSE(DeleteMap(FileMaps));
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), "BMS oasis");
  EXPECT_EQ(FileMaps.FileName(), "Oasis.bms");
}

TEST_F(MapFileCommandsTest, TheNameGoesOnTheClipboardWithoutItsFolder) {
  desktop.clipboard().text = "before";
  CopyMapName(FileMaps);
  EXPECT_EQ(desktop.clipboard().text, "Oasis.bms");
}

}  // namespace
}  // namespace kestrun
