// The messenger's run: the tick, the countdown, and what is typed into the game.
#include "base/convert.h"
#include "base/number.h"
#include "game/builds.h"
#include "platform/platform.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "windows/messenger/frmchat.h"

#include <utility>

namespace kestrun {
namespace {

constexpr uint32_t kLineOpensMs = 700;
constexpr int kRoundsBetweenStartMessages = 101;
constexpr const char* kDefaultSeconds = "60";

}  // namespace

void frmchat::Enable() {
  const MessengerBuild& build = kMessengerBuilds.at(static_cast<size_t>(CmbVersion.ListIndex.get()));
  const bool is_there = MemControl1.AttachToWindow(build.window_title);
  MemoryAdress = build.MemoryAdress;
  GameEndAddress = build.GameEndAddress;
  ShowState();
  if (!is_there && !AskYesNo("Delta Force isn't open. Continue?", BoxIcon::kQuestion)) return;
  lbltime.Caption = Text1.Text.get();
  lstmsg.ListIndex = 0;
  Timer.Enabled = true;
  Command3.Enabled = false;
  Command4.Enabled = true;
  ShowState();
}

void frmchat::Disable() {
  Timer.Enabled = false;
  if (std::exchange(start_messages_wait_, false)) TmrGameStart.Enabled = true;
  Command3.Enabled = true;
  Command4.Enabled = false;
  ShowState();
}

void frmchat::ShowState() {
  const std::string refusal = MemControl1.Refusal();
  if (!refusal.empty()) {
    LblState.Caption = refusal;
  } else if (!Timer.Enabled) {
    LblState.Caption = game_runs_ && TmrGameStart.Enabled ? "Off: only the messages of the game's start are still sent."
                                                          : "Off: nothing is sent.";
  } else {
    LblState.Caption = game_runs_ ? "A game is running." : "Waiting for a game to run.";
  }
}

// ---- the tick ------------------------------------------------------------------------------------------------------

void frmchat::Tick() {
  Attempt([this] { WatchGame(); });
  if (game_runs_) CountDown();
  if (start_messages_wait_ && !IsTextLineTaken()) SendGameStartMessages();
  if (IsLoaded()) ShowState();
}

// A game that begins starts the time to its first messages anew.
void frmchat::WatchGame() {
  game_runs_ = MemControl1.ReadByteAt(GameEndAddress) > 0;
  if (game_runs_ && !game_ran_) StartWaitingForGameStart();
  game_ran_ = game_runs_;
}

void frmchat::StartWaitingForGameStart() {
  TmrGameStart.Enabled = false;
  TmrGameStart.Enabled = true;
}

// A text that is no number counts as 0, so that the next message sets the countdown right again.
int32_t frmchat::ShownSeconds() const {
  int32_t seconds = 0;
  Attempt([&] { seconds = TextToLong(lbltime.Caption.get()); });
  return seconds;
}

void frmchat::CountDown() {
  if (ShownSeconds() == 0) {
    // The line is taken by the auto host, or by the messages of a game's start: this one goes out a tick later.
    if (IsTextLineTaken()) return;
    SendNextMessage();
    if (!IsLoaded()) return;
    Attempt([this] {
      if (!IsNumeric(Variant(Text1.Text.get()))) Text1.Text = kDefaultSeconds;
    });
    Attempt([this] { lbltime.Caption = std::to_string(TextToLong(Text1.Text.get())); });
  }
  Attempt([this] { lbltime.Caption = std::to_string(ShownSeconds() - 1); });
}

// ---- sending -------------------------------------------------------------------------------------------------------

int frmchat::NextRow() const {
  const int count = lstmsg.ListCount();
  if (Check1.Value == 1) return RoundToInt(RandomDraw() * (count - 1));
  return (lstmsg.ListIndex + 1) % count;
}

void frmchat::SendNextMessage() {
  RunCommand([this] {
    if (lstmsg.ListCount() == 0) return;
    lstmsg.ListIndex = NextRow();
    int row = lstmsg.ListIndex;
    const int last = lstmsg.ListCount() - 1;
    while (row < last && IsGameStartMessage(lstmsg.ItemData(row))) ++row;
    lstmsg.ListIndex = row;
    const int32_t type = lstmsg.ItemData(row);
    if (!IsGameStartMessage(type)) Writemessage(lstmsg.List(row), type, MemoryAdress);
  });
}

// The timer is off before the first message, so that a game that begins meanwhile gets its own time.
void frmchat::SendGameStartMessages() {
  TmrGameStart.Enabled = false;
  if (IsTextLineTaken()) {
    start_messages_wait_ = Timer.Enabled;
    TmrGameStart.Enabled = !Timer.Enabled;  // without the tick this timer itself tries again
    return;
  }
  start_messages_wait_ = false;
  for (int row = 0; IsLoaded() && row < lstmsg.ListCount(); ++row) {
    const int32_t type = lstmsg.ItemData(row);
    if (!IsGameStartMessage(type)) continue;
    Writemessage(lstmsg.List(row), KeyOfMessage(type), MemoryAdress);
    for (int round = 0; round < kRoundsBetweenStartMessages; ++round) {
      Sleep(1);
      RunPendingEvents();
    }
  }
}

void frmchat::Writemessage(const std::string& Message, int32_t KeyAscii, int32_t MemoryAdress) {
  RunCommand([&] {
    if (!game_runs_) return;
    TypeMessage(MemControl1, platform().clock(), {KeyAscii, MemoryAdress, kLineOpensMs}, Message);
  });
}

}  // namespace kestrun
