#include "maps/health/list_check.h"

#include "maps/health/health_fixture.h"
#include "support/closed_folders.h"

namespace kestrun {
namespace {

constexpr const char* kAddress = "http://maps.example/Oasis.bms";

class ListCheckTest : public HealthTest {
 protected:
  void Serve(const std::string& url, int status, ByteView content) {
    desktop.internet().Answer(url, {status, {}, Bytes(content.begin(), content.end())});
  }
  // Runs a check to its end, as the window and the command line do.
  [[nodiscard]] ListReport Check(std::vector<std::string> rows) {
    ListCheck check("night.lst", std::move(rows), InPlayList());
    while (check.Advance()) desktop.clock().AdvanceMs(10);
    return check.Report();
  }
  [[nodiscard]] std::string HealthOfAddress(const std::string& url) {
    return DescribeHealth(Check({url}).rows.at(0).health);
  }
};

TEST_F(ListCheckTest, TheReportTellsWhichRowsWouldFailAndWhy) {
  const std::string good = GoodMap();
  const std::string empty = MapOf("empty.bms", {});
  const std::string deathmatch = GoodMap("d.bms", kDeathmatch);
  const ListReport report = Check({good, empty, deathmatch});
  EXPECT_TRUE(report.IsBad());
  EXPECT_EQ(ReportText(report),
            "Check of night.lst\r\n"
            "Maps: 1 bad, 1 doubtful, 1 good.\r\n"
            "They go in as D08M03.BMS.\r\n"
            "\r\n"
            "Bad: these rows would fail\r\n"
            "  Row 2: " +
                empty +
                "\r\n"
                "    The file is empty.\r\n"
                "\r\n"
                "Doubtful: these rows may not do what is wanted\r\n"
                "  Row 3: " +
                deathmatch +
                "\r\n"
                "    It is made for Deathmatch, not for Capture the flag.\r\n");
}

TEST_F(ListCheckTest, AListOfGoodMapsIsNotBad) {
  const ListReport report = Check({GoodMap("a.bms"), GoodMap("b.bms")});
  EXPECT_FALSE(report.IsBad());
  EXPECT_EQ(ReportText(report), "Check of night.lst\r\nMaps: 2 good.\r\nThey go in as D08M03.BMS.\r\n");
}

TEST_F(ListCheckTest, DoubtfulRowsAloneFailNothing) {
  const ListReport report = Check({GoodMap("d.bms", kDeathmatch)});
  EXPECT_EQ(CountText(report), "1 doubtful");
  EXPECT_FALSE(report.IsBad());
}

TEST_F(ListCheckTest, AnEmptyListHasNoMaps) { EXPECT_EQ(CountText(Check({})), "no maps"); }

TEST_F(ListCheckTest, EachOfTwoRowsWithTheSameFileNamesTheOther) {
  const std::string map = GoodMap();
  const ListReport report = Check({map, GoodMap("b.bms"), map});
  EXPECT_EQ(DescribeHealth(report.rows[0].health), "doubtful: The same file stands in row 3 as well.");
  EXPECT_EQ(DescribeHealth(report.rows[1].health), "good");
  EXPECT_EQ(DescribeHealth(report.rows[2].health), "doubtful: The same file stands in row 1 as well.");
}

TEST_F(ListCheckTest, MoreRowsThanAreReadAtOnceAreAllLookedAt) {
  std::vector<std::string> rows;
  for (int row = 0; row < 150; ++row) rows.push_back(GoodMap("map" + std::to_string(row) + ".bms"));
  EXPECT_EQ(CountText(Check(rows)), "150 good");
}

TEST_F(ListCheckTest, AWebAddressWithAMissionIsGood) {
  Serve(kAddress, 200, MissionOf(kCaptureTheFlag));
  EXPECT_EQ(HealthOfAddress(kAddress), "good");
}

TEST_F(ListCheckTest, OnlyTheBeginningOfALargeMapIsFetched) {
  Bytes large = MissionOf(kCaptureTheFlag);
  large.resize(1'000'000);
  Serve(kAddress, 200, large);
  desktop.internet().piece_bytes = 100;
  EXPECT_EQ(HealthOfAddress(kAddress), "good");
}

TEST_F(ListCheckTest, WhatAWebAddressAnswersIsJudgedAsAFileIs) {
  Serve("http://maps.example/page", 200, AsBytes("<html>Not here any more</html>"));
  EXPECT_EQ(HealthOfAddress("http://maps.example/page"),
            "bad: The file is no mission: it does not begin with \"BMS\".");
  Serve("http://maps.example/nothing", 200, {});
  EXPECT_EQ(HealthOfAddress("http://maps.example/nothing"), "bad: The file is empty.");
}

TEST_F(ListCheckTest, AWebAddressWithoutAMapDoesNotAnswer) {
  Serve(kAddress, 404, AsBytes("no"));
  EXPECT_EQ(HealthOfAddress(kAddress), "bad: The web address does not answer: the server says 404.");
}

TEST_F(ListCheckTest, AServerThatCannotBeReachedDoesNotAnswer) {
  const std::string health = HealthOfAddress("http://nobody.example/Oasis.bms");
  EXPECT_EQ(health.find("bad: The web address does not answer: "), 0U) << health;
}

TEST_F(ListCheckTest, AServerThatStaysSilentIsLeftAfterTwentySeconds) {
  desktop.internet().silent.insert(kAddress);
  const uint64_t begin_ms = desktop.clock().NowMs();
  EXPECT_EQ(HealthOfAddress(kAddress), "bad: The web address does not answer: nothing has come after 20 seconds.");
  EXPECT_EQ(desktop.clock().NowMs() - begin_ms, 20'000U);
}

TEST_F(ListCheckTest, AHundredServersThatStaySilentAreAllAskedWithinAMinute) {
  std::vector<std::string> rows;
  for (int row = 0; row < 100; ++row) {
    rows.push_back("http://server" + std::to_string(row) + ".example/a.bms");
    desktop.internet().silent.insert(rows.back());
  }
  const uint64_t begin_ms = desktop.clock().NowMs();
  EXPECT_EQ(CountText(Check(rows)), "100 bad");
  EXPECT_LE(desktop.clock().NowMs() - begin_ms, 61'000U);
  EXPECT_EQ(desktop.internet().requests.size(), 100U);
}

TEST_F(ListCheckTest, AddressesThatAreNotComeToAreNamedInTheReport) {
  std::vector<std::string> rows;
  for (int row = 0; row < 100; ++row) {
    rows.push_back("http://maps.example/" + std::to_string(row) + ".bms");
    desktop.internet().silent.insert(rows.back());
  }
  const uint64_t begin_ms = desktop.clock().NowMs();
  const ListReport report = Check(rows);
  EXPECT_LE(desktop.clock().NowMs() - begin_ms, 66'000U);
  // One server is asked for six maps at a time.
  EXPECT_EQ(CountText(report), "18 bad, 82 not checked");
  EXPECT_FALSE(report.is_cut_short);
  EXPECT_TRUE(report.IsBad());
  EXPECT_EQ(DescribeHealth(report.rows[99].health),
            "not checked: The address was not asked: others took too long to answer.");
  EXPECT_NE(ReportText(report).find("\r\nNot checked\r\n  Row 19: http://maps.example/18.bms\r\n"
                                    "    The address was not asked: others took too long to answer.\r\n"),
            std::string::npos);
}

TEST_F(ListCheckTest, AServerThatAnswersIsAskedForAllItsMapsHoweverLongThatTakes) {
  std::vector<std::string> rows;
  for (int row = 0; row < 100; ++row) {
    rows.push_back("http://maps.example/" + std::to_string(row) + ".bms");
    if (row == 50) {
      Serve(rows.back(), 404, AsBytes("no"));
    } else {
      Serve(rows.back(), 200, MissionOf(kCaptureTheFlag));
    }
  }
  ListCheck check("night.lst", rows, InPlayList());
  const uint64_t begin_ms = desktop.clock().NowMs();
  while (check.Advance()) desktop.clock().AdvanceMs(10'000);
  EXPECT_GT(desktop.clock().NowMs() - begin_ms, 100'000U);
  EXPECT_EQ(CountText(check.Report()), "1 bad, 99 good");
}

TEST_F(ListCheckTest, AServerThatAnswersIsNotHeldUpByOneThatDoesNot) {
  std::vector<std::string> rows;
  for (int row = 0; row < 6; ++row) {
    rows.push_back("http://silent.example/" + std::to_string(row) + ".bms");
    desktop.internet().silent.insert(rows.back());
  }
  rows.push_back("http://silent.example/6.bms");
  desktop.internet().silent.insert(rows.back());
  rows.push_back(kAddress);
  Serve(kAddress, 200, MissionOf(kCaptureTheFlag));
  ListCheck check("night.lst", rows, InPlayList());
  for (int pass = 0; pass < 5; ++pass) {
    EXPECT_TRUE(check.Advance());
    desktop.clock().AdvanceMs(10);
  }
  EXPECT_EQ(check.DoneRows(), 1);
  EXPECT_EQ(check.Addresses().count(kAddress), 1U);
  EXPECT_EQ(desktop.internet().requests.size(), 7U);
}

TEST_F(ListCheckTest, AnAddressOfAnotherSchemeIsNotAsked) {
  EXPECT_EQ(HealthOfAddress("ftp://maps.example/Oasis.bms"),
            "doubtful: Only addresses that begin with http:// or https:// can be checked.");
  EXPECT_TRUE(desktop.internet().requests.empty());
}

TEST_F(ListCheckTest, AnAddressInSeveralRowsIsAskedOnce) {
  Serve(kAddress, 200, MissionOf(kCaptureTheFlag));
  EXPECT_EQ(CountText(Check({kAddress, kAddress, kAddress})), "3 doubtful");
  EXPECT_EQ(desktop.internet().requests.size(), 1U);
}

TEST_F(ListCheckTest, TheTaskTellsWhatIsDoneNow) {
  desktop.internet().silent.insert(kAddress);
  ListCheck check("night.lst", {GoodMap(), kAddress}, InPlayList());
  EXPECT_EQ(check.Task(), "Looking at the files: 0 of 2 rows");
  for (int pass = 0; pass < 5; ++pass) {
    EXPECT_TRUE(check.Advance());
    desktop.clock().AdvanceMs(10);
  }
  EXPECT_EQ(check.Task(), "Asking maps.example: 1 of 2 rows");
  EXPECT_TRUE(check.IsWaiting());
}

TEST_F(ListCheckTest, ACheckThatIsEndedEarlySaysSo) {
  desktop.internet().silent.insert(kAddress);
  ListCheck check("night.lst", {GoodMap(), kAddress}, InPlayList());
  for (int pass = 0; pass < 5; ++pass) {
    EXPECT_TRUE(check.Advance());
    desktop.clock().AdvanceMs(10);
  }
  EXPECT_EQ(ReportText(check.Report()), std::string("Check of night.lst\r\n"
                                                    "Maps: 1 good, 1 not checked.\r\n"
                                                    "They go in as D08M03.BMS.\r\n"
                                                    "The check was ended before it came to all rows.\r\n"
                                                    "\r\n"
                                                    "Not checked\r\n"
                                                    "  Row 2: ") +
                                            kAddress + "\r\n");
}

TEST_F(ListCheckTest, AGameFolderThatNeedsAdministratorRightsIsToldBeforeTheRows) {
  EXPECT_EQ(Check({}).closed_game_folder, "");
  const ClosedFolders closed;
  const ListReport report = Check({});
  EXPECT_EQ(report.closed_game_folder, Path("game"));
  EXPECT_TRUE(report.IsBad());
  EXPECT_EQ(ReportText(report),
            "Check of night.lst\r\nMaps: no maps.\r\nThey go in as D08M03.BMS.\r\n\r\n"
            "No map would go in: the game's folder needs administrator rights.\r\n  " +
                Path("game") + "\r\n");
}

}  // namespace
}  // namespace kestrun
