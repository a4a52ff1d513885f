// A day of the messenger beside a game that plays one round after the other, and a model that says which messages have
// to come out of it, in which order.
#include <array>
#include <optional>

#include "game/builds.h"
#include "windows/messenger/messenger_fixture.h"

namespace kestrun {
namespace {

constexpr uint64_t kSecondMs = 1000;
constexpr uint64_t kDayMs = 24 * 60 * 60 * kSecondMs;
constexpr uint64_t kRoundMs = 917 * kSecondMs + 300;
constexpr uint64_t kPlayedMs = 900 * kSecondMs;
constexpr int kMessages = 50;
constexpr int kInterval = 60;
constexpr std::array<int32_t, 6> kTypes{84, 89, 192, 0, 1, 2};

bool IsPlayed(uint64_t moment_ms) { return moment_ms % kRoundMs < kPlayedMs; }
int32_t TypeOf(int row) { return kTypes[static_cast<size_t>(row) * 7 % kTypes.size()]; }
std::string TextOf(int row) { return "message " + std::to_string(row); }
bool IsStart(int row) { return TypeOf(row) < 3; }
int32_t KeyOf(int row) {
  return TypeOf(row) < 3 ? std::array<int32_t, 3>{84, 89, 192}[static_cast<size_t>(TypeOf(row))] : TypeOf(row);
}

// Two timers and the sleeps of a send, worked out from the rules alone: while one tick sleeps the other timer may fire,
// and between two start messages any.
class Model {
 public:
  std::vector<std::string> sent;

  void RunUntil(uint64_t end_ms) {
    while (FireNext(end_ms, true)) {
    }
  }

 private:
  bool FireNext(uint64_t end_ms, bool may_reenter) {
    const bool tick = tick_due_ <= end_ms && (may_reenter || !in_tick_);
    const bool start = start_due_ && *start_due_ <= end_ms;
    if (!tick && !start) return false;
    // Of two that are due at once the one that was set first fires first.
    const bool start_first =
        start && (!tick || *start_due_ < tick_due_ || (*start_due_ == tick_due_ && start_order_ < tick_order_));
    if (start_first) {
      now_ = std::max(now_, *start_due_);
      start_due_.reset();
      SendStartMessages();
    } else {
      now_ = std::max(now_, tick_due_);
      tick_due_ = now_ + kSecondMs;
      tick_order_ = ++order_;
      const bool outer = in_tick_;
      in_tick_ = true;
      Tick();
      in_tick_ = outer;
    }
    return true;
  }
  void Sleep(uint64_t milliseconds) {
    const uint64_t end = now_ + milliseconds;
    while (FireNext(end, false)) {
    }
    now_ = std::max(now_, end);
  }
  void Pending() {
    while (FireNext(now_, true)) {
    }
  }

  void Tick() {
    runs_ = IsPlayed(now_);
    if (runs_ && !ran_) {
      start_due_ = now_ + 20 * kSecondMs;
      start_order_ = ++order_;
    }
    ran_ = runs_;
    if (runs_) CountDown();
    if (start_waits_ && !taken_) SendStartMessages();
  }
  void CountDown() {
    if (left_ == 0) {
      if (taken_) return;
      row_ = (row_ + 1) % kMessages;
      while (row_ < kMessages - 1 && IsStart(row_)) ++row_;
      if (!IsStart(row_)) Type(row_);
      left_ = kInterval;
    }
    --left_;
  }
  void SendStartMessages() {
    start_waits_ = taken_;
    if (taken_) return;
    for (int row = 0; row < kMessages; ++row) {
      if (!IsStart(row)) continue;
      Type(row);
      for (int round = 0; round < 101; ++round) {
        Sleep(1);
        Pending();
      }
    }
  }
  void Type(int row) {
    if (!runs_) return;
    taken_ = true;
    Pending();
    Sleep(700);
    Sleep(500);
    taken_ = false;
    sent.push_back(std::to_string(KeyOf(row)) + " " + TextOf(row));
  }

  uint64_t now_ = 0;
  uint64_t tick_due_ = kSecondMs;
  std::optional<uint64_t> start_due_ = 20 * kSecondMs;
  int order_ = 2;
  int start_order_ = 1;
  int tick_order_ = 2;
  bool in_tick_ = false;
  bool taken_ = false;
  bool start_waits_ = false;
  bool runs_ = false;
  bool ran_ = false;
  int row_ = 0;
  int left_ = kInterval;
};

class MessengerEnduranceTest : public MessengerTest {};

TEST_F(MessengerEnduranceTest, ADayOfFiftyMessagesOfAllTypesComesOutAsTheModelSays) {
  const MessengerBuild& build = kMessengerBuilds[0];
  const auto game = desktop.running_games().Start(std::string(build.window_title));
  const auto byte = static_cast<uint32_t>(build.GameEndAddress);
  game->SetByte(byte, 1);
  game->AddMemory(static_cast<uint32_t>(build.MemoryAdress), 256);
  std::vector<std::string> sent;
  std::optional<int32_t> open_line;
  std::vector<Message> messages;
  for (int row = 0; row < kMessages; ++row) messages.push_back({TextOf(row), TypeOf(row)});
  Fill(messages);
  const uint64_t start_ms = desktop.clock().NowMs();
  game->before_access = [&] { game->SetByte(byte, IsPlayed(desktop.clock().NowMs() - start_ms) ? 1 : 0); };
  // As the game does it: while a line is open no key opens another.
  game->on_key = [&](int32_t key) {
    if (key != 13) {
      EXPECT_FALSE(open_line) << "a line was opened while another was";
      if (!open_line) open_line = key;
    } else if (open_line) {
      sent.push_back(std::to_string(*open_line) + " " + game->TextAt(static_cast<uint32_t>(build.MemoryAdress)));
      open_line.reset();
    }
  };
  Open().Command3.Press();
  EXPECT_EQ(desktop.clock().NowMs(), start_ms);
  desktop.clock().AdvanceMs(kDayMs);

  Model model;
  model.RunUntil(kDayMs);
  EXPECT_GT(model.sent.size(), 2000U);
  EXPECT_EQ(sent.size(), model.sent.size());
  EXPECT_EQ(sent, model.sent);
  EXPECT_TRUE(desktop.dialogs().shown_boxes.empty());
}

}  // namespace
}  // namespace kestrun
