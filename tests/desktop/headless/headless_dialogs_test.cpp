#include "desktop/headless/headless_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadlessDialogsTest : public testing::Test {
 protected:
  HeadlessDialogsTest() {
    dialogs.on_unexpected = [this](const UnexpectedQuestion& question) {
      unexpected.push_back(question.text);
      details.push_back(question.detail);
    };
  }

  BoxAnswer Ask(std::string text, BoxButtons buttons = BoxButtons::kOk, BoxIcon icon = BoxIcon::kNone,
                std::string title = {}) {
    return dialogs.ShowMessage({std::move(text), std::move(title), buttons, icon, 1});
  }

  HeadlessDialogs dialogs;
  std::vector<std::string> unexpected;
  std::vector<std::string> details;
};

TEST_F(HeadlessDialogsTest, BoxesAreAnsweredInOrder) {
  dialogs.ExpectBox("Overwrite?", BoxAnswer::kYes);
  dialogs.ExpectBox("Done");
  EXPECT_EQ(Ask("Overwrite?", BoxButtons::kYesNo), BoxAnswer::kYes);
  EXPECT_EQ(Ask("Done"), BoxAnswer::kOk);
  EXPECT_THAT(unexpected, IsEmpty());
  EXPECT_THAT(dialogs.Unused(), IsEmpty());
}

TEST_F(HeadlessDialogsTest, BoxNobodyExpectedIsToldAndGetsTheSafeAnswer) {
  EXPECT_EQ(Ask("a"), BoxAnswer::kOk);
  EXPECT_EQ(Ask("b", BoxButtons::kOkCancel), BoxAnswer::kCancel);
  EXPECT_EQ(Ask("c", BoxButtons::kAbortRetryIgnore), BoxAnswer::kAbort);
  EXPECT_EQ(Ask("d", BoxButtons::kYesNoCancel), BoxAnswer::kCancel);
  EXPECT_EQ(Ask("e", BoxButtons::kYesNo), BoxAnswer::kNo);
  EXPECT_EQ(Ask("f", BoxButtons::kRetryCancel), BoxAnswer::kCancel);
  EXPECT_THAT(unexpected, ElementsAre("a", "b", "c", "d", "e", "f"));
  EXPECT_EQ(details.front(), "nothing is expected any more");
}

TEST_F(HeadlessDialogsTest, BoxWithOneOtherCharacterIsUnexpected) {
  dialogs.ExpectBox("Overwrite?", BoxAnswer::kYes);
  EXPECT_EQ(Ask("Overwrite !", BoxButtons::kYesNo), BoxAnswer::kNo);
  EXPECT_THAT(details, ElementsAre("text: expected \"Overwrite?\", was \"Overwrite !\""));
  EXPECT_THAT(dialogs.Unused(), ElementsAre("message box \"Overwrite?\""));
}

TEST_F(HeadlessDialogsTest, TitleButtonsAndIconCountWhereTheyAreNamed) {
  dialogs.ExpectBox("x").WithTitle("Kestrun").WithButtons(BoxButtons::kOk).WithIcon(BoxIcon::kCritical);
  EXPECT_EQ(Ask("x", BoxButtons::kOkCancel, BoxIcon::kWarning, "Other"), BoxAnswer::kCancel);
  EXPECT_THAT(details, ElementsAre("title: expected \"Kestrun\", was \"Other\"; buttons: expected 0, was 1; "
                                   "icon: expected 1, was 3"));
  EXPECT_EQ(Ask("x", BoxButtons::kOk, BoxIcon::kCritical, "Kestrun"), BoxAnswer::kOk);
  EXPECT_EQ(unexpected.size(), 1U);
}

TEST_F(HeadlessDialogsTest, DefaultButtonCountsWhereItIsNamed) {
  dialogs.ExpectBox("x", BoxAnswer::kNo).WithDefaultButton(2);
  EXPECT_EQ(dialogs.ShowMessage({"x", "", BoxButtons::kYesNo, BoxIcon::kNone, 2}), BoxAnswer::kNo);
  EXPECT_THAT(unexpected, IsEmpty());
}

TEST_F(HeadlessDialogsTest, AnswerThatTheBoxDoesNotHaveIsAnError) {
  dialogs.ExpectBox("Sure?", BoxAnswer::kOk);
  EXPECT_EQ(Ask("Sure?", BoxButtons::kYesNo), BoxAnswer::kNo);
  EXPECT_THAT(unexpected, ElementsAre("Sure?"));
}

TEST_F(HeadlessDialogsTest, ActionRunsWhileTheBoxStands) {
  std::string order;
  dialogs.ExpectBox("x").WhileShown([&] { order += "shown,"; });
  Ask("x");
  order += "closed";
  EXPECT_EQ(order, "shown,closed");
}

TEST_F(HeadlessDialogsTest, ActionMayAnswerAnotherBox) {
  dialogs.ExpectBox("outer").WhileShown([&] { Ask("inner"); });
  dialogs.ExpectBox("inner");
  Ask("outer");
  EXPECT_THAT(unexpected, IsEmpty());
}

TEST_F(HeadlessDialogsTest, InputBoxGivesTheTypedText) {
  dialogs.ExpectInput("Name?", "Карта").WithTitle("Rename").WithPreset("old");
  EXPECT_EQ(dialogs.AskText("Name?", "Rename", "old"), "Карта");
}

TEST_F(HeadlessDialogsTest, InputBoxCancelledGivesNothing) {
  dialogs.ExpectInput("Name?", std::nullopt);
  EXPECT_EQ(dialogs.AskText("Name?", "", ""), std::nullopt);
  EXPECT_THAT(unexpected, IsEmpty());
}

TEST_F(HeadlessDialogsTest, InputBoxWithAnotherPresetIsUnexpected) {
  dialogs.ExpectInput("Name?", "x").WithPreset("new");
  EXPECT_EQ(dialogs.AskText("Name?", "", "old"), std::nullopt);
  EXPECT_THAT(unexpected, ElementsAre("Name?"));
}

TEST_F(HeadlessDialogsTest, FileDialogueGivesTheChosenFile) {
  dialogs.ExpectFile("C:\\a.bms").WithTitle("Open").WithFilter("Maps|*.bms").StartingAt("C:\\maps");
  FileDialogRequest request;
  request.title = "Open";
  request.filter = "Maps|*.bms";
  request.folder = "C:\\maps";
  EXPECT_EQ(dialogs.PickFile(request), "C:\\a.bms");
  EXPECT_EQ(dialogs.shown_file_dialogs.size(), 1U);
}

TEST_F(HeadlessDialogsTest, FileDialogueNobodyExpectedIsCancelled) {
  EXPECT_EQ(dialogs.PickFile({}), std::nullopt);
  EXPECT_EQ(unexpected.size(), 1U);
}

TEST_F(HeadlessDialogsTest, FolderDialogueComparesPromptRootAndStart) {
  dialogs.ExpectFolder("Select", "C:\\game").WithRoot(17).StartingAt("C:\\");
  EXPECT_EQ(dialogs.PickFolder("Select", 16, "C:\\"), std::nullopt);
  EXPECT_THAT(details, ElementsAre("root: expected 17, was 16"));
  EXPECT_EQ(dialogs.PickFolder("Select", 17, "C:\\"), "C:\\game");
}

TEST_F(HeadlessDialogsTest, ColourDialogueGivesTheColour) {
  dialogs.ExpectColor(0x00BBCCDDU);
  EXPECT_EQ(dialogs.PickColor(0), 0x00BBCCDDU);
  EXPECT_EQ(dialogs.PickColor(0), std::nullopt);
  EXPECT_EQ(unexpected.size(), 1U);
}

TEST_F(HeadlessDialogsTest, OrderOfDifferentKindsCounts) {
  dialogs.ExpectFolder("Select", "C:\\game");
  EXPECT_EQ(Ask("x"), BoxAnswer::kOk);
  EXPECT_THAT(details, ElementsAre("expected next: folder dialogue \"Select\""));
}

TEST_F(HeadlessDialogsTest, AllShownBoxesAreKept) {
  dialogs.ExpectBox("one");
  Ask("one");
  Ask("two");
  ASSERT_EQ(dialogs.shown_boxes.size(), 2U);
  EXPECT_EQ(dialogs.shown_boxes[1].text, "two");
}

}  // namespace
}  // namespace kestrun
