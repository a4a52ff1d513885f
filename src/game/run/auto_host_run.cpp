#include "game/run/auto_host_run.h"

#include <utility>

#include "base/convert.h"
#include "base/flag_scope.h"
#include "base/number.h"
#include "base/runtime_error.h"
#include "game/builds.h"
#include "game/memory/type_message.h"

namespace kestrun {
namespace {

constexpr double kUnitsPerSecond = 62.5;
constexpr uint32_t kLineOpensMs = 900;
// The game gets about five seconds to leave its mission.
constexpr int kWaitRounds = 500;
constexpr uint32_t kWaitMs = 10;
constexpr int32_t kMostRetries = 10;

// Runs a command; a failure is reported and ends it.
template <class Command>
void Guarded(const RunSurroundings& around, Command&& command) {
  try {
    std::forward<Command>(command)();
  } catch (const std::exception&) {
    around.report();
  }
}

}  // namespace

AutoHostRun::AutoHostRun(RunWindow& window, RunSurroundings surroundings)
    : window_(window), around_(std::move(surroundings)) {}

// ---- start, stop, pause --------------------------------------------------------------------------------------------

void AutoHostRun::StartList() {
  Guarded(around_, [this] { Start(); });
}

void AutoHostRun::Start() {
  window_.TakeRename();
  if (window_.RowCount() == 0) {
    around_.tell("No maps?");
    return;
  }
  if (!CheckNumber(TimeField::kMinutes) || !CheckNumber(TimeField::kSeconds)) return;
  ResetTime();
  if (window_.SendsResetGames() || window_.UsesGameTimer()) Attach();
  fields.NextMap = true;
  fields.PState = false;
  window_.HideFailure();
  window_.Follow(RunStep::kStart);
  Note(RunEvent::Kind::kStarted);
}

bool AutoHostRun::HasNumber(TimeField field) { return IsNumeric(window_.LongestTime(field)); }

bool AutoHostRun::CheckNumber(TimeField field) {
  if (HasNumber(field)) return true;
  around_.tell("Enter a number for time!");
  window_.RestoreLongestTime(field);
  window_.FocusLongestTime(field);
  return false;
}

void AutoHostRun::Attach() {
  const HostBuild& build = HostBuildOf(fields.DfVersion);
  const bool is_attached = around_.game.AttachToWindow(build.window_title);
  TellRefusal();
  if (!is_attached) around_.tell("Dflw game is not open!");
  fields.MemoryAdress = build.MemoryAdress;
  fields.GameTimer = build.GameTimer;
  fields.GameEndAddr = build.GameEndAddr;
}

void AutoHostRun::TellRefusal() {
  if (const std::string refusal = around_.game.Refusal(); !refusal.empty()) window_.ShowRefusal(refusal);
}

void AutoHostRun::StopList() {
  Guarded(around_, [this] {
    window_.Follow(RunStep::kStop);
    fields.Errors = 0;
    window_.HideFailure();
    for (int row = 0; row < window_.RowCount(); ++row) window_.SetInsertCount(row, 0);
    Note(RunEvent::Kind::kStopped);
  });
}

void AutoHostRun::Pause() { window_.Follow(RunStep::kPause); }

void AutoHostRun::Continue() { window_.Follow(RunStep::kContinue); }

void AutoHostRun::ResetTime() {
  for (const TimeField field : {TimeField::kMinutes, TimeField::kSeconds}) {
    if (!HasNumber(field)) window_.RestoreLongestTime(field);
  }
  for (const TimeField field : {TimeField::kMinutes, TimeField::kSeconds}) {
    window_.ShowTime(field, window_.LongestTime(field));
  }
}

// ---- the tick ------------------------------------------------------------------------------------------------------

void AutoHostRun::Tick() {
  // The messenger types into the same game: its line is left alone, and the next tick sees what this one would have.
  if (is_ticking_ || IsTextLineTaken()) return;
  const FlagScope ticking(is_ticking_);
  if (window_.UsesGameTimer()) {
    FollowGameTimer();
  } else {
    CountDown();
  }
  if (window_.IsOpen()) WatchEndOfGame();
}

void AutoHostRun::FollowGameTimer() {
  const int32_t seconds = RoundToInt(around_.game.ReadLongAt(fields.GameTimer) / kUnitsPerSecond);
  if (seconds == 0 && fields.LTime != 0) {
    InsertBecause("the round clock ran out", fields.Random);
    fields.PState = true;
  }
  fields.LTime = seconds;
  const int32_t minutes = seconds / 3600 * 60 + seconds / 60 % 60;
  Attempt([&] { window_.ShowTime(TimeField::kMinutes, std::to_string(minutes)); });
  Attempt([&] { window_.ShowTime(TimeField::kSeconds, std::to_string(seconds % 60)); });
}

void AutoHostRun::CountDown() {
  Attempt([this] {
    const double seconds = TextToDouble(window_.ShownTime(TimeField::kSeconds)) - 1;
    window_.ShowTime(TimeField::kSeconds, DoubleToText(seconds));
  });
  Attempt([this] {
    if (TextToDouble(window_.ShownTime(TimeField::kSeconds)) == 0) CountDownFromZeroSeconds();
  });
}

void AutoHostRun::CountDownFromZeroSeconds() {
  const double minutes = TextToDouble(window_.ShownTime(TimeField::kMinutes));
  if (minutes > 0) {
    window_.ShowTime(TimeField::kMinutes, DoubleToText(minutes - 1));
    window_.ShowTime(TimeField::kSeconds, "59");
    return;
  }
  Attempt([this] { ResetTime(); });
  fields.PState = true;
  InsertBecause("the time was over", fields.Random);
}

void AutoHostRun::WatchEndOfGame() {
  const bool is_idle = !IsGameRunning();
  if (is_idle && !fields.PState) {
    Attempt([this] { ResetTime(); });
    InsertBecause("the game ended", fields.Random);
  }
  fields.PState = is_idle;
}

bool AutoHostRun::IsGameRunning() { return around_.game.ReadByteAt(fields.GameEndAddr) > 0; }

// ---- the insert ----------------------------------------------------------------------------------------------------

void AutoHostRun::InsertNow() { InsertAtOnce("it was asked for"); }

void AutoHostRun::InsertAtOnce(std::string_view cause) {
  Guarded(around_, [&] {
    fields.PState = true;
    InsertBecause(cause, fields.Random);
    if (!window_.IsOpen()) return;
    const bool has_time = HasNumber(TimeField::kMinutes) && HasNumber(TimeField::kSeconds);
    window_.ShowTime(TimeField::kMinutes, has_time ? window_.LongestTime(TimeField::kMinutes) : "10");
    window_.ShowTime(TimeField::kSeconds, has_time ? window_.LongestTime(TimeField::kSeconds) : "50");
  });
}

void AutoHostRun::InsertNext(bool random) { InsertBecause("it was asked for", random); }

void AutoHostRun::InsertBecause(std::string_view cause, bool random) {
  cause_ = cause;
  Guarded(around_, [&] {
    Progress progress;
    OnFailure([&] { Insert(random, progress); },
              [&](const RuntimeError& failure) {
                Note(RunEvent::Kind::kFailed, progress.row, progress.text, failure.description());
              });
  });
}

void AutoHostRun::Note(RunEvent::Kind kind, int row, const std::string& map, const std::string& reason) {
  around_.note({kind, row, map, reason});
}

void AutoHostRun::Insert(bool random, Progress& progress) {
  const std::string cause = cause_;  // another insert may come in between
  const int row = random ? DrawRow() : NextRow();
  progress.row = row;
  progress.text = window_.RowText(row);
  window_.SetInsertCount(row, window_.InsertCount(row) + 1);
  const std::string map = LocalMap(progress);
  if (window_.SendsResetGames()) TypeMessage("resetgames", kConsoleKey, fields.MemoryAdress);
  WaitForEndOfGame();
  if (!window_.IsOpen()) return;
  const std::string refusal = around_.put_map(map, fields.Rename);
  NotePut(progress, cause, refusal);
  if (refusal.empty()) {
    window_.ShowPut(row);
  } else {
    HandleFailedPut(progress.text);
  }
}

// What a download left behind earlier goes in all the same, which nobody would guess the next morning.
void AutoHostRun::NotePut(const Progress& progress, const std::string& cause, const std::string& refusal) {
  if (!refusal.empty()) {
    const std::string download = progress.is_download_missing ? "The download failed. " : "";
    return Note(RunEvent::Kind::kFailed, progress.row, progress.text, download + refusal);
  }
  const std::string download =
      progress.is_download_missing ? "; the download failed: the map of an earlier download went in" : "";
  Note(RunEvent::Kind::kInserted, progress.row, progress.text, cause + download);
}

int AutoHostRun::DrawRow() {
  const int row = RoundToInt(around_.draw() * (window_.RowCount() - 1));
  window_.ShowDrawnMap(window_.RowText(row));
  return row;
}

int AutoHostRun::NextRow() {
  const int current = window_.CurrentRow();
  if (current == window_.RowCount() - 1) {
    window_.SetCurrentRow(-1);
    window_.SelectRow(current, false);
  } else if (current >= 0) {
    window_.SelectRow(current, false);
  }
  const int next = window_.CurrentRow() + 1;
  window_.SetCurrentRow(next);
  window_.SelectRow(next, true);
  return next;
}

std::string AutoHostRun::LocalMap(Progress& progress) {
  if (!around_.is_url(progress.text)) return progress.text;
  progress.is_download_missing = !around_.download(progress.text, around_.download_path);
  return around_.download_path;
}

void AutoHostRun::WaitForEndOfGame() {
  for (int round = 0; round < kWaitRounds && window_.IsOpen() && IsGameRunning(); ++round) {
    around_.clock.SleepMs(kWaitMs);
    around_.clock.RunPendingEvents();
  }
}

void AutoHostRun::HandleFailedPut(const std::string& map) {
  if (fields.Errors >= kMostRetries) {
    window_.ShowFailure("WARNING ERROR INSERTING LAST 10 MAPS FAILED!!!");
    return;
  }
  window_.ShowFailure("WARNING ERROR INSERTING MAP " + map + " ACTION TAKEN: NEXT MAP INSERTED.");
  ++fields.Errors;
  around_.clock.RunPendingEvents();
  if (window_.IsOpen()) InsertAtOnce("the map before it failed");
  around_.clock.RunPendingEvents();
}

void AutoHostRun::WriteMessage(const std::string& message, int32_t key, int32_t address) {
  Guarded(around_, [&] { TypeMessage(message, key, address); });
}

void AutoHostRun::TypeMessage(const std::string& message, int32_t key, int32_t address) {
  kestrun::TypeMessage(around_.game, around_.clock, {key, address, kLineOpensMs}, message);
  TellRefusal();
}

}  // namespace kestrun
