#include "game/messages/messenger_run.h"

#include <utility>

#include "base/code_page.h"
#include "base/convert.h"
#include "base/number.h"
#include "base/runtime_error.h"
#include "game/memory/type_message.h"
#include "game/messages/message_list.h"

namespace kestrun {
namespace {

constexpr uint32_t kLineOpensMs = 700;
constexpr int kRoundsBetweenStartMessages = 101;
// What the game's line takes for sure: nobody sees beforehand how long a text becomes that is filled in.
constexpr size_t kMostFilledBytes = 127;

std::string CutToLine(const std::string& text) {
  const std::string encoded = EncodeText(text);
  return encoded.size() <= kMostFilledBytes ? text : DecodeText(encoded.substr(0, kMostFilledBytes));
}

}  // namespace

MessengerRun::MessengerRun(MessengerWindow& window, MessengerSurroundings surroundings)
    : window_(window), around_(std::move(surroundings)) {}

void MessengerRun::Disable() {
  if (std::exchange(start_messages_wait_, false) && !window_.WaitsForGameStart()) window_.WaitForGameStart(true);
}

// ---- the tick ------------------------------------------------------------------------------------------------------

void MessengerRun::Tick() {
  Attempt([this] { WatchGame(); });
  if (game_runs_) CountDown();
  if (start_messages_wait_ && !IsTextLineTaken()) SendGameStartMessages();
}

// A game that begins starts the time to its first messages anew.
void MessengerRun::WatchGame() {
  game_runs_ = around_.game.ReadByteAt(GameEndAddress) > 0;
  if (game_runs_ && !game_ran_) window_.WaitForGameStart(true);
  game_ran_ = game_runs_;
}

// A text that is no number counts as 0, so that the next message sets the countdown right again.
int32_t MessengerRun::ShownSeconds() {
  int32_t seconds = 0;
  Attempt([&] { seconds = TextToLong(window_.Countdown()); });
  return seconds;
}

void MessengerRun::CountDown() {
  if (ShownSeconds() == 0) {
    // The line is taken by the auto host, or by the messages of a game's start: this one goes out a tick later.
    if (IsTextLineTaken()) return;
    SendNextMessage();
    if (!window_.IsOpen()) return;
    Attempt([this] {
      if (!IsNumeric(window_.Interval())) window_.SetInterval(kDefaultInterval);
    });
    Attempt([this] { window_.ShowCountdown(std::to_string(TextToLong(window_.Interval()))); });
  }
  Attempt([this] { window_.ShowCountdown(std::to_string(ShownSeconds() - 1)); });
}

// ---- sending -------------------------------------------------------------------------------------------------------

int MessengerRun::NextRow() {
  const int count = window_.MessageCount();
  if (window_.SendsAtRandom()) return RoundToInt(around_.draw() * (count - 1));
  return (window_.CurrentMessage() + 1) % count;
}

void MessengerRun::SendNextMessage() {
  Attempt([this] { SendNext(); }, [this](const RuntimeError&) { around_.report(); });
}

void MessengerRun::SendNext() {
  if (window_.MessageCount() == 0) return;
  window_.SetCurrentMessage(NextRow());
  int row = window_.CurrentMessage();
  const int last = window_.MessageCount() - 1;
  while (row < last && IsGameStartMessage(window_.MessageType(row))) ++row;
  window_.SetCurrentMessage(row);
  const int32_t type = window_.MessageType(row);
  if (!IsGameStartMessage(type)) WriteMessage(window_.MessageText(row), type, MemoryAdress);
}

// The timer is off before the first message, so that a game that begins meanwhile gets its own time.
void MessengerRun::SendGameStartMessages() {
  window_.WaitForGameStart(false);
  if (IsTextLineTaken()) {
    start_messages_wait_ = window_.IsEnabled();
    if (!start_messages_wait_) window_.WaitForGameStart(true);  // without the tick this timer itself tries again
    return;
  }
  start_messages_wait_ = false;
  for (int row = 0; window_.IsOpen() && row < window_.MessageCount(); ++row) {
    const int32_t type = window_.MessageType(row);
    if (!IsGameStartMessage(type)) continue;
    WriteMessage(window_.MessageText(row), KeyOfMessage(type), MemoryAdress);
    for (int round = 0; round < kRoundsBetweenStartMessages; ++round) {
      around_.clock.SleepMs(1);
      around_.clock.RunPendingEvents();
    }
  }
}

void MessengerRun::WriteMessage(const std::string& message, int32_t key, int32_t address) {
  const auto type = [&] {
    if (!game_runs_) return;
    const std::string text = window_.FillsIn() ? CutToLine(FillMessage(message, around_.facts())) : message;
    TypeMessage(around_.game, around_.clock, {key, address, kLineOpensMs}, text);
  };
  Attempt(type, [this](const RuntimeError&) { around_.report(); });
}

}  // namespace kestrun
