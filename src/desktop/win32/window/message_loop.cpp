#include "desktop/win32/window/message_loop.h"

namespace kestrun {
namespace {

MessageFilter& Filter() {
  static MessageFilter filter;
  return filter;
}

bool IsMenuOpen() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE) != 0;
}

// Keys and clicks are for the menu while one is open: they wait until its own loop goes on.
bool TakeWaiting(MSG& message, bool is_menu_open) {
  const auto take = [&message](UINT first, UINT last) {
    return PeekMessageW(&message, nullptr, first, last, PM_REMOVE) != FALSE;
  };
  constexpr UINT kLastMessage = 0xFFFF;
  if (!is_menu_open) return take(0, 0);
  return take(0, WM_KEYFIRST - 1) || take(WM_KEYLAST + 1, WM_MOUSEFIRST - 1) || take(WM_MOUSELAST + 1, kLastMessage);
}

}  // namespace

void SetMessageFilter(MessageFilter filter) { Filter() = std::move(filter); }

void DispatchOne(MSG& message) {
  if (Filter() && Filter()(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void DispatchWaiting() {
  MSG message{};
  const bool is_menu_open = IsMenuOpen();
  while (TakeWaiting(message, is_menu_open)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    DispatchOne(message);
  }
}

}  // namespace kestrun
