#include "platform/command_result.h"

#include <utility>

namespace kestrun {
namespace {

struct CommandResult {
  std::function<void(std::string_view line)> write;
  int exit_code = 0;
};

CommandResult& Result() {
  static CommandResult result;
  return result;
}

}  // namespace

void InstallCommandOutput(std::function<void(std::string_view line)> write) { Result().write = std::move(write); }

void WriteCommandLine(std::string_view line) {
  if (Result().write) Result().write(line);
}

void SetExitCode(int code) { Result().exit_code = code; }

int ExitCode() { return Result().exit_code; }

}  // namespace kestrun
