// What a command that is run over and over from a command line gives back: lines on standard output, and the exit code
// of the process.
#pragma once

#include <functional>
#include <string_view>

namespace kestrun {

// The main program says where the lines go; before that they go nowhere.
void InstallCommandOutput(std::function<void(std::string_view line)> write);
// A line without its end.
void WriteCommandLine(std::string_view line);

// 0 until a command sets it; what the process ends with.
void SetExitCode(int code);
[[nodiscard]] int ExitCode();

}  // namespace kestrun
