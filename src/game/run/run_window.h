// What a run needs of its surroundings. Nothing in the run reaches around these, so that the same code serves the
// window, its tests, and a run of which nobody sees anything.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/game_memory.h"

namespace kestrun {

// Add-ins read and write these through the window, at any moment.
struct RunFields {
  bool Random = false;       // insert at random instead of in list order
  std::string Rename;        // file name of the mission that the map takes the place of
  bool NextMap = false;      // set by StartList, read by nobody here
  int32_t Errors = 0;        // failed inserts since the last StopList
  int16_t DfVersion = -1;    // which build of the game: builds.h
  int32_t MemoryAdress = 0;  // of the game's text entry line
  int32_t GameTimer = 0;     // of the game's round clock: 62.5 units a second
  int32_t GameEndAddr = 0;   // of the byte that is above 0 while a game is running
  bool PState = false;       // whether the game was idle at the end of the last tick
  int32_t LTime = 0;         // the round clock in seconds at the last tick
};

// What the user or an add-in has done to the run.
enum class RunStep { kStart, kPause, kContinue, kStop };

// The longest time between two maps is typed as minutes and seconds.
enum class TimeField { kMinutes, kSeconds };

// What happens in a run, for whoever looks at it afterwards.
struct RunEvent {
  enum class Kind { kStarted, kStopped, kInserted, kFailed };
  Kind kind = Kind::kStarted;
  int row = -1;        // of the map, from 0; -1 for none
  std::string map;     // as the play list names it
  std::string reason;  // what called for the map, or why it could not be put
};

// The window that carries the play list and the run's controls.
class RunWindow {
 public:
  virtual ~RunWindow() = default;

  // The play list. Rows that do not exist raise error 5.
  [[nodiscard]] virtual int RowCount() = 0;
  [[nodiscard]] virtual std::string RowText(int row) = 0;
  [[nodiscard]] virtual int CurrentRow() = 0;  // -1 for none
  virtual void SetCurrentRow(int row) = 0;
  virtual void SelectRow(int row, bool selected) = 0;
  [[nodiscard]] virtual int32_t InsertCount(int row) = 0;
  virtual void SetInsertCount(int row, int32_t count) = 0;
  // A map that was drawn at random; the row's own click tells of one that was taken in order.
  virtual void ShowDrawnMap(const std::string& map) = 0;

  // Brings Rename up to what is chosen.
  virtual void TakeRename() = 0;
  [[nodiscard]] virtual bool UsesGameTimer() = 0;
  [[nodiscard]] virtual bool SendsResetGames() = 0;
  [[nodiscard]] virtual std::string LongestTime(TimeField field) = 0;
  virtual void RestoreLongestTime(TimeField field) = 0;  // from the settings
  virtual void FocusLongestTime(TimeField field) = 0;

  // The running clock, whose fields keep limits of their own (running_clock.h).
  [[nodiscard]] virtual std::string ShownTime(TimeField field) = 0;
  virtual void ShowTime(TimeField field, const std::string& text) = 0;

  // Starts and stops the ticks, and shows it.
  virtual void Follow(RunStep step) = 0;
  // The map of a row is in the game's folder.
  virtual void ShowPut(int row) = 0;
  virtual void ShowFailure(const std::string& text) = 0;
  virtual void HideFailure() = 0;
  // Why the game cannot be reached, in a sentence for a line that does not wait for an answer.
  virtual void ShowRefusal(const std::string& sentence) = 0;
  // False once it was closed: what waits then goes no further.
  [[nodiscard]] virtual bool IsOpen() = 0;
};

struct RunSurroundings {
  Clock& clock;
  GameMemory& game;
  // Puts a local map into the running game under a mission's name; never shows anything. Gives why it could not, and
  // nothing once the map is in.
  std::function<std::string(const std::string& map, std::string& mission)> put_map;
  std::function<bool(const std::string& text)> is_url;
  // Gives whether the file came; where it did not, the one of an earlier download may still be there.
  std::function<bool(const std::string& url, const std::string& path)> download;
  std::string download_path;
  std::function<double()> draw;  // uniform in [0, 1)
  std::function<void(const std::string& text)> tell;
  // Reports the failure in flight.
  std::function<void()> report;
  // Takes down what has happened.
  std::function<void(const RunEvent& event)> note;
};

}  // namespace kestrun
