#include "windows/about/frmhelp.h"

#include <gtest/gtest.h>

#include "program/commands.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "web/site.h"

namespace kestrun {
namespace {

class AboutWindowTest : public FrameTest {
 protected:
  ~AboutWindowTest() override { InstallStyleRuntime({}); }

  frmhelp& About() { return Window<frmhelp>(); }

  // A style that counts the windows it is applied to.
  void WearStyle() {
    InstallStyleRuntime({[] { return true; },
                         {},
                         [this](Form& form) { dressed.push_back(form.Name()); },
                         [this] {
                           return StyleIdentity{"desert fox", site, "1.9.2"};
                         }});
  }

  std::vector<std::string> dressed;
  std::string site = "http://skins.example/fox";
};

TEST_F(AboutWindowTest, TellsTheTermsTheRequirementsAndTheProgramsVersion) {
  desktop.program().version = {2, 10, 7};
  EXPECT_EQ(About().Caption.get(), "About Kestrun");
  EXPECT_EQ(About().Label4.Caption.get(),
            "Use this program at your own risk! It's allowed to distribute it FREE without any changes. Don't blame me "
            "or novalogic if there is a problem on your computer caused by this program! The minimum system "
            "requirements are:\r\nWindows  98 / XP\r\nPentium 200 Mhz or better\r\nYour version is: 2.10.7");
}

TEST_F(AboutWindowTest, WithoutAStyleItsThreeLinesAreHidden) {
  About().Show();
  EXPECT_FALSE(About().Label7.Visible);
  EXPECT_FALSE(About().Label5.Visible);
  EXPECT_FALSE(About().Label6.Visible);
  EXPECT_TRUE(About().Label2.Visible);
  EXPECT_TRUE(About().Label3.Visible);
}

TEST_F(AboutWindowTest, WithAStyleItsLinesAreSeenAndItIsAppliedOnce) {
  WearStyle();
  About().Show();
  EXPECT_TRUE(About().Label7.Visible);
  EXPECT_TRUE(About().Label5.Visible);
  EXPECT_TRUE(About().Label6.Visible);
  EXPECT_EQ(About().Label7.Caption.get(), "Kestrun skin information:");
  EXPECT_EQ(About().Label5.Caption.get(), "Style file designer info");
  EXPECT_EQ(About().Label6.Caption.get(), "Style file designer site");
  EXPECT_EQ(dressed, std::vector<std::string>{"frmhelp"});
  EXPECT_GE(About().ScaleHeight(), About().Command1.Top + About().Command1.Height);
  EXPECT_GE(About().Command1.Top, About().Label6.Top + About().Label6.Height);
}

TEST_F(AboutWindowTest, AStyleThatFailsIsReportedAndTheWindowStands) {
  InstallStyleRuntime({[] { return true; }, {}, [](Form&) { Raise(error::kTypeMismatch); }});
  desktop.dialogs().ExpectBox("Error: applystyle 13\r\nType mismatch");
  About().Show();
  EXPECT_TRUE(About().IsShown());
}

TEST_F(AboutWindowTest, AClickOnTheDesignerLineTellsWhoMadeTheStyle) {
  WearStyle();
  desktop.dialogs()
      .ExpectBox(
          "Style file made by:     desert fox\r\n\r\nWebsite: http://skins.example/fox\r\nMade for Kestrun versions: "
          "1.9.2")
      .WithButtons(BoxButtons::kOk)
      .WithIcon(BoxIcon::kInformation);
  About().Label5.Click();
}

TEST_F(AboutWindowTest, AClickOnTheSiteLineOpensTheDesignersSite) {
  WearStyle();
  About().Label6.Click();
  EXPECT_EQ(desktop.shell().openings, (std::vector<ShellOpening>{{"open", "http://skins.example/fox", "", "", 1}}));
}

TEST_F(AboutWindowTest, ASiteThatNamesAProgramOpensInTheBrowserAndRunsNothing) {
  WearStyle();
  site = "c:\\windows\\format.exe";
  About().Label6.Click();
  site = "";
  About().Label6.Click();
  EXPECT_EQ(desktop.shell().openings,
            (std::vector<ShellOpening>{{"open", "http://c:\\windows\\format.exe", "", "", 1}}));
}

TEST_F(AboutWindowTest, AClickOnTheLinkOpensTheHomePage) {
  About().Label3.Click();
  EXPECT_EQ(desktop.shell().openings, (std::vector<ShellOpening>{{"open", std::string(kSite), "", "", 1}}));
}

TEST_F(AboutWindowTest, TheButtonClosesIt) {
  About().Show();
  EXPECT_EQ(About().ActiveControl(), &About().Command1);
  About().Command1.Press();
  EXPECT_EQ(LoadedWindow("frmhelp"), nullptr);
}

TEST_F(AboutWindowTest, TheCommandWordOpensIt) {
  EXPECT_EQ(ProcessCommand("-ABOUT"), kCommandCarriedOut);
  EXPECT_TRUE(About().IsShown());
}

}  // namespace
}  // namespace kestrun
