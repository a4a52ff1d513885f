// An exchange on its own thread, and what the thread with the windows does while it waits for it.
#include "desktop/win32/system/http_handover.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
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

void ReceiveThroughThread(std::function<void(HttpHandover&)> run, HttpReceiver& receiver) {
  const std::unique_ptr<HttpExchange> exchange = StartOnThread(std::move(run));
  WaitForAnswer(*exchange, receiver);
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
        EXPECT_TRUE(handover.PutHead(200, {{"A", "b"}}));
        for (const char* piece : {"one ", "two ", "three"}) {
          const ByteView bytes = AsBytes(piece);
          EXPECT_TRUE(handover.PutPiece(Bytes(bytes.begin(), bytes.end())));
        }
      },
      keeper);
  EXPECT_EQ(keeper.response.status, 200);
  EXPECT_EQ(keeper.response.Header("a"), "b");
  EXPECT_EQ(AsChars(keeper.response.body), "one two three");
  EXPECT_GE(keeper.calls, 1);
}

TEST(HttpHandoverTest, MoreThanTheRoomBetweenTheThreadsArrivesWhole) {
  constexpr int kPieces = 300;
  Keeper keeper;
  ReceiveThroughThread(
      [](HttpHandover& handover) {
        static_cast<void>(handover.PutHead(200, {}));
        for (int piece = 0; piece < kPieces; ++piece) {
          static_cast<void>(handover.PutPiece(Bytes(1 << 16, static_cast<uint8_t>(piece))));
        }
      },
      keeper);
  ASSERT_EQ(keeper.response.body.size(), size_t{kPieces} << 16);
  EXPECT_EQ(keeper.response.body.back(), static_cast<uint8_t>(kPieces - 1));
}

TEST(HttpHandoverTest, AFailureOfTheExchangeIsRaisedHere) {
  Keeper keeper;
  EXPECT_EQ(ErrorOf([&] {
              ReceiveThroughThread(
                  [](HttpHandover& handover) {
                    static_cast<void>(handover.PutHead(200, {}));
                    Raise(error::kAutomationError, "The answer is cut off (12030).");
                  },
                  keeper);
              return 0;
            }),
            "440: The answer is cut off (12030).");
  EXPECT_EQ(keeper.response.status, 200);
}

TEST(HttpHandoverTest, AReceiverThatHasEnoughEndsTheExchange) {
  const auto has_ended = std::make_shared<std::atomic<bool>>(false);
  Keeper keeper;
  keeper.leave_after = 1;
  ReceiveThroughThread(
      [has_ended](HttpHandover& handover) {
        static_cast<void>(handover.PutHead(200, {}));
        while (handover.PutPiece(Bytes(1 << 16))) continue;
        *has_ended = true;
      },
      keeper);
  while (!*has_ended) std::this_thread::yield();
}

TEST(HttpHandoverTest, EscLeavesAnExchangeThatNeverAnswers) {
  const auto may_end = std::make_shared<std::atomic<bool>>(false);
  Keeper keeper;
  PressKey(VK_ESCAPE);
  EXPECT_EQ(ErrorOf([&] {
              ReceiveThroughThread(
                  [may_end](HttpHandover&) {
                    while (!*may_end) std::this_thread::yield();
                  },
                  keeper);
              return 0;
            }),
            "440: left");
  *may_end = true;
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
