#include <gtest/gtest.h>

#include "program/path_text.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "web/download_file.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

using PathTextTest = HeadlessTest;

TEST_F(PathTextTest, AFileAndAFolderExistAndAMissingOrEmptyPathDoesNot) {
  WriteFile(ProgramPath("empty.bms"), "");
  EXPECT_TRUE(FileExists(ProgramPath("empty.bms")));
  EXPECT_TRUE(FileExists(Path("program")));
  EXPECT_FALSE(FileExists(ProgramPath("missing.bms")));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists("Q:\\nowhere\\x"));
}

TEST_F(PathTextTest, TheParentFolderEndsBeforeTheLastBackslash) {
  EXPECT_EQ(ParentFolder("C:\\game\\dflw.pff"), "C:\\game");
  EXPECT_EQ(ParentFolder("C:\\Карты 地図 é😀\\"), "C:\\Карты 地図 é😀");
  EXPECT_EQ(ParentFolder("C:\\"), "C:");
}

TEST_F(PathTextTest, APathWithoutABackslashHasNoParentFolder) {
  EXPECT_EQ(ErrorOf([] { return ParentFolder(""); }), "5: Invalid procedure call or argument");
  EXPECT_EQ(ErrorOf([] { return ParentFolder("/maps/a.bms"); }), "5: Invalid procedure call or argument");
}

TEST_F(PathTextTest, TheFileNameOfAPathStandsBehindTheLaterSeparator) {
  EXPECT_EQ(GetFileName("C:\\maps/a\\Oasis.bms"), "Oasis.bms");
  EXPECT_EQ(GetFileName("C:\\maps\\a/Oasis.bms"), "Oasis.bms");
  EXPECT_EQ(GetFileName("Oasis.bms"), "Oasis.bms");
  EXPECT_EQ(GetFileName("C:\\maps\\"), "");
}

TEST_F(PathTextTest, AUrlWithAQueryYieldsTheNameBeforeTheQuestionMark) {
  EXPECT_EQ(GetFileName("http://site/maps/Oasis.bms?x=1"), "Oasis.bms");
  EXPECT_EQ(GetFileName("http://site/maps/?x=1"), "");
}

TEST_F(PathTextTest, AUrlWithAQuestionMarkBeforeTheLastSlashYieldsTheTextToItsEnd) {
  EXPECT_EQ(GetFileName("http://site/get?x=/Oasis.bms"), "Oasis.bms");
}

TEST_F(PathTextTest, AUrlWithoutASlashIsCutAtABackslashOrTakenWhole) {
  EXPECT_EQ(GetFileName("http:\\site\\Oasis.bms?x"), "Oasis.bms");
  EXPECT_EQ(GetFileName("mailto:someone"), "mailto:someone");
  EXPECT_EQ(GetFileName("mailto:someone?x"), "mailto:someone");
}

TEST_F(PathTextTest, TheServersNameOfAUrlWinsUnlessItIsEmptyOrNotAskedFor) {
  constexpr const char* kUrl = "http://site/get.php?id=1";
  desktop.internet().Answer(kUrl, {200, {{"Content-Disposition", "attachment; filename=Real.zip"}}, {}});
  EXPECT_EQ(GetFileName(kUrl), "Real.zip");
  ASSERT_EQ(desktop.internet().requests.size(), 1U);
  EXPECT_EQ(desktop.internet().requests[0].method, "GET");
  EXPECT_EQ(GetFileName(kUrl, true), "get.php");
  EXPECT_EQ(desktop.internet().requests.size(), 1U);
  desktop.internet().Answer(kUrl, {200, {}, {}});
  EXPECT_EQ(GetFileName(kUrl), "get.php");
}

TEST_F(PathTextTest, TheServerIsNotAskedForALocalPath) {
  EXPECT_EQ(GetFileName("C:\\maps\\Oasis.bms"), "Oasis.bms");
  EXPECT_TRUE(desktop.internet().requests.empty());
}

TEST_F(PathTextTest, TheExtensionIsBehindTheLastDotWithoutIt) {
  EXPECT_EQ(GetExtension("C:\\maps\\Oasis.old.BMS"), "BMS");
  EXPECT_EQ(GetExtension("Oasis"), "");
  EXPECT_EQ(GetExtension("Oasis."), "");
  EXPECT_EQ(GetExtension("C:\\my.maps\\Oasis"), "maps\\Oasis");
}

TEST_F(PathTextTest, ARangeCountsCharactersFromOneAndTakesBothEnds) {
  EXPECT_EQ(MidRange("abcdef", 2, 4), "bcd");
  EXPECT_EQ(MidRange("abcdef", 1, 100), "abcdef");
  EXPECT_EQ(MidRange("abcdef", 7, 9), "");
  EXPECT_EQ(MidRange("abcdef", 3, 2), "");
  EXPECT_EQ(MidRange("Карты", 2, 3), "ар");
  EXPECT_EQ(MidRange("abc", 1, INT32_MAX), "abc");
}

TEST_F(PathTextTest, ARangeThatStartsBeforeTheTextOrRunsBackwardsFails) {
  EXPECT_EQ(ErrorNumberOf([] { return MidRange("abc", 0, 2); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { return MidRange("abc", 3, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { return MidRange("abc", INT32_MAX, INT32_MIN); }), 5);
}

TEST_F(PathTextTest, TwoArgumentsLeaveAThirdPlaceholderStanding) {
  EXPECT_EQ(FillPlaceholders("%1 %2 %3 %1", {"a", "b"}), "a b %3 a");
}

TEST_F(PathTextTest, AnArgumentThatHoldsALaterPlaceholderIsFilledInItsTurn) {
  EXPECT_EQ(FillPlaceholders("%1", {"<%2%1>", "b"}), "<b%1>");
}

TEST_F(PathTextTest, ArgumentsAreTakenAsTexts) { EXPECT_EQ(FillPlaceholders("%1 %2", {int32_t{7}, true}), "7 True"); }

TEST_F(PathTextTest, NoArgumentsChangeNothing) { EXPECT_EQ(FillPlaceholders("%1", {}), "%1"); }

TEST_F(PathTextTest, AWebAddressIsAUrlAndADrivePathIsNot) {
  EXPECT_TRUE(IsUrl("http://site/Oasis.bms"));
  EXPECT_FALSE(IsUrl("C:\\maps\\Oasis.bms"));
  EXPECT_FALSE(IsUrl(""));
}

TEST_F(PathTextTest, ADownloadIsWrittenAndToldApartFromAFailedOne) {
  desktop.internet().Reply("http://site/Oasis.bms", "map");
  EXPECT_TRUE(DownloadFile("http://site/Oasis.bms", ProgramPath("Oasis.bms")));
  EXPECT_EQ(ReadFile(ProgramPath("Oasis.bms")), "map");
  EXPECT_FALSE(DownloadFile("http://site/missing.bms", ProgramPath("missing.bms")));
}

TEST_F(PathTextTest, OnlineIsWhatThePlatformReports) {
  EXPECT_TRUE(IsOnline());
  desktop.internet().connected = false;
  EXPECT_FALSE(IsOnline());
}

}  // namespace
}  // namespace kestrun
