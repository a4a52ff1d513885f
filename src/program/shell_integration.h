// The program's place in the desktop's shell, as start-up and the options window ask for it: protocol, App Paths entry,
// file associations, the shortcut in the Send To menu.
// The routines install themselves here; a step whose routine is not installed is skipped.
#pragma once

#include <functional>
#include <string>

namespace kestrun {

struct ShellIntegration {
  // Tells whether this program's command is registered; `current` takes the text that is.
  std::function<bool(std::string& current)> is_protocol_registered;
  std::function<bool()> register_protocol;
  std::function<void()> clear_protocol;
  std::function<bool(std::string& current)> is_app_path_registered;
  std::function<bool()> register_app_path;
  // Whether the files of an ending are opened with this copy of the program; the other two give whether they worked.
  std::function<bool()> is_bms_associated;
  std::function<bool()> associate_bms;
  std::function<bool()> remove_bms;
  std::function<bool()> is_lst_associated;
  std::function<bool()> associate_lst;
  std::function<bool()> remove_lst;
  std::function<bool()> is_stl_associated;
  std::function<bool()> associate_stl;
  std::function<bool()> remove_stl;
  // Makes a shell link to this copy of the program, at that full path.
  std::function<bool(const std::string& link)> create_shortcut;
};

void InstallShellIntegration(ShellIntegration integration);
[[nodiscard]] const ShellIntegration& shell_integration();

}  // namespace kestrun
