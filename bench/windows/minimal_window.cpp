// The peer of the start benchmark: a program that shows one empty window.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
  WNDCLASSW window_class{};
  window_class.lpfnWndProc = DefWindowProcW;
  window_class.hInstance = instance;
  window_class.lpszClassName = L"Minimal";
  RegisterClassW(&window_class);
  CreateWindowW(L"Minimal", L"Minimal", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 500, 400, nullptr, nullptr,
                instance, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
