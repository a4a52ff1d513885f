#include "desktop/win32/window/popup_surface.h"

#include "desktop/win32/window/window_class.h"

namespace kestrun {
namespace {

constexpr const wchar_t* kPopupClass = L"KestrunPopup";

}  // namespace

void PopupSurface::Create(HWND owner) {
  RegisterWindowClass(kPopupClass, &PopupSurface::Handle, CS_SAVEBITS);
  // The two styles that let the mouse through, also where a click goes to the topmost window without asking it.
  constexpr DWORD kPassesMouse = WS_EX_LAYERED | WS_EX_TRANSPARENT;
  window_.Reset(CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST | kPassesMouse, kPopupClass, L"",
                                WS_POPUP | WS_BORDER, 0, 0, 0, 0, owner, nullptr, GetModuleHandleW(nullptr), nullptr));
  SetLayeredWindowAttributes(window(), 0, 255, LWA_ALPHA);
  SetWindowLongPtrW(window(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void PopupSurface::Show(HWND owner, const PixelRect& area, int dpi, const std::function<void(Canvas&)>& paint) {
  if (area.IsEmpty()) return Hide();
  if (!window_.IsValid() || !IsWindow(window())) Create(owner);
  SetWindowPos(window(), HWND_TOPMOST, area.left, area.top, area.width(), area.height(), SWP_NOACTIVATE | SWP_NOREDRAW);
  RECT client{};
  GetClientRect(window(), &client);
  const HDC screen = GetDC(window());
  if (client.right > 0 && client.bottom > 0 && buffer_.Resize(screen, {client.right, client.bottom})) {
    GdiCanvas canvas(buffer_.device(), buffer_.size(), dpi, fonts_);
    canvas.Fill({0, 0, client.right, client.bottom}, color::kInfoBackground);
    paint(canvas);
  }
  ReleaseDC(window(), screen);
  ShowWindow(window(), SW_SHOWNOACTIVATE);
  InvalidateRect(window(), nullptr, FALSE);
  UpdateWindow(window());
}

void PopupSurface::Hide() {
  if (window_.IsValid()) ShowWindow(window(), SW_HIDE);
}

void PopupSurface::Copy(HDC target) const {
  if (buffer_.device())
    BitBlt(target, 0, 0, buffer_.size().width, buffer_.size().height, buffer_.device(), 0, 0, SRCCOPY);
}

LRESULT CALLBACK PopupSurface::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
  const auto* surface = reinterpret_cast<const PopupSurface*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_NCHITTEST: return HTTRANSPARENT;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: {
      PAINTSTRUCT paint{};
      const HDC screen = BeginPaint(window, &paint);
      if (surface) surface->Copy(screen);
      EndPaint(window, &paint);
      return 0;
    }
    default: return DefWindowProcW(window, message, first, second);
  }
}

}  // namespace kestrun
