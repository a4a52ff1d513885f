#include "maps/put/put_map.h"

#include <gtest/gtest.h>

#include "maps/put/frmoverwrite.h"
#include "maps/put/mission_name.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "support/failing_files.h"
#include "support/forwarding_files.h"

namespace kestrun {
namespace {

class PutMapTest : public FrameTest {
 protected:
  PutMapTest() {
    TellGameFolder();
    MakeArchive(Archive(), {"FIRST.BIN", "D08M03.BMS", "LAST.BIN"});
    WriteFile(MapPath("Oasis.bms"), map);
  }

  [[nodiscard]] std::string Archive() const { return GamePath("dflw.pff"); }

  void ExpectOverwriteQuestion(bool accept, bool tick = false) {
    desktop.windowing().ExpectModal("FrmOverWrite", [=](Form& form) {
      auto& window = static_cast<FrmOverWrite&>(form);
      if (tick) window.ChShow.Press();
      (accept ? window.CmdOK : window.CmdCancel).Press();
    });
  }

  bool Put(std::string name, int32_t mode = kPutInArchive, bool warn = true) {
    stored_name = std::move(name);
    return PutMap(MapPath("Oasis.bms"), stored_name, mode, warn);
  }

  const std::string map = "BMS\x01 the map's own bytes";
  std::string stored_name;
};

TEST_F(PutMapTest, PutsAMapInTheArchiveAndBesideIt) {
  ExpectOverwriteQuestion(true);
  EXPECT_TRUE(Put("D08M03.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "D08M03.BMS"), map);
  EXPECT_EQ(EntryOf(Archive(), "FIRST.BIN"), std::string(100, 'o'));
  EXPECT_EQ(EntryOf(Archive(), "LAST.BIN"), std::string(100, 'o'));
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), map);
}

TEST_F(PutMapTest, KeepsTheArchiveWhenOverwritingIsRefused) {
  const std::string before = ReadFile(Archive());
  ExpectOverwriteQuestion(false);
  EXPECT_FALSE(Put("D08M03.BMS"));
  EXPECT_EQ(ReadFile(Archive()), before);
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.BMS")));
}

TEST_F(PutMapTest, ANameThatIsNotInTheArchiveGoesInWithoutAQuestion) {
  EXPECT_TRUE(Put("NEW.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
}

TEST_F(PutMapTest, TheQuestionNamesBothFiles) {
  desktop.windowing().ExpectModal("FrmOverWrite", [](Form& form) {
    auto& window = static_cast<FrmOverWrite&>(form);
    EXPECT_EQ(window.Caption.get(), "File Exists");
    for (const Label* label : {&window.lblWarn, &window.LblPFF, &window.LblBMS}) EXPECT_FALSE(label->UseMnemonic);
    EXPECT_EQ(window.lblWarn.Caption.get(),
              "Warning the file \"D08M03.BMS\" already exists in the \"dflw.pff\" file. Do you want to overwrite the "
              "file? If you overwrite the file you'll lose the default reg prison map!");
    EXPECT_EQ(window.LblPFF.Caption.get(), "dflw.pff");
    EXPECT_EQ(window.LblBMS.Caption.get(), "D08M03.BMS");
    EXPECT_EQ(window.ChShow.Caption.get(), "Don't show this message again.");
    EXPECT_EQ(window.CmdCancel.Caption.get(), "Cancel");
    EXPECT_EQ(window.ChShow.Value, 0);
    window.CmdCancel.Press();
  });
  EXPECT_FALSE(Put("D08M03.BMS"));
}

TEST_F(PutMapTest, WhatAnotherProcessPutsInWhileTheQuestionStandsIsKept) {
  desktop.windowing().ExpectModal("FrmOverWrite", [this](Form& form) {
    ClsPFF other;
    EXPECT_TRUE(other.LoadPff(Archive()));
    other.PackFile(Bytes(300, 'x'), "FIRST.BIN");
    other.SavePffFile();
    static_cast<FrmOverWrite&>(form).CmdOK.Press();
  });
  EXPECT_TRUE(Put("D08M03.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "D08M03.BMS"), map);
  EXPECT_EQ(EntryOf(Archive(), "FIRST.BIN"), std::string(300, 'x'));
}

TEST_F(PutMapTest, WhileAnotherProcessChangesTheArchiveItIsNamedAndNothingIsPutIn) {
  const std::string before = ReadFile(Archive());
  NativeFileSystem other;
  const auto turn = other.TryLock(other.TruePath(Archive()) + ".lock", "another kestrun");
  const std::string process = std::to_string(other.ReadLockHolder(other.TruePath(Archive()) + ".lock").process);
  ExpectOverwriteQuestion(true);
  desktop.dialogs().ExpectBox("Error: 70\r\n'" + Archive() + "' is in use by another kestrun (process " + process +
                              "). Try again when it has finished.");
  EXPECT_FALSE(Put("D08M03.BMS"));
  EXPECT_EQ(ReadFile(Archive()), before);
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.BMS")));
}

TEST_F(PutMapTest, TheQuestionOpensWithTheFocusOnItsDefaultButton) {
  desktop.windowing().ExpectModal("FrmOverWrite", [](Form& form) {
    auto& window = static_cast<FrmOverWrite&>(form);
    EXPECT_EQ(window.ActiveControl(), &window.CmdOK);
    EXPECT_TRUE(window.CmdOK.Default);
    window.Unload();
  });
  EXPECT_FALSE(Put("D08M03.BMS"));
}

// They took the size of their pictures, and stood over the names and the warning.
TEST_F(PutMapTest, TheIconsOfTheQuestionStandBesideTheirNames) {
  const FrmOverWrite& window = Window<FrmOverWrite>();
  const auto right = [](const Image& image) { return image.Left + image.Width; };
  EXPECT_TRUE(window.imgPFF.Picture.get());
  EXPECT_TRUE(window.imgBMS.Picture.get());
  EXPECT_LE(right(window.imgPFF), window.LblPFF.Left.get());
  EXPECT_LE(right(window.imgBMS), window.LblBMS.Left.get());
  EXPECT_LE(window.imgPFF.Top + window.imgPFF.Height, window.lblWarn.Top.get());
}

TEST_F(PutMapTest, TheQuestionPutsAnActiveStyleOnOnceAfterFiftyMilliseconds) {
  int applied = 0;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [&](Form&) { ++applied; }});
  Window<FrmOverWrite>().Show();
  Sleep(49);
  EXPECT_EQ(applied, 0);
  Sleep(1000);
  EXPECT_EQ(applied, 1);
  CallMember(Window<FrmOverWrite>(), "ApplyStyle");
  Sleep(50);
  EXPECT_EQ(applied, 2);
  InstallStyleRuntime({});
}

TEST_F(PutMapTest, AStyleThatFailsOnTheQuestionIsReported) {
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [](Form&) { Raise(error::kTypeMismatch); }});
  desktop.dialogs().ExpectBox("Error: Applystyle13\r\nType mismatch");
  Window<FrmOverWrite>().Show();
  Sleep(1000);
  InstallStyleRuntime({});
}

TEST_F(PutMapTest, ClosingTheQuestionByItsBoxIsANo) {
  desktop.windowing().ExpectModal("FrmOverWrite", [](Form& form) { form.Unload(); });
  EXPECT_FALSE(Put("D08M03.BMS"));
}

TEST_F(PutMapTest, WithTheWarningOffTheEntryIsReplacedAtOnce) {
  WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
  EXPECT_TRUE(Put("D08M03.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "D08M03.BMS"), map);
}

TEST_F(PutMapTest, OkWithTheTickSwitchesTheWarningOff) {
  ExpectOverwriteQuestion(true, true);
  EXPECT_TRUE(Put("D08M03.BMS"));
  EXPECT_EQ(Ini("launcher", "WARNOVERWRITE"), "False");
}

TEST_F(PutMapTest, OkWithoutTheTickSwitchesTheWarningOn) {
  ExpectOverwriteQuestion(true);
  EXPECT_TRUE(Put("D08M03.BMS"));
  EXPECT_EQ(Ini("launcher", "WARNOVERWRITE"), "True");
}

TEST_F(PutMapTest, TickingAndCancellingLeavesTheWarningAsItWas) {
  ExpectOverwriteQuestion(false, true);
  EXPECT_FALSE(Put("D08M03.BMS"));
  EXPECT_EQ(Ini("launcher", "WARNOVERWRITE"), "(none)");
}

TEST_F(PutMapTest, TheTickStartsAsTheSettingIs) {
  WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
  EXPECT_EQ(Window<FrmOverWrite>().ChShow.Value, 1);
}

TEST_F(PutMapTest, ANameOfSeventeenCharactersIsCutInArchiveAndLooseFileAlike) {
  EXPECT_TRUE(Put("SEVENTEEN_LET.BMS"));
  EXPECT_EQ(stored_name, "SEVENTEEN_LET.BM");
  EXPECT_EQ(EntryOf(Archive(), "SEVENTEEN_LET.BM"), map);
  EXPECT_EQ(ReadFile(GamePath("SEVENTEEN_LET.BM")), map);
}

TEST_F(PutMapTest, WhilePlayingANameOfSeventeenCharactersIsKeptWhole) {
  EXPECT_TRUE(Put("SEVENTEEN_LET.BMS", kPutBesideOnly));
  EXPECT_EQ(stored_name, "SEVENTEEN_LET.BMS");
  EXPECT_EQ(ReadFile(GamePath("SEVENTEEN_LET.BMS")), map);
}

TEST_F(PutMapTest, ALongNameCanReplaceAnEntryWithoutAQuestionSinceTheTestSeesItUncut) {
  MakeArchive(Archive(), {"SEVENTEEN_LET.BM"});
  EXPECT_TRUE(Put("SEVENTEEN_LET.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "SEVENTEEN_LET.BM"), map);
}

TEST_F(PutMapTest, WhilePlayingTheArchiveIsNotTouched) {
  const std::string before = ReadFile(Archive());
  EXPECT_TRUE(Put("D08M03.BMS", kPutBesideOnly));
  EXPECT_EQ(ReadFile(Archive()), before);
  EXPECT_EQ(ReadFile(GamePath("D08M03.BMS")), map);
}

TEST_F(PutMapTest, AnyOtherModeDoesNothing) {
  EXPECT_FALSE(Put("D08M03.BMS", 2));
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.BMS")));
}

TEST_F(PutMapTest, AMissingMapIsAskedAboutAndNoEndsIt) {
  native_files.Delete(MapPath("Oasis.bms"));
  desktop.dialogs()
      .ExpectBox("The file: " + MapPath("Oasis.bms") + " does not exists.\r\nContinue?", BoxAnswer::kNo)
      .WithTitle("Map not found!")
      .WithButtons(BoxButtons::kYesNo)
      .WithIcon(BoxIcon::kWarning);
  EXPECT_FALSE(Put("NEW.BMS"));
}

TEST_F(PutMapTest, YesToAMissingMapEndsInTheErrorBoxAndNothingIsPacked) {
  native_files.Delete(MapPath("Oasis.bms"));
  const std::string before = ReadFile(Archive());
  desktop.dialogs().ExpectBox("The file: " + MapPath("Oasis.bms") + " does not exists.\r\nContinue?", BoxAnswer::kYes);
  desktop.dialogs().ExpectFileFailure("Error: 53\r\nFile not found", MapPath("Oasis.bms"));
  EXPECT_FALSE(Put("NEW.BMS"));
  EXPECT_EQ(ReadFile(Archive()), before);
}

TEST_F(PutMapTest, AMissingMapIsSilentWithoutWarnings) {
  native_files.Delete(MapPath("Oasis.bms"));
  EXPECT_FALSE(Put("NEW.BMS", kPutInArchive, false));
}

TEST_F(PutMapTest, AMissingArchiveIsAskedAboutAndNoEndsIt) {
  native_files.Delete(Archive());
  desktop.dialogs()
      .ExpectBox("The pff file: " + Archive() +
                     " does not exists.\r\nGo to options and select the right dflw game folder.\r\nContinue?",
                 BoxAnswer::kNo)
      .WithTitle("File not found!")
      .WithButtons(BoxButtons::kYesNo)
      .WithIcon(BoxIcon::kWarning);
  EXPECT_FALSE(Put("NEW.BMS"));
  EXPECT_FALSE(FileIsThere(Archive()));
}

TEST_F(PutMapTest, YesToAMissingArchiveGoesOnAndTheMapLiesBesideIt) {
  native_files.Delete(Archive());
  desktop.dialogs().ExpectBox("The pff file: " + Archive() +
                                  " does not exists.\r\nGo to options and select the right dflw game "
                                  "folder.\r\nContinue?",
                              BoxAnswer::kYes);
  EXPECT_TRUE(Put("NEW.BMS"));
  EXPECT_EQ(ReadFile(GamePath("NEW.BMS")), map);
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
}

TEST_F(PutMapTest, WithoutWarningsAMissingArchiveIsPassedOverSilently) {
  native_files.Delete(Archive());
  EXPECT_TRUE(Put("NEW.BMS", kPutInArchive, false));
  EXPECT_EQ(ReadFile(GamePath("NEW.BMS")), map);
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
}

TEST_F(PutMapTest, AnArchiveThatAPutHasMadeTakesTheNextMap) {
  native_files.Delete(Archive());
  EXPECT_TRUE(Put("NEW.BMS", kPutInArchive, false));
  EXPECT_TRUE(Put("D08M03.BMS", kPutInArchive, false));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
  EXPECT_EQ(EntryOf(Archive(), "D08M03.BMS"), map);
}

TEST_F(PutMapTest, AnEmptyMapIsAFailureAndLeavesTheArchive) {
  WriteFile(MapPath("Oasis.bms"), "");
  const std::string before = ReadFile(Archive());
  desktop.dialogs().ExpectBox("Error: 9\r\nThe file is empty: " + MapPath("Oasis.bms") +
                              "\r\nChoose another file, or get this one again.");
  EXPECT_FALSE(Put("NEW.BMS"));
  EXPECT_EQ(ReadFile(Archive()), before);
}

// A file of that length takes no room on the disk: nothing of it was written.
TEST_F(PutMapTest, AMapOverTwoGigabytesIsRefusedWithItsLength) {
  native_files.Open(MapPath("Oasis.bms"), OpenMode::kReadWrite)->Truncate(0x80000000);
  const std::string before = ReadFile(Archive());
  for (const int32_t mode : {kPutInArchive, kPutBesideOnly}) {
    desktop.dialogs().ExpectBox("Error: 6\r\nThe file '" + MapPath("Oasis.bms") +
                                "' has 2147483648 bytes. Files over 2 GB are refused.");
    EXPECT_FALSE(Put("NEW.BMS", mode));
  }
  EXPECT_EQ(ReadFile(Archive()), before);
  EXPECT_FALSE(FileIsThere(GamePath("NEW.BMS")));
  native_files.Delete(MapPath("Oasis.bms"));
}

// The fixture would fail on the window of the question.
TEST_F(PutMapTest, AnEmptyMapIsRefusedBeforeTheOverwriteQuestion) {
  WriteFile(MapPath("Oasis.bms"), "");
  const std::string before = ReadFile(Archive());
  desktop.dialogs().ExpectFileFailure("Error: 9\r\nThe file is empty", MapPath("Oasis.bms"));
  EXPECT_FALSE(Put(kCaptureTheFlagMission));
  EXPECT_EQ(ReadFile(Archive()), before);
}

TEST_F(PutMapTest, ACopyThatFailsGivesTheErrorBoxAndTheArchiveKeepsTheNewEntry) {
  native_files.MakeFolder(GamePath("NEW.BMS"));  // a folder in the loose file's place cannot be copied over
  desktop.dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", GamePath("NEW.BMS"));
  EXPECT_FALSE(Put("NEW.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
}

// Opens nothing of one path, as a game that keeps its archive to itself.
class HeldFiles final : public ForwardingFiles {
 public:
  HeldFiles(FileSystem& files, std::string path) : ForwardingFiles(files), path_(std::move(path)) {}
  std::unique_ptr<File> Open(std::string_view path, OpenMode mode) override {
    if (path == path_) Raise(error::kPermissionDenied);
    return files().Open(path, mode);
  }

 private:
  std::string path_;
};

TEST_F(PutMapTest, AnArchiveThatTheGameHoldsOpenNamesTheGameAndAsksNothing) {
  HeldFiles files(native_files, Archive());
  desktop.UseFiles(files);
  desktop.processes().holders[Archive()] = {"DFLWDEM.EXE"};
  desktop.dialogs().ExpectBox("Error: 70\r\nPermission denied: " + Archive() +
                              "\r\nIt is open in DFLWDEM.EXE. Close that program, then try again.");
  EXPECT_FALSE(Put("D08M03.BMS"));
}

TEST_F(PutMapTest, ANameTheCodePageCannotHoldIsRefusedWithTheCharacter) {
  const std::string before = ReadFile(Archive());
  desktop.dialogs().ExpectBox(
      "Error: 5\r\nThe name 'Карта.BMS' cannot be stored in the archive: it has no character for 'К'. Choose a name "
      "without it.");
  EXPECT_FALSE(Put("Карта.BMS"));
  EXPECT_EQ(ReadFile(Archive()), before);
}

TEST_F(PutMapTest, RunsTheUsersProgramAfterwardsWithTheStoredName) {
  WriteFile(GamePath("pack.exe"), "program");
  WriteIni("[launcher]\r\nSHELLPACK=True\r\nPACKIT.EXE=missing.exe\r\n");
  desktop.dialogs()
      .ExpectBox(
          "The 'put map in dflw' program file: missing.exe does not exists.\r\nGo to options and select the right "
          "file.\r\nContinue?",
          BoxAnswer::kYes)
      .WithTitle("File not found!")
      .WithIcon(BoxIcon::kWarning);
  EXPECT_TRUE(Put("NEW.BMS"));
  const std::vector<ShellOpening> expected{{"open", "missing.exe", "NEW.BMS", Path("game"), 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(PutMapTest, NoToAMissingProgramGivesFalseThoughTheMapIsIn) {
  WriteIni("[launcher]\r\nSHELLPACK=True\r\n");
  desktop.dialogs().ExpectBox(
      "The 'put map in dflw' program file: pack.exe does not exists.\r\nGo to options and select the right "
      "file.\r\nContinue?",
      BoxAnswer::kNo);
  EXPECT_FALSE(Put("NEW.BMS"));
  EXPECT_EQ(EntryOf(Archive(), "NEW.BMS"), map);
  EXPECT_TRUE(desktop.shell().openings.empty());
}

TEST_F(PutMapTest, WhilePlayingTheOtherProgramRuns) {
  WriteIni("[launcher]\r\nSHELLIMPLAYING=True\r\nPACK.EXE=swap.exe\r\nPACKIT.EXE=pack.exe\r\n");
  desktop.dialogs().ExpectBox(
      "The 'i'm already playing' program file: swap.exe does not exists.\r\nGo to options and select the right "
      "file.\r\nContinue?",
      BoxAnswer::kYes);
  EXPECT_TRUE(Put("D08M03.BMS", kPutBesideOnly));
  const std::vector<ShellOpening> expected{{"open", "swap.exe", "D08M03.BMS", Path("game"), 1}};
  EXPECT_EQ(desktop.shell().openings, expected);
}

TEST_F(PutMapTest, WithoutWarningsAMissingProgramIsStartedAllTheSame) {
  WriteIni("[launcher]\r\nSHELLPACK=True\r\n");
  EXPECT_TRUE(Put("NEW.BMS", kPutInArchive, false));
  EXPECT_EQ(desktop.shell().openings.size(), 1U);
}

// The disk fills up at each call in turn: the user is told, the map stays, and no half copy is left beside the archive.
class PutMapFailureTest : public PutMapTest, public testing::WithParamInterface<int> {};

TEST_P(PutMapFailureTest, AFailureAtAnyCallIsToldAndLeavesTheMapAlone) {
  FailingFiles files(native_files, GetParam());
  desktop.UseFiles(files);
  bool told = false;
  desktop.OnUnexpected(
      [&](const UnexpectedQuestion& question) { told = told || StartsWith(question.text, "Error: "); });
  const bool packed = Put("NEW.BMS");
  desktop.UseFiles(native_files);
  EXPECT_EQ(ReadFile(MapPath("Oasis.bms")), map);
  EXPECT_EQ(told, !packed);
  if (packed) {
    EXPECT_EQ(ReadFile(GamePath("NEW.BMS")), map);
  }
  EXPECT_FALSE(FileIsThere(GamePath("NEW.BMS.new")));
}

TEST_P(PutMapFailureTest, WhilePlayingAFailureAtAnyCallLeavesTheLooseFileWhole) {
  WriteFile(GamePath("NEW.BMS"), "what the game plays");
  FailingFiles files(native_files, GetParam());
  desktop.UseFiles(files);
  desktop.OnUnexpected([](const UnexpectedQuestion&) {});
  const bool put = Put("NEW.BMS", kPutBesideOnly);
  desktop.UseFiles(native_files);
  EXPECT_EQ(ReadFile(GamePath("NEW.BMS")), put ? map : "what the game plays");
  EXPECT_FALSE(FileIsThere(GamePath("NEW.BMS.new")));
}

INSTANTIATE_TEST_SUITE_P(AtEachCall, PutMapFailureTest, testing::Range(0, 24));

}  // namespace
}  // namespace kestrun
