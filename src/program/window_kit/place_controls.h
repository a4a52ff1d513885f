// What the windows' layouts repeat: the frame of a window, and controls with their place, caption and tip. All numbers
// are twips.
#pragma once

#include <string>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "forms/text_box.h"

namespace kestrun {

// The heights of a line of text and of the buttons that end a dialogue, and the width of the latter.
inline constexpr int kLabelHeight = 240;
inline constexpr int kOptionHeight = 285;
inline constexpr int kDialogButtonHeight = 375;
inline constexpr int kDialogButtonWidth = 1260;

// Between a window's edge and its controls, between controls, and between a frame's edge and what stands in it; and the
// height of a text box with one line.
inline constexpr int kWindowMargin = 180;
inline constexpr int kControlGap = 120;
inline constexpr int kFramePad = 180;
inline constexpr int kTextBoxHeight = 315;

struct Place {
  int left;
  int top;
  int width;
  int height;
};

inline void MoveTo(Control& control, const Place& place) {
  control.Move(place.left, place.top, place.width, place.height);
}

// A window of a fixed size that opens in the middle of the screen or of the window that it was opened from. It has the
// program's icon and can be minimized.
void LayOutFixedWindow(Form& window, const std::string& caption, StartPosition position);

// A dialogue: it opens in the middle of its owner, can be neither minimized nor maximized, and stands in the task bar
// only when it is a window of its own.
enum class InTaskbar { kNo, kYes };
void LayOutDialog(Form& window, const std::string& caption, InTaskbar in_taskbar = InTaskbar::kNo);

// The two buttons that end a dialogue, side by side with the right edge of the second at `right`; Escape presses the
// second.
struct EndButton {
  CommandButton& button;
  const char* caption;
  const char* tip = "";
};
void PlaceEndButtons(const EndButton& take, const EndButton& leave, int right, int top);
// The usual two; Enter presses OK.
void PlaceOkAndCancel(CommandButton& ok, CommandButton& cancel, int right, int top);

void SetCaptionAndTip(CommandButton& button, const std::string& caption, const std::string& tip = "");
void PlaceButton(CommandButton& button, const Place& place, const std::string& caption, const std::string& tip = "");

// One line of text on whatever is behind it.
void PlaceLabel(Label& label, int left, int top, int width, const std::string& caption);

// Inside a frame.
void PlaceOption(OptionButton& option, Frame& frame, int left, int top, int width, const std::string& caption,
                 const std::string& tip);

// Gives the colours of text that is typed or chosen.
void GiveWindowColors(Control& control);

}  // namespace kestrun
