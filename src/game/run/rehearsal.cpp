#include "game/run/rehearsal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>
#include <utility>

#include "base/calendar.h"
#include "base/convert.h"
#include "base/counted.h"
#include "base/text.h"
#include "game/builds.h"
#include "game/memory/type_message.h"
#include "game/messages/messenger_run.h"
#include "game/run/auto_host_run.h"
#include "game/run/plain_run_window.h"
#include "game/run/rehearsed_game.h"
#include "game/run/rotation.h"
#include "game/run/run_log.h"
#include "platform/file_error.h"
#include "platform/virtual_clock.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

constexpr uint64_t kMsPerSecond = 1000;
constexpr uint64_t kMsPerHour = 3600 * kMsPerSecond;
constexpr const char* kNotFetched = "A web address is not fetched in a rehearsal.";

size_t SimulatedBuildOf(std::string_view title) {
  size_t row = 0;
  for (const SimulatedBuild& build : SimulatedBuilds()) {
    if (build.title == title) return row;
    ++row;
  }
  return 0;
}

GameOptions OptionsOf(const RehearsalPlan& plan) {
  GameOptions options;
  options.build = SimulatedBuildOf(HostBuildOf(plan.DfVersion).window_title);
  options.mission = plan.Rename;
  options.round_seconds = plan.round_seconds;
  options.pause_ms = plan.pause_ms;
  return options;
}

// A timer that can be switched off and on, as a window's.
class Ticker {
 public:
  Ticker(Clock& clock, uint32_t interval_ms, std::function<void()> tick)
      : clock_(clock), interval_ms_(interval_ms), tick_(std::move(tick)) {}
  ~Ticker() { clock_.StopTimer(timer_); }
  Ticker(const Ticker&) = delete;
  Ticker& operator=(const Ticker&) = delete;

  void Enable(bool is_on) {
    clock_.StopTimer(std::exchange(timer_, 0));
    if (is_on) timer_ = clock_.StartTimer(interval_ms_, tick_);
  }

 private:
  Clock& clock_;
  uint32_t interval_ms_;
  std::function<void()> tick_;
  TimerId timer_ = 0;
};

// The messages and the messenger's controls as plain values.
class PlainMessengerWindow final : public MessengerWindow {
 public:
  explicit PlainMessengerWindow(const MessengerSettings& settings)
      : settings_(settings), interval_(settings.seconds), countdown_(settings.seconds) {}

  std::function<void(bool waits)> wait_for_game_start;

  int MessageCount() override { return static_cast<int>(settings_.messages.size()); }
  std::string MessageText(int row) override { return settings_.messages.at(static_cast<size_t>(row)).text; }
  int32_t MessageType(int row) override { return settings_.messages.at(static_cast<size_t>(row)).type; }
  int CurrentMessage() override { return current_; }
  void SetCurrentMessage(int row) override { current_ = row; }
  bool SendsAtRandom() override { return settings_.random; }
  bool FillsIn() override { return settings_.fills_in; }
  std::string Interval() override { return interval_; }
  void SetInterval(const std::string& seconds) override { interval_ = seconds; }
  std::string Countdown() override { return countdown_; }
  void ShowCountdown(const std::string& seconds) override { countdown_ = seconds; }
  bool IsEnabled() override { return true; }
  void WaitForGameStart(bool waits) override { wait_for_game_start(waits_ = waits); }
  bool WaitsForGameStart() override { return waits_; }
  bool IsOpen() override { return true; }

 private:
  const MessengerSettings& settings_;
  std::string interval_;
  std::string countdown_;
  int current_ = 0;  // as switching on leaves it
  bool waits_ = false;
};

class Stage {
 public:
  Stage(const RehearsalPlan& plan, const RehearsedMaps& maps)
      : plan_(plan),
        maps_(maps),
        game_(OptionsOf(plan), clock_, plan.first_mission, [this](const std::string& line) { TakeLogLine(line); }),
        messages_(plan.messenger) {
    clock_.SetLocalDateTime(plan.begins);
    for (const std::string& row : plan.rows) host_.rows.push_back({row});
    host_.uses_game_timer = plan.uses_game_timer;
    host_.sends_reset = plan.sends_reset_games;
    host_.minutes = plan.minutes;
    host_.seconds = plan.seconds;
    run_.fields.Random = plan.random;
    run_.fields.Rename = plan.Rename;
    run_.fields.DfVersion = plan.DfVersion;
    messages_.wait_for_game_start = [this](bool waits) { game_start_.Enable(waits); };
  }

  Rehearsal Play() {
    StartMessenger();
    run_.StartList();
    const uint64_t end_ms = plan_.hours * kMsPerHour;
    if (is_started_) {
      host_tick_.Enable(true);
      clock_.AdvanceMs(end_ms);
      game_.Turn();
      MeasureUntil(end_ms);
    }
    return std::move(result_);
  }

 private:
  RunSurroundings HostSurroundings() {
    return {clock_,
            host_link_,
            [this](const std::string& map, std::string& mission) { return Put(map, mission); },
            &IsUrl,
            [this](const std::string& url, const std::string&) {
              fetched_ = url;
              return true;
            },
            kNotFetched,
            [this] { return Draw(); },
            [this](const std::string& text) { result_.told.push_back(text); },
            [this] { result_.told.push_back(CurrentError().description()); },
            [this](const RunEvent& event) { TakeEvent(event); }};
  }
  MessengerSurroundings ChatSurroundings() {
    return {clock_, chat_link_, [this] { return Draw(); }, [this] { return Facts(); },
            [this] { result_.told.push_back(CurrentError().description()); }};
  }

  // A draw of its own: the program's next draws are what they were.
  double Draw() { return std::uniform_real_distribution<double>(0, 1)(random_); }

  void StartMessenger() {
    const auto build_row = static_cast<size_t>(plan_.messenger.build);
    if (plan_.messenger.messages.empty() || build_row >= kMessengerBuilds.size()) return;
    const MessengerBuild& build = kMessengerBuilds[build_row];
    if (!chat_link_.AttachToWindow(build.window_title)) {
      result_.told.push_back("The auto messenger is set to another game: no message goes out.");
    }
    messenger_.MemoryAdress = build.MemoryAdress;
    messenger_.GameEndAddress = build.GameEndAddress;
    chat_tick_.Enable(true);
  }

  MessageFacts Facts() {
    const int next = host_.current + 1 == host_.RowCount() ? 0 : host_.current + 1;
    return {plays_, plan_.random ? "a random map" : PlainMapName(host_.RowText(next)),
            TimeLeftText(host_.shown_minutes, host_.shown_seconds), HoursAndMinutes(SplitDate(clock_.LocalDateTime()))};
  }

  // Fails as a put would, and leaves the game's folder alone.
  std::string Put(const std::string& map, const std::string& mission) {
    if (mission.empty()) return "There is no file name to put the map under.";
    const auto known = maps_.find(map);
    if (known != maps_.end() && !known->second.refusal.empty()) return known->second.refusal;
    const LoadedMission loaded = map == kNotFetched     ? AssumedMission(fetched_)
                                 : known != maps_.end() ? known->second.mission
                                                        : UnreadMission(map);
    if (plan_.put_refusal.empty()) game_.PutMission(loaded);
    return plan_.put_refusal;
  }

  LoadedMission UnreadMission(const std::string& map) {
    if (std::ranges::find(result_.unread, map) == result_.unread.end()) result_.unread.push_back(map);
    return AssumedMission(PlainMapName(map));
  }
  static LoadedMission AssumedMission(const std::string& name) {
    LoadedMission mission;
    mission.source = "loose file";
    mission.name = name;
    return mission;
  }

  void TakeEvent(const RunEvent& event) {
    game_.Turn();  // what the game did before stands before it
    if (event.kind == RunEvent::Kind::kStarted) is_started_ = true;
    if (event.kind == RunEvent::Kind::kInserted) {
      ++result_.inserted;
      plays_ = PlainMapName(event.map);
      const bool is_url = IsUrl(event.map);
      AddLine(clock_.NowMs(), RehearsalLine::Kind::kInserted, event.map, is_url ? kNotFetched : event.reason,
              event.row);
    }
    if (event.kind == RunEvent::Kind::kFailed) {
      ++result_.failed;
      AddLine(clock_.NowMs(), RehearsalLine::Kind::kFailed, event.map, event.reason, event.row);
    }
  }

  void AddLine(uint64_t at_ms, RehearsalLine::Kind kind, const std::string& what, const std::string& reason = "",
               int row = -1) {
    result_.lines.push_back({at_ms, kind, row, what, reason});
  }

  // "  12.345 map D08M03.BMS from ...": seconds, and what happened.
  void TakeLogLine(const std::string& line) {
    result_.game_log.push_back(line);
    const size_t text_at = line.find(' ', line.find('.'));
    const uint64_t at_ms = static_cast<uint64_t>(std::llround(TextToDouble(line.substr(0, text_at)) * kMsPerSecond));
    const std::string text = line.substr(text_at + 1);
    if (text.starts_with("map ")) TakeMap(at_ms, text.substr(4));
    if (text.starts_with("refused ")) AddLine(at_ms, RehearsalLine::Kind::kRefused, text.substr(8));
    for (const char* heard : {"public chat ", "team chat ", "console "}) {
      if (!text.starts_with(heard)) continue;
      ++result_.messages;
      AddLine(at_ms, RehearsalLine::Kind::kMessage, text);
    }
  }

  void TakeMap(uint64_t at_ms, const std::string& map) {
    AddLine(at_ms, RehearsalLine::Kind::kRound, map);
    if (map == round_map_) return;
    MeasureUntil(at_ms);
    round_map_ = map;
    round_map_from_ms_ = at_ms;
  }

  // The time since the server's map changed last.
  void MeasureUntil(uint64_t now_ms) {
    const uint64_t lasted_ms = now_ms - round_map_from_ms_;
    if (lasted_ms <= result_.longest_ms) return;
    result_.longest_ms = lasted_ms;
    result_.longest_from_ms = round_map_from_ms_;
  }

  const RehearsalPlan& plan_;
  const RehearsedMaps& maps_;
  const SeparateTextLine text_line_;  // the game beside the program may have its own open
  Rehearsal result_;
  VirtualClock clock_;
  RehearsedGame game_;
  RehearsedLink host_link_{game_};
  RehearsedLink chat_link_{game_};
  PlainRunWindow host_;
  PlainMessengerWindow messages_;
  AutoHostRun run_{host_, HostSurroundings()};
  MessengerRun messenger_{messages_, ChatSurroundings()};
  Ticker host_tick_{clock_, AutoHostRun::kTickMs, [this] { run_.Tick(); }};
  Ticker chat_tick_{clock_, MessengerRun::kTickMs, [this] { messenger_.Tick(); }};
  Ticker game_start_{clock_, MessengerRun::kGameStartMs, [this] { messenger_.SendGameStartMessages(); }};
  std::minstd_rand random_;
  bool is_started_ = false;
  std::string fetched_;  // web address that was asked for last
  std::string plays_;
  std::string round_map_;
  uint64_t round_map_from_ms_ = 0;
};

std::string Padded(std::string text, size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

}  // namespace

RehearsedMap ReadRehearsedMap(FileSystem& files, const std::string& path) {
  RehearsedMap map;
  try {
    map.mission = MissionFromBytes(files.ReadAll(path), "loose file", false);
  } catch (...) {
    map.refusal = ExplainedError().description();  // looks at the file again
  }
  return map;
}

Rehearsal Rehearse(const RehearsalPlan& plan, const RehearsedMaps& maps) { return Stage(plan, maps).Play(); }

std::string DurationText(uint64_t milliseconds) {
  const uint64_t seconds = milliseconds / kMsPerSecond;
  const std::string minutes = TimeLeftText(std::to_string(seconds / 60 % 60), std::to_string(seconds % 60));
  return std::to_string(seconds / 3600) + ":" + (minutes.size() < 5 ? "0" : "") + minutes;
}

std::vector<std::string> RehearsalSummary(const Rehearsal& rehearsal, uint32_t hours) {
  std::vector<std::string> lines = rehearsal.told;
  if (!rehearsal.unread.empty()) {
    lines.push_back("Not read, and taken for good: " + Counted(rehearsal.unread.size(), "map", "maps") +
                    ", the first is " + rehearsal.unread.front() + ".");
  }
  lines.push_back("In " + Counted(hours, "hour", "hours") + ": " +
                  Counted(static_cast<uint64_t>(rehearsal.inserted), "map inserted, ", "maps inserted, ") +
                  Counted(static_cast<uint64_t>(rehearsal.failed), "failure, ", "failures, ") +
                  Counted(static_cast<uint64_t>(rehearsal.messages), "message.", "messages."));
  if (rehearsal.longest_ms > 0) {
    lines.push_back("Longest time without a change: " + DurationText(rehearsal.longest_ms) + ", from " +
                    DurationText(rehearsal.longest_from_ms) + " on.");
  }
  return lines;
}

std::vector<std::string> RehearsalTexts(const Rehearsal& rehearsal) {
  constexpr std::array kKinds{"Inserted", "Failed", "Round", "Refused", "Message"};
  std::vector<std::string> texts;
  texts.reserve(rehearsal.lines.size());
  for (const RehearsalLine& line : rehearsal.lines) {
    const std::string row = line.row < 0 ? "" : "row " + std::to_string(line.row + 1);
    const std::string reason = line.reason.empty() ? "" : "  (" + line.reason + ")";
    texts.push_back(Padded(DurationText(line.at_ms), 10) + Padded(kKinds[static_cast<size_t>(line.kind)], 10) +
                    Padded(row, 9) + InOneLine(line.what + reason));
  }
  return texts;
}

std::string RehearsalReport(const Rehearsal& rehearsal, uint32_t hours) {
  std::string text;
  for (const std::string& line : RehearsalSummary(rehearsal, hours)) text += line + std::string(kCrLf);
  for (const std::string& line : RehearsalTexts(rehearsal)) text += line + std::string(kCrLf);
  return text;
}

}  // namespace kestrun
