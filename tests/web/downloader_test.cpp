// The download in the background: its events, what it leaves behind, and the window that stays usable meanwhile.
#include "web/downloader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/form.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kUrl = "http://site.example/new.exe";

class DownloadForm final : public Form {
 public:
  DownloadForm() : Form("frmdownload") {}
  Downloader& Fetch = Add<Downloader>("Downloader");
};

class DownloaderTest : public HeadlessTest {
 protected:
  DownloaderTest() {
    form->EnsureLoaded();
    Fetch().DownloadProgress = [this](int64_t read, int64_t total, const std::string& path, double speed) {
      progress.push_back(std::to_string(read) + "/" + std::to_string(total));
      speeds.push_back(speed);
      EXPECT_EQ(path, target);
    };
    Fetch().DownloadError = [this](const std::string& path, int status, const std::string& text,
                                   const std::string& url) {
      errors.push_back(std::to_string(status) + " " + text + " " + url);
      EXPECT_EQ(path, target);
    };
    Fetch().DownloadComplete = [this](int64_t total, const std::string& path) {
      completed.push_back(std::to_string(total));
      EXPECT_EQ(path, target);
      EXPECT_TRUE(FileIsThere(path));
    };
  }

  Downloader& Fetch() { return form->Fetch; }
  void Answer(const std::string& body, HttpHeaders headers = {}) {
    desktop.internet().Answer(kUrl, {200, std::move(headers), Bytes(body.begin(), body.end())});
  }
  void AnswerWithLength(const std::string& body) { Answer(body, {{"Content-Length", std::to_string(body.size())}}); }
  [[nodiscard]] std::vector<std::string> FilesBeside() {
    std::vector<std::string> names;
    for (const FolderEntry& entry : native_files.List(Path("program"))) names.push_back(entry.name);
    return names;
  }

  Ref<DownloadForm> form = MakeRef<DownloadForm>();
  const std::string target = ProgramPath("Updkestrun.exe");
  std::vector<std::string> progress;
  std::vector<double> speeds;
  std::vector<std::string> errors;
  std::vector<std::string> completed;
};

TEST_F(DownloaderTest, WithoutWaitItGivesTrueAtOnceAndTheFileComesLater) {
  AnswerWithLength("program");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, false));
  EXPECT_FALSE(FileIsThere(target));
  EXPECT_TRUE(Fetch().IsDownloading());
  desktop.clock().AdvanceMs(100);
  EXPECT_EQ(ReadFile(target), "program");
  EXPECT_THAT(completed, ElementsAre("7"));
  EXPECT_THAT(errors, IsEmpty());
  EXPECT_FALSE(Fetch().IsDownloading());
}

TEST_F(DownloaderTest, WithWaitItReturnsWhenTheFileIsThere) {
  AnswerWithLength("program");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_EQ(ReadFile(target), "program");
  EXPECT_THAT(completed, ElementsAre("7"));
}

TEST_F(DownloaderTest, TheNewestVersionIsAskedFor) {
  AnswerWithLength("program");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  ASSERT_EQ(desktop.internet().requests.size(), 1U);
  EXPECT_THAT(desktop.internet().requests[0].headers,
              ElementsAre(HttpHeader{"Cache-Control", "no-cache"}, HttpHeader{"Pragma", "no-cache"}));
}

TEST_F(DownloaderTest, ProgressOfAKnownSizeIsTold) {
  desktop.internet().piece_bytes = 3;
  AnswerWithLength("program");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(progress, ElementsAre("3/7", "6/7", "7/7"));
}

TEST_F(DownloaderTest, ProgressOfAnUnknownSizeIsSkipped) {
  int receiving = 0;
  Fetch().Receiving = [&](const FetchState& state) {
    EXPECT_FALSE(state.total_bytes.has_value());
    ++receiving;
  };
  Answer("program");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(progress, IsEmpty());
  EXPECT_GT(receiving, 0);
  EXPECT_THAT(completed, ElementsAre("7"));
}

TEST_F(DownloaderTest, TheSpeedIsThatOfTheSecondsSinceTheStart) {
  desktop.internet().piece_bytes = 1024;
  AnswerWithLength(std::string(300 * 1024, 'x'));  // a piece each ten milliseconds
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, false));
  EXPECT_EQ(Fetch().TmrSpeed.Tag.get(), "0");
  EXPECT_TRUE(Fetch().TmrSpeed.Enabled);
  desktop.clock().AdvanceMs(2500);
  EXPECT_EQ(Fetch().TmrSpeed.Tag.get(), "2");
  EXPECT_EQ(speeds.back(), static_cast<double>(speeds.size()) / 2);
  desktop.clock().AdvanceMs(2500);
  EXPECT_FALSE(Fetch().TmrSpeed.Enabled);
}

TEST_F(DownloaderTest, AnEmptyBodyIsAnErrorEvenWithStatus200) {
  Answer("");
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors, ElementsAre(std::string("200 The file on the server is empty. ") + kUrl));
  EXPECT_THAT(completed, IsEmpty());
  EXPECT_THAT(FilesBeside(), IsEmpty());
}

TEST_F(DownloaderTest, ThePageOfAnErrorIsAnError) {
  desktop.internet().Answer(kUrl, {404, {}, {'n', 'o'}});
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors, ElementsAre(std::string("404 The server answers with status 404. ") + kUrl));
  EXPECT_THAT(FilesBeside(), IsEmpty());
}

TEST_F(DownloaderTest, AServerThatCannotBeReachedIsAnError) {
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors, ElementsAre(std::string("0 The server cannot be reached. ") + kUrl));
}

TEST_F(DownloaderTest, AFileThatIsCutOffIsAnErrorAndTheOneBeforeStays) {
  WriteFile(target, "older");
  Answer("half", {{"Content-Length", "100"}});
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors, ElementsAre(std::string("200 The answer is cut off. ") + kUrl));
  EXPECT_EQ(ReadFile(target), "older");
  EXPECT_THAT(FilesBeside(), ElementsAre("Updkestrun.exe"));
}

TEST_F(DownloaderTest, AnErrorIsToldOnceNothingOfTheFileIsLeft) {
  Answer("half", {{"Content-Length", "100"}});
  std::vector<std::string> left{"never called"};
  Fetch().DownloadError = [&](const std::string&, int, const std::string&, const std::string&) {
    left = FilesBeside();
  };
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(left, IsEmpty());
}

TEST_F(DownloaderTest, AnAddressThatCannotBeAskedForGivesFalseWithoutAnEvent) {
  for (const char* url : {"", "no address", "file:///c:/new.exe", "ftp://site.example/new.exe", "http://a\r\nb/"}) {
    EXPECT_FALSE(Fetch().BeginDownload(url, target, false)) << url;
  }
  desktop.clock().AdvanceMs(1000);
  EXPECT_THAT(errors, IsEmpty());
  EXPECT_FALSE(Fetch().TmrSpeed.Enabled);
}

TEST_F(DownloaderTest, ARedirectIsFollowedAndOneToAnotherSchemeIsRefused) {
  desktop.internet().Answer(kUrl, {302, {{"Location", "/moved.exe"}}, {}});
  desktop.internet().Answer("http://site.example/moved.exe", {200, {}, {'x'}});
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  desktop.internet().Answer(kUrl, {302, {{"Location", "file:///etc/passwd"}}, {}});
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors,
              ElementsAre(std::string("0 The server sends the request to an address that is no web address. ") + kUrl));
  EXPECT_EQ(ReadFile(target), "x");
}

TEST_F(DownloaderTest, APackedAnswerIsRefused) {
  Answer("\x1f\x8b", {{"Content-Encoding", "gzip"}});
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(errors, ElementsAre(std::string("200 The answer is packed, which nobody asked for. ") + kUrl));
}

TEST_F(DownloaderTest, WithWaitAndAHostThatNeverAnswersTheWindowStaysResponsive) {
  desktop.internet().silent.insert(kUrl);
  Timer& other = form->Add<Timer>("Other");
  int ticks = 0;
  other.Tick = [&] {
    if (++ticks == 600) Fetch().Cancel();
  };
  other.Interval = 100;
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_EQ(ticks, 600);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(DownloaderTest, ClosingTheWindowInTheMiddleEndsTheDownloadAndLeavesNoHalfFile) {
  desktop.internet().piece_bytes = 1;
  AnswerWithLength("program");
  form->Show();
  Timer& other = form->Add<Timer>("Other");
  other.Interval = 30;
  other.Tick = [this] { form->Unload(); };
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_THAT(FilesBeside(), IsEmpty());
  EXPECT_THAT(completed, IsEmpty());
  desktop.clock().AdvanceMs(1000);
  EXPECT_THAT(FilesBeside(), IsEmpty());
}

TEST_F(DownloaderTest, ASecondDownloadTakesTheAddressAndBothGoOn) {
  constexpr const char* kOther = "http://site.example/other.pdf";
  desktop.internet().Answer(kOther, {404, {}, {}});
  AnswerWithLength("program");
  std::vector<std::string> seen;
  Fetch().DownloadComplete = [&](int64_t, const std::string& path) { seen.push_back(path); };
  Fetch().DownloadError = [&](const std::string& path, int, const std::string&, const std::string& url) {
    seen.push_back(path + " " + url);
  };
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, false));
  EXPECT_TRUE(Fetch().BeginDownload(kOther, ProgramPath("help.pdf"), false));
  desktop.clock().AdvanceMs(200);
  EXPECT_THAT(seen, testing::UnorderedElementsAre(target, ProgramPath("help.pdf") + " " + kOther));
}

TEST_F(DownloaderTest, ATargetThatCannotBeWrittenIsAnError) {
  AnswerWithLength("program");
  int count = 0;
  Fetch().DownloadError = [&](const std::string&, int, const std::string&, const std::string&) { ++count; };
  EXPECT_FALSE(Fetch().BeginDownload(kUrl, ProgramPath("no folder\\new.exe"), true));
  EXPECT_EQ(count, 1);
}

TEST_F(DownloaderTest, AFailureInAHandlerIsShownAndTheDownloadIsOver) {
  AnswerWithLength("program");
  Fetch().DownloadComplete = [](int64_t, const std::string&) { Raise(error::kOverflow); };
  desktop.dialogs().ExpectBox("Error: 6\r\nOverflow");
  EXPECT_TRUE(Fetch().BeginDownload(kUrl, target, true));
  EXPECT_FALSE(Fetch().IsDownloading());
}

}  // namespace
}  // namespace kestrun
