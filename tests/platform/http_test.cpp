// Requests and answers as they cross between the program and the platform, and where redirects lead.
#include "platform/http.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/http_redirect.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Text(std::string_view content_type, std::string_view body) {
  const ByteView bytes = AsBytes(body);
  return ResponseText({200, {{"content-type", std::string(content_type)}}, Bytes(bytes.begin(), bytes.end())});
}

TEST(Http, TextIsUtf8OnlyWhereItSaysSo) {
  for (const char* type : {"text/html; charset=utf-8", "text/html;charset=UTF8", "x; a=b; Charset=\"utf-8\" ; c"}) {
    EXPECT_EQ(Text(type, "\xC3\xA9"), "é") << type;
  }
  for (const char* type : {"", "text/html", "charset=utf-8", "text/html; charset=", "text/html; charset=utf-16",
                           "text/html; xcharset=utf-8", "text/html; charset"}) {
    EXPECT_EQ(Text(type, "\xC3\xA9"), "Ã©") << type;
  }
}

TEST(Http, BytesThatAreNoUtf8DoNotTravelOn) { EXPECT_EQ(Text("x; charset=utf-8", "a\xFFz"), "a\uFFFDz"); }

TEST(Http, HeaderLinesAreNameColonValue) {
  EXPECT_EQ(ParseHeaderLine("Name:value"), (HttpHeader{"Name", "value"}));
  EXPECT_EQ(ParseHeaderLine("Name: \t a: b \t"), (HttpHeader{"Name", "a: b"}));
  EXPECT_EQ(ParseHeaderLine("Name:"), (HttpHeader{"Name", ""}));
  for (const char* line : {"", "Name", ":value", "Na me: x", "Name : x", " Name: x", "N\xE4me: x"}) {
    EXPECT_EQ(ParseHeaderLine(line), std::nullopt) << line;
  }
}

TEST(Http, LengthsAreDecimalDigits) {
  EXPECT_EQ(ParseLength("0"), 0U);
  EXPECT_EQ(ParseLength("999999999999999999"), 999999999999999999U);
  for (const char* text : {"", "-1", "+1", " 1", "1 ", "0x1", "1000000000000000000"}) {
    EXPECT_EQ(ParseLength(text), std::nullopt) << text;
  }
}

TEST(Http, RequestsThatCouldBeReadInTwoWaysAreMalformed) {
  EXPECT_TRUE(IsWellFormed({"POST", "http://x/a b", {{"Content-Type", "a/b"}}, {}, {}}));
  EXPECT_FALSE(IsWellFormed({"", "http://x/", {}, {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET x", "http://x/", {}, {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/\r\nA: b", {}, {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/", {{"A: b\r\nC", "d"}}, {}, {}}));
  EXPECT_FALSE(IsWellFormed({"GET", "http://x/", {{"A", "b\r\nC: d"}}, {}, {}}));
}

TEST(Http, SomeAnswersHaveNoBodyWhateverTheySay) {
  EXPECT_TRUE(HasNoBody("HEAD", 200));
  for (const int status : {100, 101, 204, 304}) EXPECT_TRUE(HasNoBody("GET", status)) << status;
  for (const int status : {200, 302, 404, 500}) EXPECT_FALSE(HasNoBody("GET", status)) << status;
}

struct Lead {
  const char* location;
  const char* url;
};

TEST(HttpRedirect, LocationsAreSeenFromTheirPage) {
  // The examples of RFC 3986, 5.4, for a page with a query, without its rarer forms.
  for (const Lead& lead : {Lead{"g:h", "g:h"},
                           Lead{"g", "http://a/b/c/g"},
                           Lead{"./g", "http://a/b/c/g"},
                           Lead{"g/", "http://a/b/c/g/"},
                           Lead{"/g", "http://a/g"},
                           Lead{"//g", "http://g"},
                           Lead{"?y", "http://a/b/c/d;p?y"},
                           Lead{"g?y", "http://a/b/c/g?y"},
                           Lead{"g?y/./x", "http://a/b/c/g?y/./x"},
                           Lead{"g#s", "http://a/b/c/g#s"},
                           Lead{".", "http://a/b/c/"},
                           Lead{"./", "http://a/b/c/"},
                           Lead{"..", "http://a/b/"},
                           Lead{"../", "http://a/b/"},
                           Lead{"../g", "http://a/b/g"},
                           Lead{"../..", "http://a/"},
                           Lead{"../../../g", "http://a/g"},
                           Lead{"/../g", "http://a/g"},
                           Lead{"g..", "http://a/b/c/g.."},
                           Lead{"./g/.", "http://a/b/c/g/"},
                           Lead{"x:80/y", "x:80/y"}}) {
    EXPECT_EQ(ResolveLocation("http://a/b/c/d;p?q", lead.location), lead.url) << lead.location;
  }
}

TEST(HttpRedirect, APageWithoutAPathIsTheRoot) {
  EXPECT_EQ(ResolveLocation("http://a", "g"), "http://a/g");
  EXPECT_EQ(ResolveLocation("http://a?q#f", "g"), "http://a/g");
  EXPECT_EQ(ResolveLocation("http://a:8080#f", "?y"), "http://a:8080/?y");
}

// Answers the first request with a redirect and the second with its own shape.
HttpRequest SecondRequest(HttpRequest first, int status, const std::string& location) {
  std::vector<HttpRequest> sent;
  static_cast<void>(FollowRedirects(std::move(first), [&](const HttpRequest& request) {
    sent.push_back(request);
    return sent.size() == 1 ? HttpResponse{status, {{"location", location}}, {}} : HttpResponse{200, {}, {}};
  }));
  return sent.size() == 2 ? sent[1] : HttpRequest();
}

TEST(HttpRedirect, AFormIsNotPostedAgain) {
  const Bytes body{1, 2, 3};
  for (const int status : {301, 302, 303}) {
    const HttpRequest second =
        SecondRequest({"POST", "http://a/b", {{"Content-Type", "x"}, {"Accept", "y"}}, body, {}}, status, "c");
    EXPECT_EQ(second.method, "GET") << status;
    EXPECT_EQ(second.url, "http://a/c") << status;
    EXPECT_THAT(second.headers, ElementsAre(HttpHeader{"Accept", "y"})) << status;
    EXPECT_THAT(second.body, IsEmpty()) << status;
  }
}

TEST(HttpRedirect, TwoStatusesRepeatTheRequest) {
  const Bytes body{1, 2, 3};
  for (const int status : {307, 308}) {
    const HttpRequest second = SecondRequest({"POST", "http://a/b", {{"Content-Type", "x"}}, body, {}}, status, "/c");
    EXPECT_EQ(second.method, "POST") << status;
    EXPECT_THAT(second.headers, ElementsAre(HttpHeader{"Content-Type", "x"})) << status;
    EXPECT_EQ(second.body.size(), 3U) << status;
  }
}

TEST(HttpRedirect, OtherStatusesAndMissingLocationsAreAnswers) {
  EXPECT_EQ(SecondRequest({"GET", "http://a/", {}, {}, {}}, 300, "/c").url, "");
  EXPECT_EQ(SecondRequest({"GET", "http://a/", {}, {}, {}}, 304, "/c").url, "");
  const HttpResponse answer = FollowRedirects({"GET", "http://a/", {}, {}, {}}, [](const HttpRequest&) {
    return HttpResponse{302, {}, {}};
  });
  EXPECT_EQ(answer.status, 302);
}

TEST(HttpRedirect, ASafeConnectionIsNotLeft) {
  EXPECT_EQ(SecondRequest({"GET", "https://a/", {}, {}, {}}, 302, "HTTPS://b/").url, "HTTPS://b/");
  EXPECT_EQ(ErrorOf([] {
              return SecondRequest({"GET", "https://a/", {}, {}, {}}, 302, "http://a/");
            }),
            "440: The server sends the request from a safe connection to an open one.");
}

TEST(HttpRedirect, TenAreFollowedAndNoMore) {
  int sent = 0;
  const auto circle = [&sent](const HttpRequest&) {
    ++sent;
    return HttpResponse{302, {{"Location", "/"}}, {}};
  };
  EXPECT_EQ(ErrorOf([&] {
              return FollowRedirects({"GET", "http://a/", {}, {}, {}}, circle);
            }),
            "440: The server sends the request from place to place.");
  EXPECT_EQ(sent, 11);
}

using HeadlessHttpTest = HeadlessTest;

TEST_F(HeadlessHttpTest, RequestsGetWhatIsLaidDown) {
  desktop.internet().Answer("http://x/", {404, {{"A", "b"}}, {1, 2}});
  int events = 0;
  const Bytes body{'h', 'i'};
  const auto response = platform().internet().Send({"PUT", "http://x/", {{"C", "d"}}, body, [&events] { ++events; }});
  ASSERT_TRUE(response.has_value());
  EXPECT_EQ(response->status, 404);
  EXPECT_EQ(response->Header("a"), "b");
  EXPECT_EQ(response->body, (Bytes{1, 2}));
  EXPECT_EQ(events, 2);
  EXPECT_THAT(desktop.internet().requests, ElementsAre(SentRequest{"PUT", "http://x/", {{"C", "d"}}, "hi"}));
}

TEST_F(HeadlessHttpTest, AUrlWithoutAnAnswerFails) {
  EXPECT_FALSE(platform().internet().Send({"GET", "http://x/", {}, {}, {}}).has_value());
  EXPECT_THAT(desktop.internet().requests, testing::SizeIs(1));
}

}  // namespace
}  // namespace kestrun
