#include "desktop/win32/window/window_class.h"

namespace kestrun {

void RegisterWindowClass(const wchar_t* name, WNDPROC procedure, UINT style) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  WNDCLASSW window_class{};
  if (GetClassInfoW(program, name, &window_class)) return;
  window_class = {};
  window_class.style = style;
  window_class.lpfnWndProc = procedure;
  window_class.hInstance = program;
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.lpszClassName = name;
  RegisterClassW(&window_class);
}

}  // namespace kestrun
