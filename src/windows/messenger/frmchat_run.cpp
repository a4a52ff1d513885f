// The messenger's run in its window: how it is switched on and off, and what the window says of it.
#include "base/calendar.h"
#include "base/number.h"
#include "game/builds.h"
#include "game/run/rotation.h"
#include "platform/platform.h"
#include "program/show_error.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/run_command.h"
#include "windows/messenger/frmchat.h"

namespace kestrun {
namespace {

MessageFacts PresentFacts() {
  const Rotation& rotation = PresentRotation();
  const CalendarMoment now = SplitDate(platform().clock().LocalDateTime());
  return {rotation.map, rotation.next, rotation.left, HoursAndMinutes(now)};
}

}  // namespace

MessengerSurroundings frmchat::MakeSurroundings() {
  return {platform().clock(), MemControl1, &RandomDraw, &PresentFacts, [] { ShowFailureBox("", BoxIcon::kNone); }};
}

void frmchat::Enable() {
  const MessengerBuild& build = kMessengerBuilds.at(static_cast<size_t>(CmbVersion.ListIndex.get()));
  const bool is_there = MemControl1.AttachToWindow(build.window_title);
  run.MemoryAdress = build.MemoryAdress;
  run.GameEndAddress = build.GameEndAddress;
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
  run.Disable();
  Command3.Enabled = true;
  Command4.Enabled = false;
  ShowState();
}

void frmchat::ShowState() {
  const std::string refusal = MemControl1.Refusal();
  if (!refusal.empty()) {
    LblState.Caption = refusal;
  } else if (!Timer.Enabled) {
    LblState.Caption = run.IsGameRunning() && TmrGameStart.Enabled
                           ? "Off: only the messages of the game's start are still sent."
                           : "Off: nothing is sent.";
  } else {
    LblState.Caption = run.IsGameRunning() ? "A game is running." : "Waiting for a game to run.";
  }
}

void frmchat::Tick() {
  run.Tick();
  if (IsLoaded()) ShowState();
}

void frmchat::WaitForGameStart(bool waits) {
  TmrGameStart.Enabled = false;
  TmrGameStart.Enabled = waits;
}

void frmchat::SendNextMessage() { run.SendNextMessage(); }

void frmchat::SendGameStartMessages() { run.SendGameStartMessages(); }

void frmchat::Writemessage(const std::string& Message, int32_t KeyAscii, int32_t MemoryAdress) {
  run.WriteMessage(Message, KeyAscii, MemoryAdress);
}

}  // namespace kestrun
