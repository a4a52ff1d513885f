// The shell: opening things, known folders, running processes, the internet's state.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/http.h"

namespace kestrun {

// What a shell link says of its target. Texts that are empty are left out; show commands and hot keys are those of
// IShellLink.
struct Shortcut {
  std::string target;
  std::string work_folder;
  std::string arguments;
  std::string icon_file;
  int icon_index = 0;
  std::string description;
  int hot_key = 0;
  int show_command = 1;
  friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

class Shell {
 public:
  virtual ~Shell() = default;
  // The shell's open service with the desktop as owner. The result is the service's own number, above 32 on success;
  // never raises.
  virtual int Open(std::string_view operation, std::string_view file, std::string_view parameters,
                   std::string_view directory, int show_command) = 0;
  // Writes a shell link (.lnk) to that path, in the place of one that is there. Never raises.
  virtual bool WriteShortcut(std::string_view link, const Shortcut& shortcut) = 0;
  // The temporary, Windows and system folders, and a shell folder by its CSIDL number; empty when unknown.
  // No trailing separator is promised.
  [[nodiscard]] virtual std::string TemporaryFolder() = 0;
  [[nodiscard]] virtual std::string WindowsFolder() = 0;
  [[nodiscard]] virtual std::string SystemFolder() = 0;
  [[nodiscard]] virtual std::string ShellFolder(int csidl) = 0;
};

class Processes {
 public:
  virtual ~Processes() = default;
  // Executable file names of the running processes, as the system lists them.
  [[nodiscard]] virtual std::vector<std::string> RunningNames() = 0;
  // File names of the other programs that have this file open, as far as the system tells. Never raises.
  [[nodiscard]] virtual std::vector<std::string> HoldersOf(std::string_view path) = 0;
  // Ends this process at once, without any further code of the program running.
  virtual void EndProcess() = 0;
};

class Internet {
 public:
  virtual ~Internet() = default;
  // The platform's URL test.
  [[nodiscard]] virtual bool IsUrl(std::string_view text) = 0;
  [[nodiscard]] virtual bool IsConnected() = 0;
  // The system's own download, for the schemes that are not http: fetches the newest version into a file. 0 on success,
  // the service's error number otherwise.
  [[nodiscard]] virtual int DownloadToFile(std::string_view url, std::string_view path) = 0;
  // The way to the web. The rules of web/ stand above it.
  [[nodiscard]] virtual std::unique_ptr<HttpSession> OpenSession() = 0;
};

}  // namespace kestrun
