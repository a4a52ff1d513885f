#include "program/window_kit/place_controls.h"

#include "program/program_pictures.h"

namespace kestrun {
namespace {

constexpr int kButtonGap = 120;

}  // namespace

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

void PlaceOkAndCancel(CommandButton& ok, CommandButton& cancel, int right, int top) {
  const int cancel_left = right - kDialogButtonWidth;
  PlaceButton(ok, {cancel_left - kButtonGap - kDialogButtonWidth, top, kDialogButtonWidth, kDialogButtonHeight}, "OK");
  PlaceButton(cancel, {cancel_left, top, kDialogButtonWidth, kDialogButtonHeight}, "Cancel");
  ok.Default = true;
  cancel.Cancel = true;
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
