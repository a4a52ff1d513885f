#include "desktop/win32/system/waiting.h"

namespace kestrun {
namespace {

// A message of that kind off the queue; false when there is none. The end of the message loop is left for the loop.
bool TakeMessage(MSG& message, UINT first, UINT last) {
  if (!PeekMessageW(&message, nullptr, first, last, PM_REMOVE)) return false;
  if (message.message != WM_QUIT) return true;
  PostQuitMessage(static_cast<int>(message.wParam));
  return false;
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
  return escape_pressed_;
}

void Waiting::Paint(UINT kind) {
  // As many windows as can be seen at once: one that asks to be painted for ever must not hold up the rest.
  constexpr int kMostPaints = 200;
  MSG message{};
  for (int paints = 0; paints < kMostPaints && TakeMessage(message, kind, kind); ++paints) DispatchMessageW(&message);
}

void Waiting::Listen(UINT first, UINT last) {
  MSG message{};
  while (TakeMessage(message, first, last)) {
    escape_pressed_ = escape_pressed_ || (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE);
  }
}

}  // namespace kestrun
