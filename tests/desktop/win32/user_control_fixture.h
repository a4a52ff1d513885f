// A window with two controls that paint themselves, and what drives them by real messages.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/win32/message_queue.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/text_box.h"
#include "forms/window_registry.h"
#include "support/sample_user_control.h"

namespace kestrun {

class frmsamples final : public Form {
 public:
  static constexpr const char* kName = "frmsamples";
  frmsamples() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    // Without a caption no window manager moves it about.
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(6000, 4500);
    txtName.Move(150, 150, 1500, 315);
    sample.Move(1800, 150, 3000, 1500);
    other.Move(1800, 1800, 3000, 1500);
    cmdOK.Move(150, 3900, 1200, 375);
    cmdOK.Default = true;
  }
  TextBox& txtName = Add<TextBox>("txtName");
  SampleControl& sample = Add<SampleControl>("sample");
  SampleControl& other = Add<SampleControl>("other");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
};

inline const WindowRegistration sample_registration(frmsamples::kName, [] { return MakeRef<frmsamples>(); });

class UserControlWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    ParkMouse();
    form().Show();
    ASSERT_FALSE(FormWindow::OpenWindows().empty()) << "no window came up: is there a display?";
    Pump();
    sample().log.clear();
  }
  void TearDown() override {
    CloseAllWindows();
    EmptyMessageQueue();
    _wputenv_s(L"KESTRUN_DPI", L"");
  }

  static frmsamples& form() { return Window<frmsamples>(); }
  static SampleControl& sample() { return form().sample; }
  static FormWindow& window() { return *FormWindow::OpenWindows().back(); }
  static HWND HandleOf(Control& control) { return window().PeerOf(control)->window(); }
  static HWND Handle() { return HandleOf(sample()); }
  void Pump() { platform.clock().RunPendingEvents(); }

  void Send(UINT message, WPARAM first, LPARAM second) {
    PostMessageW(Handle(), message, first, second);
    Pump();
  }
  void PressKey(WPARAM key) {
    SetFocus(Handle());
    Pump();
    sample().log.clear();
    Send(WM_KEYDOWN, key, 1);
  }
  // What the sample wrote down but the leaving of the mouse, which on an empty desktop comes at any time.
  static std::vector<std::string> Log() {
    std::vector<std::string> lines = std::exchange(sample().log, {});
    std::erase(lines, "leave");
    return lines;
  }
  static Color PixelAt(HWND shown, int x, int y) {
    const HDC screen = GetDC(shown);
    const Color pixel = GetPixel(screen, x, y);
    ReleaseDC(shown, screen);
    return pixel;
  }
  void ShowBar(const ScrollBarState& state) {
    sample().bar = state;
    sample().Invalidate();
    Pump();
  }
  static bool HasBar() { return (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) != 0; }
  static SCROLLINFO BarInfo() {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(Handle(), SB_VERT, &info);
    return info;
  }
  static SIZE ClientSize(HWND shown) {
    RECT client{};
    GetClientRect(shown, &client);
    return {client.right, client.bottom};
  }
  static HWND PopupWindow() { return FindWindowW(L"KestrunPopup", nullptr); }

  Win32Platform platform;
  PlatformInstallation installation{platform};
};

}  // namespace kestrun
