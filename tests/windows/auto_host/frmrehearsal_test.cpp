// The rehearsal's window over the auto host's list.
#include "windows/auto_host/frmrehearsal.h"

#include <gmock/gmock.h>

#include "formats/bms/bms_writer.h"
#include "windows/auto_host/auto_host_fixture.h"

namespace kestrun {
namespace {

using testing::HasSubstr;

class RehearsalWindowTest : public AutoHostTest {
 protected:
  frmrehearsal& Rehearsal() { return Window<frmrehearsal>(); }
  frmrehearsal& Open() {
    Host().Show();
    Rehearsal().Show();
    return Rehearsal();
  }
};

TEST_F(RehearsalWindowTest, TheNightIsPlayedWhenTheWindowOpens) {
  AddRows({MapPath("Arena.bms"), MapPath("gone.bms")});
  frmrehearsal& window = Open();
  EXPECT_THAT(window.LblSummary.Caption.get(), HasSubstr("In 8 hours: "));
  EXPECT_THAT(window.LstLines.List(0), HasSubstr("Inserted  row 1    " + MapPath("Arena.bms")));
  EXPECT_TRUE(window.CmdSave.Enabled);
}

TEST_F(RehearsalWindowTest, TheMenuOfActionsOpensIt) {
  bool is_open = false;
  desktop.windowing().ExpectModal("frmrehearsal", [&](Form& form) {
    is_open = true;
    form.Unload();
  });
  Host().mnu_rehearse.Click();
  EXPECT_TRUE(is_open);
  EXPECT_EQ(Host().mnu_rehearse.Caption.get(), "Re&hearse ...");
}

TEST_F(RehearsalWindowTest, AnEmptyListIsSaidAndCannotBeSaved) {
  frmrehearsal& window = Open();
  EXPECT_EQ(window.LblSummary.Caption.get(), "No maps?\r\nIn 8 hours: 0 maps inserted, 0 failures, 0 messages.");
  EXPECT_EQ(window.LstLines.ListCount(), 0);
  EXPECT_FALSE(window.CmdSave.Enabled);
}

TEST_F(RehearsalWindowTest, ANumberThatIsNoneIsAskedForAndTheLastNightStays) {
  AddRows({MapPath("Arena.bms")});
  frmrehearsal& window = Open();
  const int lines = window.LstLines.ListCount();
  for (const char* text : {"", "x", "0", "-1", "241", "99999999999"}) {
    window.TxtRound.Text = text;
    desktop.dialogs().ExpectBox("Error: 13\r\nEnter the minutes of a round as a number from 1 to 240.");
    window.CmdPlay.Press();
  }
  window.TxtRound.Text = "15";
  window.TxtHours.Text = "25";
  desktop.dialogs().ExpectBox("Error: 13\r\nEnter the hours of the night as a number from 1 to 24.");
  window.CmdPlay.Press();
  EXPECT_EQ(window.LstLines.ListCount(), lines);
}

TEST_F(RehearsalWindowTest, MessagesThatWereSavedAreSentWhenTheirBoxIsTicked) {
  WriteIni("[launcher]\r\nGAMETIMER=1\r\nDFVERSION=0\r\n[Chat]\r\nTOTMSG=1\r\nMSG1=hello\r\nMSGKEY1=84\r\nTIME=60\r\n");
  WriteFile(MapPath("Arena.bms"), WriteMission({}));
  AddRows({MapPath("Arena.bms")});
  frmrehearsal& window = Open();
  const auto has_message = [&] {
    for (int row = 0; row < window.LstLines.ListCount(); ++row) {
      if (window.LstLines.List(row).ends_with("public chat hello")) return true;
    }
    return false;
  };
  EXPECT_TRUE(has_message());
  window.ChMessages.Value = 0;
  window.CmdPlay.Press();
  EXPECT_FALSE(has_message());
}

TEST_F(RehearsalWindowTest, TheReportIsSavedAsText) {
  AddRows({MapPath("Arena.bms")});
  frmrehearsal& window = Open();
  desktop.dialogs().ExpectFile(Path("night.txt"));
  window.CmdSave.Press();
  EXPECT_THAT(ReadFile(Path("night.txt")), HasSubstr("Longest time without a change: "));
  desktop.dialogs().ExpectFile(Path("night.txt"));
  ExpectQuestion("This file already exists do you want to overwrite it?", BoxAnswer::kNo);
  WriteFile(Path("night.txt"), "mine");
  window.CmdSave.Press();
  EXPECT_EQ(ReadFile(Path("night.txt")), "mine");
}

TEST_F(RehearsalWindowTest, TheRunItselfIsNotTouched) {
  AddRows({MapPath("Arena.bms"), MapPath("Oasis.bms")});
  Open();
  EXPECT_EQ(Host().lstmaps.ItemData(0), 0);
  EXPECT_EQ(Host().lstmaps.ListIndex.get(), -1);
  EXPECT_FALSE(Host().TmrInsert.Enabled);
  EXPECT_FALSE(FileIsThere(ProgramPath("autohost.log")));
  EXPECT_FALSE(FileIsThere(GamePath("D08M03.BMS")));
}

}  // namespace
}  // namespace kestrun
