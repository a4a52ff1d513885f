// The command-line program: -pack, -restore, -checkstyle, -checklist and the other words that need no window, with the
// same code and the same bytes as the Windows program. What a box would have said goes to standard error, and its safe
// answer is taken.
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/command_line_host.h"
#include "platform/command_result.h"
#include "program/commands.h"
#include "program/pack_command.h"

namespace {

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;
// The words that need no window, and the least number of double quotes behind them.
struct BatchWord {
  const char* word;
  size_t quotes;
};
constexpr std::array kBatchWords{BatchWord{"-pack ", 6}, BatchWord{"-restore ", 2}, BatchWord{"-checkstyle ", 0},
                                 BatchWord{"-checklist ", 2}};

constexpr const char* kUsage =
    "usage: kestrun -pack ARCHIVE NAME SOURCE\n"
    "       kestrun -pack ARCHIVE NAME SOURCE.zip/z      every file of the zip; \"/z\" behind a blank is no flag\n"
    "       kestrun '-pack \"ARCHIVE\" \"NAME\" \"SOURCE\"/z'\n"
    "       kestrun -restore ARCHIVE [NAME]\n"
    "       kestrun -checkstyle STYLE.stl                a line for each fault; exit code 1 when there is one\n"
    "       kestrun -checklist LIST.lst [NAME.BMS]       which maps of a play list would fail; exit code 1 when one "
    "would\n"
    "                                                    NAME.BMS: what they go in as, D08M03.BMS when it is left out\n"
    "       kestrun -?\n"
    "All other commands need the window program, kestrun.exe.\n";

int FailWithUsage(const std::string& command) {
  std::fprintf(stderr, "kestrun: cannot carry out: %s\n%s", command.c_str(), kUsage);
  return kExitUsage;
}

bool IsHelp(const std::string& command) { return command == "?" || command == "/?" || command == "-?"; }

bool IsCompleteBatch(const std::string& command) {
  return std::any_of(kBatchWords.begin(), kBatchWords.end(), [&](const BatchWord& row) {
    return kestrun::StartsWith(command, row.word) && kestrun::Split(command, "\"").size() > row.quotes;
  });
}

// What a box would have said, on a stream; one that comes again and again a few times only.
class Speaker {
 public:
  explicit Speaker(std::FILE* stream) : stream_(stream) {}

  [[nodiscard]] bool has_spoken() const { return times_ > 0; }

  void Say(const std::string& text) {
    times_ = text == last_ ? times_ + 1 : 1;
    last_ = text;
    if (times_ <= kTimesSaid) std::fprintf(stream_, "%s\n", text.c_str());
    // For a file that is no zip this box comes without an end, and here nobody can end the program.
    if (text == kUnknownHeader) kestrun::Raise(kestrun::error::kInvalidFileFormat, "The file is no zip archive.");
  }

 private:
  static constexpr int kTimesSaid = 10;
  static constexpr const char* kUnknownHeader = "Unknown header";

  std::FILE* stream_;
  std::string last_;
  int times_ = 0;
};

}  // namespace

int main(int argument_count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + argument_count);
  const std::string command = kestrun::JoinCommandWords(words);
  if (!IsHelp(command) && !IsCompleteBatch(command)) return FailWithUsage(command);

  kestrun::CommandLineHost host(command);
  const kestrun::PlatformInstallation installation(host.platform());
  Speaker speaker(IsHelp(command) ? stdout : stderr);
  host.platform().OnUnexpected([&](const kestrun::UnexpectedQuestion& question) {
    host.platform().dialogs().shown_boxes.clear();  // kept for tests only
    speaker.Say(question.text);
  });
  kestrun::InstallCommandOutput(
      [](std::string_view line) { std::fprintf(stdout, "%.*s\n", static_cast<int>(line.size()), line.data()); });
  static_cast<void>(kestrun::ProcessCommand(command));
  return speaker.has_spoken() && !IsHelp(command) ? kExitFailed : kestrun::ExitCode();
}
