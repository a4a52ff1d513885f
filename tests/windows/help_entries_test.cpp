// What the "Index" entries of the windows open.
#include <gtest/gtest.h>

#include "base/text.h"
#include "forms/menu_item.h"
#include "program/frame_fixture.h"

namespace kestrun {
namespace {

class HelpEntriesTest : public FrameTest {
 protected:
  HelpEntriesTest() { SetSafeMode(true); }

  // What the "Index" entries of these windows open, each with its window's name in front.
  std::vector<std::string> ChooseIn(const std::vector<std::string>& windows) {
    std::vector<std::string> opened;
    for (const std::string& window : windows) {
      for (const Ref<Control>& control : WindowBeforeLoad(window).controls()) {
        auto* const item = dynamic_cast<MenuItem*>(control.get());
        if (!item || ReplaceAll(item->Caption.get(), "&", "") != "Index") continue;
        EXPECT_TRUE(item->Choose()) << window;
        opened.push_back(window + " " + desktop.shell().openings.back().file);
      }
    }
    return opened;
  }
};

TEST_F(HelpEntriesTest, AllOfTheProgramOpenTheManualBesideIt) {
  WriteFile(ProgramPath("manual.html"), "manual");
  const std::string manual = " " + ProgramPath("manual.html");
  EXPECT_EQ(ChooseIn(RegisteredWindows()),
            (std::vector{"frmain" + manual, "FrmCenter" + manual, "FrmEdit" + manual, "frmputlist" + manual}));
}

TEST_F(HelpEntriesTest, TheProgramsHelpFileComesBeforeTheManual) {
  WriteFile(ProgramPath("manual.html"), "manual");
  WriteFile(ProgramPath("kestrun.chm"), "help");
  EXPECT_EQ(ChooseIn({"FrmCenter"}), std::vector{"FrmCenter " + ProgramPath("kestrun.chm")});
}

TEST_F(HelpEntriesTest, WithoutEitherTheHelpFileIsAskedFor) {
  EXPECT_EQ(ChooseIn({"FrmCenter"}), std::vector{"FrmCenter " + ProgramPath("kestrun.chm")});
}

}  // namespace
}  // namespace kestrun
