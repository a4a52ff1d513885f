#include "desktop/win32/system/message_window.h"

namespace kestrun {

WindowHandle MakeMessageWindow(const wchar_t* class_name, WNDPROC handle, void* object) {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = handle;
  window_class.hInstance = GetModuleHandleW(nullptr);
  window_class.lpszClassName = class_name;
  RegisterClassW(&window_class);
  WindowHandle window(
      CreateWindowExW(0, class_name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, window_class.hInstance, nullptr));
  SetWindowLongPtrW(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
  return window;
}

}  // namespace kestrun
