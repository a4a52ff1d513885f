#include "windows/update/frmupdate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/sha256.h"
#include "program/frame_fixture.h"
#include "program/site_file.h"
#include "support/program_bytes.h"
#include "web/site.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUrl = "https://site.example/new.exe";
constexpr const char* kQuestion = "There is a new version on the site start download version ";

class UpdateTest : public FrameTest {
 protected:
  UpdateTest() { desktop.program().version = {5, 1, 0}; }

  void PutSiteFile(const std::string& text) { desktop.internet().Reply(SiteFileUrl(), text); }
  void PutVersion(const std::string& version, const std::string& more = "") {
    PutSiteFile("[LAUNCHER]\r\nVersionOnSite=" + version + "\r\npath=" + kUrl + "\r\n" + more);
  }
  void PutProgram(const std::string& bytes) {
    desktop.internet().Answer(
        kUrl, {200, {{"Content-Length", std::to_string(bytes.size())}}, Bytes(bytes.begin(), bytes.end())});
  }
  // Opens the window and lets its timer begin.
  void Open() {
    Window<FrmUpdate>().Show();
    desktop.clock().AdvanceMs(1000);
  }
  [[nodiscard]] std::string Target() const { return ProgramPath("Updkestrun.exe"); }
  [[nodiscard]] static bool IsOpen() { return LoadedWindow("FrmUpdate") != nullptr; }
};

TEST_F(UpdateTest, TheWindowAppearsBeforeItAsksTheSite) {
  PutVersion("510");
  Window<FrmUpdate>().Show();
  desktop.clock().AdvanceMs(999);
  EXPECT_THAT(desktop.internet().requests, IsEmpty());
  desktop.dialogs().ExpectBox("There is no new version.(510)");
  desktop.clock().AdvanceMs(1);
  EXPECT_EQ(desktop.internet().requests.size(), 1U);
}

TEST_F(UpdateTest, ASiteThatCannotBeReachedIsToldAndTheWindowCloses) {
  desktop.dialogs().ExpectBox("Can't access the server try again later.");
  Open();
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, TheSameVersionIsNoNewOneAndTheSiteFileStays) {
  PutVersion("510");
  desktop.dialogs().ExpectBox("There is no new version.(510)");
  Open();
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(FileIsThere(ProgramPath("maps.ini")));
}

TEST_F(UpdateTest, ASiteFileWithoutAVersionIsNoNewOne) {
  PutSiteFile("[OTHER]\r\n");
  desktop.dialogs().ExpectBox("There is no new version.(510)");
  Open();
}

TEST_F(UpdateTest, VersionsAreAPlainJoinOfTheirParts) {
  desktop.program().version = {5, 9, 9};
  EXPECT_EQ(ProgramVersionNumber(), 599);
  desktop.program().version = {5, 10, 0};
  EXPECT_EQ(ProgramVersionNumber(), 5100);
  desktop.program().version = {5, 1, 12};
  EXPECT_EQ(ProgramVersionNumber(), 5112);
  desktop.program().version = {5, 0, 10};
  EXPECT_EQ(ProgramVersionNumber(), 5010);
  desktop.program().version = {5, 1, 0};
  PutVersion("5010");  // 5.0.10, which counts as greater
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, Version5Dot10Dot0CountsAsGreaterThan5Dot9Dot9) {
  desktop.program().version = {5, 9, 9};
  PutVersion("5100");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
  desktop.program().version = {5, 10, 0};
  PutVersion("599");
  desktop.dialogs().ExpectBox("There is no new version.(5100)");
  Open();
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, NoToTheDownloadClosesTheWindow) {
  PutVersion("511");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kNo);
  Open();
  EXPECT_FALSE(IsOpen());
  EXPECT_FALSE(FileIsThere(Target()));
}

TEST_F(UpdateTest, ANewVersionIsFetchedStartedAndTheProgramEnds) {
  PutVersion("511");
  PutProgram(ProgramBytes());
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("The download has finished (" + Target() + "). Start instalation?", BoxAnswer::kYes);
  Open();
  EXPECT_EQ(ReadFile(Target()), ProgramBytes());
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].operation, "open");
  EXPECT_EQ(desktop.shell().openings[0].file, Target());
  EXPECT_EQ(desktop.shell().openings[0].show_command, 1);
  EXPECT_EQ(desktop.processes().end_count, 1);
  EXPECT_FALSE(FileIsThere(ProgramPath("maps.ini")));
}

TEST_F(UpdateTest, TheNoticeOfTheSiteIsShownBeforeTheStart) {
  PutVersion("511", "[update]\r\nMSG=Close the game first.\r\n");
  PutProgram(ProgramBytes());
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("The download has finished (" + Target() + "). Start instalation?", BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Close the game first.", BoxAnswer::kOk);
  Open();
  EXPECT_EQ(desktop.processes().end_count, 1);
}

TEST_F(UpdateTest, NoToTheInstallationKeepsTheFileAndDeletesTheSiteFile) {
  PutVersion("511");
  PutProgram(ProgramBytes());
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("The download has finished (" + Target() + "). Start instalation?", BoxAnswer::kNo);
  Open();
  EXPECT_TRUE(FileIsThere(Target()));
  EXPECT_FALSE(FileIsThere(ProgramPath("maps.ini")));
  EXPECT_THAT(desktop.shell().openings, IsEmpty());
  EXPECT_EQ(desktop.processes().end_count, 0);
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, ADownloadThatFailsOpensTheSite) {
  PutVersion("511");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("Can't access the file try again later or update manually from " + std::string(kSite));
  Open();
  ASSERT_EQ(desktop.shell().openings.size(), 1U);
  EXPECT_EQ(desktop.shell().openings[0].file, std::string(kSite));
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, TheBarFollowsTheDownload) {
  PutVersion("511");
  PutProgram(ProgramBytes());
  desktop.internet().piece_bytes = 1000;
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("The download has finished (" + Target() + "). Start instalation?", BoxAnswer::kNo);
  const Ref<Form> keep(&Window<FrmUpdate>());
  Open();
  const auto& window = static_cast<const FrmUpdate&>(*keep);
  EXPECT_EQ(window.ProgressBar1.Max.get(), static_cast<int>(ProgramBytes().size()));
  EXPECT_EQ(window.ProgressBar1.Value.get(), static_cast<int>(ProgramBytes().size()));
  EXPECT_TRUE(window.ProgressBar1.TellsValue);
}

TEST_F(UpdateTest, WhatIsNoCompleteProgramIsNotStartedAndKeptAside) {
  const std::string whole = ProgramBytes();
  for (const std::string& bytes :
       {std::string("<html>not here</html>"), whole.substr(0, whole.size() - 1), std::string("MZ"), LibraryBytes()}) {
    PutVersion("511");
    PutProgram(bytes);
    desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
    desktop.dialogs().ExpectBox(
        "The downloaded file is no complete Windows program. It was not started and is kept as " + Target() +
        ".refused");
    Open();
    EXPECT_EQ(ReadFile(Target() + ".refused"), bytes);
    EXPECT_FALSE(FileIsThere(Target()));
    EXPECT_FALSE(IsOpen());
    native_files.Delete(Target() + ".refused");
  }
  EXPECT_THAT(desktop.shell().openings, IsEmpty());
}

TEST_F(UpdateTest, AHashThatTheSiteNamesHasToMatch) {
  const std::string program = ProgramBytes();
  PutProgram(program);
  PutVersion("511", "sha256=" + std::string(64, '0') + "\r\n");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox(
      "The downloaded file is not the one that the site announces: its SHA-256 differs. It was not started and is kept "
      "as " +
      Target() + ".refused");
  Open();
  EXPECT_EQ(ReadFile(Target() + ".refused"), program);

  PutVersion("511", "SHA256=" + ToUpper(Sha256Hex(AsBytes(program))) + "\r\n");
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  desktop.dialogs().ExpectBox("The download has finished (" + Target() + "). Start instalation?", BoxAnswer::kYes);
  Open();
  EXPECT_EQ(desktop.processes().end_count, 1);
}

TEST_F(UpdateTest, APlainConnectionIsNamedInTheWindow) {
  constexpr const char* kPlain = "http://site.example/new.exe";
  PutSiteFile(std::string("[launcher]\r\nversiononsite=511\r\npath=") + kPlain + "\r\n");
  desktop.internet().silent.insert(kPlain);
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  auto& window = Window<FrmUpdate>();
  const Ref<Form> keep(&window);
  std::string notice;
  const TimerId look = desktop.clock().StartTimer(5000, [&] {
    notice = window.LblNotice.Caption;
    window.Command1.Press();
  });
  Open();
  desktop.clock().StopTimer(look);
  EXPECT_EQ(notice, "The address is plain http: others on the way could change the file.");
}

TEST_F(UpdateTest, WithAHostThatNeverAnswersTheWindowStaysUsableAndCancelEndsItWithoutAWord) {
  PutVersion("511");
  desktop.internet().silent.insert(kUrl);
  desktop.dialogs().ExpectBox(kQuestion, BoxAnswer::kYes);
  auto& window = Window<FrmUpdate>();
  const Ref<Form> keep(&window);
  std::string words;
  const TimerId press = desktop.clock().StartTimer(60000, [&] {
    words = window.LblAmount.Caption;
    EXPECT_FALSE(window.ProgressBar1.TellsValue);
    window.Command1.Press();
  });
  Open();
  desktop.clock().StopTimer(press);
  EXPECT_EQ(words, "Waiting for the server ...");
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(desktop.shell().openings, IsEmpty());
}

TEST_F(UpdateTest, EscDuringTheSiteFileClosesTheWindowWithoutAWord) {
  PutVersion("511");
  desktop.internet().leave_after_bytes = 0;
  Open();
  EXPECT_FALSE(IsOpen());
}

TEST_F(UpdateTest, CancelIsAtHandByKey) {
  PutVersion("511");
  auto& window = Window<FrmUpdate>();
  window.Show();
  EXPECT_TRUE(window.Command1.Cancel);
  EXPECT_THAT(window.TabOrder(), ElementsAre(&window.Command1));
  window.Command1.Press();
  EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace kestrun
