// ClsHTTP by name, and its way with the message loop.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/convert.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"
#include "web/cls_http.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kUrl = "http://site/map";

class HttpMembersTest : public HeadlessTest {
 protected:
  void Answer(std::string_view body) {
    const ByteView bytes = AsBytes(body);
    desktop.internet().Answer(kUrl,
                              {200, {{"Content-Disposition", "x; filename=a.zip"}}, Bytes(bytes.begin(), bytes.end())});
  }

  // How often the message loop runs during one request.
  int PassesDuringARequest() {
    int passes = 0;
    std::function<void()> task = [&] {
      ++passes;
      desktop.clock().Post(task);
    };
    desktop.clock().Post(task);
    static_cast<void>(http->DownloadURl(kUrl, "GET"));
    desktop.clock().Clear();
    return passes;
  }

  Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
};

TEST_F(HttpMembersTest, MembersStandInTheOrderOfTheirSlots) {
  std::vector<std::string> names;
  for (const MemberInfo& member : http->ListMembers()) names.push_back(member.name);
  EXPECT_THAT(names, ElementsAre("AddParameter", "ClearParameters", "GetURLFileName", "GetURLHeader", "DownloadURl",
                                 "EncodeBase64"));
  EXPECT_EQ(http->TypeName(), "ClsHTTP");
}

TEST_F(HttpMembersTest, EveryOperationWorksByName) {
  Answer("page");
  CallMember(*http, "addparameter", {"a", "foob", true, "text/plain"});
  EXPECT_EQ(ToText(CallMember(*http, "DownloadUrl", {kUrl, "POST"})), "page");
  EXPECT_THAT(desktop.internet().requests.back().body, HasSubstr("Zm9vYg"));
  CallMember(*http, "ClearParameters");
  EXPECT_EQ(ToText(CallMember(*http, "GetURLFileName", {kUrl, "GET"})), "a.zip");
  EXPECT_EQ(desktop.internet().requests.back().body, "");
  EXPECT_EQ(ToText(CallMember(*http, "GetURLHeader", {kUrl, "content-disposition", "GET"})), "x; filename=a.zip");
  EXPECT_EQ(ToText(CallMember(*http, "EncodeBase64", {"f"})), "Zg");
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*http, "AddParameter", {"a"}); }), error::kWrongArgumentCount);
}

TEST_F(HttpMembersTest, AOneByteStringEncodesToTwoCharacters) { EXPECT_EQ(http->EncodeBase64("A"), "QQ"); }

TEST_F(HttpMembersTest, AnEmptyStringEncodesToAnEmptyString) { EXPECT_EQ(http->EncodeBase64(""), ""); }

TEST_F(HttpMembersTest, TextIsEncodedAsTheBytesOfTheCodePage) { EXPECT_EQ(http->EncodeBase64("é€地"), "6YA/"); }

TEST_F(HttpMembersTest, TheMessageLoopStandsStillDuringARequest) {
  Answer("page");
  EXPECT_EQ(PassesDuringARequest(), 0);
}

TEST_F(HttpMembersTest, WhenAskedForTheLoopRunsOnceForTheStartAndOnceForEachPiece) {
  http->RunEventsWhileWaiting(true);
  Answer("page");
  EXPECT_EQ(PassesDuringARequest(), 2);
  Answer("");
  EXPECT_EQ(PassesDuringARequest(), 1);
}

TEST_F(HttpMembersTest, AHandlerThatClearsTheParametersDoesNotChangeTheRequestInFlight) {
  Answer("page");
  http->AddParameter("a", "value", false, "text/plain");
  http->RunEventsWhileWaiting(true);
  desktop.clock().Post([this] { http->ClearParameters(); });
  EXPECT_EQ(http->DownloadURl(kUrl, "POST"), "page");
  EXPECT_THAT(desktop.internet().requests.back().body, HasSubstr("value"));
  EXPECT_EQ(http->Body(), "");
}

}  // namespace
}  // namespace kestrun
