// What stands on the screen for one control. A further kind of control is one class and one row in the table of
// peer_table.cpp.
#pragma once

#include <functional>
#include <memory>

#include "desktop/win32/window/form_window.h"
#include "desktop/win32/window/scroll_bar_face.h"
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
  // The control's WM_NOTIFY and WM_DRAWITEM; true when it is done with.
  virtual bool HandleNotification(NMHDR& notice, LRESULT& result) {
    static_cast<void>(notice);
    static_cast<void>(result);
    return false;
  }
  virtual bool DrawItem(const DRAWITEMSTRUCT& item) {
    static_cast<void>(item);
    return false;
  }
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
  // The control may stand in another container than before.
  virtual void FollowContainer() = 0;
  // False for a control that lets the mouse through to its container.
  [[nodiscard]] virtual bool TakesMouse() const { return true; }
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
  // The form's window is no longer the active one.
  virtual void FormDeactivated() {}
  // A turn of the wheel; true when it is done with.
  virtual bool TakeWheel(WPARAM first) {
    static_cast<void>(first);
    return false;
  }
  // True for a key that the system's own control uses at the moment: the form leaves it alone.
  [[nodiscard]] virtual bool KeepsKey(int key) const {
    static_cast<void>(key);
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

// What stands around a control's client area.
enum class EdgeKind { kNone = 0, kLine = 1, kSunken = 2 };
// Of a control with a border style of 0 or 1 and an appearance that is flat (0) or not.
[[nodiscard]] constexpr EdgeKind EdgeOf(int border_style, int appearance) {
  if (border_style == 0) return EdgeKind::kNone;
  return appearance == 0 ? EdgeKind::kLine : EdgeKind::kSunken;
}

// Whether a control's background is a colour of its own that differs from the system's: an edge in the system's colours
// would stand out from it.
[[nodiscard]] bool HasOwnBackground(const Control& control);
// Draws the edge of a window outside of its client area, in colours that go with the control's.
void DrawWindowEdge(HWND window, const Control& control, ScreenScale scale);

// Paints a window again with all windows in it: they may show what lies behind them.
void RepaintWithChildren(HWND window);

// A control with a window of its own: one of the system's, or a panel.
class WindowedPeer : public ControlPeer {
 public:
  using ControlPeer::ControlPeer;
  ~WindowedPeer() override;

  [[nodiscard]] HWND window() const override { return window_.get(); }
  void Update(PropertyId property) override;
  void Repaint() override;
  void FollowContainer() override;
  void ShowToolTip() override;
  void TellAccessibility(AccessibleEvent event, int child) override;
  [[nodiscard]] HBRUSH PrepareColors(HDC target) override;
  // Below the control; below the current row of a list.
  [[nodiscard]] POINT MenuPlace() const override;

 protected:
  // Makes the window with the control's place, font, edge and state, and watches its messages.
  void CreateWindowOf(const wchar_t* window_class, const std::wstring& text, DWORD style, DWORD extended_style = 0);
  // Makes it again where the system cannot change it: for a style that it takes only at the making.
  void CreateAgain();
  [[nodiscard]] virtual EdgeKind Edge() const { return EdgeKind::kNone; }
  // Changes the window's edge where it is another than the control's now.
  void ShowEdge();
  // Where the window stands: the control's area, unless its kind needs another.
  [[nodiscard]] virtual RECT WindowArea() const { return Area(); }
  // Whether screen readers find a name in the window's text.
  [[nodiscard]] virtual bool HasOwnName() const { return true; }
  // Sees each message before the window does; true when it is done with.
  virtual bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  // Follows each message that the window itself handled, as long as the control is there.
  virtual void AfterMessage(UINT message);
  // Runs what the user set off, with the form kept alive.
  void Dispatch(const std::function<void()>& action);
  // In the next pass of the message loop, if the control is still there; the action gets its peer.
  void RunLater(void (*action)(ControlPeer& peer));
  [[nodiscard]] POINT OnScreen(POINT place) const;

 private:
  struct Watched;
  static LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM first, LPARAM second);
  void PassMouse(UINT message, WPARAM first, LPARAM second);
  void ShowPointerNow();

  // After each message, also one that the peer has done with.
  static void FollowBars(HWND window, UINT message);

  WindowHandle window_;
  EdgeKind shown_edge_ = EdgeKind::kNone;
  ScrollBarFace bars_;
};

// A control that its container draws.
class DrawnPeer : public ControlPeer {
 public:
  using ControlPeer::ControlPeer;
  void Create() override;
  void Update(PropertyId property) override;
  void Repaint() override;
  void FollowContainer() override;
  void ShowToolTip() override;

 protected:
  // What drawing may touch.
  [[nodiscard]] virtual RECT DrawnArea() const { return Area(); }

 private:
  void NotePlace();

  HWND container_ = nullptr;
  RECT shown_{};
};

// Null for a control that is never seen.
[[nodiscard]] std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control);
// An element of the table that it looks the kind up in.
template <class Peer>
std::unique_ptr<ControlPeer> MakePeerOfKind(FormWindow& form, Control& control) {
  return std::make_unique<Peer>(form, control);
}

// A system control's own text, read whole.
[[nodiscard]] std::wstring ReadWindowText(HWND window);
// The shift state of the keyboard, as event handlers get it.
[[nodiscard]] int ShiftState();
// The mouse buttons that a mouse message says are down.
[[nodiscard]] int HeldButtons(WPARAM keys);
// Fires the mouse event that a message means; place in pixels inside the control.
void FireMouseEvent(Control& control, UINT message, WPARAM keys, POINT place, ScreenScale scale);

}  // namespace kestrun
