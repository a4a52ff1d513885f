// The peer of a control that paints itself: one window whose messages become the control's calls, and whose content is
// a bitmap that the control paints when it says so.
#pragma once

#include <memory>

#include "desktop/win32/drawing/gdi_canvas.h"
#include "desktop/win32/window/accessible_control.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/popup_surface.h"
#include "desktop/win32/window/vertical_scroll_bar.h"
#include "forms/user_control.h"

namespace kestrun {

class UserControlPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;
  ~UserControlPeer() override;

  void Create() override;
  void Update(PropertyId property) override;
  void Repaint() override;
  void ShowPopup(const PixelRect& screen_area, std::function<void(Canvas&)> paint) override;
  void HidePopup() override;
  void FormDeactivated() override;
  bool TakeWheel(WPARAM first) override;
  bool TakeKey(int key, int shift_state) override;
  [[nodiscard]] POINT MenuPlace() const override;

 protected:
  bool HandleMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) override;
  [[nodiscard]] EdgeKind Edge() const override { return static_cast<EdgeKind>(Model().FrameKind()); }

 private:
  // What is painted on; outlives a control that closes its form while it paints.
  struct Surface {
    FontCache fonts;
    BackBuffer buffer;
  };

  [[nodiscard]] UserControl& Model() const { return static_cast<UserControl&>(control()); }
  // Runs a call of the control. False when the peer has gone with it: a handler may close the form.
  [[nodiscard]] bool Run(const std::function<void()>& action);
  void NoteClient();
  [[nodiscard]] bool HasContent() const;
  [[nodiscard]] bool PaintContent(HDC screen);
  [[nodiscard]] bool PaintChanges();
  void CopyToScreen(HDC screen);
  void PaintLeftovers();
  void PaintSoon();
  void Paint();
  bool HandleMouse(UINT message, WPARAM first, LPARAM second);
  void Press(int button, POINT place, bool is_double);
  void ReleaseButton(int button, POINT place);
  void MoveTo(int buttons, POINT place);
  void LoseCapture();
  [[nodiscard]] bool IsUnderPopup(POINT cursor) const;
  void LeaveUnlessUnderPopup();
  bool TakeTimer(WPARAM timer);
  void Scroll(WPARAM first);
  void TypeCharacter(wchar_t unit);
  void ChangeFocus(bool gained);

  std::shared_ptr<Surface> surface_ = std::make_shared<Surface>();
  std::shared_ptr<PopupSurface> popup_ = std::make_shared<PopupSurface>();
  Ref<AccessibleControl> accessible_;
  VerticalScrollBar bar_;
  PixelSize told_client_{-1, -1};
  int told_dpi_ = 0;
  int held_buttons_ = 0;
  int wheel_rest_ = 0;  // less than a notch
  wchar_t high_surrogate_ = 0;
  bool is_stale_ = true;  // the bitmap does not show what the control would paint
  bool is_paint_posted_ = false;
  bool is_mouse_inside_ = false;
};

}  // namespace kestrun
