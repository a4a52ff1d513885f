// Every window of the program as a script sees it.
#include <gtest/gtest.h>

#include "base/text.h"
#include "forms/accessible.h"
#include "forms/button.h"
#include "forms/control_kinds.h"
#include "forms/label.h"
#include "forms/script_globals.h"
#include "program/frame_fixture.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

class WindowMembersTest : public FrameTest {
 protected:
  WindowMembersTest() {
    // The name editor tells of a game folder without the players' file, and the uploader of a site without an answer.
    WriteFile(GamePath("dflwplyr.sav"), "");
    PutSite();
  }

  // Reads every readable property that takes no arguments; each must answer without a failure.
  static void ReadAll(Object& object, const std::string& where) {
    for (const MemberInfo& member : object.ListMembers()) {
      if (member.kind == MemberKind::kMethod || member.kind == MemberKind::kWriteOnly || member.least_arguments > 0)
        continue;
      if (member.name == "Image" && object.TypeName() == "McImageList") continue;  // in an empty list there is none
      EXPECT_NO_THROW(static_cast<void>(GetMember(object, member.name))) << where << "." << member.name;
    }
  }
};

TEST_F(WindowMembersTest, EveryReadablePropertyOfEveryWindowAndControlAnswersByName) {
  TellGameFolder();
  SetSafeMode(true);
  WriteIni("[launcher]\r\nGAMETIMER=0\r\n");  // otherwise the auto host asks for the game's version
  int windows = 0;
  int controls = 0;
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash") continue;  // its load handler is the start-up
    Form& form = WindowByName(name);
    ReadAll(form, name);
    ++windows;
    for (const Ref<Control>& control : form.controls()) {
      ReadAll(*control, name + "." + control->Name());
      EXPECT_NE(form.FindMember(control->Name()), kNoMember);
      ++controls;
    }
  }
  EXPECT_GE(windows, 2);
  EXPECT_GE(controls, 20);
}

// Callers of other languages give arguments by name.
void ExpectNamedArguments(const Object& object, const std::string& where) {
  for (const MemberInfo& member : object.ListMembers()) {
    const size_t names = member.parameters.empty() ? 0 : Split(member.parameters, ", ").size();
    EXPECT_EQ(names, static_cast<size_t>(member.most_arguments)) << where << "." << member.name;
  }
}

TEST_F(WindowMembersTest, EveryArgumentOfEveryWindowControlAndGlobalObjectHasAName) {
  TellGameFolder();
  SetSafeMode(true);
  WriteIni("[launcher]\r\nGAMETIMER=0\r\n");
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash") continue;
    Form& form = WindowByName(name);
    ExpectNamedArguments(form, name);
    ExpectNamedArguments(*GetMember(form, "Controls").object(), name + ".Controls");
    for (const Ref<Control>& control : form.controls()) ExpectNamedArguments(*control, control->TypeName());
  }
  const Ref<Form> scratch = MakeRef<Form>("scratch");
  for (const std::string& kind : ControlKindNames()) {
    const std::string name = "new" + std::to_string(scratch->controls().size());
    ExpectNamedArguments(AddControlOfKind(*scratch, kind, name, nullptr), kind);
  }
  ExpectNamedArguments(*MakeRef<ScreenObject>(), "Screen");
  ExpectNamedArguments(*MakeRef<FormCollection>(), "Forms");
  ExpectNamedArguments(*MakeRef<ClipboardObject>(), "Clipboard");
}

// What a screen reader calls it.
std::string NameOf(const Control& control) {
  if (const auto* painted = dynamic_cast<const Accessible*>(&control)) return painted->AccessibleName();
  if (const auto* button = dynamic_cast<const Button*>(&control)) return button->Caption;
  if (const auto* link = dynamic_cast<const Label*>(&control)) return link->Caption;
  return ReadersName(control);
}

TEST_F(WindowMembersTest, EveryStopOfTheTabKeyHasANameForScreenReaders) {
  TellGameFolder();
  SetSafeMode(true);
  // The auto host asks for the game's version until it knows it.
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) { form.Unload(); });
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash") continue;
    for (const Control* control : WindowByName(name).TabOrder()) {
      EXPECT_NE(NameOf(*control), "") << name << "." << control->Name();
    }
  }
}

// Where a control stands on its window, in twips.
struct WindowPlace {
  int left, top, right, bottom;
};
WindowPlace PlaceOf(const Control& control) {
  int left = control.Left;
  int top = control.Top;
  for (const Control* around = control.Container(); around; around = around->Container()) {
    left += around->Left;
    top += around->Top;
  }
  return {left, top, left + control.Width, top + control.Height};
}

// Each next stop stands further to the right or further down: the eye never has to go back.
TEST_F(WindowMembersTest, TheTabKeyGoesThroughEveryWindowAsItIsRead) {
  TellGameFolder();
  SetSafeMode(true);
  desktop.windowing().ExpectModal("Frmdfversion", [](Form& form) { form.Unload(); });
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash") continue;
    const Control* before = nullptr;
    for (const Control* control : WindowByName(name).TabOrder()) {
      if (before) {
        const WindowPlace from = PlaceOf(*before);
        const WindowPlace to = PlaceOf(*control);
        EXPECT_TRUE(to.left >= from.right || to.bottom > from.top)
            << name << ": from " << before->Name() << " back up to " << control->Name();
      }
      before = control;
    }
  }
}

TEST_F(WindowMembersTest, ATextBoxIsNamedByTheLabelOrTheOptionBeforeItElseByItsTip) {
  TellGameFolder();
  auto& main = static_cast<frmain&>(WindowByName("frmain"));
  EXPECT_EQ(ReadersName(main.Text1), "Folder");
  EXPECT_EQ(ReadersName(main.txtoutput), "Rename");
  EXPECT_EQ(ReadersName(main.FileMaps), "All the maps in the selected folder.");
}

}  // namespace
}  // namespace kestrun
