// How the style editor opens, changes, saves and closes projects.
#include "forms/drop_target.h"
#include "support/error_number.h"
#include "support/forwarding_files.h"
#include "windows/style_editor/editor_fixture.h"

namespace kestrun {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

constexpr const char* kStyleFilter = "Kestrun Style files (*.stl)|*.stl|All files (*.*)|*.*|";
constexpr const char* kModulePrompt = "Please enter a name for the module.";
constexpr const char* kTextPrompt = "Please enter a name for the textfile.";
constexpr const char* kLongNamePrompt = "This file name is too long please enter a new one (max 16 characters)";

class FrmEditFilesTest : public EditorTest {
 protected:
  static std::string SaveQuestion(const std::string& file, const char* end) {
    return "Do you want to save the changes to '" + file + end;
  }
};

// ---- the working copy ----------------------------------------------------------------------------------------------

TEST_F(FrmEditFilesTest, OpeningMakesAWorkingCopyBesideTheFile) {
  const std::string path = OpenSample();
  EXPECT_EQ(WorkingCopy(path), Path("~$night.stl"));
  EXPECT_EQ(ReadFile(WorkingCopy(path)), ReadFile(path));
}

TEST_F(FrmEditFilesTest, TheSecondOpeningOfAProjectThatIsStillOpenRaisesTheRecoveryQuestion) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("typed last");
  editor().SaveStyleScript();
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes).WithButtons(BoxButtons::kYesNo);
  editor().LoadStyle(path);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "typed last");
}

// Another program is played by the turn that it has at its working copy.
TEST_F(FrmEditFilesTest, AProjectThatAnotherProgramHasOpenGetsACopyOfItsOwn) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), Path("~2$night.stl"));
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "theirs");
  Type("mine");
  editor().SaveStyleScript();
  EXPECT_EQ(ContentOf(theirs), (ArchiveContent{{"main.vbs", "theirs"}}));
  dialogs().ExpectBox("Do you want to save the changes to '" + path + "'", BoxAnswer::kNo);
  editor().Unload();
  EXPECT_TRUE(FileIsThere(theirs));
  EXPECT_FALSE(FileIsThere(Path("~2$night.stl")));
}

TEST_F(FrmEditFilesTest, NoToTheRecoveryLeavesTheOtherProgramsCopyAlone) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kNo);
  editor().LoadStyle(path);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "saved");
  EXPECT_EQ(ContentOf(theirs), (ArchiveContent{{"main.vbs", "theirs"}}));
}

TEST_F(FrmEditFilesTest, TwoNewProjectsOfTwoProgramsDoNotMeet) {
  const std::string theirs = WorkingCopy("");
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  WriteFile(theirs, "theirs");
  editor().LoadStyle("");
  editor().SaveStyleScript();
  EXPECT_EQ(ReadFile(theirs), "theirs");
  editor().Unload();
  EXPECT_EQ(ReadFile(theirs), "theirs");
}

// A program that was killed has no turn any more.
TEST_F(FrmEditFilesTest, WhatASecondProgramTypedIsOfferedAfterItWasKilled) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string left = MakeStyle("~2$night.stl", {{"main.vbs", "typed by the second"}});
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), left);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "typed by the second");
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kNo);
  editor().Unload();
  EXPECT_FALSE(FileIsThere(left));
}

TEST_F(FrmEditFilesTest, WhatAKilledProgramTypedGoesBeforeTheCopyOfOneThatRuns) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  const std::string left = MakeStyle("~2$night.stl", {{"main.vbs", "typed by the second"}});
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), left);
  EXPECT_EQ(ContentOf(left), (ArchiveContent{{"main.vbs", "typed by the second"}}));
  EXPECT_EQ(ContentOf(theirs), (ArchiveContent{{"main.vbs", "theirs"}}));
}

TEST_F(FrmEditFilesTest, OfTwoCopiesThatWereLeftTheOneWrittenLastComesFirstAndTheOtherAtTheNextOpening) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string first = MakeStyle("~$night.stl", {{"main.vbs", "typed by the first"}});
  const std::string second = MakeStyle("~2$night.stl", {{"main.vbs", "typed by the second"}});
  const uint64_t now = native_files.WriteTime(first);
  native_files.SetWriteTime(second, now + 20'000'000);
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kNo);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), second);
  EXPECT_EQ(ContentOf(second), (ArchiveContent{{"main.vbs", "saved"}}));
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kNo);
  editor().Unload();
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), first);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "typed by the first");
}

// "~$2night.stl" is the working copy of "2night.stl".
TEST_F(FrmEditFilesTest, TheCopyOfAProjectThatHasTheNumberInItsNameIsLeftAlone) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string others_copy = MakeStyle("~$2night.stl", {{"main.vbs", "other, typed last"}});
  const auto turn = native_files.TryLock(Path("~$night.stl.open"), "kestrun");
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), Path("~2$night.stl"));
  EXPECT_EQ(ContentOf(others_copy), (ArchiveContent{{"main.vbs", "other, typed last"}}));
}

// The first of two programs saved its style as "2night.stl", and the second was killed.
TEST_F(FrmEditFilesTest, WhatASecondProgramTypedIsOfferedForItsOwnProjectOnly) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string other = MakeStyle("2night.stl", {{"main.vbs", "other"}});
  const std::string left = MakeStyle("~2$night.stl", {{"main.vbs", "typed by the second"}});
  editor().LoadStyle(other);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "other");
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), left);
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "typed by the second");
}

// It stores what it has typed, and takes its working copy away.
TEST_F(FrmEditFilesTest, AnotherProgramThatClosesTheProjectDuringTheQuestionLeavesTheFile) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "before"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes).WhileShown([&] {
    native_files.Copy(theirs, path);
    native_files.Delete(theirs);
    turn.reset();
  });
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), Path("~2$night.stl"));
  OpenEntry("main.vbs");
  EXPECT_EQ(editor().TxtCode.Text.get(), "theirs");
}

// Another program is in the middle of a save of its working copy.
TEST_F(FrmEditFilesTest, TheCopyOfAnotherProgramIsNotReadWhileThatOneWritesIt) {
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  const std::string lock = native_files.TruePath(theirs) + ".lock";
  const auto save = native_files.TryLock(lock, "another kestrun");
  const std::string process = std::to_string(native_files.ReadLockHolder(lock).process);
  dialogs().ExpectFile(path);
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  dialogs().ExpectBox(
      "Error: 70\r\n'" + theirs + "' is in use by another kestrun (process " + process +
      "). Try again when it has finished.\r\nYou may not change it: another program has it open, or you "
      "lack the rights. Close the game and other programs that use it, or choose a folder of your own.");
  editor().mnu_open.Click();
  EXPECT_FALSE(editor().project().archive());
  EXPECT_FALSE(FileIsThere(Path("~2$night.stl")));
}

TEST_F(FrmEditFilesTest, TheCopyOfAnotherProgramIsReadWhenItsSaveIsOver) {
  // Its save ends while it is waited for.
  struct EndingSave final : ForwardingFiles {
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
      if (path.ends_with(".lock") && ++tries == 3) finish();
      return ForwardingFiles::TryLock(path, program);
    }
    int tries = 0;
    std::function<void()> finish;
  };
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "before"}});
  const auto turn = native_files.TryLock(theirs + ".open", "kestrun");
  auto save = native_files.TryLock(native_files.TruePath(theirs) + ".lock", "kestrun");
  EndingSave files(native_files);
  files.finish = [&] {
    native_files.Copy(MakeStyle("after.stl", {{"main.vbs", "after"}}), theirs);
    save.reset();
  };
  desktop.UseFiles(files);
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
  editor().LoadStyle(path);
  EXPECT_EQ(ContentOf(Path("~2$night.stl")), (ArchiveContent{{"main.vbs", "after"}}));
  CloseAllWindows();
  desktop.UseFiles(native_files);
}

// How the file layer answers at the moment at which another program removes the file of its turn.
TEST_F(FrmEditFilesTest, ATurnThatEndsAtThisMomentIsWaitedFor) {
  struct EndingTurn final : ForwardingFiles {
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
      if (path.ends_with(".open") && ++tries < 3) return nullptr;
      return ForwardingFiles::TryLock(path, program);
    }
    int tries = 0;
  };
  EndingTurn files(native_files);
  desktop.UseFiles(files);
  const std::string path = OpenSample();
  EXPECT_EQ(editor().project().WorkingFile(), WorkingCopy(path));
  CloseAllWindows();
  desktop.UseFiles(native_files);
}

TEST_F(FrmEditFilesTest, ACopyWhoseTurnCannotBeAskedForStaysTheOneOfWhoIsNamedThere) {
  struct DeafFiles final : ForwardingFiles {
    using ForwardingFiles::ForwardingFiles;
    std::unique_ptr<FileLock> TryLock(std::string_view path, std::string_view program) override {
      if (path.ends_with("~$night.stl.open")) Raise(error::kDeviceIo);
      return ForwardingFiles::TryLock(path, program);
    }
  };
  const std::string path = MakeStyle("night.stl", {{"main.vbs", "saved"}});
  const std::string theirs = MakeStyle("~$night.stl", {{"main.vbs", "theirs"}});
  WriteFile(theirs + ".open", FormatLockHolder({4711, "kestrun"}));
  DeafFiles files(native_files);
  desktop.UseFiles(files);
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kNo);
  editor().LoadStyle(path);
  EXPECT_EQ(editor().project().WorkingFile(), Path("~2$night.stl"));
  EXPECT_EQ(ContentOf(theirs), (ArchiveContent{{"main.vbs", "theirs"}}));
  CloseAllWindows();
  desktop.UseFiles(native_files);
}

TEST_F(FrmEditFilesTest, NoToTheRecoveryTakesTheFileAsItWasSaved) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("typed last");
  editor().SaveStyleScript();
  CloseAllWindows();
  dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kNo);
  editor().LoadStyle(path);
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "old code")));
}

TEST_F(FrmEditFilesTest, AnotherProjectLeavesTheFirstOnesWorkingCopyWithAllThatWasTyped) {
  const std::string path = OpenSample();
  const std::string other = MakeStyle("other.stl", {{"assembly.txt", "other"}, {"main.vbs", "other code"}});
  OpenEntry("main.vbs");
  Type("typed last");
  editor().LoadStyle(other);
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "typed last")));
  EXPECT_EQ(editor().TxtCode.Tag.get(), "");
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(other)), Contains(Pair("main.vbs", "other code")));
}

TEST_F(FrmEditFilesTest, AFolderThatTakesNoWorkingCopyIsToldAndLeavesNoProject) {
  const std::string path = MakeStyle("night.stl", {{"assembly.txt", "x"}});
  native_files.MakeFolder(Path("~$night.stl.new"));
  dialogs().ExpectFile(path);
  dialogs().ExpectFileFailure("Error: 75\r\nPath/File access error", Path("~$night.stl"));
  editor().mnu_open.Click();
  EXPECT_FALSE(editor().project().archive());
  EXPECT_FALSE(editor().mnu_save.Enabled);
}

// ---- saving --------------------------------------------------------------------------------------------------------

TEST_F(FrmEditFilesTest, SavePutsTheWorkingCopyIntoTheFile) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("new code");
  dialogs().ExpectBox("Saved");
  editor().mnu_save.Click();
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "new code")));
}

TEST_F(FrmEditFilesTest, SaveOnANewProjectAsksEachTime) {
  editor().LoadStyle("");
  dialogs().ExpectFile(Path("mine.stl")).WithTitle("Select file.").WithFilter(kStyleFilter);
  dialogs().ExpectBox("Saved");
  editor().mnu_save.Click();
  EXPECT_THAT(ContentOf(Path("mine.stl")), ElementsAre(Pair("assembly.txt", std::string(1, '\0'))));
  EXPECT_EQ(editor().project().File(), "");
  dialogs().ExpectFile(Path("mine.stl"));
  dialogs()
      .ExpectBox("This file already exists do you want to overwrite?", BoxAnswer::kYes)
      .WithButtons(BoxButtons::kYesNo);
  dialogs().ExpectBox("Saved");
  editor().mnu_save.Click();
}

TEST_F(FrmEditFilesTest, NoToOverwritingEndsTheSave) {
  WriteFile(Path("mine.stl"), "precious");
  editor().LoadStyle("");
  dialogs().ExpectFile(Path("mine.stl"));
  dialogs().ExpectBox("This file already exists do you want to overwrite?", BoxAnswer::kNo);
  editor().mnu_save.Click();
  EXPECT_EQ(ReadFile(Path("mine.stl")), "precious");
}

TEST_F(FrmEditFilesTest, CancelInTheSaveDialogueEndsTheCommandQuietly) {
  editor().LoadStyle("");
  dialogs().ExpectFile(std::nullopt);
  editor().mnu_save.Click();
}

TEST_F(FrmEditFilesTest, SaveAsForgetsTheNameAndAsksForAnother) {
  const std::string path = OpenSample();
  dialogs().ExpectFile(Path("copy.stl"));
  dialogs().ExpectBox("Saved");
  editor().mnu_saveas.Click();
  EXPECT_EQ(editor().project().File(), "");
  EXPECT_EQ(ContentOf(Path("copy.stl")), ContentOf(path));
}

TEST_F(FrmEditFilesTest, TheWorkingCopyIsNotCopiedOverItself) {
  const std::string path = OpenSample();
  dialogs().ExpectBox("Saved");
  editor().SaveStyle(WorkingCopy(path));
  EXPECT_EQ(ContentOf(WorkingCopy(path)).size(), 2u);
}

TEST_F(FrmEditFilesTest, AFileThatCannotBeWrittenIsToldAndStaysAsItWas) {
  OpenSample();
  native_files.MakeFolder(Path("folder.stl"));
  dialogs().ExpectFileFailure("Error: Saving style file 75\r\nPath/File access error", Path("folder.stl"));
  editor().SaveStyle(Path("folder.stl"));
}

TEST_F(FrmEditFilesTest, AWorkingCopyThatSomebodyElseHasChangedIsNotSavedOverTheFile) {
  const std::string path = OpenSample();
  const std::string before = ReadFile(path);
  OpenEntry("main.vbs");
  Type("new code");
  ClsPFF other;
  ASSERT_TRUE(other.LoadPff(WorkingCopy(path)));
  other.PackFile(AsBytes("somebody else's"), "more.vbs");
  other.SavePffFile();
  dialogs().ExpectBox("Error: Auto backup style script " + WorkingCopy(path) + "70\r\nThe archive '" +
                      WorkingCopy(path) +
                      "' was changed by another program since it was read, so it is left as it is. Try again.");
  editor().mnu_save.Click();
  EXPECT_EQ(ReadFile(path), before);
  EXPECT_EQ(editor().TxtCode.Text.get(), "new code");
}

// ---- opening and closing -------------------------------------------------------------------------------------------

TEST_F(FrmEditFilesTest, OpenAsksForTheChangesOfTheProjectThatHasAFile) {
  const std::string path = OpenSample();
  const std::string other = MakeStyle("other.stl", {{"assembly.txt", "other"}});
  OpenEntry("main.vbs");
  Type("new code");
  dialogs().ExpectBox(SaveQuestion(path, "'?"), BoxAnswer::kYes).WithButtons(BoxButtons::kYesNo);
  dialogs().ExpectBox("Saved");
  dialogs().ExpectFile(other).WithTitle("Select file").WithFilter(kStyleFilter);
  editor().mnu_open.Click();
  EXPECT_EQ(editor().project().File(), other);
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "new code")));
}

TEST_F(FrmEditFilesTest, CancelInTheOpenDialogueKeepsTheProject) {
  const std::string path = OpenSample();
  dialogs().ExpectBox(SaveQuestion(path, "'?"), BoxAnswer::kNo);
  dialogs().ExpectFile(std::nullopt);
  editor().mnu_open.Click();
  EXPECT_EQ(editor().project().File(), path);
}

TEST_F(FrmEditFilesTest, CloseAsksAndTakesTheWorkingCopyAway) {
  const std::string path = OpenSample();
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kNo).WithButtons(BoxButtons::kYesNoCancel);
  EXPECT_TRUE(editor().Unload());
  EXPECT_FALSE(FileIsThere(WorkingCopy(path)));
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "old code")));
}

TEST_F(FrmEditFilesTest, CancelKeepsTheWindowAndYesSaves) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("new code");
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kCancel);
  EXPECT_FALSE(editor().Unload());
  EXPECT_TRUE(FileIsThere(WorkingCopy(path)));
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kYes);
  dialogs().ExpectBox("Saved");
  EXPECT_TRUE(editor().Unload());
  EXPECT_THAT(ContentOf(path), Contains(Pair("main.vbs", "new code")));
  EXPECT_FALSE(FileIsThere(WorkingCopy(path)));
}

TEST_F(FrmEditFilesTest, TheWindowStaysWhenYesDidNotSave) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("地");
  dialogs().ExpectBox(SaveQuestion(path, "'"), BoxAnswer::kYes);
  dialogs().ExpectBox(
      "The text of 'main.vbs' was not stored: a style has no character for '地'. Take it out and save again. The style "
      "still holds the text that was there before.");
  EXPECT_FALSE(editor().Unload());
  EXPECT_EQ(editor().TxtCode.Text.get(), "地");
}

TEST_F(FrmEditFilesTest, CloseWithAModifiedNewProjectAsksNothing) {
  editor().LoadStyle("");
  OpenEntry("assembly.txt");
  Type("designer me");
  editor().SaveStyleScript();
  EXPECT_TRUE(editor().Unload());
  EXPECT_FALSE(FileIsThere(ProgramPath("~$newstyle.stl")));
}

// ---- adding --------------------------------------------------------------------------------------------------------

TEST_F(FrmEditFilesTest, AFileFromDiskBecomesAnEntry) {
  const std::string path = OpenSample();
  WriteFile(Path("night.wav"), "sound");
  dialogs().ExpectFile(Path("night.wav")).WithFilter("Sound files (*.wav)|*.wav|All files (*.*)|*.*|");
  editor().mnu_addsound.Click();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt", "main.vbs", "night.wav"));
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("night.wav", "sound")));
  EXPECT_THAT(ContentOf(path), Not(Contains(Pair("night.wav", "sound"))));
}

TEST_F(FrmEditFilesTest, EachKindOfFileHasItsFilter) {
  OpenSample();
  dialogs()
      .ExpectFile(std::nullopt)
      .WithFilter(
          "All image files|*.jpg;*.jpeg;*.bmp;*.dib;*.gif;*.wmf;*.emf;*.cur;*.ico|Bitmaps (*.bmp)|*.bmp|JPEG files "
          "(*.jpg;*.jpeg)|*.jpg;*.jpeg|Gif files (*.gif)|*.gif|Meta files (*.wmf;*.emf)|*.wmf;*.emf|Icons "
          "(*.ico;*.cur)|*.ico;*.cur|All files (*.*)|*.*");
  editor().mnu_addimage.Click();
  dialogs().ExpectFile(std::nullopt).WithFilter("Module files (*.vbs, *.js)|*.vbs,*.js|All files (*.*)");
  editor().mnu_addmod.Click();
  dialogs().ExpectFile(std::nullopt).WithFilter("All files (*.*)|*.*|");
  editor().mnu_addOther.Click();
}

TEST_F(FrmEditFilesTest, AFileThatIsNotThereAddsNothing) {
  OpenSample();
  dialogs().ExpectFile(Path("nobody.bmp"));
  editor().mnu_addimage.Click();
  EXPECT_EQ(EntryTexts().size(), 2u);
}

TEST_F(FrmEditFilesTest, AnEmptyFileIsToldAndAddsNothing) {
  OpenSample();
  WriteFile(Path("empty.bmp"), "");
  dialogs().ExpectFile(Path("empty.bmp"));
  dialogs().ExpectFileFailure("Error: 9\r\nThe file is empty", Path("empty.bmp"));
  editor().mnu_addimage.Click();
  EXPECT_EQ(EntryTexts().size(), 2u);
}

TEST_F(FrmEditFilesTest, ASeventeenCharacterNameGetsTheInputBoxAndASixteenCharacterNameDoesNot) {
  EXPECT_EQ(editor().Get16CharName("sixteen_char.bmp"), "sixteen_char.bmp");
  dialogs().ExpectInput(kLongNamePrompt, "short.bmp").WithTitle("Enter file name").WithPreset("seventeen_ch.bmp");
  EXPECT_EQ(editor().Get16CharName("seventeen_chr.bmp"), "short.bmp");
}

TEST_F(FrmEditFilesTest, AnAnswerThatIsTooLongOrEmptyIsCanceled) {
  for (const std::optional<std::string>& answer :
       {std::optional<std::string>("this is still far too long.bmp"), std::optional<std::string>("")}) {
    dialogs().ExpectInput(kLongNamePrompt, answer);
    dialogs().ExpectBox("Error filename too long: canceled");
    EXPECT_EQ(editor().Get16CharName("a name that is much too long.bmp"), "");
  }
}

TEST_F(FrmEditFilesTest, ANewModuleStartsAsOneBlank) {
  const std::string path = OpenSample();
  dialogs().ExpectInput(kModulePrompt, "second");
  editor().mnu_newMod.Click();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("second.vbs", " ")));
  dialogs().ExpectInput(kModulePrompt, "third.js");
  editor().mnu_newMod.Click();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt", "main.vbs", "second.vbs", "third.js"));
}

TEST_F(FrmEditFilesTest, ANewTextIsATextWhateverItsName) {
  OpenSample();
  dialogs().ExpectInput(kTextPrompt, "notes.doc");
  editor().mnu_newText.Click();
  dialogs().ExpectInput(kTextPrompt, "more.TXT");
  editor().mnu_newText.Click();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt", "main.vbs", "notes.doc.txt", "more.TXT"));
}

TEST_F(FrmEditFilesTest, CancelInThePromptGivesAnEntryOfTheExtensionAlone) {
  OpenSample();
  dialogs().ExpectInput(kModulePrompt, std::nullopt);
  editor().mnu_newMod.Click();
  dialogs().ExpectInput(kTextPrompt, std::nullopt);
  editor().mnu_newText.Click();
  EXPECT_THAT(EntryTexts(), testing::UnorderedElementsAre("assembly.txt", ".txt", "main.vbs", ".vbs"));
}

TEST_F(FrmEditFilesTest, ANameOutsideTheCodePageIsToldAndAddsNothing) {
  OpenSample();
  dialogs().ExpectInput(kModulePrompt, "地");
  dialogs().ExpectBox(
      "The name '地.vbs' cannot be stored in the archive: it has no character for '地'. Choose a name without it.");
  editor().mnu_newMod.Click();
  EXPECT_EQ(EntryTexts().size(), 2u);
}

TEST_F(FrmEditFilesTest, FilesDroppedOnTheTreeAreAdded) {
  OpenSample();
  WriteFile(Path("a.bmp"), "a");
  WriteFile(Path("b.stl"), "b");
  editor().Show();
  const DropTargetScope target(&editor().TreeView);
  DropFiles(editor(), {Path("a.bmp"), Path("b.stl")});
  EXPECT_THAT(EntryTexts(), testing::UnorderedElementsAre("assembly.txt", "main.vbs", "a.bmp", "b.stl"));
}

TEST_F(FrmEditFilesTest, AStyleDroppedElsewhereIsOpenedAsTheMenuDoes) {
  const std::string path = OpenSample();
  const std::string other = MakeStyle("other.stl", {{"assembly.txt", "other"}});
  editor().Show();
  dialogs().ExpectBox(SaveQuestion(path, "'?"), BoxAnswer::kNo);
  DropFiles(editor(), {other});
  EXPECT_EQ(editor().project().File(), other);
}

// ---- deleting ------------------------------------------------------------------------------------------------------

TEST_F(FrmEditFilesTest, ADeletedEntryIsMarkedAndWrittenAtTheNextFlush) {
  const std::string path = OpenSample();
  desktop.windowing().ExpectModal("FrmEditSelectFile", [](Form& form) {
    auto& dialog = static_cast<FrmEditSelectFile&>(form);
    EXPECT_EQ(dialog.Caption.get(), "Select File");
    EXPECT_EQ(dialog.LstFiles.List(1), "main.vbs");
    EXPECT_EQ(dialog.LstFiles.ItemData(1), 1);
    dialog.LstFiles.ListIndex = 1;
    dialog.Command1.Press();
  });
  editor().mnu_deletefile.Click();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt"));
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "old code")));
  editor().SaveStyleScript();
  EXPECT_THAT(ContentOf(WorkingCopy(path)), ElementsAre(Pair("assembly.txt", "include main.vbs")));
}

TEST_F(FrmEditFilesTest, TheSelectedEntryIsTheOneThatIsOffered) {
  OpenSample();
  editor().TreeView.Select(editor().TreeView.FindNode("1MOD"));
  desktop.windowing().ExpectModal("FrmEditSelectFile", [](Form& form) {
    auto& dialog = static_cast<FrmEditSelectFile&>(form);
    EXPECT_EQ(dialog.LstFiles.Text(), "main.vbs");
    dialog.Command2.Press();
  });
  editor().mnu_deletefile.Click();
  EXPECT_EQ(EntryTexts().size(), 2u);
}

TEST_F(FrmEditFilesTest, OkWithNothingSelectedOnlyReadsTheListAgain) {
  OpenSample();
  editor().TreeView.Clear();
  desktop.windowing().ExpectModal("FrmEditSelectFile",
                                  [](Form& form) { static_cast<FrmEditSelectFile&>(form).Command1.Press(); });
  editor().mnu_deletefile.Click();
  EXPECT_EQ(EntryTexts().size(), 2u);
}

TEST_F(FrmEditFilesTest, DeletingTheOpenEntryLeavesItsTextAndTheNextFlushPacksItAgain) {
  const std::string path = OpenSample();
  OpenEntry("main.vbs");
  Type("typed behind the deletion");
  editor().DeleteNumber(1);
  editor().RefreshList();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt"));
  EXPECT_EQ(editor().TxtCode.Text.get(), "typed behind the deletion");
  editor().SaveStyleScript();
  editor().RefreshList();
  EXPECT_THAT(EntryTexts(), ElementsAre("assembly.txt", "main.vbs"));
  EXPECT_TRUE(editor().TreeView.FindNode("2MOD")) << "a new entry, behind the deleted one";
  EXPECT_THAT(ContentOf(WorkingCopy(path)), Contains(Pair("main.vbs", "typed behind the deletion")));
}

}  // namespace
}  // namespace kestrun
