// What the library's threads hand over, and what the thread with the windows does while it waits for it.
#include "desktop/win32/system/http_handover.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <thread>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/system/waiting.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

class Keeper final : public HttpReceiver {
 public:
  bool TakeHead(int status, const HttpHeaders& headers) override {
    response = {status, headers, {}};
    return true;
  }
  bool TakePiece(ByteView piece) override {
    response.body.insert(response.body.end(), piece.begin(), piece.end());
    return response.body.size() < leave_after;
  }
  void StillWaiting(bool user_leaves) override {
    ++calls;
    if (user_leaves) Raise(error::kAutomationError, "left");
  }
  HttpResponse response;
  size_t leave_after = SIZE_MAX;
  int calls = 0;
};

// An answer that another thread puts.
class ThreadExchange final : public HttpExchange {
 public:
  explicit ThreadExchange(std::function<void(HttpHandover&)> put)
      : thread_([this, put = std::move(put)] { put(handover_); }) {}

  bool Advance(HttpReceiver& receiver, int wait_ms) override {
    std::optional<HttpHandover::Item> item = handover_.Take(wait_ms);
    return !item || HandOn(std::move(*item), receiver);
  }

 private:
  HttpHandover handover_;
  std::jthread thread_;
};

void ReceiveThroughThread(std::function<void(HttpHandover&)> put, HttpReceiver& receiver) {
  ThreadExchange exchange(std::move(put));
  WaitForAnswer(exchange, receiver);
}

void PressKey(WPARAM key) { PostThreadMessageW(GetCurrentThreadId(), WM_KEYDOWN, key, 0); }

bool IsInputWaiting() {
  MSG message{};
  return PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE) ||
         PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_NOREMOVE);
}

TEST(HttpHandoverTest, HeadAndPiecesArriveInOrder) {
  Keeper keeper;
  ReceiveThroughThread(
      [](HttpHandover& handover) {
        handover.PutHead(200, {{"A", "b"}});
        for (const char* piece : {"one ", "two ", "three"}) {
          const ByteView bytes = AsBytes(piece);
          handover.PutPiece(Bytes(bytes.begin(), bytes.end()));
        }
        handover.End(std::nullopt);
      },
      keeper);
  EXPECT_EQ(keeper.response.status, 200);
  EXPECT_EQ(keeper.response.Header("a"), "b");
  EXPECT_EQ(AsChars(keeper.response.body), "one two three");
  EXPECT_GE(keeper.calls, 1);
}

TEST(HttpHandoverTest, AMegabyteThatWaitsLeavesNoRoomUntilSomeOfItIsTaken) {
  HttpHandover handover;
  int pieces = 0;
  for (; handover.HasRoom(); ++pieces) handover.PutPiece(Bytes(1 << 16));
  EXPECT_EQ(pieces, 16);
  EXPECT_EQ(handover.Take(0)->piece.size(), size_t{1} << 16);
  EXPECT_TRUE(handover.HasRoom());
}

TEST(HttpHandoverTest, AFailureOfTheExchangeIsRaisedHere) {
  Keeper keeper;
  EXPECT_EQ(ErrorOf([&] {
              ReceiveThroughThread(
                  [](HttpHandover& handover) {
                    handover.PutHead(200, {});
                    handover.End("The answer is cut off (12030).");
                  },
                  keeper);
              return 0;
            }),
            "440: The answer is cut off (12030).");
  EXPECT_EQ(keeper.response.status, 200);
}

TEST(HttpHandoverTest, AReceiverThatHasEnoughEndsTheExchange) {
  Keeper keeper;
  keeper.leave_after = 1;
  ReceiveThroughThread(
      [](HttpHandover& handover) {
        handover.PutHead(200, {});
        for (int piece = 0; piece < 3; ++piece) handover.PutPiece(Bytes(1 << 16));
      },
      keeper);
  EXPECT_EQ(keeper.response.body.size(), size_t{1} << 16);
}

TEST(HttpHandoverTest, EscLeavesAnExchangeThatNeverAnswers) {
  Keeper keeper;
  PressKey(VK_ESCAPE);
  EXPECT_EQ(ErrorOf([&] {
              ReceiveThroughThread([](HttpHandover&) {}, keeper);
              return 0;
            }),
            "440: left");
  EXPECT_FALSE(IsInputWaiting());
}

TEST(WaitingTest, WhatWasPressedGoesNowhere) {
  {
    Waiting waiting;
    PressKey(VK_RETURN);
    EXPECT_FALSE(waiting.PaintAndListen());
    EXPECT_FALSE(IsInputWaiting());
    PressKey(VK_RETURN);
    PostThreadMessageW(GetCurrentThreadId(), WM_LBUTTONDOWN, 0, 0);
  }
  EXPECT_FALSE(IsInputWaiting());
}

TEST(WaitingTest, EscIsRemembered) {
  Waiting waiting;
  EXPECT_FALSE(waiting.PaintAndListen());
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(waiting.PaintAndListen());
  EXPECT_TRUE(waiting.PaintAndListen());
}

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message != WM_PAINT) return DefWindowProcW(window, message, first, second);
  auto* paints = reinterpret_cast<int*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  ++*paints;
  ValidateRect(window, nullptr);
  return 0;
}

TEST(WaitingTest, WhatHasChangedOnAWindowIsPainted) {
  int paints = 0;
  const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                      nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&paints));
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountPaints));
  Waiting waiting;
  InvalidateRect(window, nullptr, FALSE);
  EXPECT_FALSE(waiting.PaintAndListen());
  EXPECT_GE(paints, 1);
  DestroyWindow(window);
}

}  // namespace
}  // namespace kestrun
