// The messenger's list and its settings. The run stands in frmchat_run.cpp.
#include "windows/messenger/frmchat.h"

#include <algorithm>

#include "base/convert.h"
#include "base/field_row.h"
#include "forms/keys.h"
#include "forms/member_rows.h"
#include "game/builds.h"
#include "game/messages/message_list.h"
#include "maps/file_tools.h"
#include "platform/platform.h"
#include "program/settings.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/list_keys.h"
#include "program/window_kit/run_command.h"
#include "windows/messenger/frmaddmessage.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmchat::kName, [] { return MakeRef<frmchat>(); });

constexpr const char* kSelectMessage = "Select message!";

frmchat& Self(Object& object) { return static_cast<frmchat&>(object); }

MessengerRun& RunOf(Object& object) { return Self(object).run; }

constexpr Member kRows[]{
    FieldRow<&MessengerRun::MemoryAdress, RunOf>("MemoryAdress"),
    FieldRow<&MessengerRun::GameEndAddress, RunOf>("GameEndAddress"),
    FieldRow<&frmchat::Changed, Self>("Changed"),
    MethodRow<&frmchat::SendNextMessage>("SendNextMessage"),
    MethodRow<&frmchat::SendGameStartMessages>("SendGameStartMessages"),
    MethodRow<&frmchat::Writemessage>("Writemessage", "Message, KeyAscii, MemoryAdress"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

}  // namespace

const MemberTable& frmchat::Members() const { return kTable; }

frmchat::frmchat() : Form(kName) {
  LayOut();
  Connect();
}

void frmchat::Connect() {
  SetCommand({&Command1.Click}, [this] { OpenMessage(frmaddmessage::kNewMessage); });
  SetCommand({&Command2.Click}, [this] { RemoveMessage(); });
  SetCommand({&Command6.Click, &lstmsg.DblClick}, [this] { ShowProperties(); });
  SetCommand({&Command3.Click}, [this] { Enable(); });
  SetCommand({&Command4.Click}, [this] { Disable(); });
  Command5.Click = [this] { Save(); };
  lstmsg.KeyDown = [this](int& key_code, int) {
    PressForKey(key_code,
                {{key::kInsert, Command1}, {key::kDelete, Command2}, {key::kEnter, Command6}, {key::kF2, Command6}});
  };
  SetCommand({&Text1.Change}, [this] { CheckSeconds(); });
  Timer.Tick = [this] { Tick(); };
  TmrGameStart.Tick = [this] { SendGameStartMessages(); };
  QueryUnload = [this](bool& cancel) { AskToSave(cancel); };
}

// ---- settings ------------------------------------------------------------------------------------------------------

void frmchat::Load() {
  RunCommand([this] { LoadSettings(); });
  Changed = false;
  TmrGameStart.Enabled = true;
  ShowState();
  ApplyStyleAtOnce(*this, "ApplyStyle");
}

void frmchat::LoadSettings() {
  CmbVersion.ListIndex = TextToLong(ReadSetting(setting::kChatVersion));
  ReadMessages([this](const Message& message) {
    lstmsg.AddItem(message.text);
    lstmsg.SetItemData(lstmsg.NewIndex(), message.type);
  });
  Text1.Text = ReadSetting(setting::kChatSeconds);
  Check1.Value = TextToLong(ReadSetting(setting::kChatRandom));
  ChFillIn.Value = ReadSetting(setting::kChatFillIn) == "1" ? 1 : 0;
  lbltime.Caption = Text1.Text.get();
  FitListWidth(*this, lstmsg);
}

bool frmchat::Save() {
  return RunCommand([this] {
    MessengerSettings settings{CmbVersion.ListIndex, {}, Text1.Text, Check1.Value == 1, ChFillIn.Value == 1};
    for (int row = 0; row < lstmsg.ListCount(); ++row) {
      settings.messages.push_back({lstmsg.List(row), lstmsg.ItemData(row)});
    }
    WriteMessengerSettings(settings);
    Changed = false;
    MsgBox("Saved!");
  });
}

void frmchat::AskToSave(bool& cancel) {
  if (!Changed) return;
  const BoxAnswer answer = MsgBox("Save changes to the message list?", BoxButtons::kYesNoCancel);
  // A list that cannot be stored is not lost: the window stays.
  cancel = answer == BoxAnswer::kCancel || (answer == BoxAnswer::kYes && !Save());
}

// Told while it is typed; the empty text on the way to another number is let be.
void frmchat::CheckSeconds() {
  const std::string text = Text1.Text;
  if (text.empty() || IsNumeric(Variant(text))) return;
  MsgBox("Please enter a number!");
  Text1.Text = MessengerRun::kDefaultInterval;
}

// ---- the list ------------------------------------------------------------------------------------------------------

void frmchat::TakeMessage(int row, const std::string& text, int32_t type) {
  if (row < 0) {
    lstmsg.AddItem(text);
    lstmsg.SetItemData(lstmsg.NewIndex(), type);
  } else {
    lstmsg.SetList(row, text);
    lstmsg.SetItemData(row, type);
  }
  Changed = true;
  FitListWidth(*this, lstmsg);
}

void frmchat::RemoveMessage() {
  const int row = lstmsg.ListIndex;
  if (row < 0) return;
  lstmsg.RemoveItem(row);
  Changed = true;
  FitListWidth(*this, lstmsg);
  // During a run the message behind it is the next one that is sent.
  lstmsg.ListIndex = Timer.Enabled ? row - 1 : std::min(row, lstmsg.ListCount() - 1);
}

void frmchat::OpenMessage(int edit) {
  auto& window = static_cast<frmaddmessage&>(WindowByName(frmaddmessage::kName));
  window.SetEditMsg(edit);
  OpenWindow(frmaddmessage::kName, ShowWay::kShowModal);
}

void frmchat::ShowProperties() {
  if (lstmsg.ListIndex < 0) {
    MsgBox(kSelectMessage);
  } else {
    OpenMessage(lstmsg.ListIndex + 1);
  }
}

}  // namespace kestrun
