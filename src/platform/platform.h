// The one object from which everything hangs that the operating system gives. app/ installs the real one, a test
// fixture or the command-line program the headless one.
#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/game_memory.h"
#include "platform/pictures.h"
#include "platform/program.h"
#include "platform/registry.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "platform/windowing.h"

namespace kestrun {

class Platform {
 public:
  virtual ~Platform() = default;
  [[nodiscard]] virtual FileSystem& files() = 0;
  [[nodiscard]] virtual Program& program() = 0;
  [[nodiscard]] virtual UserSettings& user_settings() = 0;
  [[nodiscard]] virtual Registry& registry() = 0;
  [[nodiscard]] virtual Shell& shell() = 0;
  [[nodiscard]] virtual Processes& processes() = 0;
  [[nodiscard]] virtual Internet& internet() = 0;
  [[nodiscard]] virtual Dialogs& dialogs() = 0;
  [[nodiscard]] virtual Clipboard& clipboard() = 0;
  [[nodiscard]] virtual Pictures& pictures() = 0;
  [[nodiscard]] virtual Clock& clock() = 0;
  [[nodiscard]] virtual Windowing& windowing() = 0;
  [[nodiscard]] virtual RunningGames& running_games() = 0;
};

// The installed platform. Calling it before one is installed ends the process with a message.
[[nodiscard]] Platform& platform();
// The same, or null before one is installed: for parts that can do without, such as scripts run on their own.
[[nodiscard]] Platform* InstalledPlatform();

// Installs a platform for as long as this object lives, and the one before it afterwards.
class PlatformInstallation {
 public:
  explicit PlatformInstallation(Platform& platform);
  ~PlatformInstallation();
  PlatformInstallation(const PlatformInstallation&) = delete;
  PlatformInstallation& operator=(const PlatformInstallation&) = delete;

 private:
  Platform* previous_;
};

// The message box of the whole program; titles and icons only where the caller says so.
BoxAnswer MsgBox(std::string_view text, BoxButtons buttons = BoxButtons::kOk, BoxIcon icon = BoxIcon::kNone,
                 std::string_view title = {});

// Handles the messages that wait now and returns.
void RunPendingEvents();
void Sleep(uint32_t milliseconds);

}  // namespace kestrun
