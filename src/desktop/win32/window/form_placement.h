// Place, size and border of a form's window: the model's on the screen, and what the user makes of them in the model.
#pragma once

#include "desktop/win32/system/windows_api.h"
#include "desktop/win32/window/screen_scale.h"

namespace kestrun {

class Form;
class FormWindow;

class FormPlacement {
 public:
  explicit FormPlacement(FormWindow& form_window) : form_window_(form_window) {}

  // The window's styles for the form's border and boxes.
  [[nodiscard]] DWORD Style() const;
  [[nodiscard]] DWORD ExtendedStyle() const;
  // The screen that the window is on, without the task bar.
  [[nodiscard]] RECT WorkArea() const;

  // Gives the window its first place.
  void Place(HWND owner);
  void MoveToModel();
  void SizeToModel();
  void ShowBorder();

  // The user has moved the window, or given it another size or state (first parameter of WM_SIZE).
  void NotePlace();
  void NoteState(WPARAM state);
  // Answers of the window to the system, which is about to move it or asks how small it may become.
  // True when a window that can be dragged was to become smaller than its least size.
  bool KeepSize(WINDOWPOS& place) const;
  void LimitSize(MINMAXINFO& limits) const;
  // Tells the screen the window's size once more.
  void RepeatSize();

 private:
  [[nodiscard]] HWND window() const;
  [[nodiscard]] Form& form() const;
  [[nodiscard]] ScreenScale scale() const;
  [[nodiscard]] bool IsSizable() const;
  [[nodiscard]] SIZE LeastSize() const;
  [[nodiscard]] SIZE OuterSizeOfModel() const;
  void NoteSize();

  FormWindow& form_window_;
};

}  // namespace kestrun
