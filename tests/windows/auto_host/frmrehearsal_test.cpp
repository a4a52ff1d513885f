// The rehearsal's window over the auto host's list.
#include "windows/auto_host/frmrehearsal.h"

#include <gmock/gmock.h>

#include <deque>

#include "formats/bms/bms_writer.h"
#include "platform/background_work.h"
#include "support/closed_folders.h"
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
    LetItRead();
    return Rehearsal();
  }
  // Files are read between passes of the message loop.
  void LetItRead() {
    for (int pass = 0; pass < 1000 && Rehearsal().CmdClose.Caption.get() == "Cancel"; ++pass) {
      desktop.clock().RunPendingEvents();
    }
    EXPECT_EQ(Rehearsal().CmdClose.Caption.get(), "Close");
  }
};

// A background whose disk does not answer until it is told to.
class HeldBackground final : public BackgroundWork {
 public:
  HeldBackground() : before_(InstallBackgroundWork(this)) {}
  ~HeldBackground() override { InstallBackgroundWork(before_); }
  void Run(std::function<void()> work, std::function<void()> done) override {
    held_.push_back({std::move(work), std::move(done)});
  }
  [[nodiscard]] size_t Count() const { return held_.size(); }
  void AnswerNext() {
    const auto [work, done] = std::move(held_.front());
    held_.pop_front();
    work();
    done();
  }

 private:
  BackgroundWork* before_;
  std::deque<std::pair<std::function<void()>, std::function<void()>>> held_;
};

TEST_F(RehearsalWindowTest, ItTellsWhatItReadsAndShowsTheNightBehindThat) {
  AddRows({MapPath("Arena.bms"), MapPath("Oasis.bms")});
  Host().Show();
  HeldBackground background;
  Rehearsal().Show();
  EXPECT_EQ(Rehearsal().LblSummary.Caption.get(), "Reading the game's folder: " + Path("game"));
  EXPECT_EQ(Rehearsal().CmdClose.Caption.get(), "Cancel");
  background.AnswerNext();
  EXPECT_EQ(Rehearsal().LblSummary.Caption.get(), "Reading the maps: 0 of 2\r\n" + MapPath("Arena.bms"));
  background.AnswerNext();
  EXPECT_EQ(Rehearsal().LblSummary.Caption.get(), "Reading the maps: 1 of 2\r\n" + MapPath("Oasis.bms"));
  EXPECT_EQ(Rehearsal().LstLines.ListCount(), 0);
  background.AnswerNext();
  EXPECT_EQ(background.Count(), 0U);
  EXPECT_THAT(Rehearsal().LblSummary.Caption.get(), HasSubstr("In 8 hours: "));
  EXPECT_EQ(Rehearsal().CmdClose.Caption.get(), "Close");
}

TEST_F(RehearsalWindowTest, CancelEndsTheReadingOfAShareThatDoesNotAnswer) {
  const std::string dead = "\\\\dead\\maps\\Oasis.bms";
  AddRows({MapPath("Arena.bms"), dead});
  Host().Show();
  HeldBackground background;
  Rehearsal().Show();
  background.AnswerNext();
  background.AnswerNext();
  EXPECT_EQ(Rehearsal().LblSummary.Caption.get(), "Reading the maps: 1 of 2\r\n" + dead);
  EXPECT_TRUE(Rehearsal().CmdClose.Cancel);
  Rehearsal().CmdClose.Press();
  const std::string summary = Rehearsal().LblSummary.Caption;
  EXPECT_THAT(summary, HasSubstr("Not read, and taken for good: 1 map, the first is " + dead + ".\r\nIn 8 hours: "));
  EXPECT_GT(Rehearsal().LstLines.ListCount(), 0);
  EXPECT_TRUE(Rehearsal().CmdSave.Enabled);
  background.AnswerNext();
  EXPECT_EQ(background.Count(), 0U) << "nothing more is read";
  EXPECT_EQ(Rehearsal().LblSummary.Caption.get(), summary);
  EXPECT_EQ(Rehearsal().CmdClose.Caption.get(), "Close");
  Rehearsal().CmdClose.Press();
  EXPECT_FALSE(LoadedWindow("frmrehearsal"));
}

TEST_F(RehearsalWindowTest, AnAnswerThatComesAfterTheWindowWasClosedIsDropped) {
  AddRows({MapPath("Arena.bms")});
  Host().Show();
  HeldBackground background;
  Rehearsal().Show();
  Rehearsal().Unload();
  background.AnswerNext();
  EXPECT_EQ(background.Count(), 0U);
}

TEST_F(RehearsalWindowTest, ANightThatIsPlayedAgainReadsTheFilesAnew) {
  WriteFile(MapPath("Arena.bms"), WriteMission({}));
  AddRows({MapPath("Arena.bms")});
  frmrehearsal& window = Open();
  native_files.Delete(MapPath("Arena.bms"));
  window.CmdPlay.Press();
  EXPECT_EQ(window.CmdClose.Caption.get(), "Cancel");
  LetItRead();
  EXPECT_THAT(window.LstLines.List(0), HasSubstr("Failed    row 1    " + MapPath("Arena.bms")));
}

TEST_F(RehearsalWindowTest, AGameFolderThatIsClosedToTheUserFailsEachMap) {
  AddRows({MapPath("Arena.bms")});
  const ClosedFolders closed;
  frmrehearsal& window = Open();
  EXPECT_THAT(window.LblSummary.Caption.get(), HasSubstr("0 maps inserted"));
  EXPECT_THAT(window.LstLines.List(0),
              HasSubstr("(The game's folder needs administrator rights: " + Path("game") + ")"));
}

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
  LetItRead();
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
