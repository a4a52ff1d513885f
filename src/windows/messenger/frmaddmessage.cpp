#include "windows/messenger/frmaddmessage.h"

#include "base/code_page.h"
#include "base/text.h"
#include "formats/profile/profile_file.h"
#include "forms/member_rows.h"
#include "game/messages/message_list.h"
#include "platform/platform.h"
#include "program/character_map.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/place_controls.h"
#include "program/window_kit/run_command.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmaddmessage::kName, [] { return MakeRef<frmaddmessage>(); });

constexpr Member kRows[]{
    AccessorRow<&frmaddmessage::EditMsg, &frmaddmessage::SetEditMsg>("EditMsg"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

constexpr const char* kEnterHere = "Enter your message here";
constexpr int kStyleTimerMs = 50;
constexpr int kWidth = 6000;
constexpr int kLabelStep = kLabelHeight + 30;
constexpr int kTextTop = kWindowMargin + kLabelStep;
constexpr int kTypeTop = kTextTop + kTextBoxHeight + kWindowMargin + kLabelStep;
constexpr int kButtonsTop = kTypeTop + kTextBoxHeight + kWindowMargin + 60;
constexpr int kCharMapWidth = 1500;

}  // namespace

const MemberTable& frmaddmessage::Members() const { return kTable; }

frmaddmessage::frmaddmessage() : Form(kName) {
  LayOut();
  Text1.GotFocus = [this] {
    if (Text1.Text.get() == kEnterHere) Text1.Text = "";
  };
  SetCommand({&Command1.Click}, [this] { TakeMessage(); });
  SetCommand({&Command2.Click}, [this] { Unload(); });
  SetCommand({&Command3.Click}, [] { StartCharacterMap(); });
  SetUpStyleTimer(*this, Timer1, kStyleTimerMs, "applystyle ");
}

void frmaddmessage::LayOut() {
  LayOutDialog(*this, "Add message");
  SetClientSize(kWidth + 2 * kWindowMargin, kButtonsTop + kDialogButtonHeight + kWindowMargin);
  PlaceLabel(LblMessage, kWindowMargin, kWindowMargin, kWidth, "Enter message:");
  Text1.Text = kEnterHere;
  Text1.MaxLength = static_cast<int>(kProfileValueBytes);  // more is not stored
  Text1.ToolTipText = "What is typed into the game.";
  Text1.Move(kWindowMargin, kTextTop, kWidth, kTextBoxHeight);
  PlaceLabel(LblType, kWindowMargin, kTypeTop - kLabelStep, kWidth, "Message Type:");
  Combo1.Style = static_cast<int>(ComboStyle::kList);
  Combo1.ToolTipText = "Who gets the message, and when.";
  Combo1.Move(kWindowMargin, kTypeTop, kWidth, kTextBoxHeight);
  for (const MessageType& type : kMessageTypes) {
    Combo1.AddItem(type.caption);
    Combo1.SetItemData(Combo1.NewIndex(), type.number);
  }
  PlaceButton(Command3, {kWindowMargin, kButtonsTop, kCharMapWidth, kDialogButtonHeight}, "Run Char Map",
              "Run a special character map.");
  PlaceOkAndCancel(Command1, Command2, kWindowMargin + kWidth, kButtonsTop);
}

void frmaddmessage::Load() {
  RunCommand([this] { ShowMessage(); });
  StartStyleTimer(Timer1);
}

void frmaddmessage::SetEditMsg(int32_t row) {
  edit_msg_ = row;
  if (IsLoaded()) ShowMessage();
}

void frmaddmessage::ShowMessage() {
  Combo1.ListIndex = 0;
  if (edit_msg_ < 1) return;
  const auto& messenger = static_cast<frmchat&>(WindowByName(frmchat::kName));
  Text1.Text = messenger.lstmsg.List(edit_msg_ - 1);
  const int32_t type = messenger.lstmsg.ItemData(edit_msg_ - 1);
  Combo1.ListIndex = -1;
  for (int row = 0; row < Combo1.ListCount(); ++row) {
    if (Combo1.ItemData(row) == type) Combo1.ListIndex = row;
  }
}

void frmaddmessage::TakeMessage() {
  if (Combo1.ListIndex < 0) {
    MsgBox("Please select a message type");
    return;
  }
  if (!CanBeSent()) return;
  auto& messenger = static_cast<frmchat&>(WindowByName(frmchat::kName));
  const int row = edit_msg_ < 1 ? -1 : edit_msg_ - 1;
  messenger.TakeMessage(row, Text1.Text, Combo1.ItemData(Combo1.ListIndex));
  // Opened by itself, the window has no messenger behind it: the message would be out of sight.
  if (!messenger.IsShown()) messenger.Show();
  Unload();
}

// The game's text line takes single bytes only.
bool frmaddmessage::CanBeSent() {
  const auto lost = FirstUnencodable(Text1.Text.get());
  if (!lost) return true;
  return AskYesNo("The game cannot show the character \"" + *lost + "\": players will see ? in its place." +
                      std::string(kCrLf) + "Keep the message as it is?",
                  BoxIcon::kQuestion);
}

}  // namespace kestrun
