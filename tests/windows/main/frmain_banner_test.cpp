// The banner and the news of the site.
#include <gmock/gmock.h>

#include "formats/bitmap/bitmap_file.h"
#include "formats/gif/gif_frames.h"
#include "program/site_file.h"
#include "support/gif_bytes.h"
#include "web/site.h"
#include "windows/main/frmain_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPicture = "http://site.example/banner.gif";

class BannerTest : public MainWindowTest {
 protected:
  BannerTest() { InstallBannerService(SiteBannerService()); }

  void PutSite(const std::string& text) { desktop.internet().Reply(SiteFileUrl(), text); }
  void PutBanner(const std::string& format = "bmp", const std::string& link = "http://news.example/") {
    PutSite("[BANNERS]\r\nTOT=1\r\n[BANNER1]\r\nURL=" + std::string(kPicture) + "\r\nFORMAT=" + format +
            "\r\nLINK=" + link + "\r\n");
  }
  static std::string BitmapText() {
    return std::string(AsChars(EncodeBitmap(40, 6, std::vector<uint32_t>(40 * 6, 0xFF336699))));
  }
  frmain& Shown() {
    Main().Show();
    desktop.clock().AdvanceMs(1000);
    return Main();
  }
  [[nodiscard]] std::vector<std::string> Asked() {
    std::vector<std::string> urls;
    for (const SentRequest& request : desktop.internet().requests) urls.push_back(request.url);
    return urls;
  }
  [[nodiscard]] std::vector<std::string> Leftovers() {
    std::vector<std::string> names;
    for (const FolderEntry& entry : native_files.List(Path("program"))) {
      if (entry.name != "packit.ini") names.push_back(entry.name);
    }
    return names;
  }
};

TEST_F(BannerTest, NothingIsFetchedBeforeTheWindowStands) {
  PutBanner();
  desktop.internet().Reply(kPicture, BitmapText());
  EXPECT_EQ(Main().Height.get(), 8490);
  Main().Show();
  EXPECT_THAT(Asked(), IsEmpty());
  EXPECT_TRUE(Main().lblnews.Visible);
  EXPECT_EQ(Main().lblnews.Caption.get(), "DFLW news");
  desktop.clock().AdvanceMs(1000);
  EXPECT_THAT(Asked(), ElementsAre(SiteFileUrl(), kPicture));
}

TEST_F(BannerTest, TheBannerIsShownAndItsFilesGo) {
  PutBanner();
  desktop.internet().Reply(kPicture, BitmapText());
  const frmain& window = Shown();
  EXPECT_TRUE(window.AnimGIF1.Visible);
  EXPECT_FALSE(window.lblnews.Visible);
  ASSERT_TRUE(window.AnimGIF1.ImgPic(0).Picture.get());
  EXPECT_EQ(window.AnimGIF1.Tag.get(), "bmp");
  EXPECT_THAT(Leftovers(), IsEmpty());
}

TEST_F(BannerTest, AFormatOfGifInAnyCaseIsAnAnimation) {
  PutBanner("GIF");
  const std::string gif = AnimatedGifFile({{}, {}});
  gif::FrameReader reader(AsBytes(gif));
  for (int frame = 0; frame < 2; ++frame) {
    desktop.pictures().Answer(std::string(AsChars(reader.PictureOf(reader.Next().value()))), {1, 1, {0xFF000000}});
  }
  desktop.internet().Reply(kPicture, gif);
  const frmain& window = Shown();
  EXPECT_EQ(window.AnimGIF1.Tag.get(), "GIF");
  EXPECT_EQ(window.AnimGIF1.FrameCount(), 2);
  EXPECT_TRUE(window.AnimGIF1.AnimationTimer.Enabled);
}

TEST_F(BannerTest, ATotalOfOneAlwaysGivesTheFirst) {
  PutBanner();
  frmain& window = Shown();
  for (int draw = 0; draw < 20; ++draw) {
    window.GetNewBanner(SiteFileUrl());
    desktop.clock().AdvanceMs(200);
  }
  for (const std::string& url : Asked()) EXPECT_TRUE(url == SiteFileUrl() || url == kPicture) << url;
}

TEST_F(BannerTest, TheFirstAndTheLastComeUpHalfAsOften) {
  PutSite(
      "[BANNERS]\r\nTOT=3\r\n[BANNER1]\r\nURL=http://a.example/1\r\n[BANNER2]\r\nURL=http://a.example/2\r\n"
      "[BANNER3]\r\nURL=http://a.example/3\r\n");
  frmain& window = Shown();
  for (int draw = 0; draw < 200; ++draw) {
    window.GetNewBanner(SiteFileUrl());
    desktop.clock().AdvanceMs(100);
  }
  std::map<std::string, int> counts;
  for (const std::string& url : Asked()) ++counts[url];
  // Each that cannot be fetched is tried twice.
  EXPECT_GT(counts["http://a.example/1"], 20);
  EXPECT_GT(counts["http://a.example/3"], 20);
  EXPECT_GT(counts["http://a.example/2"], counts["http://a.example/1"]);
  EXPECT_GT(counts["http://a.example/2"], counts["http://a.example/3"]);
  EXPECT_EQ(counts.size(), 4U);
}

TEST_F(BannerTest, ASiteFileWithoutBannersLeavesTheBannerEmpty) {
  PutSite("[OTHER]\r\n");
  const frmain& window = Shown();
  EXPECT_THAT(Asked(), ElementsAre(SiteFileUrl()));
  EXPECT_FALSE(window.AnimGIF1.ImgPic(0).Picture.get());
  EXPECT_EQ(window.AnimGIF1.Url.get(), std::string(kSite));
  EXPECT_FALSE(window.PctUpdate.Visible);
  EXPECT_THAT(Leftovers(), IsEmpty());
}

TEST_F(BannerTest, ASiteThatCannotBeReachedIsSilent) {
  const frmain& window = Shown();
  EXPECT_TRUE(window.lblnews.Visible);
  EXPECT_THAT(Leftovers(), IsEmpty());
}

TEST_F(BannerTest, ASiteThatNeverAnswersLeavesTheWindowUsable) {
  desktop.internet().silent.insert(SiteFileUrl());
  frmain& window = Shown();
  desktop.clock().AdvanceMs(60000);
  window.Text1.Text = Path("maps");
  desktop.clock().AdvanceMs(500);
  EXPECT_EQ(Rows(), "Desert.bms|Oasis.bms|");
  window.mnu_exit.Choose();
  EXPECT_EQ(LoadedWindow("frmain"), nullptr);
}

TEST_F(BannerTest, APictureThatFailsIsTriedOnceMoreAndThenLeft) {
  PutBanner();
  const frmain& window = Shown();
  EXPECT_THAT(Asked(), ElementsAre(SiteFileUrl(), kPicture, kPicture));
  EXPECT_FALSE(window.AnimGIF1.ImgPic(0).Picture.get());
}

TEST_F(BannerTest, WhatIsNoPictureLeavesTheBannerAsItWas) {
  PutBanner("gif");
  desktop.internet().Reply(kPicture, "<html>");
  const frmain& window = Shown();
  EXPECT_FALSE(window.AnimGIF1.ImgPic(0).Picture.get());
  EXPECT_THAT(Leftovers(), IsEmpty());
}

TEST_F(BannerTest, AnAnimationThatIsCutOffShowsNoBoxAndLeavesTheBannerAsItWas) {
  const std::string whole = AnimatedGifFile({{10}, {10}});
  gif::FrameReader reader(AsBytes(whole));
  desktop.pictures().Answer(std::string(AsChars(reader.PictureOf(*reader.Next()))), {1, 1, {0xFF336699}});
  PutBanner("gif");
  desktop.internet().Reply(kPicture, whole.substr(0, whole.size() - 1) + std::string("\0\x21\xF9", 3));
  const frmain& window = Shown();
  EXPECT_FALSE(window.AnimGIF1.ImgPic(0).Picture.get());
  EXPECT_THAT(Leftovers(), IsEmpty());
}

TEST_F(BannerTest, AFormatThatIsNoExtensionIsNotFetched) {
  for (const char* format : {"..\\x", "gif.exe", "a/b", ""}) {
    PutBanner(format);
    desktop.internet().requests.clear();
    Shown();
    EXPECT_THAT(Asked(), ElementsAre(SiteFileUrl())) << format;
    CloseAllWindows();
  }
}

TEST_F(BannerTest, AClickOpensTheLinkInTheBrowserOnly) {
  PutBanner();
  frmain& window = Shown();
  window.AnimGIF1.Click();
  window.AnimGIF1.Url = "c:\\windows\\calc.exe";
  window.mnu_openbanner.Choose();
  window.AnimGIF1.Url = "";
  window.AnimGIF1.Click();
  ASSERT_EQ(desktop.shell().openings.size(), 2U);
  EXPECT_EQ(desktop.shell().openings[0].file, "http://news.example/");
  EXPECT_EQ(desktop.shell().openings[1].file, "http://c:\\windows\\calc.exe");
}

// ---- the notice ----------------------------------------------------------------------------------------------------

TEST_F(BannerTest, ANewerVersionShowsTheNoticeAndCloseHidesIt) {
  PutSite("[LAUNCHER]\r\nversiononsite=999999\r\n");
  frmain& window = Shown();
  EXPECT_TRUE(window.PctUpdate.Visible);
  EXPECT_EQ(window.lblupdate.Caption.get(), "There is an update available for this program click here to download it.");
  window.lblCloseUpdate.Click();
  EXPECT_FALSE(window.PctUpdate.Visible);
}

TEST_F(BannerTest, AMissingVersionShowsNoNotice) {
  PutSite("[LAUNCHER]\r\n");
  EXPECT_FALSE(Shown().PctUpdate.Visible);
}

// ---- switched off --------------------------------------------------------------------------------------------------

TEST_F(BannerTest, SwitchedOffNothingIsFetchedAndTheWindowIsLower) {
  WriteIni("[BANNERS]\r\nSHOW=False\r\n");
  PutBanner();
  const frmain& window = Shown();
  EXPECT_EQ(window.Height.get(), 7665);
  EXPECT_FALSE(window.AnimGIF1.Visible);
  EXPECT_FALSE(window.lblnews.Visible);
  EXPECT_THAT(Asked(), IsEmpty());
}

TEST_F(BannerTest, RefreshingABannerThatIsSwitchedOffOffersToSwitchItOn) {
  constexpr const char* kQuestion = "You disabled the banner do you want to enable it?";
  WriteIni("[BANNERS]\r\nSHOW=False\r\n");
  PutBanner();
  frmain& window = Shown();
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  window.mnu_refreshbanner.Choose();
  EXPECT_EQ(window.Height.get(), 7665);
  EXPECT_EQ(Ini("BANNERS", "SHOW"), "False");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  window.mnu_refreshbanner.Choose();
  EXPECT_EQ(Ini("BANNERS", "SHOW"), "True");
  EXPECT_EQ(window.Height.get(), 8490);
  EXPECT_TRUE(window.lblnews.Visible);
}

TEST_F(BannerTest, RefreshingAsksTheSiteAgain) {
  PutBanner();
  desktop.internet().Reply(kPicture, BitmapText());
  frmain& window = Shown();
  desktop.internet().requests.clear();
  window.mnu_refreshbanner.Choose();
  desktop.clock().AdvanceMs(500);
  EXPECT_THAT(Asked(), ElementsAre(SiteFileUrl(), kPicture));
}

// ---- new maps ------------------------------------------------------------------------------------------------------

TEST_F(BannerTest, NewMapsAreCountedSinceTheLastVisit) {
  PutSite("[MAPS]\r\nTOTONSITE=42\r\n");
  WriteSetting(setting::kLastVisit, "40");
  frmain& window = Main();
  desktop.dialogs().ExpectBox("There are 2 new maps on the site.");
  window.mnu_checkformaps.Choose();
  EXPECT_EQ(Ini("MAPS", "LASTVISIT"), "42");
  EXPECT_FALSE(FileIsThere(ProgramPath("maps.ini")));
  desktop.dialogs().ExpectBox("There are 0 new maps on the site.");
  window.mnu_checkformaps.Choose();
  PutSite("[MAPS]\r\nTOTONSITE=40\r\n");
  desktop.dialogs().ExpectBox("There are -2 new maps on the site.");
  window.mnu_checkformaps.Choose();
}

TEST_F(BannerTest, AFailedCheckForMapsIsTold) {
  frmain& window = Main();
  desktop.dialogs().ExpectBox("Cannot connect to the server make sure you are connected to the internet.");
  window.mnu_checkformaps.Choose();
  EXPECT_EQ(Ini("MAPS", "LASTVISIT"), "(none)");
}

TEST_F(BannerTest, EscDuringTheCheckForMapsEndsItWithoutAWord) {
  PutSite("[MAPS]\r\nTOTONSITE=42\r\n");
  frmain& window = Main();
  desktop.internet().leave_after_bytes = 0;
  window.mnu_checkformaps.Choose();
}

}  // namespace
}  // namespace kestrun
