#include "windows/help_download/frmdwnlhelp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/frame_fixture.h"
#include "program/site_file.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUrl = "https://site.example/help.pdf";
constexpr const char* kQuestion = "There is a new help version do you want to download it?";

class HelpDownloadTest : public FrameTest {
 protected:
  void PutHelp(const std::string& version, const std::string& more = "") {
    desktop.internet().Reply(SiteFileUrl(), "[HELP]\r\nversiononsite=" + version + "\r\n" + more);
  }
  void PutHelpAtUrl(const std::string& version) { PutHelp(version, std::string("path=") + kUrl + "\r\n"); }
  frmdwnlhelp& Open() {
    auto& window = Window<frmdwnlhelp>();
    keep_ = Ref<Form>(&window);
    window.Show();
    desktop.clock().AdvanceMs(3000);
    return window;
  }
  [[nodiscard]] static bool IsOpen() { return LoadedWindow("frmdwnlhelp") != nullptr; }
  [[nodiscard]] std::vector<std::string> Opened() {
    std::vector<std::string> files;
    for (const auto& each : desktop.shell().openings) files.push_back(each.operation + " " + each.file);
    return files;
  }
  [[nodiscard]] std::string HelpPath(const std::string& name) const { return ProgramPath(name); }

 private:
  Ref<Form> keep_;
};

TEST_F(HelpDownloadTest, TheWordsOfTheWindow) {
  auto& window = Window<frmdwnlhelp>();
  EXPECT_EQ(window.Label1.Caption.get(), "Downloading help from internet please wait ...");
  EXPECT_EQ(window.Label2.Caption.get(), "Progress:");
  EXPECT_EQ(window.txtprogress.Text.get(), "Please wait ...\r\n");
  EXPECT_EQ(window.Timer1.Interval.get(), 3000);
}

TEST_F(HelpDownloadTest, ASiteThatCannotBeReachedIsToldAndTheWindowCloses) {
  desktop.dialogs().ExpectBox("Can't access files on server please try again later.");
  Open();
  EXPECT_FALSE(IsOpen());
}

TEST_F(HelpDownloadTest, ANewHelpIsFetchedAndOpened) {
  PutHelpAtUrl("7");
  desktop.internet().Reply(kUrl, "%PDF");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  frmdwnlhelp& window = Open();
  EXPECT_EQ(window.txtprogress.Text.get(),
            "Please wait ...\r\nConnecting ...\r\nHost found\r\nHelp version on HD:0\r\nHelp version on "
            "site:7\r\nDownloading\r\n");
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Ini("HELP", "VERSION"), "7");  // before the help is there
  desktop.clock().AdvanceMs(1000);
  EXPECT_EQ(ReadFile(HelpPath("kestrunhelp7.pdf")), "%PDF");
  EXPECT_THAT(Opened(), ElementsAre("Open " + HelpPath("kestrunhelp7.pdf")));
  EXPECT_FALSE(IsOpen());
}

TEST_F(HelpDownloadTest, TheExtensionOfTheSiteIsTaken) {
  PutHelp("7", std::string("EXTENSION=.htm\r\npath=") + kUrl + "\r\n");
  desktop.internet().Reply(kUrl, "<html>");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  Open();
  desktop.clock().AdvanceMs(1000);
  EXPECT_THAT(Opened(), ElementsAre("Open " + HelpPath("kestrunhelp7.htm")));
}

TEST_F(HelpDownloadTest, AHelpThatIsUpToDateIsOpenedWithoutAQuestion) {
  WriteFile(HelpPath("kestrunhelp7.pdf"), "%PDF");
  WriteSetting(setting::kHelpVersion, "7");
  WriteSetting(setting::kHelpPath, HelpPath("kestrunhelp7.pdf"));
  PutHelpAtUrl("7");
  Open();
  EXPECT_THAT(Opened(), ElementsAre("Open " + HelpPath("kestrunhelp7.pdf")));
  EXPECT_FALSE(IsOpen());
}

TEST_F(HelpDownloadTest, NoOpensTheHelpAsItStands) {
  WriteFile(HelpPath("kestrunhelp6.pdf"), "%PDF");
  WriteSetting(setting::kHelpVersion, "6");
  WriteSetting(setting::kHelpPath, HelpPath("kestrunhelp6.pdf"));
  PutHelpAtUrl("7");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
  EXPECT_THAT(Opened(), ElementsAre("Open " + HelpPath("kestrunhelp6.pdf")));
}

TEST_F(HelpDownloadTest, AMissingHelpFileLeavesTheWindowOpenWithoutAMessage) {
  WriteSetting(setting::kHelpVersion, "7");
  PutHelpAtUrl("7");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
  EXPECT_THAT(Opened(), IsEmpty());
  EXPECT_TRUE(IsOpen());
}

TEST_F(HelpDownloadTest, AfterAFailedDownloadTheNextTimeAsksAgain) {
  PutHelpAtUrl("7");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  frmdwnlhelp& window = Open();
  desktop.clock().AdvanceMs(1000);
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(window.txtprogress.Text.get().ends_with("The download failed: The server cannot be reached.\r\n"));
  EXPECT_EQ(Ini("HELP", "VERSION"), "7");
  window.Command1.Press();
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
}

TEST_F(HelpDownloadTest, WithAnEmptyAddressTheReadFailsAndTheWindowWaitsOn) {
  PutHelp("7");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  frmdwnlhelp& window = Open();
  desktop.clock().AdvanceMs(60000);
  EXPECT_TRUE(IsOpen());
  EXPECT_THAT(Opened(), IsEmpty());
  EXPECT_TRUE(window.txtprogress.Text.get().ends_with("The site names no address for the help.\r\n"));
}

TEST_F(HelpDownloadTest, AnExtensionThatCouldBeRunIsRefused) {
  for (const char* extension : {".exe", ".pdf\\..\\x.exe", "", ".js"}) {
    PutHelp("7", std::string("EXTENSION=") + extension + "\r\npath=" + kUrl + "\r\n");
    frmdwnlhelp& window = Open();
    EXPECT_TRUE(window.txtprogress.Text.get().ends_with(
        std::string("The help on the site is no document that can be read: ") + extension + "\r\n"));
    window.Unload();
  }
  EXPECT_THAT(Opened(), IsEmpty());
}

TEST_F(HelpDownloadTest, AVersionThatIsNoNumberIsNoVersion) {
  PutHelp("..\\..\\evil", std::string("path=") + kUrl + "\r\n");
  desktop.internet().Reply(kUrl, "%PDF");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  Open();
  desktop.clock().AdvanceMs(1000);
  EXPECT_THAT(Opened(), ElementsAre("Open " + HelpPath("kestrunhelp0.pdf")));
}

TEST_F(HelpDownloadTest, AHashThatDiffersKeepsTheHelpAsideAndOpensNothing) {
  PutHelp("7", std::string("sha256=") + std::string(64, 'a') + "\r\npath=" + kUrl + "\r\n");
  desktop.internet().Reply(kUrl, "%PDF");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  Open();
  desktop.clock().AdvanceMs(1000);
  EXPECT_TRUE(FileIsThere(HelpPath("kestrunhelp7.pdf.refused")));
  EXPECT_FALSE(FileIsThere(HelpPath("kestrunhelp7.pdf")));
  EXPECT_THAT(Opened(), IsEmpty());
  EXPECT_TRUE(IsOpen());
}

TEST_F(HelpDownloadTest, ClosingTheWindowEndsTheDownload) {
  PutHelpAtUrl("7");
  desktop.internet().silent.insert(kUrl);
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  frmdwnlhelp& window = Open();
  EXPECT_TRUE(window.Downloader1.IsDownloading());
  EXPECT_TRUE(window.Command1.Cancel);
  window.Command1.Press();
  EXPECT_FALSE(IsOpen());
  desktop.clock().AdvanceMs(1000);
  EXPECT_FALSE(FileIsThere(HelpPath("kestrunhelp7.pdf")));
}

}  // namespace
}  // namespace kestrun
