// The command-line program: -pack and the other words that need no window, with the same code and the same bytes as the
// Windows program. What a box would have said goes to standard error, and its safe answer is taken.
#include <cstdio>
#include <string>
#include <vector>

#include "base/text.h"
#include "frame/commands.h"
#include "frame/pack_command.h"
#include "platform/headless/command_line_host.h"

namespace {

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;
constexpr size_t kPackQuotes = 6;

constexpr const char* kUsage =
    "usage: kestrun -pack ARCHIVE NAME SOURCE [/z]\n"
    "       kestrun '-pack \"ARCHIVE\" \"NAME\" \"SOURCE\"/z'\n"
    "       kestrun -?\n"
    "All other commands need the window program, kestrun.exe.\n";

int FailWithUsage(const std::string& command) {
  std::fprintf(stderr, "kestrun: cannot carry out: %s\n%s", command.c_str(), kUsage);
  return kExitUsage;
}

bool IsHelp(const std::string& command) { return command == "?" || command == "/?" || command == "-?"; }

bool IsCompletePack(const std::string& command) {
  return kestrun::StartsWith(command, "-pack ") && kestrun::Split(command, "\"").size() > kPackQuotes;
}

}  // namespace

int main(int argument_count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + argument_count);
  const std::string command = kestrun::JoinCommandWords(words);
  if (!IsHelp(command) && !IsCompletePack(command)) return FailWithUsage(command);

  kestrun::CommandLineHost host(command);
  const kestrun::PlatformInstallation installation(host.platform());
  bool reported = false;
  host.platform().OnUnexpected([&reported, &command](const kestrun::UnexpectedQuestion& question) {
    reported = true;
    std::fprintf(IsHelp(command) ? stdout : stderr, "%s\n", question.text.c_str());
  });
  static_cast<void>(kestrun::ProcessCommand(command));
  return reported && !IsHelp(command) ? kExitFailed : 0;
}
