// The download in the background from a real server, natively and on Windows by the same rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "forms/form.h"
#include "web/downloader.h"
#include "web/loopback_fixture.h"

namespace kestrun {
namespace {

class FetchForm final : public Form {
 public:
  FetchForm() : Form("frmfetch") {}
  Downloader& Fetch = Add<Downloader>("Downloader");
};

class BackgroundDownloadTest : public LoopbackTest {
 protected:
  BackgroundDownloadTest() {
    form->EnsureLoaded();
    form->Fetch.DownloadError = [this](const std::string&, int status, const std::string& text, const std::string&) {
      ++errors;
      error_status = status;
      error_text = text;
    };
    form->Fetch.DownloadComplete = [this](int64_t total, const std::string&) { completed_bytes = total; };
    form->Fetch.DownloadProgress = [this](int64_t, int64_t total, const std::string&, double) { told_total = total; };
  }

  bool Download(std::string_view path) { return form->Fetch.BeginDownload(server.Url(path), target, true); }
  void ExpectRefused(const std::string& raw, int status) {
    server.Answer("/file", raw);
    EXPECT_FALSE(Download("/file")) << raw;
    EXPECT_EQ(errors, 1);
    EXPECT_EQ(error_status, status);
    EXPECT_FALSE(FileIsThere(target));
    EXPECT_FALSE(FileIsThere(target + ".part"));
  }

  Ref<FetchForm> form = MakeRef<FetchForm>();
  const std::string target = Path("fetched.bin");
  int errors = 0;
  int error_status = 0;
  std::string error_text;
  int64_t completed_bytes = 0;
  int64_t told_total = 0;
};

TEST_F(BackgroundDownloadTest, AFileArrivesWhole) {
  const std::string body(3000000, 'm');
  server.AnswerPage("/file", "", body);
  EXPECT_TRUE(Download("/file"));
  EXPECT_EQ(ReadFile(target), body);
  EXPECT_EQ(completed_bytes, 3000000);
  EXPECT_EQ(told_total, 3000000);
}

TEST_F(BackgroundDownloadTest, ASlowServerIsWaitedFor) {
  server.Handle("/file", [](ServedConnection& connection) {
    connection.Write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\n");
    for (const char* letter : {"s", "l", "o", "w"}) {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      connection.Write(letter);
    }
  });
  EXPECT_TRUE(Download("/file"));
  EXPECT_EQ(ReadFile(target), "slow");
}

TEST_F(BackgroundDownloadTest, AChunkedFileIsPutTogether) {
  server.Answer("/file",
                "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n"
                "4\r\nfirs\r\n1\r\nt\r\n0\r\n\r\n");
  EXPECT_TRUE(Download("/file"));
  EXPECT_EQ(ReadFile(target), "first");
  EXPECT_EQ(told_total, 0);
}

TEST_F(BackgroundDownloadTest, ACutFileIsAnError) {
  ExpectRefused("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf", 200);
}

TEST_F(BackgroundDownloadTest, AFileThatIsNotThereIsAnError) {
  ExpectRefused("HTTP/1.1 404 Not Found\r\nContent-Length: 2\r\n\r\nno", 404);
  EXPECT_EQ(error_text, "The server answers with status 404.");
}

TEST_F(BackgroundDownloadTest, AnEmptyBodyWithStatus200IsAnError) {
  ExpectRefused("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", 200);
}

TEST_F(BackgroundDownloadTest, APackedFileIsAnError) {
  ExpectRefused("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 2\r\n\r\n\x1f\x8b", 200);
}

TEST_F(BackgroundDownloadTest, ACircleOfRedirectsIsAnError) {
  ExpectRefused("HTTP/1.1 302 Found\r\nLocation: /file\r\nContent-Length: 0\r\n\r\n", 0);
  EXPECT_EQ(error_text, "The server sends the request from place to place.");
}

TEST_F(BackgroundDownloadTest, ARedirectToAnotherSchemeIsAnError) {
  ExpectRefused("HTTP/1.1 302 Found\r\nLocation: ftp://127.0.0.1/file\r\nContent-Length: 0\r\n\r\n", 0);
}

TEST_F(BackgroundDownloadTest, MoreThanTheToldLengthIsNotPartOfTheFile) {
  server.Answer("/file", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nfile and more");
  EXPECT_TRUE(Download("/file"));
  EXPECT_EQ(ReadFile(target), "file");
}

TEST_F(BackgroundDownloadTest, AFileWithoutEndIsLeftWhenItsWindowCloses) {
  std::atomic<bool> has_left = false;
  std::atomic<bool> has_begun = false;
  server.Handle("/file", [&](ServedConnection& connection) {
    connection.Write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
    const std::string piece(1 << 16, 'z');
    while (connection.Write(piece)) has_begun = true;
    has_left = true;
  });
  form->Fetch.Receiving = [&](const FetchState& state) {
    if (state.received_bytes > 0) form->Unload();
  };
  EXPECT_FALSE(Download("/file"));
  EXPECT_TRUE(has_begun);
  while (!has_left) std::this_thread::yield();
  EXPECT_FALSE(FileIsThere(target));
  EXPECT_FALSE(FileIsThere(target + ".part"));
}

TEST_F(BackgroundDownloadTest, AHostThatNeverAnswersIsLeftWhenTheUserCancels) {
  const auto may_go = std::make_shared<std::atomic<bool>>(false);  // the server still waits when the test has ended
  const auto is_asked = std::make_shared<std::atomic<bool>>(false);
  server.Handle("/file", [may_go, is_asked](ServedConnection&) {
    *is_asked = true;
    while (!*may_go) std::this_thread::yield();
  });
  Timer& cancel = form->Add<Timer>("Cancel");
  cancel.Interval = 100;
  cancel.Tick = [&] {
    if (*is_asked) form->Fetch.Cancel();
  };
  EXPECT_FALSE(Download("/file"));
  EXPECT_EQ(errors, 0);
  *may_go = true;
}

}  // namespace
}  // namespace kestrun
