// What stands on the screen for one control. A further kind of control is one class here and one row in the table of
// MakeControlPeer.
#pragma once

#include <functional>
#include <memory>

#include "desktop/win32/window/form_window.h"
#include "forms/control.h"

namespace kestrun {

class ControlPeer {
 public:
  ControlPeer(FormWindow& form, Control& control) : form_(form), control_(&control) {}
  virtual ~ControlPeer() = default;

  [[nodiscard]] Control& control() const { return *control_; }
  [[nodiscard]] FormWindow& form() const { return form_; }
  // Null for a control that its container draws.
  [[nodiscard]] virtual HWND window() const { return nullptr; }

  virtual void Create() = 0;
  virtual void Update(PropertyId property) = 0;
  // The rows of a list changed.
  virtual void ListChanged() {}
  // The control's notification code of WM_COMMAND.
  virtual void Notify(int code) { static_cast<void>(code); }
  // Colours of a system control; null for the system's own.
  [[nodiscard]] virtual HBRUSH PrepareColors(HDC target) {
    static_cast<void>(target);
    return nullptr;
  }
  // Draws a control that has no window.
  virtual void Draw(HDC target, const RECT& area) {
    static_cast<void>(target);
    static_cast<void>(area);
  }
  virtual void Repaint() = 0;
  // Hands the control's tip to the form.
  virtual void ShowToolTip() = 0;
  // Draws what lies behind a panel's controls.
  virtual void DrawBackground(HDC target, const RECT& area) {
    static_cast<void>(target);
    static_cast<void>(area);
  }

  // What controls that paint themselves ask for; see FormPeer.
  virtual void ShowPopup(const PixelRect& screen_area, std::function<void(Canvas&)> paint) {
    static_cast<void>(screen_area);
    static_cast<void>(paint);
  }
  virtual void HidePopup() {}
  // A turn of the wheel; true when it is done with.
  virtual bool TakeWheel(WPARAM first) {
    static_cast<void>(first);
    return false;
  }
  // A key before the form uses it; true when it is done with.
  virtual bool TakeKey(int key, int shift_state) {
    static_cast<void>(key);
    static_cast<void>(shift_state);
    return false;
  }
  virtual void TellAccessibility(AccessibleEvent event, int child) {
    static_cast<void>(event);
    static_cast<void>(child);
  }

  // Where on the screen a menu opens that a key calls up.
  [[nodiscard]] virtual POINT MenuPlace() const { return {}; }

  // The control's place in its container, in pixels.
  [[nodiscard]] RECT Area() const;

 private:
  FormWindow& form_;
  Ref<Control> control_;
};

// A control with a window of its own: one of the system's, or a panel.
class WindowedPeer : public ControlPeer {
 public:
  using ControlPeer::ControlPeer;
  ~WindowedPeer() override;

  [[nodiscard]] HWND window() const override { return window_.get(); }
  void Update(PropertyId property) override;
  void Repaint() override;
  void ShowToolTip() override;
  [[nodiscard]] HBRUSH PrepareColors(HDC target) override;
  // Below the control; below the current row of a list.
  [[nodiscard]] POINT MenuPlace() const override;

 protected:
  // Makes the window with the control's place, font and state, and watches its messages.
  void CreateWindowOf(const wchar_t* window_class, const std::wstring& text, DWORD style, DWORD extended_style);
  // Sees each message before the window does; true when it is done with.
  virtual bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  // Runs what the user set off, with the form kept alive.
  void Dispatch(const std::function<void()>& action);
  [[nodiscard]] POINT OnScreen(POINT place) const;

 private:
  struct Watched;
  static LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM first, LPARAM second);
  void PassMouse(UINT message, WPARAM first, LPARAM second);
  void ShowPointerNow();

  WindowHandle window_;
};

// A control that its container draws.
class DrawnPeer : public ControlPeer {
 public:
  using ControlPeer::ControlPeer;
  void Create() override;
  void Update(PropertyId property) override;
  void Repaint() override;
  void ShowToolTip() override;

 private:
  RECT shown_{};
};

// Null for a control that is never seen.
[[nodiscard]] std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control);

// The shift state of the keyboard, as event handlers get it.
[[nodiscard]] int ShiftState();
// The mouse buttons that a mouse message says are down.
[[nodiscard]] int HeldButtons(WPARAM keys);
// Fires the mouse event that a message means; place in pixels inside the control.
void FireMouseEvent(Control& control, UINT message, WPARAM keys, POINT place, ScreenScale scale);

}  // namespace kestrun
