// Starts with a style that never got as far as the main window.
#include "program/style_guard.h"

#include "program/frame_fixture.h"
#include "program/start_up.h"
#include "program/style_hook.h"
#include "support/registered_window.h"

namespace kestrun {
namespace {

class StyleGuardTest : public FrameTest {
 protected:
  StyleGuardTest() {
    NoteStartWithStyle();  // what an earlier test left in this process
    TellGameFolder();
    WriteFile(ProgramPath("default.stl"), "");
    InstallStyleRuntime(
        {[] { return false; }, [this](const std::string& path) { loaded.push_back(path); }, [](Form&) {}});
  }
  ~StyleGuardTest() override {
    InstallStyleRuntime({});
    NoteStartWithStyle();
  }

  void Begin(const std::string& starts) { WriteIni("[launcher]\r\nFIRSTRUN=False\r\nSTYLESTARTS=" + starts + "\r\n"); }
  void ExpectQuestion(BoxAnswer answer) {
    desktop.dialogs()
        .ExpectBox(
            "The last two starts of Kestrun ended before its main window was there. The style (skin) may be the "
            "reason.\r\nDo you want to start without the style this time?",
            answer)
        .WithButtons(BoxButtons::kYesNo)
        .WithIcon(BoxIcon::kQuestion);
  }
  void Start() {
    const StandInWindow<Form> main_window("frmain");
    const Ref<Form> splash = MakeRef<Form>("frmsplash");
    RunStartUp(*splash, splash->Add<Label>("lblversion"), "");
    CloseAllWindows();
  }

  std::vector<std::string> loaded;
};

TEST_F(StyleGuardTest, AStartIsCountedUntilTheMainWindowStands) {
  Begin("0");
  EXPECT_TRUE(MayStartWithStyle());
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "1");
  EXPECT_TRUE(MayStartWithStyle()) << "the style of the command line is no second start";
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "1");
  NoteStartWithStyle();
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "0");
}

TEST_F(StyleGuardTest, AfterTwoStartsThatEndedTooEarlyTheUserMayGoWithoutTheStyle) {
  Begin("2");
  ExpectQuestion(BoxAnswer::kYes);
  EXPECT_FALSE(MayStartWithStyle());
  EXPECT_FALSE(MayStartWithStyle()) << "asked once";
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "0");
}

TEST_F(StyleGuardTest, NoTriesTheStyleOnceMoreAndTheNextStartAsksAgain) {
  Begin("2");
  ExpectQuestion(BoxAnswer::kNo);
  EXPECT_TRUE(MayStartWithStyle());
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "3");
}

TEST_F(StyleGuardTest, OneStartThatEndedTooEarlyAsksNothing) {
  Begin("1");
  EXPECT_TRUE(MayStartWithStyle());
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "2");
}

TEST_F(StyleGuardTest, AStartThatGetsThroughLoadsTheStyleAndIsForgotten) {
  Begin("1");
  Start();
  EXPECT_EQ(loaded, std::vector<std::string>{ProgramPath("default.stl")});
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "0");
}

TEST_F(StyleGuardTest, AStartWithoutTheStyleLoadsNone) {
  Begin("2");
  ExpectQuestion(BoxAnswer::kYes);
  Start();
  EXPECT_TRUE(loaded.empty());
}

TEST_F(StyleGuardTest, AStartWithoutAnyStyleCountsNothing) {
  Begin("0");
  native_files.Delete(ProgramPath("default.stl"));
  Start();
  EXPECT_EQ(Ini("launcher", "STYLESTARTS"), "0");
}

}  // namespace
}  // namespace kestrun
