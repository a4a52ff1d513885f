#include "game/simulated/simulated_game.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "base/code_page.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr int kConsole = 192;
constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr char16_t kBackspace = 8;
constexpr char16_t kFirstPrintable = 32;
constexpr uint64_t kMsPerSecond = 1000;

}  // namespace

struct SimulatedGame::LineKind {
  int key_code;
  std::string_view name;
};

const SimulatedGame::LineKind* SimulatedGame::FindLineKind(int key_code) {
  static constexpr std::array kKinds{LineKind{kConsole, "console"}, LineKind{84, "public chat"},
                                     LineKind{89, "team chat"}};
  const auto* const found = std::ranges::find(kKinds, key_code, &LineKind::key_code);
  return found == kKinds.end() ? nullptr : found;
}

SimulatedGame::SimulatedGame(const GameOptions& options, std::function<LoadedMission()> load, GameBody& body,
                             uint64_t now_ms, std::function<void(const std::string& line)> log)
    : options_(options),
      build_(SimulatedBuilds()[options.build]),
      load_(std::move(load)),
      body_(body),
      log_(std::move(log)),
      start_ms_(now_ms),
      now_ms_(now_ms) {
  Log("start", std::string(build_.title));
  Enter(Phase::kBetweenRounds, options_.pause_ms);
  StoreValues();
}

void SimulatedGame::TurnTo(uint64_t now_ms) {
  for (auto next_ms = NextEventMs(); next_ms && *next_ms <= now_ms; next_ms = NextEventMs()) {
    now_ms_ = std::max(now_ms_, *next_ms);
    Happen();
    StoreValues();
  }
  now_ms_ = std::max(now_ms_, now_ms);
  ShowClock();
  StoreValues();
}

std::optional<uint64_t> SimulatedGame::NextEventMs() const {
  if (phase_ == Phase::kEnded) return std::nullopt;
  const uint64_t killed_ms = options_.kill_after_ms ? start_ms_ + options_.kill_after_ms : UINT64_MAX;
  return std::min(phase_end_ms_, killed_ms);
}

// What is due now: only one thing at a time.
void SimulatedGame::Happen() {
  if (options_.kill_after_ms && now_ms_ >= start_ms_ + options_.kill_after_ms) {
    Log("killed", "in the middle");
    phase_ = Phase::kEnded;
    return;
  }
  ShowClock();
  switch (phase_) {
    case Phase::kBetweenRounds: return StartRound();
    case Phase::kPlaying: return EndRound("the clock ran out");
    case Phase::kLeaving: return FallIdle();
    case Phase::kEnded: return;
  }
}

void SimulatedGame::StartRound() {
  LoadedMission loaded = load_();
  const std::string from = options_.mission + " from the " + loaded.source;
  refusal_ = loaded.refusal.empty() ? "" : from + ": " + loaded.refusal;
  if (!refusal_.empty()) {
    Log("refused", refusal_);
    Enter(Phase::kBetweenRounds, options_.pause_ms);
    return;
  }
  mission_ = std::move(loaded);
  ++round_;
  Log("round", std::to_string(round_) + " of " + std::to_string(options_.round_seconds) + " seconds");
  Log("map", from + ", CRC " + mission_.CrcText() + ", " + std::to_string(mission_.bytes) + " bytes, \"" +
                 mission_.name + "\"");
  Enter(Phase::kPlaying, options_.round_seconds * kMsPerSecond / options_.speed);
  ShowClock();
}

void SimulatedGame::EndRound(std::string_view reason) {
  Log("end", "of round " + std::to_string(round_) + ": " + std::string(reason));
  Enter(Phase::kLeaving, options_.leave_ms);
}

void SimulatedGame::FallIdle() {
  Log("idle", "after round " + std::to_string(round_));
  Enter(Phase::kBetweenRounds, options_.pause_ms);
}

void SimulatedGame::Enter(Phase phase, uint64_t duration_ms) {
  phase_ = phase;
  phase_end_ms_ = now_ms_ + duration_ms;
}

// A round that is ended by a command leaves the clock where it stood.
void SimulatedGame::ShowClock() {
  if (phase_ != Phase::kPlaying) return;
  const double seconds_left = static_cast<double>(phase_end_ms_ - now_ms_) * options_.speed / kMsPerSecond;
  clock_units_ = static_cast<int32_t>(seconds_left * kClockUnitsPerSecond);
}

double SimulatedGame::ShareLeft() const { return clock_units_ / (options_.round_seconds * kClockUnitsPerSecond); }

void SimulatedGame::StoreValues() {
  if (build_.round_clock != 0) {
    std::array<uint8_t, 4> bytes{};
    StoreU32(bytes, 0, static_cast<uint32_t>(clock_units_));
    body_.Store(build_.round_clock, bytes);
  }
  const uint8_t running = phase_ == Phase::kPlaying || phase_ == Phase::kLeaving ? 1 : 0;
  if (build_.running_byte != 0) body_.Store(build_.running_byte, ByteView(&running, 1));
}

void SimulatedGame::Log(std::string_view kind, const std::string& text) {
  if (!log_) return;
  const uint64_t age_ms = now_ms_ - start_ms_;
  char stamp[32];
  std::snprintf(stamp, sizeof stamp, "%6llu.%03llu ", static_cast<unsigned long long>(age_ms / kMsPerSecond),
                static_cast<unsigned long long>(age_ms % kMsPerSecond));
  log_(stamp + std::string(kind) + " " + text);
}

void SimulatedGame::KeyDown(int key_code) {
  if (phase_ == Phase::kEnded || options_.ignores_keys) return;
  const LineKind* const opened = FindLineKind(key_code);
  if (!line_kind_ && opened)
    OpenTextLine(*opened, key_code);
  else if (line_kind_ && key_code == kEnter)
    SendLine();
  else if (line_kind_ && key_code == kEscape)
    line_kind_ = nullptr;
}

void SimulatedGame::KeyUp(int key_code) {
  if (key_code == opening_key_) opening_key_ = 0;
}

void SimulatedGame::Character(char16_t character) {
  if (!line_kind_ || opening_key_ != 0) return;
  std::string text = TextInLine();
  if (character == kBackspace && !text.empty()) text.pop_back();
  if (character >= kFirstPrintable && text.size() + 1 < kTextLineBytes)
    text += EncodeText(ToUtf8(std::u16string_view(&character, 1)));
  StoreText(text);
}

void SimulatedGame::OpenTextLine(const LineKind& kind, int key_code) {
  line_kind_ = &kind;
  opening_key_ = key_code;
  StoreText("");
}

void SimulatedGame::SendLine() {
  const std::string text = DecodeText(TextInLine());
  const LineKind& kind = *std::exchange(line_kind_, nullptr);
  opening_key_ = 0;
  Log(kind.name, text);
  lines_.push_back(std::string(kind.name) + ": " + text);
  if (lines_.size() > kMostLines) lines_.erase(lines_.begin());
  if (kind.key_code == kConsole) Obey(text);
}

void SimulatedGame::Obey(const std::string& command) {
  if (phase_ == Phase::kPlaying && EqualsNoCase(TrimBlanks(command), "resetgames")) EndRound("resetgames");
  StoreValues();
}

std::optional<std::string> SimulatedGame::OpenLine() {
  if (!line_kind_) return std::nullopt;
  return std::string(line_kind_->name) + "> " + DecodeText(TextInLine());
}

// The bytes of the first line that holds any.
std::string SimulatedGame::TextInLine() {
  for (const uint32_t address : build_.text_lines) {
    if (address == 0) continue;
    const Bytes bytes = body_.Load(address, kTextLineBytes);
    const std::string_view line = AsChars(bytes).substr(0, kTextLineBytes - 1);
    if (const std::string_view text = line.substr(0, line.find('\0')); !text.empty()) return std::string(text);
  }
  return {};
}

// What is typed stands in the first line, and nothing in the second.
void SimulatedGame::StoreText(std::string_view text) {
  const std::string bytes = std::string(text) + '\0';
  if (build_.text_lines[1] != 0) body_.Store(build_.text_lines[1], AsBytes(std::string_view("\0", 1)));
  body_.Store(build_.text_lines[0], AsBytes(bytes));
}

}  // namespace kestrun
