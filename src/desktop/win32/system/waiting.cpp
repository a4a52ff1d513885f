#include "desktop/win32/system/waiting.h"

namespace kestrun {
namespace {

// Of one kind at a time. One that asks to be painted for ever must not hold up the rest.
constexpr int kMostMessages = 200;

// A message of that kind off the queue; false when there is none. The end of the message loop is left for the loop.
bool TakeMessage(MSG& message, UINT first, UINT last) {
  if (!PeekMessageW(&message, nullptr, first, last, PM_REMOVE)) return false;
  if (message.message != WM_QUIT) return true;
  PostQuitMessage(static_cast<int>(message.wParam));
  return false;
}

// The window at which this thread gets its COM calls; null before there can be any.
HWND FindComWindow() {
  HWND window = nullptr;
  do {
    window = FindWindowExW(HWND_MESSAGE, window, L"OleMainThreadWndClass", nullptr);
  } while (window && GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId());
  return window;
}

}  // namespace

Waiting::Waiting() : hourglass_(LoadCursorW(nullptr, IDC_WAIT)) { before_ = SetCursor(hourglass_); }

Waiting::~Waiting() {
  Listen(WM_KEYFIRST, WM_KEYLAST);
  Listen(WM_MOUSEFIRST, WM_MOUSELAST);
  SetCursor(before_);
}

bool Waiting::PaintAndListen() {
  Listen(WM_KEYFIRST, WM_KEYLAST);
  Listen(WM_MOUSEFIRST, WM_MOUSELAST);
  // The system asks a window under a moving mouse for its own cursor.
  SetCursor(hourglass_);
  Paint(kPaintSoon);
  Paint(WM_PAINT);
  AnswerReaders();
  return escape_pressed_;
}

void Waiting::Paint(UINT kind) {
  MSG message{};
  for (int at = 0; at < kMostMessages && TakeMessage(message, kind, kind); ++at) DispatchMessageW(&message);
}

// Readers in other processes ask by way of COM, whose calls come as messages of a window of its own.
void Waiting::AnswerReaders() {
  const HWND calls = FindComWindow();
  MSG message{};
  for (int at = 0; calls && at < kMostMessages && PeekMessageW(&message, calls, 0, 0, PM_REMOVE); ++at) {
    DispatchMessageW(&message);
  }
}

void Waiting::Listen(UINT first, UINT last) {
  MSG message{};
  while (TakeMessage(message, first, last)) {
    escape_pressed_ = escape_pressed_ || (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE);
  }
}

}  // namespace kestrun
