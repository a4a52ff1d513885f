// One shown form: its window, the peers of its controls, and what they share. Lives as long as an event of it is under
// way, also when the form closes in the middle of it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/window/screen_scale.h"
#include "forms/form.h"
#include "forms/menu_item.h"

namespace kestrun {

class ControlPeer;

class FormWindow : public std::enable_shared_from_this<FormWindow> {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow();

  // Makes the window with all its controls and shows it, in front of the owner when there is one.
  void Open(HWND owner);
  void Close();

  void Update(Control& control, PropertyId property);
  void ControlsChanged();
  void MenuChanged();
  void ListChanged(Control& control);
  void Repaint(Control& control);
  void FocusControl(Control& control);
  // When a control was hidden with the focus in it: another gets it in the next pass, when the event at hand is over.
  void LeaveHiddenFocus();
  void PopUpMenu(MenuItem& item);

  [[nodiscard]] HWND window() const { return window_.get(); }
  [[nodiscard]] Form& form() const { return *form_; }
  [[nodiscard]] ScreenScale scale() const { return scale_; }
  [[nodiscard]] bool is_open() const { return window_.IsValid(); }
  // Null for a control that has no peer.
  [[nodiscard]] ControlPeer* PeerOf(const Control& control) const;
  [[nodiscard]] ControlPeer* PeerOf(HWND window) const;
  // The window that a control's container has.
  [[nodiscard]] HWND ContainerWindow(const Control& control) const;

  // The top left corner on the desktop of what the control paints.
  [[nodiscard]] PixelPoint ScreenPosition(const Control& control) const;
  // The work area of the form's screen.
  [[nodiscard]] PixelRect ScreenArea() const;

  // Shared by all peers of the form; valid until its scale changes.
  [[nodiscard]] HFONT FontFor(const FontDescription& font);
  [[nodiscard]] HBRUSH BrushFor(Color color);
  // The mouse is over the form: from now on its tips show.
  void MakeToolTips();
  // Of a window, or of an area that `tool_window` draws. Nothing before the mouse has come.
  void SetToolTip(Control& control, HWND tool_window, const RECT* area);
  // Shows the pointer that the control's MousePointer or MouseIcon asks for; false when it asks for none.
  bool ShowMousePointer(const Control& control);

  // Handles a message of the form's window or of a panel's. False when the system is to handle it.
  bool HandleContainerMessage(HWND window, Control& container, UINT message, WPARAM first, LPARAM second,
                              LRESULT& result);
  [[nodiscard]] bool ChooseMenuCommand(int command);
  // Gives a turn of the wheel to the control under the mouse; false when there is none that takes it.
  bool PassWheel(WPARAM first, LPARAM second);
  // Paints what lies behind a panel: its container's background, and the controls that the container draws.
  void PaintBehind(HDC target, const ControlPeer& peer);

  // The open window that holds the given one; null when it is no form's.
  [[nodiscard]] static FormWindow* Find(HWND window);
  // The open form windows in the order of their opening.
  [[nodiscard]] static const std::vector<FormWindow*>& OpenWindows();

 private:
  static LRESULT CALLBACK HandleFormMessage(HWND window, UINT message, WPARAM first, LPARAM second);

  [[nodiscard]] DWORD Style() const;
  [[nodiscard]] DWORD ExtendedStyle() const;
  void ShowFirst();
  [[nodiscard]] bool IsWaiting(const Control& control) const;
  // Makes what is not there yet and need not wait.
  void MakeControls();
  // Puts what was there before and what is new in the form's order.
  void StackControls();
  void PlaceWindow(HWND owner);
  void FitToModel();
  void FocusFirst();
  void ReplaceLostFocus();
  void BuildMenu();
  void AddMenuItems(HMENU menu, const std::vector<MenuItem*>& items);
  [[nodiscard]] POINT MenuPlace() const;
  void SetIcons();
  void Rescale(ScreenScale scale);
  void Paint(HWND window, Control& container);
  void PaintContent(HDC target, Control& container, const RECT& client);
  bool HandleCommand(WPARAM first, LPARAM second);
  bool HandleMouse(HWND window, Control& container, UINT message, WPARAM first, LPARAM second);
  // The same for the drawn control under the mouse, or for the container.
  bool ShowContainerPointer(HWND window, Control& container);
  [[nodiscard]] Control* DrawnControlAt(Control& container, POINT place) const;
  bool HandleFormOnlyMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  void NoteSize();
  // Tells how small the user may make the window.
  void LimitSize(MINMAXINFO& limits) const;
  // Sees to it that the form hears when the mouse has left the window.
  void WatchPointer();
  void LookForPointer();
  // Pictures of menu items where the system draws none with soft edges.
  void MeasureMenuPicture(MEASUREITEMSTRUCT& item) const;
  void DrawMenuPicture(const DRAWITEMSTRUCT& item) const;

  Ref<Form> form_;
  ScreenScale scale_;
  WindowHandle window_;
  POINT pointer_at_opening_{};
  HWND tool_tips_ = nullptr;  // owned by window_; none before the mouse has come
  MenuHandle menu_;
  std::vector<Ref<MenuItem>> menu_commands_;  // by command number, from kFirstMenuCommand
  std::vector<BitmapHandle> menu_bitmaps_;
  bool menu_stale_ = false;
  bool is_pointer_watched_ = false;
  std::map<std::string, FontHandle> fonts_;
  std::map<Color, BrushHandle> brushes_;
  std::vector<std::unique_ptr<ControlPeer>> peers_;
  IconHandle small_icon_;
  IconHandle large_icon_;
  Ref<Picture> cursor_picture_;  // what cursor_ was made of
  IconHandle cursor_;
  Control* pressed_ = nullptr;  // the drawn control under the pressed button
};

}  // namespace kestrun
