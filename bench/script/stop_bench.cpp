// How long after its time limit a script is stopped, whatever it does: each function and operator over large values, in
// a loop without an end. Prints the time of each, and PASS when it is at most 1.2 times the limit and 50 ms.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <span>
#include <string>

#include "script/long_work.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/builtins.h"

namespace kestrun::vbs {
namespace {

using Time = std::chrono::steady_clock::time_point;

constexpr int kLimit = 100;
constexpr double kMost = 1.2 * kLimit + 50;
constexpr size_t kUnits = size_t{8} * 1024 * 1024;

int slow = 0;

Time ProcessTime() {
  static_assert(CLOCKS_PER_SEC == 1000000);
  return Time(std::chrono::microseconds(std::clock()));
}

double Milliseconds(Time::duration duration) { return std::chrono::duration<double, std::milli>(duration).count(); }

void Stop(const std::string& statement) {
  Engine engine;
  engine.limits().now = ProcessTime;
  if (engine.Report([&] { engine.Load(engine.Parse(LargeValues(kUnits))); }).number != 0) return;
  engine.limits().timeout_ms = kLimit;
  const std::string script = "On Error Resume Next\nDo\nturn = turn + 1\n" + statement + "\nLoop\n";
  const auto start = ProcessTime();
  const int number = engine.Report([&] { engine.Load(engine.Parse(script)); }).number;
  const double time = Milliseconds(ProcessTime() - start);
  const bool passed = number == kTimeLimitNumber && time <= kMost;
  if (!passed) ++slow;
  std::string line = statement;
  std::replace(line.begin(), line.end(), '\n', ':');
  std::printf("  %-60s %8.1f ms   %s\n", line.c_str(), time, passed ? "PASS" : "FAIL");
}

void StopEach(std::span<const std::string_view> statements) {
  for (const std::string_view statement : statements) Stop(std::string(statement));
}

// A long text in each place of a function's arguments.
void StopFunction(const Builtin& builtin) {
  const auto count = static_cast<size_t>(std::min(builtin.most_arguments, 3));
  for (size_t place = 0; place < count; ++place) {
    std::vector<std::string_view> arguments(std::max(place + 1, static_cast<size_t>(builtin.least_arguments)), "1");
    arguments[place] = "digits";
    Stop(CallText(builtin.name, arguments));
  }
}

}  // namespace
}  // namespace kestrun::vbs

int main() {
  using namespace kestrun::vbs;
  std::printf("  limit %d ms, at most %.0f ms, texts of %zu units\n", kLimit, kMost, kUnits);
  for (const LongCall& call : kTextCalls) Stop(CallText(call.name, call.arguments));
  for (const Builtin& builtin : Builtins()) StopFunction(builtin);
  StopEach(kOperatorStatements);
  StopEach(kArrayStatements);
  StopEach(kPatternStatements);
  StopEach(kCodeStatements);
  return slow == 0 ? 0 : 1;
}
