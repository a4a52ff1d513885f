// The script engine beside Lua 5.4 on the same work in one run, and beside Wine's cscript on smaller sizes when the
// environment names it: KESTRUN_CSCRIPT="tools/wine cscript". Prints times and ratios. Times are the process's own, so
// that what else the machine does meanwhile does not count.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <lua.hpp>
#include <string>
#include <vector>

#include "script/script_engine.h"
#include "script/vbscript/engine/engine.h"

namespace kestrun {
namespace {

constexpr int kRounds = 5;

// A host's object with a property and a method.
class Host final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Host"; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kMembers[] = {
        {"Value", MemberKind::kReadWrite, 0, 0, [](Object& o, Arguments) { return static_cast<Host&>(o).value; },
         [](Object& o, Arguments, const Variant& v) { static_cast<Host&>(o).value = v; }},
        {"Work", MemberKind::kMethod, 1, 1, [](Object&, Arguments a) { return a[0]; }},
    };
    static const MemberTable kTable{nullptr, kMembers};
    return kTable;
  }
  Variant value = 1;
};

struct Work {
  const char* name;
  const char* script;
  const char* lua;
  const char* small_script;  // for the slow peer; none: the same work is not asked of it
  double scale;              // how many times smaller that is
  double most = 1.0;         // times as long as Lua
};

constexpr Work kWorks[] = {
    {"loop, locals", "Sub T\nDim i, x\nx = 0\nFor i = 1 To 10000000\nx = x + i * 2\nNext\nEnd Sub\nT",
     "local x = 0 for i = 1, 10000000 do x = x + i * 2 end",
     "Sub T\nDim i, x\nx = 0\nFor i = 1 To 100000\nx = x + i * 2\nNext\nEnd Sub\nT", 100, 1.5},
    {"loop, globals", "x = 0\nFor i = 1 To 10000000\nx = x + i * 2\nNext",
     "x = 0 for i = 1, 10000000 do x = x + i * 2 end", "x = 0\nFor i = 1 To 100000\nx = x + i * 2\nNext", 100},
    {"array fill and sum",
     "Sub T\nDim a(), i, s\nReDim a(1000000)\nFor i = 0 To 1000000\na(i) = i\nNext\nFor i = 0 To 1000000\ns = s + "
     "a(i)\nNext\nEnd Sub\nT",
     "local a, s = {}, 0 for i = 0, 1000000 do a[i] = i end for i = 0, 1000000 do s = s + a[i] end",
     "Sub T\nDim a(), i, s\nReDim a(20000)\nFor i = 0 To 20000\na(i) = i\nNext\nFor i = 0 To 20000\ns = s + "
     "a(i)\nNext\nEnd Sub\nT",
     50},
    {"100,000 appends", "Dim s, i\nFor i = 1 To 100000\ns = s & \"abc\"\nNext",
     "local t = {} for i = 1, 100000 do t[#t + 1] = 'abc' end local s = table.concat(t)",
     "Dim s, i\nFor i = 1 To 100000\ns = s & \"abc\"\nNext", 1},
    {"fib(25)",
     "Function Fib(n)\nIf n < 2 Then\nFib = n\nElse\nFib = Fib(n - 1) + Fib(n - 2)\nEnd If\nEnd Function\nx = Fib(25)",
     "local function fib(n) if n < 2 then return n else return fib(n - 1) + fib(n - 2) end end local x = fib(25)",
     "Function Fib(n)\nIf n < 2 Then\nFib = n\nElse\nFib = Fib(n - 1) + Fib(n - 2)\nEnd If\nEnd Function\nx = Fib(25)",
     1, 1.5},
    {"Select Case",
     "Sub T\nDim i, n\nFor i = 1 To 1000000\nSelect Case i Mod 5\nCase 0\nn = n + 1\nCase 1\nn = n + 2\nCase 2, 3\nn = "
     "n "
     "+ 3\nCase Else\nn = n + 4\nEnd Select\nNext\nEnd Sub\nT",
     "local n = 0 for i = 1, 1000000 do local k = i % 5 if k == 0 then n = n + 1 elseif k == 1 then n = n + 2 elseif k "
     "== 2 or k == 3 then n = n + 3 else n = n + 4 end end",
     "Sub T\nDim i, n\nFor i = 1 To 20000\nSelect Case i Mod 5\nCase 0\nn = n + 1\nCase 1\nn = n + 2\nCase 2, 3\nn = n "
     "+ 3\nCase Else\nn = n + 4\nEnd Select\nNext\nEnd Sub\nT",
     50},
    {"host property get and put", "Dim i\nFor i = 1 To 1000000\nHost.Value = Host.Value + 1\nNext",
     "for i = 1, 1000000 do Host.Value = Host.Value + 1 end", nullptr, 1},
    {"host calls", "Dim i, x\nFor i = 1 To 1000000\nx = Host.Work(i)\nNext",
     "local x for i = 1, 1000000 do x = Host.Work(i) end", nullptr, 1},
    {"text functions",
     "Sub T\nDim i, s, n\ns = \"The quick brown fox jumps over the lazy dog\"\nFor i = 1 To 200000\nn = n + Len(Mid(s, "
     "5, "
     "10)) + InStr(s, \"fox\") + Len(UCase(Left(s, 9)))\nNext\nEnd Sub\nT",
     "local s, n = 'The quick brown fox jumps over the lazy dog', 0 for i = 1, 200000 do n = n + #string.sub(s, 5, 14) "
     "+ "
     "string.find(s, 'fox', 1, true) + #string.upper(string.sub(s, 1, 9)) end",
     "Sub T\nDim i, s, n\ns = \"The quick brown fox jumps over the lazy dog\"\nFor i = 1 To 20000\nn = n + Len(Mid(s, "
     "5, "
     "10)) + InStr(s, \"fox\") + Len(UCase(Left(s, 9)))\nNext\nEnd Sub\nT",
     10},
};

double Milliseconds(std::clock_t duration) { return 1000.0 * static_cast<double>(duration) / CLOCKS_PER_SEC; }

template <class Action>
double Fastest(Action&& action) {
  double best = 1e300;
  for (int round = 0; round < kRounds; ++round) best = std::min(best, action());
  return best;
}

double RunOurs(const char* script) {
  const auto engine = MakeScriptEngine();
  engine->SetLanguage("VBScript");
  engine->SetTimeout(-1);
  engine->AddObject("Host", MakeRef<Host>());
  const auto start = std::clock();
  if (!engine->AddCode(script)) {
    std::fprintf(stderr, "line %d: %s\n", engine->Error().Line, engine->Error().Description.c_str());
    std::exit(1);
  }
  return Milliseconds(std::clock() - start);
}

int LuaWork(lua_State* lua) {
  lua_settop(lua, 1);
  return 1;
}

int LuaGet(lua_State* lua) {
  const std::string name = lua_tostring(lua, 2);
  if (name == "Work") {
    lua_pushcfunction(lua, LuaWork);
  } else {
    lua_pushinteger(lua, *static_cast<lua_Integer*>(lua_touserdata(lua, 1)));
  }
  return 1;
}

int LuaPut(lua_State* lua) {
  *static_cast<lua_Integer*>(lua_touserdata(lua, 1)) = lua_tointeger(lua, 3);
  return 0;
}

void AddLuaHost(lua_State* lua) {
  auto* value = static_cast<lua_Integer*>(lua_newuserdatauv(lua, sizeof(lua_Integer), 0));
  *value = 1;
  lua_newtable(lua);
  lua_pushcfunction(lua, LuaGet);
  lua_setfield(lua, -2, "__index");
  lua_pushcfunction(lua, LuaPut);
  lua_setfield(lua, -2, "__newindex");
  lua_setmetatable(lua, -2);
  lua_setglobal(lua, "Host");
}

double RunLua(const char* text) {
  lua_State* lua = luaL_newstate();
  luaL_openlibs(lua);
  AddLuaHost(lua);
  const auto start = std::clock();
  if (luaL_dostring(lua, text)) {
    std::fprintf(stderr, "%s\n", lua_tostring(lua, -1));
    std::exit(1);
  }
  const double time = Milliseconds(std::clock() - start);
  lua_close(lua);
  return time;
}

// Milliseconds that the other engine's program takes for a script by its own clock; below 0 when it fails.
double RunPeer(const std::string& command, const std::string& script) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "kestrun_bench.vbs";
  std::ofstream(path) << "bench_started = Timer\n"
                      << script << "\nWScript.Echo \"took \" & (Timer - bench_started) * 1000\n";
  const std::string line = command + " //nologo 'Z:" + path.string() + "' 2>/dev/null";
  FILE* output = popen(line.c_str(), "r");
  double took = -1;
  char text[200];
  while (output && std::fgets(text, sizeof text, output)) static_cast<void>(std::sscanf(text, "took %lf", &took));
  if (output) pclose(output);
  if (took < 0) std::fprintf(stderr, "the peer engine failed\n");
  return took;
}

void PrintParsing() {
  std::string text;
  for (int i = 0; text.size() < 2 * 1024 * 1024; ++i) {
    const std::string n = std::to_string(i);
    text += "Function F" + n + "(a, b)\n  Dim x\n  x = a * " + n + " + b ' a comment\n  If x > 10 Then\n    F" + n +
            " = \"text\" & x\n  Else\n    F" + n + " = x - 1\n  End If\nEnd Function\n";
  }
  const double time = Fastest([&] {
    vbs::Engine engine;
    const auto start = std::clock();
    static_cast<void>(engine.Parse(text));
    return Milliseconds(std::clock() - start);
  });
  std::printf("%-28s %9.1f ms\n", "parsing 2 MB", time);
}

}  // namespace
}  // namespace kestrun

int main() {
  using namespace kestrun;
  const char* const peer = std::getenv("KESTRUN_CSCRIPT");
  bool all_passed = true;
  std::printf("%-28s %12s %12s %10s%s\n", "", "engine", "Lua 5.4", "ratio",
              peer ? "                       cscript: times as fast" : "");
  for (const Work& work : kWorks) {
    const double ours = Fastest([&] { return RunOurs(work.script); });
    const double lua = Fastest([&] { return RunLua(work.lua); });
    const bool passed = ours <= work.most * lua;
    all_passed = all_passed && passed;
    std::printf("%-28s %9.1f ms %9.1f ms %9.2fx  at most %.1f  %s", work.name, ours, lua, ours / lua, work.most,
                passed ? "PASS" : "FAIL");
    if (peer && work.small_script) {
      const double other = RunPeer(peer, work.small_script) * work.scale;
      if (other > 0) std::printf("  %10.0fx", other / ours);
    }
    std::printf("\n");
  }
  PrintParsing();
  return all_passed ? 0 : 1;
}
