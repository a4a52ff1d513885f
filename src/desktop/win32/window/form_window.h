// One form's window with the peers of its controls, and what they share. Lives as long as an event of it is under way,
// also when the form closes in the middle of it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/win32/system/handles.h"
#include "desktop/win32/window/form_menu.h"
#include "desktop/win32/window/form_painting.h"
#include "desktop/win32/window/form_placement.h"
#include "desktop/win32/window/form_tips.h"
#include "desktop/win32/window/mouse_pointer.h"
#include "desktop/win32/window/screen_scale.h"
#include "forms/form.h"

namespace kestrun {

class ControlPeer;

class FormWindow final : public FormPeer, public std::enable_shared_from_this<FormWindow> {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // Makes the window with all its controls, hidden.
  void Create();

  // What the model tells; see FormPeer.
  void Show() override;
  void Close() override;
  void Update(Control& control, PropertyId property) override;
  void ControlsChanged() override;
  void MenuChanged() override;
  void ListChanged(Control& control) override;
  void SetFocus(Control& control) override;
  void Repaint(Control& control) override;
  void PopUpMenu(MenuItem& item) override;
  void BringToFront() override;
  [[nodiscard]] int32_t WindowNumber(const Control& control) override;
  [[nodiscard]] int Dpi() override { return scale_.dpi(); }
  void ShowPopup(Control& control, const PixelRect& screen_area, std::function<void(Canvas&)> paint) override;
  void HidePopup(Control& control) override;
  [[nodiscard]] PixelPoint ScreenPosition(const Control& control) override;
  [[nodiscard]] PixelRect ScreenArea(const Control& control) override;
  void TellAccessibility(Control& control, AccessibleEvent event, int child) override;

  [[nodiscard]] HWND window() const { return window_.get(); }
  [[nodiscard]] Form& form() const { return *form_; }
  [[nodiscard]] ScreenScale scale() const { return scale_; }
  [[nodiscard]] bool is_open() const { return window_.IsValid(); }
  [[nodiscard]] FormPainting& painting() { return painting_; }
  [[nodiscard]] FormTips& tips() { return tips_; }
  // Null for a control that has no peer.
  [[nodiscard]] ControlPeer* PeerOf(const Control& control) const;
  [[nodiscard]] ControlPeer* PeerOf(HWND window) const;
  // The window that a control's container has.
  [[nodiscard]] HWND ContainerWindow(const Control& control) const;

  [[nodiscard]] HFONT FontFor(const FontDescription& font) { return painting_.FontFor(font); }
  [[nodiscard]] HBRUSH BrushFor(Color color) { return painting_.BrushFor(color); }
  // When a control was hidden with the focus in it: another gets it in the next pass, when the event at hand is over.
  void LeaveHiddenFocus();
  // The mouse is over the form: from now on its tips show.
  void MakeToolTips();
  bool ShowMousePointer(const Control& control) { return pointer_.Show(control, scale_.dpi()); }

  // Handles a message of the form's window or of a panel's. False when the system is to handle it.
  bool HandleContainerMessage(HWND window, Control& container, UINT message, WPARAM first, LPARAM second,
                              LRESULT& result);
  // Handles the painting of a control that draws itself by DrawBackground. False for any other message.
  bool HandlePainting(ControlPeer& peer, UINT message, WPARAM first, LRESULT& result);
  // Gives a turn of the wheel to the control under the mouse; false when there is none that takes it.
  bool PassWheel(WPARAM first, LPARAM second);

  // The shown window that holds the given one; null when it is no form's.
  [[nodiscard]] static FormWindow* Find(HWND window);
  // The shown form windows in the order of their showing.
  [[nodiscard]] static const std::vector<FormWindow*>& OpenWindows();

 private:
  static LRESULT CALLBACK HandleFormMessage(HWND window, UINT message, WPARAM first, LPARAM second);

  // The window that a modal form stands in front of; null for others.
  [[nodiscard]] HWND Owner() const;
  void PutOnScreen();
  [[nodiscard]] bool IsWaiting(const Control& control) const;
  // Makes what is not there yet and need not wait.
  void MakeControls();
  // Puts what was there before and what is new in the form's order.
  void StackControls();
  void UpdateForm(PropertyId property);
  void FocusFirst();
  void DropPopups();
  void ReplaceLostFocus();
  void PostBuildMenu();
  void NoteMenuLoop(bool is_open);
  void ShowFrameColors();
  bool ShowOwnFrame(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  [[nodiscard]] POINT MenuPlace() const;
  void SetIcons();
  void Rescale(ScreenScale scale);
  // Sees to it that the form hears when the mouse has left the window.
  void WatchPointer();
  void LookForPointer();
  bool HandleCommand(WPARAM first, LPARAM second);
  bool HandleNotification(LPARAM second, LRESULT& result);
  bool DrawItem(LPARAM second);
  bool HandleMouse(Control& container, UINT message, WPARAM first, LPARAM second);
  // The pointer of the drawn control under the mouse, or of the container.
  bool ShowContainerPointer(HWND window, Control& container);
  [[nodiscard]] Control* DrawnControlAt(Control& container, POINT place) const;
  bool HandleFormOnlyMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result);
  void TakeDrop(WPARAM first);

  Ref<Form> form_;
  ScreenScale scale_;
  WindowHandle window_;
  FormMenu menu_;
  FormTips tips_;
  FormPlacement placement_;
  FormPainting painting_;
  bool is_pointer_watched_ = false;
  MousePointerShape pointer_;
  std::vector<std::unique_ptr<ControlPeer>> peers_;
  IconHandle small_icon_;
  IconHandle large_icon_;
  Control* pressed_ = nullptr;  // the drawn control under the pressed button
  bool menu_stale_ = false;
  bool is_menu_open_ = false;
};

}  // namespace kestrun
