// What scripts may take of the machine, measured: each hostile script in a process of its own. Built without the
// sanitizers, which take memory themselves. Prints one line for each that does not hold, and how many were tried.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <new>
#include <string>

#include "script/vbscript/engine/engine.h"
#include "script_limits/hostile_scripts.h"

namespace {

// Allocations fail from this one on, or only this one; 0 for never.
size_t fail_at = 0;
bool fail_on = false;
size_t allocations = 0;

}  // namespace

void* operator new(size_t size) {
  ++allocations;
  if (fail_at != 0 && (fail_on ? allocations >= fail_at : allocations == fail_at)) throw std::bad_alloc();
  if (void* const block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, size_t) noexcept { std::free(block); }

namespace kestrun::vbs {
namespace {

constexpr size_t kMegabyte = size_t{1024} * 1024;
constexpr size_t kMemoryLimit = 16 * kMegabyte;
// One and a half times the limit, and what the engine takes at the start: its blocks of registers and variables.
constexpr size_t kMostGrowth = kMemoryLimit * 3 / 2 + 12 * kMegabyte;
constexpr size_t kAddressSpace = 24 * kMegabyte;

// A number of this process in bytes, from the system's list.
size_t StatusBytes(const std::string& wanted) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(wanted, 0) == 0) return std::strtoull(line.c_str() + wanted.size(), nullptr, 10) * 1024;
  }
  return 0;
}

struct Outcome {
  int error = 0;
  size_t growth = 0;  // of the resident memory, at its most
};

int RunText(Engine& engine, std::string_view text) {
  return engine.Report([&] { engine.Load(engine.Parse(text)); }).number;
}

// In a child, with `prepare` called between the making of the engine and the run. False when the child died.
template <class Prepare>
bool RunApart(std::string_view text, size_t memory_bytes, Prepare prepare, Outcome& outcome) {
  int ends[2];
  if (pipe(ends) != 0) return false;
  const pid_t child = fork();
  if (child == 0) {
    const size_t before = StatusBytes("VmRSS:");
    {
      Engine engine;
      engine.limits().memory_bytes = memory_bytes;
      prepare();
      outcome.error = RunText(engine, text);
    }
    outcome.growth = StatusBytes("VmHWM:") - before;
    const bool told = write(ends[1], &outcome, sizeof outcome) == static_cast<ssize_t>(sizeof outcome);
    _exit(told ? 0 : 1);
  }
  close(ends[1]);
  const bool heard = read(ends[0], &outcome, sizeof outcome) == static_cast<ssize_t>(sizeof outcome);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return heard && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int faults = 0;

void Fault(std::string_view script, const char* what, size_t number) {
  ++faults;
  std::printf("FAULT: %.*s: %s %zu\n", static_cast<int>(script.size()), script.data(), what, number);
}

// The resident memory stays within one and a half times the limit, whatever a script keeps.
void CheckResidentMemory() {
  for (const HostileScript& script : kHostileScripts) {
    Outcome outcome;
    if (!RunApart(
            script.text, kMemoryLimit, [] {}, outcome))
      Fault(script.name, "the process died", 0);
    if (outcome.error != 7) Fault(script.name, "ended with error", static_cast<size_t>(outcome.error));
    if (outcome.growth > kMostGrowth) Fault(script.name, "megabytes:", outcome.growth / kMegabyte);
    std::printf("%-34.*s %4zu MB\n", static_cast<int>(script.name.size()), script.name.data(),
                outcome.growth / kMegabyte);
  }
}

// The system gives no more although the script's limit would let it.
void CheckSmallAddressSpace() {
  const auto shrink = [] {
    const rlim_t most = StatusBytes("VmSize:") + kAddressSpace;
    const rlimit limit{most, most};
    if (setrlimit(RLIMIT_AS, &limit) != 0) std::abort();
  };
  for (const HostileScript& script : kHostileScripts) {
    Outcome outcome;
    if (!RunApart(script.text, 4096 * kMegabyte, shrink, outcome)) Fault(script.name, "died for want of memory", 0);
    if (outcome.error != 7 && outcome.error != 28) {
      Fault(script.name, "for want of memory ended with error", static_cast<size_t>(outcome.error));
    }
  }
}

// A script with some of everything, which ends in an error that the host is told of.
constexpr std::string_view kOfEverything =
    "Class N\nPublic x\nSub Class_Initialize\nx = \"made \" & 1\nEnd Sub\nSub Class_Terminate\nx = \"a long farewell "
    "to \" "
    "& x\nEnd Sub\nPublic Default Property Get P(i)\nP = x & i\nEnd Property\nEnd Class\n"
    "Function F(n)\nIf n > 0 Then F = F(n - 1) & \"some more text\" Else F = \"\"\nEnd Function\n"
    "Dim a(3), d, r, m, k\nSet d = CreateObject(\"Scripting.Dictionary\")\n"
    "For i = 1 To 20 : d(\"a key of some length \" & i) = Array(i, i * 1.5) : Next\nd.Remove \"a key of some length "
    "3\"\n"
    "Set a(1) = New N : Set a(1) = New N\ns = a(1)(5)\nSet r = New RegExp\nr.Global = True\nr.Pattern = \"(\\w+) of\"\n"
    "Set m = r.Execute(\"one of two of three\")\ns = s & m(0).SubMatches(0) & r.Replace(\"one of\", \"$1-$1-$1\")\n"
    "For Each k In d : s = s & k : Next\na(2) = Split(s, \"e\") : s = Join(Filter(a(2), \"a\"), \"-\") : s = UCase(s)\n"
    "b = a(2) : b(0) = 1 : ReDim Preserve b(40) : ReDim Preserve b(2)\n"
    "ExecuteGlobal \"Sub Later(x) : x = x & \"\"later than that\"\" : End Sub\" : Execute \"Later s : fresh = s\"\n"
    "t = Eval(\"F(12) & fresh\") : Set g = GetRef(\"F\") : t = t & g(3) & FormatNumber(1234567.891) & CStr(Now)\n"
    "On Error Resume Next\nErr.Raise 1000, \"the source of this error\", \"the description of this error\"\n"
    "u = Err.Description & Err.Source\nx = 1 / 0 : y = CLng(\"no number at all\")\nOn Error GoTo 0\n"
    "Sub Fails\nErr.Raise 5, \"the source of the last error\", \"the description of the last error\"\nEnd Sub\nFails";

// Every allocation fails once, alone and with all that follow it. Whatever was under way then, the host hears of error
// 7 or of the script's own error, nothing is torn, and the engine works on.
void CheckEachAllocation() {
  size_t tried = 0;
  for (const bool and_all_behind : {false, true}) {
    for (size_t nth = 1;; ++nth) {
      Engine engine;
      engine.limits().timeout_ms = 10000;
      fail_on = and_all_behind;
      allocations = 0;
      fail_at = nth;
      const int error = RunText(engine, kOfEverything);
      const bool reached = allocations >= nth;
      fail_at = 0;
      if (!reached) break;
      ++tried;
      if (error != 7 && error != 5) Fault("some of everything", "failing allocation", nth);
      if (RunText(engine, "z = 1 + 1 : w = \"a text that takes memory\" & z") != 0) Fault("afterwards", "failing", nth);
    }
  }
  std::printf("%zu failing allocations\n", tried);
}

struct Check {
  std::string_view name;
  void (*run)();
};

constexpr Check kChecks[] = {
    {"resident", CheckResidentMemory},
    {"address_space", CheckSmallAddressSpace},
    {"allocations", CheckEachAllocation},
};

}  // namespace
}  // namespace kestrun::vbs

// All checks, or the one that is named.
int main(int count, char** arguments) {
  using namespace kestrun::vbs;
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  for (const Check& check : kChecks) {
    if (count < 2 || check.name == arguments[1]) check.run();
  }
  std::printf("%s\n", faults == 0 ? "All limits hold." : "Some limits do not hold.");
  return faults == 0 ? 0 : 1;
}
