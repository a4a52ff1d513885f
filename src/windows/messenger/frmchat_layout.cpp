// Captions, tips and places of the messenger's controls.
#include "game/builds.h"
#include "program/window_kit/place_controls.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

constexpr int kClientWidth = 7200;
constexpr int kInside = kClientWidth - 2 * kWindowMargin;
// Inside the frames.
constexpr int kFirstRow = 300;
constexpr int kVersionHeight = kFirstRow + kTextBoxHeight + kFramePad;
constexpr int kMessagesTop = kWindowMargin + kVersionHeight + kControlGap;
constexpr int kButtonWidth = 1260;
constexpr int kButtonLeft = kInside - kFramePad - kButtonWidth;
constexpr int kListHeight = 2400;
constexpr int kRandomTop = kFirstRow + kListHeight + 90;
constexpr int kFillInTop = kRandomTop + kOptionHeight + 30;
constexpr int kEveryTop = kFillInTop + kOptionHeight + 90;
constexpr int kEveryWidth = 2040;
constexpr int kSecondsLeft = kFramePad + kEveryWidth + 60;
constexpr int kSecondsWidth = 840;
constexpr int kNextLeft = kSecondsLeft + kSecondsWidth + 60 + 720;
constexpr int kNextWidth = 1560;
constexpr int kMessagesHeight = kEveryTop + kTextBoxHeight + kFramePad;
constexpr int kStateTop = kMessagesTop + kMessagesHeight + kControlGap;
constexpr int kStateHeight = 3 * kLabelHeight;
constexpr int kButtonsTop = kStateTop + kStateHeight + 60;

}  // namespace

void frmchat::LayOut() {
  LayOutFixedWindow(*this, "Auto messenger", StartPosition::kCenterScreen);
  SetClientSize(kClientWidth, kButtonsTop + kDialogButtonHeight + kWindowMargin);
  Frame1.Caption = "Delta Force Version:";
  Frame1.Move(kWindowMargin, kWindowMargin, kInside, kVersionHeight);
  CmbVersion.SetContainer(Frame1);
  CmbVersion.Style = static_cast<int>(ComboStyle::kList);
  CmbVersion.ToolTipText = "The game that is running.";
  CmbVersion.Move(kFramePad, kFirstRow, kInside - 2 * kFramePad, kTextBoxHeight);
  for (const MessengerBuild& build : kMessengerBuilds) CmbVersion.AddItem(build.caption);
  LayOutMessages();
  PlaceLabel(LblState, kWindowMargin, kStateTop, kInside, "");
  LblState.Height = kStateHeight;
  LblState.WordWrap = true;
  LblState.UseMnemonic = false;
  int left = kWindowMargin;
  for (CommandButton* button : {&Command3, &Command4}) {
    button->Move(left, kButtonsTop, kDialogButtonWidth, kDialogButtonHeight);
    left += kDialogButtonWidth + kControlGap;
  }
  SetCaptionAndTip(Command3, "Enable", "Start sending messages.");
  SetCaptionAndTip(Command4, "Disable", "Send no more messages.");
  Command4.Enabled = false;
  PlaceButton(Command5,
              {kClientWidth - kWindowMargin - kDialogButtonWidth, kButtonsTop, kDialogButtonWidth, kDialogButtonHeight},
              "Save", "Save the messages & settings");
  Timer.Interval = MessengerRun::kTickMs;
  Timer.Enabled = false;
  TmrGameStart.Interval = MessengerRun::kGameStartMs;
  TmrGameStart.Enabled = false;  // until the window is loaded
}

void frmchat::LayOutMessages() {
  Frame2.Caption = "Messages:";
  Frame2.Move(kWindowMargin, kMessagesTop, kInside, kMessagesHeight);
  const std::initializer_list<Control*> inside{&lstmsg,   &Command1, &Command2,   &Command6, &Check1, &ChFillIn,
                                               &LblEvery, &Text1,    &LblSeconds, &LblNext,  &lbltime};
  for (Control* control : inside) control->SetContainer(Frame2);
  lstmsg.ToolTipText = "This list shows all the messages";
  lstmsg.Move(kFramePad, kFirstRow, kButtonLeft - kControlGap - kFramePad, kListHeight);
  int top = kFirstRow;
  for (CommandButton* button : {&Command1, &Command2, &Command6}) {
    button->Move(kButtonLeft, top, kButtonWidth, kDialogButtonHeight);
    top += kDialogButtonHeight + kControlGap;
  }
  SetCaptionAndTip(Command1, "+", "Add a message");
  SetCaptionAndTip(Command2, "-", "Remove message");
  SetCaptionAndTip(Command6, "Properties", "Change the selected message.");
  Check1.Caption = "Random select messages";
  Check1.ToolTipText = "Select a message at random and send it.";
  Check1.Move(kFramePad, kRandomTop, kInside - 2 * kFramePad, kOptionHeight);
  ChFillIn.Caption = "Fill in %map%, %next%, %left% and %time%";
  ChFillIn.ToolTipText =
      "In a message that is sent: the map that the auto host plays, the next one, how long until then, and the time of "
      "day. A ? stands for what is not known.";
  ChFillIn.Move(kFramePad, kFillInTop, kInside - 2 * kFramePad, kOptionHeight);
  PlaceLabel(LblEvery, kFramePad, kEveryTop + 45, kEveryWidth, "Send a message every:");
  Text1.ToolTipText = "Time in sec";
  Text1.Move(kSecondsLeft, kEveryTop, kSecondsWidth, kTextBoxHeight);
  PlaceLabel(LblSeconds, kSecondsLeft + kSecondsWidth + 60, kEveryTop + 45, 600, "Sec.");
  PlaceLabel(LblNext, kNextLeft, kEveryTop + 45, kNextWidth, "Next message in:");
  PlaceLabel(lbltime, kNextLeft + kNextWidth + 60, kEveryTop + 45, kInside - kFramePad - kNextLeft - kNextWidth - 60,
             "");
  lbltime.ToolTipText = "Seconds to the next message, while a game is running.";
}

}  // namespace kestrun
