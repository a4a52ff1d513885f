// The program's place in the desktop's shell, as start-up asks for it: protocol, App Paths entry, file association.
// The routines install themselves here; a step whose routine is not installed is skipped.
#pragma once

#include <functional>
#include <string>

namespace kestrun {

struct ShellIntegration {
  // Tells whether this program's command is registered; `current` takes the text that is.
  std::function<bool(std::string& current)> is_protocol_registered;
  std::function<bool()> register_protocol;
  std::function<bool(std::string& current)> is_app_path_registered;
  std::function<bool()> register_app_path;
  std::function<bool()> associate_bms;
};

void InstallShellIntegration(ShellIntegration integration);
[[nodiscard]] const ShellIntegration& shell_integration();

}  // namespace kestrun
