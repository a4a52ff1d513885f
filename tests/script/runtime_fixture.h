// What tests of the run-time library share: an engine's context with budgets that a test sets, a platform with a fixed
// clock and laid-down answers, and a reader of small expressions, so that a test reads as a table of calls.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {

// What stands in for the engine's time limit.
struct OutOfTime : std::runtime_error {
  OutOfTime() : std::runtime_error("time is up") {}
};

class TestContext final : public RuntimeContext {
 public:
  void Charge(uint64_t steps) override {
    charged += steps;
    if (charged > step_limit) throw OutOfTime();
  }
  void ChargeMemory(size_t bytes) override {
    if (bytes > memory_limit) Raise(error::kOutOfMemory);
  }
  [[nodiscard]] bool allow_ui() const override { return ui; }
  [[nodiscard]] int locale() const override { return locale_number; }
  void set_locale(int locale) override { locale_number = locale; }
  [[nodiscard]] uint32_t& random_state() override { return random; }

  uint64_t charged = 0;
  uint64_t step_limit = UINT64_MAX;
  size_t memory_limit = SIZE_MAX;
  bool ui = true;
  int locale_number = kEnglishUnitedStates;
  uint32_t random = kFirstRandomState;
};

// Only the clock and the dialogues are there; anything else that is asked for fails the test.
class TestPlatform final : public Platform, public Clock, public Dialogs {
 public:
  FileSystem& files() override { throw std::logic_error("files"); }
  Program& program() override { throw std::logic_error("program"); }
  UserSettings& user_settings() override { throw std::logic_error("settings"); }
  Registry& registry() override { throw std::logic_error("registry"); }
  Shell& shell() override { throw std::logic_error("shell"); }
  Processes& processes() override { throw std::logic_error("processes"); }
  Internet& internet() override { throw std::logic_error("internet"); }
  Dialogs& dialogs() override { return *this; }
  Clipboard& clipboard() override { throw std::logic_error("clipboard"); }
  Pictures& pictures() override { throw std::logic_error("pictures"); }
  Clock& clock() override { return *this; }
  Windowing& windowing() override { throw std::logic_error("windowing"); }
  RunningGames& running_games() override { throw std::logic_error("games"); }

  uint64_t NowMs() override { return 0; }
  double LocalDateTime() override { return now; }
  void SleepMs(uint32_t) override {}
  void RunPendingEvents() override {}
  TimerId StartTimer(uint32_t, std::function<void()>) override { return 0; }
  void StopTimer(TimerId) override {}
  void Post(std::function<void()>) override {}

  BoxAnswer ShowMessage(const MessageBoxRequest& request) override {
    messages.push_back(request);
    return box_answer;
  }
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                     std::string_view preset) override {
    questions.push_back(std::string(prompt) + "|" + std::string(title) + "|" + std::string(preset));
    return text_answer;
  }
  std::optional<std::string> PickFile(const FileDialogRequest&) override { return std::nullopt; }
  std::optional<std::string> PickFolder(std::string_view, int, std::string_view) override { return std::nullopt; }
  std::optional<uint32_t> PickColor(uint32_t) override { return std::nullopt; }

  double now = 43832.75;  // 2 January 2020, 6 PM
  BoxAnswer box_answer = BoxAnswer::kOk;
  std::optional<std::string> text_answer;
  std::vector<MessageBoxRequest> messages;
  std::vector<std::string> questions;
};

// "Integer 7", "String abc", "Null", "Array(Integer 1, String x)", "Object Dictionary", "Nothing".
[[nodiscard]] std::string Show(const Variant& value);

// Evaluates a call such as `Mid("abc", 2)`: functions, constants, literals and negative numbers. "=> Type value" for a
// value and "!! 5 text" for an error.
[[nodiscard]] Variant Evaluate(RuntimeContext& context, std::string_view expression);
[[nodiscard]] std::string Outcome(RuntimeContext& context, std::string_view expression);

// Runs every line "expression => outcome" or "expression !! number" of a table. Empty lines are skipped.
void CheckTable(RuntimeContext& context, std::string_view table);

class RuntimeTest : public ::testing::Test {
 protected:
  TestContext context;
  TestPlatform machine;
  PlatformInstallation installed{machine};
};

}  // namespace kestrun::vbs
