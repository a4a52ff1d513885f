#include "desktop/win32/window/message_loop.h"

namespace kestrun {
namespace {

MessageFilter& Filter() {
  static MessageFilter filter;
  return filter;
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
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    DispatchOne(message);
  }
}

}  // namespace kestrun
