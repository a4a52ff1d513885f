// ClsHTTP against a real server on this machine, through the real client of the platform.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "web/loopback_fixture.h"

namespace kestrun {
namespace {

using HttpRequestTest = LoopbackTest;

TEST_F(HttpRequestTest, APlainRequestGivesThePage) {
  server.AnswerPage("/page?x=1", "Content-Type: text/html\r\n", "<html>page</html>");
  EXPECT_EQ(Get("/page?x=1"), "<html>page</html>");
  EXPECT_EQ(LastServed().line, "GET /page?x=1 HTTP/1.1");
}

TEST_F(HttpRequestTest, APlainRequestHasAnEmptyBodyAndNoContentType) {
  server.AnswerPage("/", "", "x");
  EXPECT_EQ(http.DownloadURl(server.Url("/"), "POST"), "x");
  EXPECT_EQ(LastServed().line, "POST / HTTP/1.1");
  EXPECT_EQ(LastServed().Header("Content-Length"), "0");
  EXPECT_EQ(LastServed().Header("Content-Type"), "");
  EXPECT_EQ(LastServed().body, "");
}

TEST_F(HttpRequestTest, TheUrlWithoutAPathAsksForTheRoot) {
  server.AnswerPage("/", "", "root");
  EXPECT_EQ(Get(""), "root");
}

TEST_F(HttpRequestTest, WhatStandsBehindTheNumberSignStaysHere) {
  server.AnswerPage("/page", "", "page");
  EXPECT_EQ(Get("/page#part"), "page");
}

TEST_F(HttpRequestTest, BlanksAndLettersOfAnyScriptAreEscapedInTheUrl) {
  server.AnswerPage("/Desert%20Storm%20%D0%9A.bms", "", "BMS");
  EXPECT_EQ(Get("/Desert Storm К.bms"), "BMS");
  EXPECT_EQ(Get("/Desert%20Storm%20%D0%9A.bms"), "BMS");
}

TEST_F(HttpRequestTest, ParametersArriveByteForByte) {
  server.AnswerPage("/upload.php", "", "[UPLOAD SUCCESS]");
  http.AddParameter("name", "é", false, "text/plain");
  http.AddParameter("map", "foob", true, "application/zip");
  EXPECT_EQ(http.DownloadURl(server.Url("/upload.php"), "POST"), "[UPLOAD SUCCESS]");
  EXPECT_EQ(LastServed().Header("Content-Type"), "multipart/form-data; boundary=Xu02=$");
  EXPECT_EQ(LastServed().Header("Content-Length"), std::to_string(LastServed().body.size()));
  EXPECT_EQ(LastServed().body,
            "--Xu02=$\r\n"
            "Content-Disposition: form-data; name=\"name\"\r\n"
            "Content-type: text/plain\r\n"
            "Content-Length: 1\r\n"
            "\r\n"
            "\xE9\r\n"
            "--Xu02=$--\r\n"
            "--Xu02=$\r\n"
            "Content-Disposition: form-data; name=\"map\"\r\n"
            "Content-type: application/zip\r\n"
            "Content-Length: 6\r\n"
            "\r\n"
            "Zm9vYg\r\n"
            "--Xu02=$--\r\n");
}

TEST_F(HttpRequestTest, ALargeMapArrivesWhole) {
  server.AnswerPage("/upload.php", "", "ok");
  http.AddParameter("map", std::string(3000000, 'x'), true, "application/zip");
  EXPECT_EQ(http.DownloadURl(server.Url("/upload.php"), "POST"), "ok");
  EXPECT_EQ(LastServed().body, http.Body());
}

TEST_F(HttpRequestTest, APageThatIsNotThereIsAResultLikeAnyOther) { EXPECT_EQ(Get("/nothing"), "not found"); }

TEST_F(HttpRequestTest, AnErrorOfTheServerIsAResultLikeAnyOther) {
  server.Answer("/", "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 6\r\nConnection: close\r\n\r\nbroken");
  EXPECT_EQ(Get("/"), "broken");
}

TEST_F(HttpRequestTest, ARedirectIsFollowed) {
  server.Answer("/old", "HTTP/1.1 301 Moved Permanently\r\nLocation: " + server.Url("/new") +
                            "\r\nContent-Length: 3\r\nConnection: close\r\n\r\nold");
  server.AnswerPage("/new", "", "new");
  EXPECT_EQ(Get("/old"), "new");
}

TEST_F(HttpRequestTest, ARedirectToAPathOfTheSameServerIsFollowed) {
  server.Answer("/a/old", "HTTP/1.1 302 Found\r\nLocation: /new?x\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  server.Answer("/b/old", "HTTP/1.1 302 Found\r\nLocation: new\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  server.AnswerPage("/new?x", "", "root");
  server.AnswerPage("/b/new", "", "beside");
  EXPECT_EQ(Get("/a/old"), "root");
  EXPECT_EQ(Get("/b/old"), "beside");
}

TEST_F(HttpRequestTest, APostThatIsSentElsewhereAsksThereWithoutItsBody) {
  server.Answer("/form", "HTTP/1.1 302 Found\r\nLocation: /done\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  server.AnswerPage("/done", "", "done");
  http.AddParameter("a", "1", false, "text/plain");
  EXPECT_EQ(http.DownloadURl(server.Url("/form"), "POST"), "done");
  EXPECT_EQ(LastServed().line, "GET /done HTTP/1.1");
  EXPECT_EQ(LastServed().body, "");
}

TEST_F(HttpRequestTest, ACircleOfRedirectsEndsAsAFailure) {
  server.Answer("/", "HTTP/1.1 302 Found\r\nLocation: /\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  EXPECT_EQ(Get("/"), "");
  EXPECT_LT(server.Requests().size(), 30U);
}

TEST_F(HttpRequestTest, TheFileNameStandsBehindItsMark) {
  server.AnswerPage("/map", "Content-Disposition: attachment; filename=\"my map.zip\"; filename=second\r\n", "x");
  EXPECT_EQ(http.GetURLFileName(server.Url("/map"), "GET"), "\"my map.zip\"; filename=second");
}

TEST_F(HttpRequestTest, ADispositionWithoutAFileNameGivesNone) {
  server.AnswerPage("/inline", "Content-Disposition: inline\r\n", "x");
  server.AnswerPage("/close", "Content-Disposition: attachment;filename=a.zip\r\n", "x");
  server.AnswerPage("/case", "Content-Disposition: attachment; FileName=a.zip\r\n", "x");
  for (const char* path : {"/inline", "/close", "/case"}) {
    EXPECT_EQ(http.GetURLFileName(server.Url(path), "GET"), "") << path;
  }
}

TEST_F(HttpRequestTest, WithoutADispositionThereIsNoFileName) {
  server.AnswerPage("/", "", "x");
  EXPECT_EQ(http.GetURLFileName(server.Url("/"), "GET"), "");
}

TEST_F(HttpRequestTest, AHeaderIsFoundInAnyCaseAndTheFirstOfSeveral) {
  server.AnswerPage("/", "X-Map:   first  \r\nx-map: second\r\n", "x");
  EXPECT_EQ(http.GetURLHeader(server.Url("/"), "x-MAP", "GET"), "first");
  EXPECT_EQ(http.GetURLHeader(server.Url("/"), "X-None", "GET"), "");
}

TEST_F(HttpRequestTest, TheHeadAloneCanBeAskedFor) {
  server.Answer("/", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\nX-Map: a\r\nConnection: close\r\n\r\n");
  EXPECT_EQ(http.GetURLHeader(server.Url("/"), "X-Map", "HEAD"), "a");
  EXPECT_EQ(LastServed().line, "HEAD / HTTP/1.1");
}

TEST_F(HttpRequestTest, AHeaderOfAPackedAnswerIsFoundWhileItsBodyIsRefused) {
  server.Answer("/",
                "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Disposition: x; filename=a.zip\r\n"
                "Content-Length: 2\r\nConnection: close\r\n\r\n\x1f\x8b");
  EXPECT_EQ(http.GetURLHeader(server.Url("/"), "Content-Encoding", "GET"), "gzip");
  EXPECT_EQ(http.GetURLFileName(server.Url("/"), "GET"), "a.zip");
  EXPECT_EQ(Get("/"), "");
}

TEST_F(HttpRequestTest, ARequestBesideWhichTheWindowsStayUsableGetsTheSameAnswer) {
  server.AnswerPage("/", "Content-Type: text/plain; charset=utf-8\r\n", "Grüße " + std::string(300000, 'x'));
  const std::string waited_for = Get("/");
  int times = 0;
  http.StayUsable([&] { return ++times, true; });
  http.AddParameter("a", "b", false, "file");
  EXPECT_EQ(http.DownloadURl(server.Url("/"), "POST"), waited_for);
  EXPECT_GT(times, 0);
  EXPECT_EQ(LastServed().body, http.Body());
}

TEST_F(HttpRequestTest, ARequestThatIsLeftGivesNothing) {
  // The server's thread may look at it when this test is over.
  const auto is_left = std::make_shared<std::atomic<bool>>(false);
  server.Handle("/", [is_left](ServedConnection& connection) {
    while (!*is_left) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    connection.Write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\nlate");
  });
  int times = 0;
  http.StayUsable([&] { return ++times < 50; });
  EXPECT_EQ(Get("/"), "");
  EXPECT_EQ(times, 50);
  *is_left = true;
}

TEST_F(HttpRequestTest, ABodyInChunksIsPutTogether) {
  server.Answer("/",
                "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n"
                "4\r\nfirs\r\n1;note=x\r\nt\r\n0B\r\n and a-last\r\n0\r\nX-Trailer: y\r\n\r\n");
  EXPECT_EQ(Get("/"), "first and a-last");
}

TEST_F(HttpRequestTest, ABodyWithoutALengthEndsWithItsConnection) {
  server.Answer("/", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\nto the end");
  EXPECT_EQ(Get("/"), "to the end");
}

TEST_F(HttpRequestTest, TextIsReadByItsCharset) {
  server.AnswerPage("/utf8", "Content-Type: text/html; charset=\"UTF-8\"\r\n", "Карта");
  server.AnswerPage("/latin", "Content-Type: text/html; charset=iso-8859-1\r\n", "\xE9");
  server.AnswerPage("/plain", "", "\xE9");
  EXPECT_EQ(Get("/utf8"), "Карта");
  EXPECT_EQ(Get("/latin"), "é");
  EXPECT_EQ(Get("/plain"), "é");
}

TEST_F(HttpRequestTest, ASlowServerIsWaitedFor) {
  server.Handle("/", [](ServedConnection& connection) {
    connection.Write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\n");
    for (const char* letter : {"s", "l", "o", "w"}) {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      connection.Write(letter);
    }
  });
  EXPECT_EQ(Get("/"), "slow");
}

TEST_F(HttpRequestTest, EventsRunWhileWaitingOnlyWhenAskedFor) {
  server.AnswerPage("/", "", "x");
  bool ran = false;
  desktop.clock().Post([&] { ran = true; });
  EXPECT_EQ(Get("/"), "x");
  EXPECT_FALSE(ran);
  http.RunEventsWhileWaiting(true);
  EXPECT_EQ(Get("/"), "x");
  EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace kestrun
