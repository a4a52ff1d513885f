// The health of the play list, and its check.
#include <gmock/gmock.h>

#include <algorithm>

#include "formats/bms/bms_writer.h"
#include "windows/auto_host/auto_host_fixture.h"
#include "windows/auto_host/frmchecklist.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kAddress = "http://maps.example/Night.bms";

class PlayListHealthTest : public AutoHostTest {
 protected:
  PlayListHealthTest() {
    WriteFile(MapPath("Oasis.bms"), MissionOf(0x1000));  // capture the flag
    WriteFile(MapPath("Arena.bms"), MissionOf(0x200));   // deathmatch
  }
  ~PlayListHealthTest() override { Host().Edited = false; }

  [[nodiscard]] static Bytes MissionOf(uint16_t game_types) {
    MissionFields fields;
    fields.game_types = game_types;
    return WriteMission(fields);
  }
  // The badge of a row once it has come in.
  [[nodiscard]] RowBadge BadgeOf(int row) {
    static_cast<void>(Host().lstmaps.Badges.of_row(row));
    RunPendingEvents();
    return Host().lstmaps.Badges.of_row(row);
  }
  // Runs the command; the user does `in_window` once the check is over.
  void CheckList(const std::function<void(FrmCheckList& window)>& in_window) {
    desktop.windowing().ExpectModal(FrmCheckList::kName, [this, in_window](Form& form) {
      auto& window = static_cast<FrmCheckList&>(form);
      desktop.clock().AdvanceMs(500);
      in_window(window);
    });
    Host().mnu_checklist.Choose();
  }
};

TEST_F(PlayListHealthTest, BadgesComeInAfterTheRows) {
  AddRows({MapPath("Oasis.bms"), MapPath("gone.bms"), MapPath("Arena.bms")});
  EXPECT_EQ(Host().lstmaps.Badges.of_row(0).word, "");
  EXPECT_EQ(BadgeOf(0).word, "good");
  EXPECT_EQ(BadgeOf(1).word, "bad");
  EXPECT_EQ(BadgeOf(1).note, "The file is not there.");
  EXPECT_EQ(BadgeOf(1).picture, Host().ImgBad.Picture.get());
  EXPECT_EQ(BadgeOf(2).word, "doubtful");
  EXPECT_EQ(Host().lstmaps.List(1), MapPath("gone.bms")) << "scripts and saving read the text alone";
}

TEST_F(PlayListHealthTest, TheMissionThatTheMapsGoInAsDecides) {
  AddRows({MapPath("Arena.bms")});
  EXPECT_EQ(BadgeOf(0).word, "doubtful");
  Host().Options0.Value = true;
  EXPECT_EQ(BadgeOf(0).word, "good");
  Host().Options2.Value = true;
  Host().txtrename.Text = "";
  EXPECT_EQ(BadgeOf(0).note, "No name is typed that the map is to be renamed to.");
}

TEST_F(PlayListHealthTest, AFileThatComesIntoTheListAgainIsDoubtfulAtOnce) {
  AddRows({MapPath("Oasis.bms")});
  EXPECT_EQ(BadgeOf(0).word, "good");
  AddRows({MapPath("OASIS.BMS")});
  EXPECT_EQ(BadgeOf(0).note, "The same file stands in row 2 as well.");
  Host().lstmaps.RemoveItem(1);
  EXPECT_EQ(BadgeOf(0).word, "good");
}

TEST_F(PlayListHealthTest, AWebAddressHasNoBadgeAndIsNotAskedUntilTheListIsChecked) {
  AddRows({kAddress});
  EXPECT_EQ(BadgeOf(0).word, "");
  EXPECT_TRUE(desktop.internet().requests.empty());
  desktop.internet().Answer(kAddress, {404, {}, {}});
  CheckList([](FrmCheckList& window) { window.CmdCancel.Press(); });
  EXPECT_EQ(BadgeOf(0).note, "The web address does not answer: the server says 404.");
}

TEST_F(PlayListHealthTest, TheStatusLineTellsTheReasonsOfTheCurrentRow) {
  AddRows({MapPath("gone.bms"), MapPath("Oasis.bms")});
  static_cast<void>(BadgeOf(0));
  static_cast<void>(BadgeOf(1));
  Host().lstmaps.ListIndex = 0;
  EXPECT_EQ(Host().lblstatus.Caption.get(), "Row 1 is bad: The file is not there.");
  Host().lstmaps.ListIndex = 1;
  EXPECT_EQ(Host().lblstatus.Caption.get(), "");
  Host().lblstatus.Caption = "something else";
  Host().lstmaps.ListIndex = 0;
  Host().lblstatus.Caption = "something newer";
  Host().lstmaps.ListIndex = 1;
  EXPECT_EQ(Host().lblstatus.Caption.get(), "something newer") << "what others say is not taken away";
}

TEST_F(PlayListHealthTest, AnEmptyListIsNotChecked) {
  desktop.dialogs().ExpectBox("No maps?");
  Host().mnu_checklist.Choose();
}

TEST_F(PlayListHealthTest, TheReportIsShownAndTheBadRowsCanBeSelected) {
  AddRows({MapPath("Oasis.bms"), MapPath("gone.bms"), MapPath("Arena.bms"), MapPath("away.bms")});
  Select({0}, 0);
  CheckList([this](FrmCheckList& window) {
    EXPECT_EQ(window.LblTask.Caption.get(), "Checked: 2 bad, 1 doubtful, 1 good");
    EXPECT_EQ(window.ProgressBar1.Value, 4);
    EXPECT_THAT(window.TxtReport.Text.get(), HasSubstr("Check of the play list\r\n"));
    EXPECT_THAT(window.TxtReport.Text.get(), HasSubstr("  Row 2: " + MapPath("gone.bms") + "\r\n"));
    EXPECT_EQ(window.CmdCancel.Caption.get(), "Close");
    window.CmdSelect.Press();
  });
  EXPECT_THAT(Selected(), ElementsAre(1, 3));
}

TEST_F(PlayListHealthTest, ClosingTheReportLeavesTheSelectionAsItWas) {
  AddRows({MapPath("Oasis.bms"), MapPath("gone.bms")});
  Select({0}, 0);
  CheckList([](FrmCheckList& window) { window.CmdCancel.Press(); });
  EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(PlayListHealthTest, AListWithoutBadRowsOffersNothingToSelect) {
  AddRows({MapPath("Oasis.bms")});
  CheckList([](FrmCheckList& window) {
    EXPECT_FALSE(window.CmdSelect.Enabled);
    EXPECT_TRUE(window.CmdSave.Enabled);
    window.CmdCancel.Press();
  });
}

TEST_F(PlayListHealthTest, ACheckThatAsksTheWebShowsHowFarItIsAndCanBeCancelled) {
  AddRows({MapPath("Oasis.bms"), kAddress});
  desktop.internet().silent.insert(kAddress);
  CheckList([](FrmCheckList& window) {
    EXPECT_EQ(window.LblTask.Caption.get(), "Asking maps.example: 1 of 2 rows");
    EXPECT_EQ(window.ProgressBar1.Value, 1);
    EXPECT_FALSE(window.CmdSave.Enabled);
    window.CmdCancel.Press();
    EXPECT_THAT(window.TxtReport.Text.get(), HasSubstr("The check was ended before it came to all rows."));
    EXPECT_TRUE(window.IsLoaded()) << "the first press ends the check, the second closes the window";
    window.CmdCancel.Press();
    EXPECT_FALSE(window.IsLoaded());
  });
}

TEST_F(PlayListHealthTest, TheReportIsSavedAsText) {
  AddRows({MapPath("gone.bms")});
  CheckList([this](FrmCheckList& window) {
    desktop.dialogs().ExpectFile(Path("report.txt")).WithTitle("Save the report");
    window.CmdSave.Press();
    EXPECT_EQ(ReadFile(Path("report.txt")), "\xEF\xBB\xBF" + window.TxtReport.Text.get());
    window.CmdCancel.Press();
  });
}

TEST_F(PlayListHealthTest, AReportIsNotWrittenOverAFileWithoutAQuestion) {
  AddRows({MapPath("gone.bms")});
  WriteFile(Path("report.txt"), "mine");
  CheckList([this](FrmCheckList& window) {
    desktop.dialogs().ExpectFile(Path("report.txt")).WithTitle("Save the report");
    ExpectQuestion("This file already exists do you want to overwrite it?", BoxAnswer::kNo);
    window.CmdSave.Press();
    EXPECT_EQ(ReadFile(Path("report.txt")), "mine");
    window.CmdCancel.Press();
  });
}

}  // namespace
}  // namespace kestrun
