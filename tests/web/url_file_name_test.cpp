// The name of a file on the web, asked from a real server.
#include "program/path_text.h"
#include "web/loopback_fixture.h"

namespace kestrun {
namespace {

using UrlFileNameTest = LoopbackTest;

TEST_F(UrlFileNameTest, TheServersNameGoesBeforeTheOneInTheAddress) {
  server.AnswerPage("/fetch.php", "Content-Disposition: attachment; filename=maps.zip\r\n", "PK");
  EXPECT_EQ(GetFileName(server.Url("/fetch.php")), "maps.zip");
}

TEST_F(UrlFileNameTest, WithoutAnAnswerTheAddressNamesTheFile) {
  server.AnswerPage("/Oasis.bms", "", "BMS");
  EXPECT_EQ(GetFileName(server.Url("/Oasis.bms")), "Oasis.bms");
  EXPECT_EQ(GetFileName("http://127.0.0.1:" + std::to_string(ClosedPort()) + "/River.bms"), "River.bms");
}

TEST_F(UrlFileNameTest, NoServerIsAskedWhereItMustNotBe) {
  EXPECT_EQ(GetFileName(server.Url("/Oasis.bms"), true), "Oasis.bms");
  EXPECT_TRUE(server.Requests().empty());
}

}  // namespace
}  // namespace kestrun
