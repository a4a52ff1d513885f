// An exchange that is left, or that waits for its reader, at each of its steps. The server serves one connection after
// the other, so that a page of its own shows that the one before has gone.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "web/loopback_fixture.h"

namespace kestrun {
namespace {

constexpr size_t kPieceBytes = 1 << 16;
const std::string kHead = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";

class Taker final : public HttpReceiver {
 public:
  bool TakeHead(int status, const HttpHeaders&) override {
    is_head_there = status == 200;
    return true;
  }
  bool TakePiece(ByteView piece) override {
    for (const uint8_t byte : piece) is_as_sent &= byte == static_cast<uint8_t>(bytes++ >> 16);
    return true;
  }
  bool is_head_there = false;
  bool is_as_sent = true;
  size_t bytes = 0;
};

class LeftExchangeTest : public LoopbackTest {
 protected:
  LeftExchangeTest() { server.AnswerPage("/page", "", "served"); }

  // An answer of so many pieces, each of its own number's byte; as many as the reader takes with none.
  void Serve(int pieces = 0) {
    server.Handle("/pieces", [this, pieces](ServedConnection& connection) {
      if (!connection.Write(kHead)) return;
      for (int piece = 0; pieces == 0 || piece < pieces; ++piece) {
        if (!connection.Write(std::string(kPieceBytes, static_cast<char>(piece)))) return;
        ++sent;
      }
    });
  }
  [[nodiscard]] std::unique_ptr<HttpExchange> Start() {
    HttpRequest request;
    request.method = "GET";
    request.url = server.Url("/pieces");
    return session->Start(request);
  }
  // The reader takes nothing: the server gets rid of no more once all that lies between is full. It has sent something
  // already, as the head is there.
  void WaitUntilTheServerIsHeldUp() const {
    for (int before = -1; sent != before;) {
      before = sent;
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
    }
  }
  void ExpectThatTheServerIsFree() { EXPECT_EQ(Get("/page"), "served"); }

  const std::unique_ptr<HttpSession> session = desktop.internet().transport();
  std::atomic<int> sent = 0;
};

TEST_F(LeftExchangeTest, LeftBeforeAnythingArrived) {
  Serve();
  static_cast<void>(Start());
  ExpectThatTheServerIsFree();
}

TEST_F(LeftExchangeTest, LeftWhileTheServerSaysNothing) {
  const auto is_asked = std::make_shared<std::atomic<bool>>(false);
  const auto may_go = std::make_shared<std::atomic<bool>>(false);
  server.Handle("/pieces", [is_asked, may_go](ServedConnection&) {
    *is_asked = true;
    while (!*may_go) std::this_thread::yield();
  });
  bool goes_on = true;
  {
    const std::unique_ptr<HttpExchange> exchange = Start();
    Taker taker;
    while (!*is_asked && goes_on) goes_on = exchange->Advance(taker, 10);
    EXPECT_FALSE(taker.is_head_there);
  }
  *may_go = true;
  ASSERT_TRUE(goes_on);
  ExpectThatTheServerIsFree();
}

TEST_F(LeftExchangeTest, LeftBehindTheHead) {
  Serve();
  {
    const std::unique_ptr<HttpExchange> exchange = Start();
    Taker taker;
    while (!taker.is_head_there) ASSERT_TRUE(exchange->Advance(taker, 10));
  }
  ExpectThatTheServerIsFree();
}

TEST_F(LeftExchangeTest, LeftInTheMiddleOfTheBody) {
  Serve();
  for (const size_t bytes : {size_t{1}, kPieceBytes + 1, kPieceBytes * 40}) {
    {
      const std::unique_ptr<HttpExchange> exchange = Start();
      Taker taker;
      while (taker.bytes < bytes) ASSERT_TRUE(exchange->Advance(taker, 10));
      EXPECT_TRUE(taker.is_as_sent);
    }
    ExpectThatTheServerIsFree();
  }
}

TEST_F(LeftExchangeTest, LeftWhileItWaitsForItsReader) {
  Serve();
  {
    const std::unique_ptr<HttpExchange> exchange = Start();
    Taker taker;
    while (!taker.is_head_there) ASSERT_TRUE(exchange->Advance(taker, 10));
    WaitUntilTheServerIsHeldUp();
  }
  ExpectThatTheServerIsFree();
}

TEST_F(LeftExchangeTest, LeftBehindItsEnd) {
  Serve(3);
  {
    const std::unique_ptr<HttpExchange> exchange = Start();
    Taker taker;
    while (exchange->Advance(taker, 10)) continue;
    EXPECT_EQ(taker.bytes, 3 * kPieceBytes);
  }
  ExpectThatTheServerIsFree();
}

// More than the sockets and the room between the threads hold together.
TEST_F(LeftExchangeTest, AReaderThatPausesGetsTheRestWhole) {
  constexpr int kPieces = 300;
  Serve(kPieces);
  const std::unique_ptr<HttpExchange> exchange = Start();
  Taker taker;
  while (!taker.is_head_there) ASSERT_TRUE(exchange->Advance(taker, 10));
  WaitUntilTheServerIsHeldUp();
  EXPECT_LT(sent, kPieces);
  while (exchange->Advance(taker, 10)) continue;
  EXPECT_EQ(taker.bytes, kPieces * kPieceBytes);
  EXPECT_TRUE(taker.is_as_sent);
}

TEST_F(LeftExchangeTest, TheNextExchangeOfTheSessionIsWholeBehindOneThatWasLeft) {
  Serve(40);
  for (int round = 0; round < 20; ++round) {
    {
      const std::unique_ptr<HttpExchange> left = Start();
      Taker taker;
      while (taker.bytes < static_cast<size_t>(round) * kPieceBytes) ASSERT_TRUE(left->Advance(taker, 10));
    }
    const std::unique_ptr<HttpExchange> exchange = Start();
    Taker taker;
    while (exchange->Advance(taker, 10)) continue;
    EXPECT_EQ(taker.bytes, 40 * kPieceBytes);
    EXPECT_TRUE(taker.is_as_sent);
  }
}

}  // namespace
}  // namespace kestrun
