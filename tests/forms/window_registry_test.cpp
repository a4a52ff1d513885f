#include "forms/window_registry.h"

#include <gtest/gtest.h>

#include "forms/command_button.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

int loads = 0;
bool refuse_to_close = false;
enum class Fault { kNone, kLoad, kQueryUnload, kUnload };
Fault fault = Fault::kNone;

void FailIf(Fault here) {
  if (fault == here) Raise(error::kTypeMismatch);
}

class frmregistered final : public Form {
 public:
  static constexpr const char* kName = "frmregistered";
  frmregistered() : Form(kName) {
    QueryUnload = [](bool& cancel) {
      FailIf(Fault::kQueryUnload);
      cancel = refuse_to_close;
    };
    CmdClose.Click = [this] { Unload(); };
  }
  CommandButton& CmdClose = Add<CommandButton>("CmdClose");

 protected:
  void Load() override {
    ++loads;
    FailIf(Fault::kLoad);
  }
  void Unloading() override { FailIf(Fault::kUnload); }
};

const WindowRegistration registration(frmregistered::kName, [] { return MakeRef<frmregistered>(); });

class WindowRegistryTest : public HeadlessTest {
 protected:
  WindowRegistryTest() {
    loads = 0;
    refuse_to_close = false;
    fault = Fault::kNone;
  }
  ~WindowRegistryTest() override { CloseAllWindows(); }
};

TEST_F(WindowRegistryTest, AWindowIsMadeOnFirstUseAndLoadedOnce) {
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
  frmregistered& window = Window<frmregistered>();
  EXPECT_EQ(&WindowByName("FRMREGISTERED"), &window);
  window.Show();
  EXPECT_EQ(loads, 1);
}

// Half loaded and never shown, it kept the process alive when all others were closed.
TEST_F(WindowRegistryTest, AWindowWhoseLoadHandlerFailsIsGoneAndTheNextUseTriesAgain) {
  fault = Fault::kLoad;
  EXPECT_THROW(ShowWindow("frmregistered"), RuntimeError);
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
  fault = Fault::kNone;
  EXPECT_TRUE(ShowWindow("frmregistered"));
  EXPECT_TRUE(Window<frmregistered>().IsShown());
  EXPECT_EQ(loads, 2);
}

// After one fault nothing could close the window any more.
TEST_F(WindowRegistryTest, AFaultWhileAWindowIsAskedToCloseLeavesItOpenForTheNextTry) {
  ShowWindow("frmregistered");
  fault = Fault::kQueryUnload;
  EXPECT_THROW(Window<frmregistered>().Unload(), RuntimeError);
  EXPECT_TRUE(Window<frmregistered>().IsShown());
  fault = Fault::kNone;
  EXPECT_TRUE(Window<frmregistered>().Unload());
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
}

TEST_F(WindowRegistryTest, AWindowWhoseUnloadHandlerFailsIsReportedAndCloses) {
  ShowWindow("frmregistered");
  fault = Fault::kUnload;
  desktop.dialogs().ExpectBox("Error: 13\r\nType mismatch").WithIcon(BoxIcon::kCritical);
  EXPECT_TRUE(Window<frmregistered>().Unload());
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
}

TEST_F(WindowRegistryTest, AWindowThatDoesNotExistIsPassedOver) {
  EXPECT_FALSE(ShowWindow("frmnowhere"));
  EXPECT_FALSE(ShowWindowModal("frmnowhere"));
}

TEST_F(WindowRegistryTest, AWindowCanBePreparedBeforeItsLoadHandlerRuns) {
  Form& prepared = WindowBeforeLoad("frmregistered");
  EXPECT_EQ(loads, 0);
  EXPECT_EQ(&WindowByName("frmregistered"), &prepared);
  EXPECT_EQ(loads, 1);
}

TEST_F(WindowRegistryTest, AClosedWindowThatSomebodyStillHoldsDoesNotComeBack) {
  const Ref<Form> held(&Window<frmregistered>());
  held->Unload();
  held->Show();
  EXPECT_EQ(loads, 1);
  EXPECT_FALSE(held->IsShown());
}

TEST_F(WindowRegistryTest, AClosedWindowIsMadeAnewAtItsNextUse) {
  Window<frmregistered>().Show();
  Window<frmregistered>().Unload();
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
  Window<frmregistered>().Show();
  EXPECT_EQ(loads, 2);
}

TEST_F(WindowRegistryTest, AButtonMayCloseItsOwnWindow) {
  Window<frmregistered>().Show();
  EXPECT_TRUE(Window<frmregistered>().CmdClose.Press());
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
  RunPendingEvents();
}

TEST_F(WindowRegistryTest, AWindowThatRefusesToCloseStays) {
  Window<frmregistered>().Show();
  refuse_to_close = true;
  EXPECT_FALSE(Window<frmregistered>().Unload());
  EXPECT_TRUE(Window<frmregistered>().IsShown());
}

TEST_F(WindowRegistryTest, AModalWindowReturnsWhenItHasBeenClosed) {
  desktop.windowing().ExpectModal("frmregistered",
                                  [](Form& form) { static_cast<frmregistered&>(form).CmdClose.Press(); });
  EXPECT_TRUE(ShowWindowModal("frmregistered"));
  EXPECT_EQ(LoadedWindow("frmregistered"), nullptr);
}

}  // namespace
}  // namespace kestrun
