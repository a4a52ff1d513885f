// The scroll bars of a window in its control's own colours. The system knows only its own, and paints bars whenever it
// likes: these are drawn over the system's, and the program itself does what the mouse does on them.
#pragma once

#include <optional>

#include "desktop/win32/system/windows_api.h"
#include "desktop/win32/window/screen_scale.h"
#include "forms/color.h"

namespace kestrun {

// One bar that shows, in pixels of the screen. Lengths go along the bar.
struct ShownScrollBar {
  int kind = SB_VERT;  // or SB_HORZ
  RECT area{};
  int length = 0;
  int button = 0;  // length of the arrow at each end
  int thumb_start = 0;
  int thumb_length = 0;  // 0 when there is nothing to scroll
  int first = 0;         // the positions that can be scrolled to
  int last = 0;
  int position = 0;
};
// Nothing for a bar that does not show.
[[nodiscard]] std::optional<ShownScrollBar> FindScrollBar(HWND window, int kind);

class ScrollBarFace {
 public:
  enum class Part { kNone, kLineBack, kLineOn, kPageBack, kPageOn, kThumb };

  // A message before the window has it; true when it is done with. Events of the window may run in it, and may end it.
  [[nodiscard]] bool TakeMessage(HWND window, UINT message, WPARAM first, LPARAM second);
  // Whether the window may have painted its bars in a message that it has handled: then they are to be drawn, at once
  // or, when many such messages may follow each other, once at the next one.
  void AfterMessage(HWND window, UINT message, Color background, Color text, ScreenScale scale);

 private:
  struct Press {
    int kind = SB_VERT;
    Part part = Part::kNone;
    int grip = 0;  // where on the thumb
    bool had_capture = false;
  };

  [[nodiscard]] bool BeginPress(HWND window, int kind, POINT place);
  [[nodiscard]] bool GoOn(HWND window, UINT message, WPARAM first, LPARAM second);
  void Drag(HWND window, POINT place);
  void Repeat(HWND window);
  void EndPress(HWND window);
  void Draw(HWND window, Color background, Color text, ScreenScale scale);

  std::optional<Press> press_;
  bool is_drawing_posted_ = false;
};

}  // namespace kestrun
