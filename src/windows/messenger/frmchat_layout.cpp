// Captions, tips and places of the messenger's controls.
#include "game/builds.h"
#include "program/window_kit/place_controls.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

constexpr int kMargin = 180;
constexpr int kGap = 120;
constexpr int kClientWidth = 7200;
constexpr int kInside = kClientWidth - 2 * kMargin;
constexpr int kBoxHeight = 315;
// Inside the frames.
constexpr int kPad = 180;
constexpr int kFirstRow = 300;
constexpr int kVersionHeight = kFirstRow + kBoxHeight + kPad;
constexpr int kMessagesTop = kMargin + kVersionHeight + kGap;
constexpr int kButtonWidth = 1260;
constexpr int kButtonLeft = kInside - kPad - kButtonWidth;
constexpr int kListHeight = 2400;
constexpr int kRandomTop = kFirstRow + kListHeight + 90;
constexpr int kEveryTop = kRandomTop + kOptionHeight + 90;
constexpr int kEveryWidth = 2040;
constexpr int kSecondsLeft = kPad + kEveryWidth + 60;
constexpr int kSecondsWidth = 840;
constexpr int kNextLeft = kSecondsLeft + kSecondsWidth + 60 + 720;
constexpr int kNextWidth = 1560;
constexpr int kMessagesHeight = kEveryTop + kBoxHeight + kPad;
constexpr int kStateTop = kMessagesTop + kMessagesHeight + kGap;
constexpr int kStateHeight = 3 * kLabelHeight;
constexpr int kButtonsTop = kStateTop + kStateHeight + 60;

}  // namespace

void frmchat::LayOut() {
  LayOutFixedWindow(*this, "Auto messenger", StartPosition::kCenterScreen);
  SetClientSize(kClientWidth, kButtonsTop + kDialogButtonHeight + kMargin);
  Frame1.Caption = "Delta Force Version:";
  Frame1.Move(kMargin, kMargin, kInside, kVersionHeight);
  CmbVersion.SetContainer(Frame1);
  CmbVersion.Style = static_cast<int>(ComboStyle::kList);
  CmbVersion.ToolTipText = "The game that is running.";
  CmbVersion.Move(kPad, kFirstRow, kInside - 2 * kPad, kBoxHeight);
  for (const MessengerBuild& build : kMessengerBuilds) CmbVersion.AddItem(build.caption);
  LayOutMessages();
  PlaceLabel(LblState, kMargin, kStateTop, kInside, "");
  LblState.Height = kStateHeight;
  LblState.WordWrap = true;
  LblState.UseMnemonic = false;
  int left = kMargin;
  for (CommandButton* button : {&Command3, &Command4}) {
    button->Move(left, kButtonsTop, kDialogButtonWidth, kDialogButtonHeight);
    left += kDialogButtonWidth + kGap;
  }
  SetCaptionAndTip(Command3, "Enable", "Start sending messages.");
  SetCaptionAndTip(Command4, "Disable", "Send no more messages.");
  Command4.Enabled = false;
  PlaceButton(Command5,
              {kClientWidth - kMargin - kDialogButtonWidth, kButtonsTop, kDialogButtonWidth, kDialogButtonHeight},
              "Save", "Save the messages & settings");
  Timer.Interval = 1000;
  Timer.Enabled = false;
  TmrGameStart.Interval = 20000;
  TmrGameStart.Enabled = false;  // until the window is loaded
}

void frmchat::LayOutMessages() {
  Frame2.Caption = "Messages:";
  Frame2.Move(kMargin, kMessagesTop, kInside, kMessagesHeight);
  const std::initializer_list<Control*> inside{&lstmsg,   &Command1, &Command2,   &Command6, &Check1,
                                               &LblEvery, &Text1,    &LblSeconds, &LblNext,  &lbltime};
  for (Control* control : inside) control->SetContainer(Frame2);
  lstmsg.ToolTipText = "This list shows all the messages";
  lstmsg.Move(kPad, kFirstRow, kButtonLeft - kGap - kPad, kListHeight);
  int top = kFirstRow;
  for (CommandButton* button : {&Command1, &Command2, &Command6}) {
    button->Move(kButtonLeft, top, kButtonWidth, kDialogButtonHeight);
    top += kDialogButtonHeight + kGap;
  }
  SetCaptionAndTip(Command1, "+", "Add a message");
  SetCaptionAndTip(Command2, "-", "Remove message");
  SetCaptionAndTip(Command6, "Properties", "Change the selected message.");
  Check1.Caption = "Random select messages";
  Check1.ToolTipText = "Select a message at random and send it.";
  Check1.Move(kPad, kRandomTop, kInside - 2 * kPad, kOptionHeight);
  PlaceLabel(LblEvery, kPad, kEveryTop + 45, kEveryWidth, "Send a message every:");
  Text1.ToolTipText = "Time in sec";
  Text1.Move(kSecondsLeft, kEveryTop, kSecondsWidth, kBoxHeight);
  PlaceLabel(LblSeconds, kSecondsLeft + kSecondsWidth + 60, kEveryTop + 45, 600, "Sec.");
  PlaceLabel(LblNext, kNextLeft, kEveryTop + 45, kNextWidth, "Next message in:");
  PlaceLabel(lbltime, kNextLeft + kNextWidth + 60, kEveryTop + 45, kInside - kPad - kNextLeft - kNextWidth - 60, "");
  lbltime.ToolTipText = "Seconds to the next message, while a game is running.";
}

}  // namespace kestrun
