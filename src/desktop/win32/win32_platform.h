// The platform of the Windows program.
#pragma once

#include "desktop/win32/drawing/win32_pictures.h"
#include "desktop/win32/system/win32_background.h"
#include "desktop/win32/system/win32_clock.h"
#include "desktop/win32/system/win32_dialogs.h"
#include "desktop/win32/system/win32_files.h"
#include "desktop/win32/system/win32_game_memory.h"
#include "desktop/win32/system/win32_services.h"
#include "desktop/win32/window/win32_effects.h"
#include "desktop/win32/window/win32_windowing.h"
#include "platform/located_files.h"
#include "platform/platform.h"

namespace kestrun {

// Also installs the ANSI code page for single-byte text, and the effects of styles.
class Win32Platform final : public Platform {
 public:
  Win32Platform();
  ~Win32Platform() override;

  [[nodiscard]] FileSystem& files() override { return located_; }
  [[nodiscard]] Program& program() override { return program_; }
  [[nodiscard]] UserSettings& user_settings() override { return user_settings_; }
  [[nodiscard]] Registry& registry() override { return registry_; }
  [[nodiscard]] Shell& shell() override { return shell_; }
  [[nodiscard]] Processes& processes() override { return processes_; }
  [[nodiscard]] Internet& internet() override { return internet_; }
  [[nodiscard]] Dialogs& dialogs() override { return dialogs_; }
  [[nodiscard]] Clipboard& clipboard() override { return clipboard_; }
  [[nodiscard]] Pictures& pictures() override { return pictures_; }
  [[nodiscard]] Clock& clock() override { return clock_; }
  [[nodiscard]] Windowing& windowing() override { return windowing_; }
  [[nodiscard]] RunningGames& running_games() override { return running_games_; }

 private:
  SystemCodePage code_page_;
  Win32FileSystem files_;
  LocatedFiles located_{files_};
  Win32Program program_;
  Win32UserSettings user_settings_;
  Win32Registry registry_;
  Win32Shell shell_;
  Win32Processes processes_;
  Win32Internet internet_;
  Win32Dialogs dialogs_;
  Win32Clipboard clipboard_;
  Win32Pictures pictures_;
  Win32Clock clock_;
  Win32Windowing windowing_;
  Win32Effects effects_;
  Win32Games running_games_;
  Win32Background background_;  // ends before what its work uses
};

}  // namespace kestrun
