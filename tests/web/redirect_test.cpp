// Where redirects lead, and what is asked for there.
#include "web/redirect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_number.h"

namespace kestrun {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
        SecondRequest({"POST", "http://a/b", {{"Content-Type", "x"}, {"Accept", "y"}}, body}, status, "c");
    EXPECT_EQ(second.method, "GET") << status;
    EXPECT_EQ(second.url, "http://a/c") << status;
    EXPECT_THAT(second.headers, ElementsAre(HttpHeader{"Accept", "y"})) << status;
    EXPECT_THAT(second.body, IsEmpty()) << status;
  }
}

TEST(HttpRedirect, TwoStatusesRepeatTheRequest) {
  const Bytes body{1, 2, 3};
  for (const int status : {307, 308}) {
    const HttpRequest second = SecondRequest({"POST", "http://a/b", {{"Content-Type", "x"}}, body}, status, "/c");
    EXPECT_EQ(second.method, "POST") << status;
    EXPECT_THAT(second.headers, ElementsAre(HttpHeader{"Content-Type", "x"})) << status;
    EXPECT_EQ(second.body.size(), 3U) << status;
  }
}

TEST(HttpRedirect, OtherStatusesAndMissingLocationsAreAnswers) {
  EXPECT_EQ(SecondRequest({"GET", "http://a/", {}, {}}, 300, "/c").url, "");
  EXPECT_EQ(SecondRequest({"GET", "http://a/", {}, {}}, 304, "/c").url, "");
  const HttpResponse answer = FollowRedirects({"GET", "http://a/", {}, {}}, [](const HttpRequest&) {
    return HttpResponse{302, {}, {}};
  });
  EXPECT_EQ(answer.status, 302);
}

TEST(HttpRedirect, ASafeConnectionIsNotLeft) {
  EXPECT_EQ(SecondRequest({"GET", "https://a/", {}, {}}, 302, "HTTPS://b/").url, "HTTPS://b/");
  EXPECT_EQ(ErrorOf([] {
              return SecondRequest({"GET", "https://a/", {}, {}}, 302, "http://a/");
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
              return FollowRedirects({"GET", "http://a/", {}, {}}, circle);
            }),
            "440: The server sends the request from place to place.");
  EXPECT_EQ(sent, 11);
}

}  // namespace
}  // namespace kestrun
