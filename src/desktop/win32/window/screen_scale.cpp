#include "desktop/win32/window/screen_scale.h"

#include <cstdlib>

namespace kestrun {
namespace {

// Calls of Windows 10, absent before.
template <class Function>
Function FindUserCall(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

int SystemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

ScreenScale ScaleOf(HWND window) {
  constexpr int kLeast = 48;
  constexpr int kMost = 960;
  if (const wchar_t* chosen = _wgetenv(L"KESTRUN_DPI")) {
    const int dpi = _wtoi(chosen);
    if (dpi >= kLeast && dpi <= kMost) return ScreenScale(dpi);
  }
  static const auto get_dpi = FindUserCall<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const UINT dpi = window && get_dpi ? get_dpi(window) : 0;
  return ScreenScale(dpi != 0 ? static_cast<int>(dpi) : SystemDpi());
}

SIZE OuterSize(SIZE client, DWORD style, DWORD extended_style, bool has_menu, ScreenScale scale) {
  static const auto adjust = FindUserCall<BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
  RECT outer{0, 0, client.cx, client.cy};
  const bool scaled = adjust && _wgetenv(L"KESTRUN_DPI") == nullptr &&
                      adjust(&outer, style, has_menu, extended_style, static_cast<UINT>(scale.dpi()));
  if (!scaled) AdjustWindowRectEx(&outer, style, has_menu, extended_style);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

}  // namespace kestrun
