// A form on the screen, and what drives and looks at its real windows.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "desktop/win32/message_queue.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/form.h"
#include "forms/window_registry.h"

namespace kestrun {

class RealWindowTest : public testing::Test {
 protected:
  RealWindowTest() { ParkMouse(); }
  ~RealWindowTest() override {
    CloseAllWindows();
    // A form of a test's own is in no register; a shown one lives until it is closed.
    while (!FormWindow::OpenWindows().empty()) FormWindow::OpenWindows().back()->form().Hide();
    EmptyMessageQueue();
    _wputenv_s(L"KESTRUN_DPI", L"");
  }

  void Pump() { platform.clock().RunPendingEvents(); }
  static FormWindow& WindowOf(Form& form) { return static_cast<FormWindow&>(*form.form_peer()); }
  static HWND HandleOf(Form& form) { return WindowOf(form).window(); }
  static HWND HandleOf(Control& control) { return WindowOf(*control.form()).PeerOf(control)->window(); }
  static RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
  }
  static SIZE ClientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
  }
  static Color PixelAt(HWND shown, int x, int y) {
    const HDC screen = GetDC(shown);
    const Color pixel = GetPixel(screen, x, y);
    ReleaseDC(shown, screen);
    return pixel;
  }
  // How many pixels of a window's area have exactly that colour.
  static int CountPixels(HWND shown, const RECT& area, Color color) {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y) {
      for (int x = area.left; x < area.right; ++x) count += PixelAt(shown, x, y) == color ? 1 : 0;
    }
    return count;
  }
  static std::wstring TextOf(HWND target) { return ReadWindowText(target); }

  Win32Platform platform;
  PlatformInstallation installation{platform};
};

}  // namespace kestrun
