// What counts as a downloaded file, from a real server.
#include "web/download_file.h"

#include <atomic>

#include "web/loopback_fixture.h"
#include "web/web_request.h"

namespace kestrun {
namespace {

class DownloadTest : public LoopbackTest {
 protected:
  DownloadTest() { WriteFile(target, "an older map"); }
  bool Download(std::string_view path) { return DownloadFile(server.Url(path), target); }

  const std::string target = Path("tempmap.bms");
};

TEST_F(DownloadTest, AFileReplacesTheOneBefore) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_TRUE(Download("/Oasis.bms"));
  EXPECT_EQ(ReadFile(target), "BMS");
}

TEST_F(DownloadTest, ThePageOfAnErrorIsNoFile) {
  server.Answer("/none.bms", "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\n\r\nnot found");
  EXPECT_FALSE(Download("/none.bms"));
  EXPECT_EQ(ReadFile(target), "an older map");
}

TEST_F(DownloadTest, AHalfIsNoFile) {
  const size_t files_before = native_files.List(Path("")).size();
  server.Answer("/cut.bms", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nBMS");
  EXPECT_FALSE(Download("/cut.bms"));
  EXPECT_EQ(ReadFile(target), "an older map");
  EXPECT_EQ(native_files.List(Path("")).size(), files_before);
}

TEST_F(DownloadTest, NoOtherFileOfTheFolderIsWrittenOver) {
  WriteFile(target + ".part", "the user's");
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_TRUE(Download("/Oasis.bms"));
  EXPECT_EQ(ReadFile(target + ".part"), "the user's");
}

TEST_F(DownloadTest, NoCacheOnTheWayIsToAnswer) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_TRUE(Download("/Oasis.bms"));
  EXPECT_EQ(LastServed().Header("Cache-Control"), "no-cache");
  EXPECT_EQ(LastServed().Header("Pragma"), "no-cache");
}

TEST_F(DownloadTest, ATargetThatCannotBeWrittenFails) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_FALSE(DownloadFile(server.Url("/Oasis.bms"), Path("no folder\\tempmap.bms")));
}

TEST_F(DownloadTest, ARedirectLeadsToTheFile) {
  server.Answer("/old.bms", "HTTP/1.1 302 Found\r\nLocation: /Oasis.bms\r\nContent-Length: 5\r\n\r\nmoved");
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_TRUE(Download("/old.bms"));
  EXPECT_EQ(ReadFile(target), "BMS");
}

TEST_F(DownloadTest, ARedirectWithoutEndIsLeftAtItsHead) {
  server.Handle("/old.bms", [](ServedConnection& connection) {
    connection.Write("HTTP/1.1 302 Found\r\nLocation: /Oasis.bms\r\nConnection: close\r\n\r\n");
    constexpr size_t kGigabyte = size_t{1} << 30;
    const std::string piece(1 << 20, 'x');
    while (connection.written() < kGigabyte && connection.Write(piece)) continue;
    EXPECT_LT(connection.written(), kGigabyte);
  });
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_TRUE(Download("/old.bms"));
  EXPECT_EQ(ReadFile(target), "BMS");
}

// Only what is held in memory has a limit.
TEST_F(DownloadTest, AFileMayBeLargerThanAnAnswerInMemory) {
  constexpr size_t kBytes = kMostResponseBytes + 100000;
  server.Handle("/large.zip", [](ServedConnection& connection) {
    connection.Write("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kBytes) + "\r\nConnection: close\r\n\r\n");
    const std::string piece(100000, 'z');
    while (connection.written() < kBytes && connection.Write(piece)) continue;
  });
  EXPECT_TRUE(Download("/large.zip"));
  EXPECT_EQ(native_files.Open(target, OpenMode::kRead)->Size(), kBytes);
}

TEST_F(DownloadTest, TheNameOfALargeFileIsAskedForWithoutFetchingIt) {
  std::atomic<bool> has_left = false;
  server.Handle("/fetch.php", [&](ServedConnection& connection) {
    connection.Write("HTTP/1.1 200 OK\r\nContent-Disposition: attachment; filename=maps.zip\r\n\r\n");
    constexpr size_t kGigabyte = size_t{1} << 30;
    const std::string piece(1 << 20, 'z');
    while (connection.written() < kGigabyte && connection.Write(piece)) continue;
    has_left = connection.written() < kGigabyte;
  });
  EXPECT_EQ(http.GetURLFileName(server.Url("/fetch.php"), "GET"), "maps.zip");
  EXPECT_EQ(http.GetURLFileName(server.Url("/nothing"), "GET"), "");
  EXPECT_TRUE(has_left);
}

}  // namespace
}  // namespace kestrun
