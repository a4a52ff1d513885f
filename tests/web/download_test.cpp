// The system's download of a file, from a real server.
#ifdef _WIN32

#include "web/loopback_fixture.h"

namespace kestrun {
namespace {

class DownloadTest : public LoopbackTest {
 protected:
  DownloadTest() { WriteFile(target, "an older map"); }
  int Download(std::string_view path) { return Win32Internet().DownloadToFile(server.Url(path), target); }

  const std::string target = Path("tempmap.bms");
};

TEST_F(DownloadTest, AFileReplacesTheOneBefore) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_EQ(Download("/Oasis.bms"), 0);
  EXPECT_EQ(ReadFile(target), "BMS");
}

TEST_F(DownloadTest, ThePageOfAnErrorIsNoFile) {
  server.Answer("/none.bms", "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\n\r\nnot found");
  EXPECT_NE(Download("/none.bms"), 0);
  EXPECT_EQ(ReadFile(target), "an older map");
}

TEST_F(DownloadTest, AHalfIsNoFile) {
  const size_t files_before = native_files.List(Path("")).size();
  server.Answer("/cut.bms", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nBMS");
  EXPECT_NE(Download("/cut.bms"), 0);
  EXPECT_EQ(ReadFile(target), "an older map");
  EXPECT_EQ(native_files.List(Path("")).size(), files_before);
}

TEST_F(DownloadTest, NoOtherFileOfTheFolderIsWrittenOver) {
  WriteFile(target + ".part", "the user's");
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_EQ(Download("/Oasis.bms"), 0);
  EXPECT_EQ(ReadFile(target + ".part"), "the user's");
}

TEST_F(DownloadTest, NoCacheOnTheWayIsToAnswer) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_EQ(Download("/Oasis.bms"), 0);
  EXPECT_EQ(LastServed().Header("Cache-Control"), "no-cache");
  EXPECT_EQ(LastServed().Header("Pragma"), "no-cache");
}

TEST_F(DownloadTest, ATargetThatCannotBeWrittenFails) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_NE(Win32Internet().DownloadToFile(server.Url("/Oasis.bms"), Path("no folder\\tempmap.bms")), 0);
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
