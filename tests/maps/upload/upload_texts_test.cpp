// What goes with an upload as text: comments files, names, replies.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/code_page.h"
#include "base/text_file.h"
#include "maps/upload/map_comments.h"
#include "maps/upload/mission_check.h"
#include "maps/upload/upload_post.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(MapCommentsTest, LinesBeforeAddonsAreCommentsAndThoseBehindAreAddons) {
  const MapComments words = SplitComments("[COMMENTS]\r\none\r\n\r\ntwo\r\n[ADDONS]\r\nthree\r\n");
  EXPECT_EQ(words.comments, "one\r\n\r\ntwo\r\n");
  EXPECT_EQ(words.addons, "three\r\n");
}

TEST(MapCommentsTest, EachLineGetsItsEndHoweverTheFileHasIt) {
  EXPECT_EQ(SplitComments("one\rtwo\nthree").comments, "one\r\ntwo\r\nthree\r\n");
}

TEST(MapCommentsTest, AMarkIsALineOfItsOwnInItsOwnCase) {
  const MapComments words = SplitComments(" [ADDONS]\r\n[addons]\r\n[ADDONS]\r\n[COMMENTS]\r\n[ADDONS]\r\nx");
  EXPECT_EQ(words.comments, " [ADDONS]\r\n[addons]\r\n");
  EXPECT_EQ(words.addons, "x\r\n");
}

TEST(MapCommentsTest, AnEmptyFileHasNoLines) {
  EXPECT_EQ(SplitComments("").comments, "");
  EXPECT_EQ(SplitComments("[ADDONS]").addons, "");
}

TEST(TextFileTest, ATextGoesThroughAFileInTheCodePageOrElseInUtf8) {
  EXPECT_EQ(EncodeTextFile("é"), "\xE9");
  EXPECT_EQ(DecodeTextFile("\xE9"), "é");
  EXPECT_EQ(EncodeTextFile("é地"), "\xEF\xBB\xBFé地");
  EXPECT_EQ(DecodeTextFile(EncodeTextFile("é地")), "é地");
  EXPECT_EQ(DecodeTextFile("\xEF\xBB\xBF\xFF"), "\xEF\xBF\xBD") << "what is no UTF-8 does not pass for it";
}

TEST(MissionNameTest, AFileNamesAMissionInAnyCaseAndAnywhere) {
  EXPECT_TRUE(FileNamesMission("my oasis final.zip", "Oasis"));
  EXPECT_TRUE(FileNamesMission("oasis.zip", "oasis.ZIP"));
  EXPECT_FALSE(FileNamesMission("oasis.zip", "Desert"));
}

TEST(MissionNameTest, SignsThatNoFileNameCanHaveStandForAnything) {
  EXPECT_TRUE(FileNamesMission("what now 1.zip", "What now?"));
  EXPECT_TRUE(FileNamesMission("[ctf] oasis.zip", "[CTF] Oasis"));
}

TEST(MissionNameTest, AMissionWithoutANameIsInNoFilesName) {
  EXPECT_FALSE(FileNamesMission("oasis.zip", ""));
  EXPECT_FALSE(FileNamesMission("oasis.zip", "   "));
}

TEST(MissionNameTest, TheServicesSignsGoBeforeTheNameIsCut) {
  EXPECT_EQ(ServiceMissionName("[A]? 'B' *\"C\"/\\"), "A B C");
  EXPECT_EQ(ServiceMissionName("[" + std::string(40, 'x')), std::string(32, 'x'));
  EXPECT_EQ(ServiceMissionName(""), "");
}

TEST(UploadReplyTest, TheGamesStandBehindALineThatIsExactlyOk) {
  EXPECT_THAT(GamesOf("OK\nDelta Force\nDelta Force 2"), ElementsAre("Delta Force", "Delta Force 2"));
  EXPECT_THAT(GamesOf("OK\nDelta Force\n"), ElementsAre("Delta Force"));
  for (const char* other : {"", "ok\nDelta Force", "OK \nDelta Force", "OK\r\nDelta Force", "ERROR\nDelta Force"}) {
    EXPECT_THAT(GamesOf(other), IsEmpty()) << other;
  }
}

TEST(UploadReplyTest, NoMoreThanAThousandGamesAreTaken) {
  std::string reply = "OK\n";
  for (int game = 0; game < 5000; ++game) reply += "game\n";
  EXPECT_EQ(GamesOf(reply).size(), 1000U);
}

TEST(UploadReplyTest, TheMarkMayStandAnywhere) {
  EXPECT_TRUE(IsUploaded("<p>[UPLOAD SUCCESS]</p>"));
  EXPECT_FALSE(IsUploaded("[UPLOAD success]"));
  EXPECT_FALSE(IsUploaded(""));
}

class UploadRequestTest : public HeadlessTest {};

TEST_F(UploadRequestTest, BytesOfFilesGoAsTheyAreOnEveryCodePage) {
  const Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
  http->AddFile("map", AsBytes("\x81\x8D\xFF"), "file");
  EXPECT_EQ(http->Body(),
            "--Xu02=$\r\nContent-Disposition: form-data; name=\"map\"\r\nContent-type: file\r\n"
            "Content-Length: 4\r\n\r\ngY3/\r\n--Xu02=$--\r\n");
}

TEST_F(UploadRequestTest, TheParametersOfAnEarlierMapAreGone) {
  const Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
  MapUpload upload;
  upload.user = "neo";
  SetUploadParameters(*http, upload);
  const std::string body = http->Body();
  SetUploadParameters(*http, upload);
  EXPECT_EQ(http->Body(), body);
}

TEST_F(UploadRequestTest, APasswordInAReplyIsCoveredPlainAndEncoded) {
  EXPECT_EQ(WithoutPassword("sesame, c2VzYW1l", "sesame"), "****, ****");
  EXPECT_EQ(WithoutPassword("abcabc", "abc"), "abcabc") << "a short one may be part of any word";
  EXPECT_EQ(WithoutPassword("nothing", ""), "nothing");
}

}  // namespace
}  // namespace kestrun
