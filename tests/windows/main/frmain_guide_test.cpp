// What tells a player where things are: status line, arrow, guided links, update notice.
#include "support/registered_window.h"
#include "windows/main/frmain_fixture.h"

namespace kestrun {
namespace {

// ---- status line ---------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheStatusLineShowsTheTipUnderTheMouse) {
  Main().Show();
  Main().Command7.MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "Click this button when you are playing DF and wants to put new map.");
  Main().Text1.MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "The current folder you are looking for *.bms (maps) files");
  Main().ImgPreview.MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "A preview of this map click load image to load a screen shot");
  static_cast<Control&>(Main().ListBox).MouseMove(0, 0, 10, 10);
  EXPECT_EQ(Main().txtstatusbar.Text.get(), "All the maps in the selected folder.");
  for (Control* control : std::initializer_list<Control*>{&Main().Command2, &Main().opcapflag, &Main().opdeath,
                                                          &Main().oprename, &Main().txtoutput}) {
    control->MouseMove(0, 0, 10, 10);
    EXPECT_FALSE(control->ToolTipText->empty());
    EXPECT_EQ(Main().txtstatusbar.Text.get(), control->ToolTipText.get());
  }
}

TEST_F(MainWindowTest, TheStatusLineGoesBackToItsOwnTextWhenTheMouseLeaves) {
  Main().Show();
  const std::string own = "Select a map and click 'Put map in DFLW'.";
  EXPECT_EQ(Main().txtstatusbar.Text.get(), own);
  for (Control* silent : std::initializer_list<Control*>{&Main(), &Main().Frame1, &Main().lblmaps}) {
    Main().Command7.MouseMove(0, 0, 10, 10);
    EXPECT_NE(Main().txtstatusbar.Text.get(), own);
    silent->MouseMove(0, 0, 10, 10);
    EXPECT_EQ(Main().txtstatusbar.Text.get(), own);
  }
  Main().Command7.MouseMove(0, 0, 10, 10);
  Main().MouseLeave();
  EXPECT_EQ(Main().txtstatusbar.Text.get(), own);
}

TEST_F(MainWindowTest, TheTipsAreThoseThatPlayersKnow) {
  EXPECT_EQ(Main().Text1.ToolTipText.get(), "Type the path name where your maps are stored.");
  EXPECT_EQ(Main().FileMaps.ToolTipText.get(), "All the maps in the selected folder.");
  EXPECT_EQ(Main().ImgPreview.ToolTipText.get(), "Click to load a screen shot");
}

TEST_F(MainWindowTest, TheStatusLineCanBeSwitchedOffAndOn) {
  Main().Show();
  EXPECT_TRUE(Main().mnu_status.Checked);
  const int shown = Main().Picture2.Top;
  Main().mnu_status.Choose();
  EXPECT_FALSE(Main().mnu_status.Checked);
  EXPECT_FALSE(Main().txtstatusbar.Visible);
  EXPECT_NE(Main().Picture2.Top.get(), shown);
  Main().mnu_status.Choose();
  EXPECT_TRUE(Main().mnu_status.Checked);
  EXPECT_TRUE(Main().txtstatusbar.Visible);
  EXPECT_EQ(Main().Picture2.Top.get(), shown);
}

// ---- flashing arrow ------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheArrowFlashesAboveItsTargetForFiveAndAHalfSeconds) {
  Main().Show();
  const uint64_t start_ms = desktop.clock().NowMs();
  std::string states;
  static_cast<void>(desktop.clock().StartTimer(500, [&] { states += Main().PctArrow.Visible ? "+" : "-"; }));
  Main().SetFlashingArrow(Main().Command2);
  EXPECT_EQ(desktop.clock().NowMs() - start_ms, 5500U);
  EXPECT_EQ(states, "+-+-+-+-+-+");
  EXPECT_FALSE(Main().PctArrow.Visible);
  EXPECT_EQ(Main().PctArrow.Top + Main().PctArrow.Height, Main().Command2.Top.get());
  EXPECT_EQ(Main().PctArrow.Left + Main().PctArrow.Width / 2, Main().Command2.Left + Main().Command2.Width / 2);
}

TEST_F(MainWindowTest, ClosingTheWindowUnderTheArrowEndsTheLesson) {
  Main().Show();
  desktop.dialogs().ExpectBox("First select a map from the list.");
  const TimerId timer = desktop.clock().StartTimer(1200, [&] {
    if (LoadedWindow("frmain")) Main().Unload();
  });
  Main().PlayPack1();
  desktop.clock().StopTimer(timer);
  EXPECT_EQ(LoadedWindow("frmain"), nullptr);
}

// ---- guided links --------------------------------------------------------------------------------------------------

class QuickLinksTest : public MainWindowTest {
 protected:
  QuickLinksTest() {
    WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
    Main().Show();
  }
  void ClickLink(const std::string& caption) {
    QuickLink& panel = Main().QuickLinks;
    for (int index = 0; index < panel.LinkCount(); ++index) {
      if (panel.LblLink(index).Caption.get() == caption) return panel.LblLink(index).Click();
    }
    FAIL() << "no link reads " << caption;
  }
};

TEST_F(QuickLinksTest, SixLinksStandInThePanelInTheirOrder) {
  std::string links;
  for (int index = 0; index < Main().QuickLinks.LinkCount(); ++index) {
    links += Main().QuickLinks.LblLink(index).Caption.get() + "|";
  }
  EXPECT_EQ(links,
            "Play a new map|Change map when hosting|Auto change the maps|Download a map|Make a new map|Upload maps to "
            "Velmoor|");
}

TEST_F(QuickLinksTest, ThePanelSlidesInByFortyATickUntilItIsOpen) {
  EXPECT_TRUE(Main().QuickLinks.Visible);
  EXPECT_EQ(Main().QuickLinks.Height.get(), 0);
  desktop.clock().AdvanceMs(1);
  EXPECT_EQ(Main().QuickLinks.Height.get(), 40);
  desktop.clock().AdvanceMs(1);
  EXPECT_EQ(Main().QuickLinks.Height.get(), 80);
  desktop.clock().AdvanceMs(1000);
  EXPECT_TRUE(Main().QuickLinks.IsFullyOpen());
  EXPECT_FALSE(Main().TmrQuickLinks.Enabled);
  const int open = Main().QuickLinks.Height;
  desktop.clock().AdvanceMs(1000);
  EXPECT_EQ(Main().QuickLinks.Height.get(), open);
}

TEST_F(QuickLinksTest, AtTheLeastSizeTheOpenPanelCoversNoChoice) {
  Main().SetClientSize(Main().LeastScaleWidth(), Main().LeastScaleHeight());
  Main().Resize();
  desktop.clock().AdvanceMs(1000);
  EXPECT_TRUE(Main().QuickLinks.IsFullyOpen());
  EXPECT_LE(Main().QuickLinks.Top + Main().QuickLinks.Height, Main().Frame1.Top.get());
}

TEST_F(QuickLinksTest, TheFirstLinkShowsHowToPlayAMap) {
  desktop.dialogs().ExpectBox("First select a map from the list.");
  desktop.dialogs().ExpectBox("Then click the 'Put Map in DFLW' button and select 'YES' in the message.");
  ClickLink("Play a new map");
  EXPECT_EQ(Main().PctArrow.Top + Main().PctArrow.Height, Main().Command2.Top.get());
}

TEST_F(QuickLinksTest, TheSecondLinkShowsHowToChangeTheMapOfARunningGame) {
  desktop.dialogs().ExpectBox("To change the map when game is open first click a new map in the listbox.");
  desktop.dialogs().ExpectBox("Then click the 'I'm already playing' button.");
  ClickLink("Change map when hosting");
  EXPECT_EQ(Main().PctArrow.Left + Main().PctArrow.Width / 2, Main().Command7.Left + Main().Command7.Width / 2);
}

TEST_F(QuickLinksTest, TheDownloadLinkOpensTheLoadMapWindow) {
  ClickLink("Download a map");
  ASSERT_TRUE(LoadedWindow("frmopenmap"));
  EXPECT_TRUE(LoadedWindow("frmopenmap")->IsShown());
}

TEST_F(QuickLinksTest, TheEditorLinkStartsTheEditor) {
  WriteFile(GamePath("DFLWMEDFC2.EXE"), "editor");
  for (const char* name : {"TEXT.BIN", "Df3items.bin", "SUNSETS.DEF"}) WriteFile(GamePath(name), "there");
  ClickLink("Make a new map");
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].file, GamePath("DFLWMEDFC2.EXE"));
}

TEST_F(QuickLinksTest, TheAutoHostLinkSaysWhatItOpensAndOpensIt) {
  const StandInWindow<Form> map_list("frmputlist");
  CloseAllWindows();
  Main().Show();
  desktop.dialogs().ExpectBox("This will open the auto host window");
  ClickLink("Auto change the maps");
  ASSERT_TRUE(LoadedWindow("frmputlist"));
  EXPECT_TRUE(LoadedWindow("frmputlist")->IsShown());
}

TEST_F(QuickLinksTest, TheUploadLinkOpensTheUploader) {
  const StandInWindow<Form> uploader("FrmCenter");
  CloseAllWindows();
  Main().Show();
  ClickLink("Upload maps to Velmoor");
  ASSERT_TRUE(LoadedWindow("FrmCenter"));
  EXPECT_TRUE(LoadedWindow("FrmCenter")->IsShown());
}

TEST_F(QuickLinksTest, ALinkToAWindowThatIsNotThereIsDisabledAndComesAliveWithIt) {
  constexpr int kDownload = 3;
  constexpr int kUpload = 5;
  EXPECT_TRUE(Main().QuickLinks.LblLink(kDownload).Enabled);
  CloseAllWindows();
  {
    const WithoutWindow uploader("FrmCenter");
    Main().Show();
    EXPECT_FALSE(Main().QuickLinks.LblLink(kUpload).Enabled);
    CloseAllWindows();
  }
  const StandInWindow<Form> uploader("FrmCenter");
  Main().Show();
  EXPECT_TRUE(Main().QuickLinks.LblLink(kUpload).Enabled);
}

TEST_F(QuickLinksTest, ATickSaysThatThePanelComesAtTheNextStartAndAClickTakesItAway) {
  const Label& label = Main().QuickLinks.ChStartup();
  EXPECT_EQ(label.Caption.get(), "\xE2\x9C\x93 Show at startup");
  const int ticked_left = label.Left;
  Main().QuickLinks.ChStartup().Click();
  EXPECT_EQ(Ini("launcher", "SHOWQUICKLINKS"), "1");
  EXPECT_EQ(label.Caption.get(), "Show at startup");
  EXPECT_GT(label.Left.get(), ticked_left);  // the words stay where they are
  EXPECT_FALSE(label.Font->strikethrough);
  CloseAllWindows();
  Main().Show();
  EXPECT_FALSE(Main().QuickLinks.Visible);
  EXPECT_EQ(Main().QuickLinks.ChStartup().Caption.get(), "Show at startup");
  Main().QuickLinks.ChStartup().Click();
  EXPECT_EQ(Ini("launcher", "SHOWQUICKLINKS"), "0");
  EXPECT_EQ(Main().QuickLinks.ChStartup().Caption.get(), "\xE2\x9C\x93 Show at startup");
}

TEST_F(QuickLinksTest, ClosingThePanelPutsTheFocusOnTheList) {
  desktop.clock().AdvanceMs(1000);
  Main().QuickLinks.LblClose.Click();
  EXPECT_EQ(Main().ActiveControl(), &Main().ListBox);
}

TEST_F(QuickLinksTest, TheTabKeyComesToThePanelBehindTheListAndBeforeTheChoices) {
  desktop.clock().AdvanceMs(1000);
  std::string order;
  for (const Control* control : Main().TabOrder()) order += control->Name() + " ";
  const size_t panel = order.find("LblLink");
  ASSERT_NE(panel, std::string::npos) << order;
  EXPECT_GT(panel, order.find("Command6")) << order;
  EXPECT_LT(panel, order.find("opcapflag")) << order;
}

TEST_F(QuickLinksTest, TheCloseLabelHidesThePanelAndTipsShowsItAgain) {
  desktop.clock().AdvanceMs(5);
  Main().QuickLinks.LblClose.Click();
  EXPECT_FALSE(Main().QuickLinks.Visible);
  EXPECT_FALSE(Main().TmrQuickLinks.Enabled);
  Main().mnu_showtips.Choose();
  EXPECT_TRUE(Main().QuickLinks.Visible);
  desktop.clock().AdvanceMs(1000);
  EXPECT_TRUE(Main().QuickLinks.IsFullyOpen());
  EXPECT_EQ(Main().QuickLinks.LinkCount(), 6);
}

TEST_F(MainWindowTest, TipsFillsAPanelThatStayedClosedAtTheStart) {
  Main().Show();
  EXPECT_FALSE(Main().QuickLinks.Visible);
  EXPECT_EQ(Main().QuickLinks.LinkCount(), 0);
  Main().mnu_showtips.Choose();
  EXPECT_TRUE(Main().QuickLinks.Visible);
  EXPECT_EQ(Main().QuickLinks.LinkCount(), 6);
}

// ---- update notice -------------------------------------------------------------------------------------------------

TEST_F(MainWindowTest, TheUpdateNoticeCanBeClosed) {
  Main().Show();
  EXPECT_FALSE(Main().PctUpdate.Visible);
  Main().PctUpdate.Visible = true;
  EXPECT_EQ(Main().lblupdate.Caption.get(), "There is an update available for this program click here to download it.");
  EXPECT_EQ(Main().lblCloseUpdate.Caption.get(), "Close");
  Main().lblCloseUpdate.Click();
  EXPECT_FALSE(Main().PctUpdate.Visible);
}

}  // namespace
}  // namespace kestrun
