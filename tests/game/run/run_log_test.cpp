// What a host finds in autohost.log the next morning.
#include "game/run/run_log.h"

#include <gtest/gtest.h>

#include "base/text_file.h"
#include "program/frame_fixture.h"

namespace kestrun {
namespace {

constexpr const char* kStamp = "2001-01-01 12:00:00";

class RunLogTest : public FrameTest {
 protected:
  [[nodiscard]] std::string Log() { return ReadFile(ProgramPath("autohost.log")); }
  static RunEvent Inserted(const std::string& map) { return {RunEvent::Kind::kInserted, 2, map, "the game ended"}; }
};

TEST_F(RunLogTest, EachEventIsALineOfFieldsBehindTheMarkOfUtf8) {
  AppendToRunLog({RunEvent::Kind::kStarted, -1, "", ""});
  AppendToRunLog(Inserted("C:\\maps\\\xE6\x97\xA5.bms"));
  AppendToRunLog({RunEvent::Kind::kFailed, 0, "C:\\gone.bms", "File not found"});
  AppendToRunLog({RunEvent::Kind::kStopped, -1, "", ""});
  EXPECT_EQ(Log(), std::string(kUtf8Mark) + kStamp + "\t\tstarted\t\t\r\n" + kStamp +
                       "\trow 3\tinserted\tC:\\maps\\\xE6\x97\xA5.bms\tthe game ended\r\n" + kStamp +
                       "\trow 1\tfailed\tC:\\gone.bms\tFile not found\r\n" + kStamp + "\t\tstopped\t\t\r\n");
}

TEST_F(RunLogTest, LineEndsAndTabsInAReasonDoNotBreakItsLine) {
  AppendToRunLog({RunEvent::Kind::kFailed, 0, "a\tb", "one\r\ntwo"});
  EXPECT_EQ(Log(), std::string(kUtf8Mark) + kStamp + "\trow 1\tfailed\ta b\tone two\r\n");
}

TEST_F(RunLogTest, AFullLogLosesItsOlderHalfAndNoLineIsCut) {
  std::string full(kUtf8Mark);
  int lines = 0;
  for (; full.size() + 20 < kMostRunLogBytes; ++lines) full += "line " + std::to_string(1'000'000 + lines) + "\r\n";
  WriteFile(ProgramPath("autohost.log"), full);
  AppendToRunLog(Inserted("C:\\new.bms"));
  const std::string log = Log();
  EXPECT_LT(log.size(), kMostRunLogBytes / 2 + 200);
  EXPECT_GT(log.size(), kMostRunLogBytes / 2 - 200);
  EXPECT_TRUE(log.starts_with(std::string(kUtf8Mark) + "line 1"));
  EXPECT_NE(log.find("line " + std::to_string(1'000'000 + lines - 1) + "\r\n" + kStamp), std::string::npos);
  EXPECT_TRUE(log.ends_with("\trow 3\tinserted\tC:\\new.bms\tthe game ended\r\n"));
}

#ifndef _WIN32  // where the file would take all that room on the disk
TEST_F(RunLogTest, ALogOfMoreThanTwoGigabytesIsShortenedToo) {
  const std::string path = ProgramPath("autohost.log");
  {
    const std::unique_ptr<File> file = native_files.Open(path, OpenMode::kReadWrite);
    file->WriteAt(uint64_t{3} << 30, AsBytes("\r\nthe last line\r\n"));
  }
  AppendToRunLog(Inserted("C:\\new.bms"));
  EXPECT_EQ(Log(), std::string(kUtf8Mark) + "the last line\r\n" + kStamp +
                       "\trow 3\tinserted\tC:\\new.bms\tthe game ended\r\n");
}
#endif

TEST_F(RunLogTest, ALogWithoutLineEndsIsBegunAnew) {
  WriteFile(ProgramPath("autohost.log"), std::string(kMostRunLogBytes, 'x'));
  AppendToRunLog(Inserted("C:\\new.bms"));
  EXPECT_EQ(Log(), std::string(kUtf8Mark) + kStamp + "\trow 3\tinserted\tC:\\new.bms\tthe game ended\r\n");
}

}  // namespace
}  // namespace kestrun
