// The command-line program: -pack and the other words that need no window, with the same code and the same bytes as the
// Windows program. What a box would have said goes to standard error, and its safe answer is taken.
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/text.h"
#include "frame/commands.h"
#include "frame/pack_command.h"
#include "platform/headless/headless_platform.h"

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

std::string ProgramFolder() {
  std::error_code failure;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
  return failure ? std::filesystem::current_path().string() : program.parent_path().string();
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

  kestrun::HeadlessPlatform platform;
  const kestrun::PlatformInstallation installation(platform);
  platform.program().SetFolder(ProgramFolder());
  bool reported = false;
  platform.dialogs().on_unexpected = [&reported, &command](const std::string& text) {
    reported = true;
    std::fprintf(IsHelp(command) ? stdout : stderr, "%s\n", text.c_str());
  };
  static_cast<void>(kestrun::ProcessCommand(command));
  return reported && !IsHelp(command) ? kExitFailed : 0;
}
