// The system's download of a file, from a real server.
#ifdef _WIN32

#include "net/loopback_fixture.h"

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
  server.Answer("/cut.bms", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nBMS");
  EXPECT_NE(Download("/cut.bms"), 0);
  EXPECT_EQ(ReadFile(target), "an older map");
  EXPECT_FALSE(FileIsThere(target + ".part"));
}

TEST_F(DownloadTest, ATargetThatCannotBeWrittenFails) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_NE(Win32Internet().DownloadToFile(server.Url("/Oasis.bms"), Path("no folder\\tempmap.bms")), 0);
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
