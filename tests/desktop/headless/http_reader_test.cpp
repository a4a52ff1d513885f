// Answers as they come off the wire, whole and broken. Windows has its own reader.
#ifndef _WIN32

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "desktop/headless/socket_http.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

using testing::ElementsAre;

// Hands the text out in pieces of at most so many bytes.
class Wire {
 public:
  Wire(std::string text, size_t most) : text_(std::move(text)), most_(most) {}
  size_t operator()(std::span<char> buffer) {
    ++calls;
    const size_t count = std::min({buffer.size(), most_, text_.size() - at_});
    std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(at_), count, buffer.begin());
    at_ += count;
    return count;
  }
  int calls = 0;

 private:
  std::string text_;
  size_t most_;
  size_t at_ = 0;
};

// Keeps what it is handed, and leaves after so many bytes.
class Keeper final : public HttpReceiver {
 public:
  bool TakeHead(int status, const HttpHeaders& headers) override {
    response = {status, headers, {}};
    return leave_after > 0;
  }
  bool TakePiece(ByteView piece) override {
    ++pieces;
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    return response.body.size() < leave_after;
  }
  HttpResponse response;
  int pieces = 0;
  size_t leave_after = SIZE_MAX;
};

HttpResponse Read(const std::string& text, const std::string& method = "GET", size_t most = 4096) {
  Keeper keeper;
  ReadHttpAnswer(method, Wire(text, most), keeper);
  return keeper.response;
}

std::string Body(const std::string& text) {
  const HttpResponse response = Read(text);
  return std::string(AsChars(response.body));
}

std::string FailureOf(const std::string& text) {
  return ErrorOf([&] { return Read(text); });
}

constexpr const char* kChunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: Chunked\r\n\r\n";

TEST(HttpReader, HeadAndBodyAreTakenApart) {
  const HttpResponse response = Read("HTTP/1.0 404 Not Found\r\nA: b\r\na:  \xE9  \r\nContent-Length: 3\r\n\r\nabcdef");
  EXPECT_EQ(response.status, 404);
  EXPECT_THAT(response.headers,
              ElementsAre(HttpHeader{"A", "b"}, HttpHeader{"a", "é"}, HttpHeader{"Content-Length", "3"}));
  EXPECT_EQ(AsChars(response.body), "abc");
}

TEST(HttpReader, PiecesOfAnySizeGiveTheSame) {
  const std::string text = std::string(kChunked) + "5\r\nfirst\r\n6 ; x=y\r\nsecond\r\n0\r\nT: x\r\n\r\n";
  for (const size_t most : {1U, 2U, 3U, 7U, 4096U}) {
    const HttpResponse response = Read(text, "GET", most);
    EXPECT_EQ(AsChars(response.body), "firstsecond") << most;
  }
}

TEST(HttpReader, LinesMayEndInALineFeedAlone) { EXPECT_EQ(Body("HTTP/1.1 200\nContent-Length: 1\n\nx"), "x"); }

TEST(HttpReader, ChunksGoBeforeALength) {
  EXPECT_EQ(Body("HTTP/1.1 200 OK\r\nContent-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n"),
            "abc");
}

TEST(HttpReader, InterimAnswersGoBeforeTheRealOne) {
  EXPECT_EQ(Body("HTTP/1.1 100 Continue\r\nX: y\r\n\r\nHTTP/1.1 200 OK\r\n\r\nbody"), "body");
  std::string endless;
  for (int at = 0; at < 100; ++at) endless += "HTTP/1.1 103 Early Hints\r\n\r\n";
  EXPECT_EQ(FailureOf(endless), "440: The answer never begins.");
}

TEST(HttpReader, AnAnswerToHeadHasNoBody) {
  EXPECT_TRUE(Read("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n", "HEAD").body.empty());
}

TEST(HttpReader, TheBodyIsHandedOnAsItArrives) {
  Keeper keeper;
  ReadHttpAnswer("GET", Wire("HTTP/1.1 200 OK\r\n\r\nabcdefgh", 21), keeper);
  EXPECT_EQ(keeper.pieces, 2);
  EXPECT_EQ(AsChars(keeper.response.body), "abcdefgh");
}

TEST(HttpReader, AReceiverThatHasEnoughLeavesTheRest) {
  for (const char* head : {"Content-Length: 99", "Transfer-Encoding: chunked", "X: y"}) {
    const bool is_chunked = std::string_view(head).starts_with('T');
    const std::string text = std::string("HTTP/1.1 200 OK\r\n") + head + "\r\n\r\n" + (is_chunked ? "63\r\n" : "");
    Keeper keeper;
    keeper.leave_after = 2;
    Wire wire(text + "abcdefgh", text.size() + 3);
    ReadHttpAnswer("GET", std::ref(wire), keeper);
    EXPECT_EQ(AsChars(keeper.response.body), "abc") << head;
    Keeper no_body;
    no_body.leave_after = 0;
    ReadHttpAnswer("GET", Wire(text + "abc", 4096), no_body);
    EXPECT_EQ(no_body.response.status, 200) << head;
    EXPECT_TRUE(no_body.response.body.empty()) << head;
  }
}

TEST(HttpReader, StatusLinesThatAreNoHttpAreRefused) {
  for (const char* line : {"HTTP/2 200 OK", "HTTP/1.1 20", "HTTP/1.1 2000", "HTTP/1.1 abc", "HTTP/1.1 099 x",
                           "HTTP/1.1200 OK", "ICY 200 OK", "", "<html>"}) {
    EXPECT_EQ(FailureOf(std::string(line) + "\r\n\r\n"), "440: The answer is no HTTP.") << line;
  }
}

TEST(HttpReader, HeadsThatAreMalformedAreRefused) {
  for (const char* line : {"no colon", ": no name", " folded: x", "bl ank: x"}) {
    EXPECT_EQ(FailureOf("HTTP/1.1 200 OK\r\n" + std::string(line) + "\r\n\r\n"), "440: The answer's head is malformed.")
        << line;
  }
}

TEST(HttpReader, HeadsHaveALimit) {
  const std::string start = "HTTP/1.1 200 OK\r\n";
  EXPECT_EQ(FailureOf(start + "A: " + std::string(20000, 'x')), "440: A line of the answer is too long.");
  std::string lines;
  for (int at = 0; at < 7000; ++at) lines += "A: 012345\r\n";
  EXPECT_EQ(FailureOf(start + lines), "440: The answer's head is too long.");
  EXPECT_EQ(FailureOf(kChunked + std::string("0\r\n") + lines), "440: The answer's head is too long.");
}

TEST(HttpReader, AnAnswerThatEndsEarlyIsRefused) {
  const std::string whole = std::string(kChunked) + "5\r\nfirst\r\n0\r\n\r\n";
  for (size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(FailureOf(whole.substr(0, length)), "440: The answer is cut off.") << length;
  }
  EXPECT_EQ(FailureOf("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n1234"), "440: The answer is cut off.");
}

TEST(HttpReader, ChunksThatLieAreRefused) {
  for (const char* size : {"", "x", "-1", "0x1", ";1", "1000000000000000"}) {
    EXPECT_EQ(FailureOf(kChunked + std::string(size) + "\r\n"), "440: A chunk of the answer has no size.") << size;
  }
  EXPECT_EQ(FailureOf(kChunked + std::string("2\r\nabc\r\n0\r\n\r\n")),
            "440: A chunk of the answer is longer than its size.");
}

TEST(HttpReader, UnknownCodingsAndLengthsAreRefused) {
  EXPECT_EQ(FailureOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: gzip, chunked\r\n\r\n"),
            "440: The answer is coded in an unknown way.");
  EXPECT_EQ(FailureOf("HTTP/1.1 200 OK\r\nContent-Length: 1, 1\r\n\r\nx"), "440: The answer's length is no number.");
}

}  // namespace
}  // namespace kestrun

#endif  // _WIN32
