// The run of the auto messenger: which message goes into the game, and when. The window, and a rehearsal without one,
// give it its surroundings.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "game/messages/fill_message.h"
#include "platform/clock.h"
#include "platform/game_memory.h"

namespace kestrun {

// The window that carries the messages and the run's controls.
class MessengerWindow {
 public:
  virtual ~MessengerWindow() = default;

  // The messages. A row that does not exist raises error 5.
  [[nodiscard]] virtual int MessageCount() = 0;
  [[nodiscard]] virtual std::string MessageText(int row) = 0;
  [[nodiscard]] virtual int32_t MessageType(int row) = 0;
  [[nodiscard]] virtual int CurrentMessage() = 0;  // -1 for none
  virtual void SetCurrentMessage(int row) = 0;

  [[nodiscard]] virtual bool SendsAtRandom() = 0;
  // Whether words such as %map% are filled in when a message is sent.
  [[nodiscard]] virtual bool FillsIn() = 0;
  // The seconds between two messages, and those to the next one, as texts.
  [[nodiscard]] virtual std::string Interval() = 0;
  virtual void SetInterval(const std::string& seconds) = 0;
  [[nodiscard]] virtual std::string Countdown() = 0;
  virtual void ShowCountdown(const std::string& seconds) = 0;

  // Whether messages go out by the clock.
  [[nodiscard]] virtual bool IsEnabled() = 0;
  // Begins the time to the messages of a game's start anew, or ends it.
  virtual void WaitForGameStart(bool waits) = 0;
  [[nodiscard]] virtual bool WaitsForGameStart() = 0;
  // False once it was closed: what waits then goes no further.
  [[nodiscard]] virtual bool IsOpen() = 0;
};

struct MessengerSurroundings {
  Clock& clock;
  GameMemory& game;
  std::function<double()> draw;  // uniform in [0, 1)
  // What words in messages are filled in with.
  std::function<MessageFacts()> facts;
  // Reports the failure in flight.
  std::function<void()> report;
};

class MessengerRun {
 public:
  static constexpr uint32_t kTickMs = 1000;
  static constexpr uint32_t kGameStartMs = 20000;  // from the start of a game to its messages
  static constexpr const char* kDefaultInterval = "60";

  // What the surroundings and the window are must outlive the run.
  MessengerRun(MessengerWindow& window, MessengerSurroundings surroundings);

  int32_t MemoryAdress = 0;    // of the game's text line
  int32_t GameEndAddress = 0;  // of the byte that is above 0 while a game runs

  // Every kTickMs while messages go out by the clock. A failing step is skipped.
  void Tick();
  // Each of these reports its failures and then ends. Nothing is typed unless a game runs.
  void SendNextMessage();
  void SendGameStartMessages();
  void WriteMessage(const std::string& message, int32_t key, int32_t address);
  // Messages by the clock were switched off: those of a game's start that wait for the line are tried by their timer.
  void Disable();

  [[nodiscard]] bool IsGameRunning() const { return game_runs_; }

 private:
  void WatchGame();
  void CountDown();
  [[nodiscard]] int32_t ShownSeconds();
  [[nodiscard]] int NextRow();
  void SendNext();

  MessengerWindow& window_;
  MessengerSurroundings around_;
  bool game_runs_ = false;
  bool game_ran_ = false;  // at the last tick
  bool start_messages_wait_ = false;
};

}  // namespace kestrun
