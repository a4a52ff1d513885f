// The run of the auto host: decides at each tick whether the server needs its next map, and puts it there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "game/run/run_window.h"

namespace kestrun {

class AutoHostRun {
 public:
  // What the surroundings and the window are must outlive the run.
  AutoHostRun(RunWindow& window, RunSurroundings surroundings);

  static constexpr int kTickMs = 999;

  RunFields fields;

  // Each of these reports its failures and then ends.
  void StartList();
  void StopList();
  void Pause();
  void Continue();
  // Every kTickMs while it runs. A failing step is skipped; a tick that comes while one is at work is left out.
  void Tick();
  // Inserts the next map at once and starts the running clock anew.
  void InsertNow();
  void ResetTime();
  // Inserts the next map: after a failure the one behind it, but not after the tenth failure.
  void InsertNext(bool random);
  // Opens the game's console or a chat line by its key, puts the text there, and sends it.
  void WriteMessage(const std::string& message, int32_t key, int32_t address);

 private:
  void Start();
  [[nodiscard]] bool HasNumber(TimeField field);
  // False, after the request for a number, when there is none.
  [[nodiscard]] bool CheckNumber(TimeField field);
  void Attach();

  void FollowGameTimer();
  void CountDown();
  void CountDownFromZeroSeconds();
  void WatchEndOfGame();
  [[nodiscard]] bool IsGameRunning();

  // What an insert has come to.
  struct Progress {
    int row = -1;  // that was chosen; -1 before
    std::string text;
    bool is_download_missing = false;
  };
  void Insert(bool random, Progress& progress);
  [[nodiscard]] int DrawRow();
  [[nodiscard]] int NextRow();
  // The local file of the row; a web address is fetched, whatever becomes of that.
  [[nodiscard]] std::string LocalMap(Progress& progress);
  void NotePut(const Progress& progress, const std::string& cause, const std::string& refusal);
  void WaitForEndOfGame();
  void HandleFailedPut(const std::string& map);
  void InsertAtOnce(std::string_view cause);
  void InsertBecause(std::string_view cause, bool random);
  void Note(RunEvent::Kind kind, int row = -1, const std::string& map = "", const std::string& reason = "");
  void TypeMessage(const std::string& message, int32_t key, int32_t address);
  void TellRefusal();

  RunWindow& window_;
  RunSurroundings around_;
  bool is_ticking_ = false;
  std::string cause_;  // of the insert that is at work
};

}  // namespace kestrun
