// vbsrun: loads script files into one engine, each as a module, and runs them. A developer's tool.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "app/vbsrun/wscript.h"
#include "script/vbscript/engine/engine.h"

namespace kestrun {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view kUsage =
    "usage: vbsrun [--parse] [--time] [--timeout MS] [--memory MB] FILE... [-- ARGUMENT...]\n"
    "  --parse       only parse\n"
    "  --time        print the times of parsing and running to standard error\n"
    "  --timeout MS  stop after so many milliseconds\n"
    "  --memory MB   let scripts keep at most so many megabytes\n";

struct Options {
  bool parse_only = false;
  bool show_times = false;
  int64_t timeout_ms = -1;
  size_t memory_bytes = vbs::Limits{}.memory_bytes;
  std::vector<std::string> files;
  std::vector<std::string> arguments;
};

std::optional<Options> ReadOptions(int count, char** words) {
  Options options;
  for (int at = 1; at < count; ++at) {
    const std::string_view word = words[at];
    if (word == "--parse") {
      options.parse_only = true;
    } else if (word == "--time") {
      options.show_times = true;
    } else if (word == "--timeout" && at + 1 < count) {
      options.timeout_ms = std::strtoll(words[++at], nullptr, 10);
    } else if (word == "--memory" && at + 1 < count) {
      options.memory_bytes = std::strtoull(words[++at], nullptr, 10) * 1024 * 1024;
    } else if (word == "--") {
      options.arguments.assign(words + at + 1, words + count);
      break;
    } else if (word.size() > 1 && word.front() == '-') {
      return std::nullopt;
    } else {
      options.files.emplace_back(word);
    }
  }
  if (options.files.empty()) return std::nullopt;
  return options;
}

std::optional<std::string> ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void PrintError(const std::string& file, const vbs::ErrorReport& report) {
  std::fflush(stdout);
  std::cerr << file << '(' << report.place.line << ", " << report.place.column << ") " << report.source << ": "
            << report.number << ' ' << report.description << '\n';
  if (!report.line.empty()) std::cerr << report.line << '\n';
}

class Session {
 public:
  explicit Session(const Options& options) : options_(options) {
    engine_.limits().timeout_ms = options.timeout_ms;
    engine_.limits().memory_bytes = options.memory_bytes;
    engine_.AddObject("WScript", MakeRef<WScriptObject>(options.arguments));
  }

  int RunAll() {
    for (const std::string& file : options_.files) {
      if (const int code = RunFile(file)) return code;
    }
    if (options_.show_times) {
      std::cerr << "parsed in " << parsing_.count() << " ms, ran in " << running_.count() << " ms\n";
    }
    return 0;
  }

 private:
  using Milliseconds = std::chrono::duration<double, std::milli>;

  int RunFile(const std::string& file) {
    const std::optional<std::string> text = ReadFile(file);
    if (!text) {
      std::cerr << file << ": cannot be read\n";
      return 1;
    }
    const vbs::ErrorReport report = engine_.Report([&] {
      const auto start = Clock::now();
      const std::shared_ptr<vbs::Module> module = engine_.Parse(*text);
      const auto parsed = Clock::now();
      parsing_ += parsed - start;
      if (options_.parse_only) return;
      engine_.Load(module);
      running_ += Clock::now() - parsed;
    });
    if (report.number == 0) return 0;
    PrintError(file, report);
    return 1;
  }

  const Options& options_;
  vbs::Engine engine_;
  Milliseconds parsing_{};
  Milliseconds running_{};
};

int Main(int count, char** words) {
  const std::optional<Options> options = ReadOptions(count, words);
  if (!options) {
    std::cerr << kUsage;
    return 2;
  }
  try {
    return Session(*options).RunAll();
  } catch (const ScriptQuit& quit) {
    return quit.code;
  }
}

}  // namespace
}  // namespace kestrun

int main(int count, char** words) { return kestrun::Main(count, words); }
