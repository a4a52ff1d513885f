#include "program/window_kit/place_controls.h"

#include "program/program_pictures.h"

namespace kestrun {

void LayOutFixedWindow(Form& window, const std::string& caption, StartPosition position) {
  window.Caption = caption;
  window.Icon = ProgramIcon();
  window.BorderStyle = static_cast<int>(FormBorder::kFixedSingle);
  window.StartUpPosition = static_cast<int>(position);
  window.MaxButton = false;
}

void LayOutDialog(Form& window, const std::string& caption, InTaskbar in_taskbar) {
  LayOutFixedWindow(window, caption, StartPosition::kCenterOwner);
  window.BorderStyle = static_cast<int>(FormBorder::kFixedDialog);
  window.MinButton = false;
  window.ShowInTaskbar = in_taskbar == InTaskbar::kYes;
}

void PlaceEndButtons(const EndButton& take, const EndButton& leave, int right, int top) {
  int left = right - 2 * kDialogButtonWidth - kControlGap;
  for (const EndButton& row : {take, leave}) {
    PlaceButton(row.button, {left, top, kDialogButtonWidth, kDialogButtonHeight}, row.caption, row.tip);
    left += kDialogButtonWidth + kControlGap;
  }
  leave.button.Cancel = true;
}

void PlaceOkAndCancel(CommandButton& ok, CommandButton& cancel, int right, int top) {
  PlaceEndButtons({ok, "OK"}, {cancel, "Cancel"}, right, top);
  ok.Default = true;
}

void SetCaptionAndTip(CommandButton& button, const std::string& caption, const std::string& tip) {
  button.Caption = caption;
  button.ToolTipText = tip;
}

void PlaceButton(CommandButton& button, const Place& place, const std::string& caption, const std::string& tip) {
  MoveTo(button, place);
  SetCaptionAndTip(button, caption, tip);
}

void PlaceLabel(Label& label, int left, int top, int width, const std::string& caption) {
  label.Move(left, top, width, kLabelHeight);
  label.Caption = caption;
  label.BackStyle = 0;
}

void PlaceOption(OptionButton& option, Frame& frame, int left, int top, int width, const std::string& caption,
                 const std::string& tip) {
  option.SetContainer(frame);
  option.Move(left, top, width, kOptionHeight);
  option.Caption = caption;
  option.ToolTipText = tip;
}

void GiveWindowColors(Control& control) {
  control.BackColor = color::kWindowBackground;
  control.ForeColor = color::kWindowText;
}

}  // namespace kestrun
