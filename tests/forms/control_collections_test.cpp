#include "forms/control_collections.h"
#include "base/convert.h"

#include <gtest/gtest.h>

#include "base/convert.h"
#include "forms/command_button.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class frmcollected final : public Form {
 public:
  frmcollected() : Form("frmcollected") {}
  Label& Label1 = Add<Label>("Label1");
  Frame& Frame1 = Add<Frame>("Frame1");
  OptionButton& late = Add<OptionButton>("options", 5);
  OptionButton& early = Add<OptionButton>("options", 2);
};

class ControlCollectionsTest : public HeadlessTest {
 protected:
  ~ControlCollectionsTest() override { form->Unload(); }
  Object& Controls() {
    controls_ = GetMember(*form, "Controls");
    return *controls_.object();
  }
  Object& Options() {
    options_ = GetMember(*form, "options");
    return *options_.object();
  }
  static std::vector<Object*> Walk(Object& collection) {
    std::vector<Object*> seen;
    const auto enumeration = collection.Enumerate();
    for (Variant item; enumeration->Next(item);) seen.push_back(item.object());
    return seen;
  }
  Ref<frmcollected> form = MakeRef<frmcollected>();

 private:
  Variant controls_;
  Variant options_;
};

TEST_F(ControlCollectionsTest, ControlsAreCountedAndFoundByNumberAndByName) {
  EXPECT_EQ(ToLong(GetMember(Controls(), "Count")), 4);
  EXPECT_EQ(GetMember(Controls(), "Item", {0}).object(), &form->Label1);
  EXPECT_EQ(GetMember(Controls(), "Item", {"frame1"}).object(), &form->Frame1);
  EXPECT_EQ(GetMember(*form, "Controls", {1}).object(), &form->Frame1);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(Controls(), "Item", {4}); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(Controls(), "Item", {"none"}); }), error::kMemberNotFound);
}

TEST_F(ControlCollectionsTest, TheFormAloneMeansItsControls) {
  std::vector<Variant> name{"Label1"};
  EXPECT_EQ(form->Get(form->DefaultMember(), name).object(), &form->Label1);
}

TEST_F(ControlCollectionsTest, EachControlIsWalkedOnceInOrder) {
  EXPECT_EQ(Walk(Controls()), (std::vector<Object*>{&form->Label1, &form->Frame1, &form->late, &form->early}));
}

TEST_F(ControlCollectionsTest, AControlArrayTellsItsBoundsAndIsWalkedByIndex) {
  EXPECT_EQ(ToLong(GetMember(Options(), "Count")), 2);
  EXPECT_EQ(ToLong(GetMember(Options(), "LBound")), 2);
  EXPECT_EQ(ToLong(GetMember(Options(), "UBound")), 5);
  EXPECT_EQ(GetMember(Options(), "Item", {5}).object(), &form->late);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(Options(), "Item", {3}); }), error::kSubscriptOutOfRange);
  EXPECT_EQ(Walk(Options()), (std::vector<Object*>{&form->early, &form->late}));
}

TEST_F(ControlCollectionsTest, AnArrayIsFoundByItsNameInTheControls) {
  const Variant options = GetMember(Controls(), "Item", {"options"});
  EXPECT_EQ(ToLong(GetMember(*options.object(), "Count")), 2);
}

TEST_F(ControlCollectionsTest, AddedControlsAreHiddenAndReachedByName) {
  form->Show();
  const Variant added = CallMember(Controls(), "Add", {"vb.commandbutton", "cmdNew", Variant(&form->Frame1)});
  auto* button = dynamic_cast<CommandButton*>(added.object());
  ASSERT_NE(button, nullptr);
  EXPECT_FALSE(button->Visible);
  EXPECT_EQ(button->Container(), &form->Frame1);
  EXPECT_GT(button->Width, 0);
  EXPECT_EQ(GetMember(*form, "cmdnew").object(), button);
}

TEST_F(ControlCollectionsTest, AddRefusesWhatItCannotMake) {
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(Controls(), "Add", {"VB.Spaceship", "one"}); }), 429);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(Controls(), "Add", {"VB.Label", "label1"}); }), 727);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(Controls(), "Add", {"VB.Label", "Caption"}); }), 727);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(Controls(), "Add", {"VB.Label", ""}); }), 380);
  EXPECT_EQ(ErrorNumberOf([&] { CallMember(Controls(), "Add", {"VB.Label", "one", Variant(&form->Label1)}); }), 380);
  EXPECT_EQ(form->controls().size(), 4U);
}

TEST_F(ControlCollectionsTest, EveryKindThatCanBeAddedIsMade) {
  for (const char* kind : {"CheckBox", "ComboBox", "CommandButton", "FileListBox", "Frame", "Image", "Label", "Line",
                           "ListBox", "Menu", "OptionButton", "PictureBox", "Shape", "TextBox", "Timer"}) {
    const std::string name = std::string("new") + kind;
    const Variant added = CallMember(Controls(), "Add", {"VB." + std::string(kind), name});
    EXPECT_EQ(added.object()->TypeName(), kind);
  }
}

TEST_F(ControlCollectionsTest, ScriptsRemoveOnlyWhatTheyAdded) {
  CallMember(Controls(), "Add", {"VB.Label", "mine"});
  CallMember(Controls(), "Remove", {"mine"});
  EXPECT_EQ(form->FindControl("mine"), nullptr);
  try {
    CallMember(Controls(), "Remove", {"Label1"});
    FAIL();
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.number(), 362);
    EXPECT_EQ(failure.description(), "Can't unload controls created at design time");
  }
}

TEST_F(ControlCollectionsTest, WalkedControlsMayBeRemovedMeanwhile) {
  CallMember(Controls(), "Add", {"VB.Label", "mine"});
  const auto enumeration = Controls().Enumerate();
  Variant item;
  ASSERT_TRUE(enumeration->Next(item));
  CallMember(Controls(), "Remove", {"mine"});
  int more = 0;
  while (enumeration->Next(item)) ++more;
  EXPECT_EQ(more, 4);
}

TEST_F(ControlCollectionsTest, ACollectionOfAFormThatHasGoneGivesObjectRequired) {
  form->Show();
  Object& controls = Controls();
  form->Unload();
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(controls, "Count"); }), error::kObjectRequired);
}

}  // namespace
}  // namespace kestrun
