#include "frame/game_paths.h"

#include "base/text.h"
#include "forms/window_registry.h"
#include "frame/folders.h"
#include "frame/path_text.h"
#include "frame/settings.h"
#include "frame/show_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

std::string AskForGameFolder() {
  MsgBox(
      "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
      "the dflw game).");
  const std::string picked = BrowseForFolder(
      "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
      "warrior...').",
      folder_id::kStartPath, "C:\\");
  const std::string folder = ParentFolder(picked);
  WriteSetting(setting::kGameFolder, folder);
  return folder;
}

void StartGame() {
  const std::string folder = GameFolder();
  const std::string game = folder + "\\" + ReadSetting(setting::kGameProgram);
  if (FileExists(game)) {
    // Players' own parameters are not passed: the game is started as it always was, with the number 0 in their place.
    ShellOpen("open", game, "0", folder, 1);
    return;
  }
  MsgBox("Game file 'dflwdem.exe' not found!!!!! Please select your game folder in the options window!!!",
         BoxButtons::kOk, BoxIcon::kCritical);
  ShowWindowModal("frmoptions");
}

}  // namespace

std::string GameFolder() {
  std::string folder = ReadSetting(setting::kGameFolder);
  if (!folder.empty()) return folder;
  if (FileExists(AppFile("dflwdem.exe"))) return platform().program().Folder();
  return AskForGameFolder();
}

std::string GamePathFromRegistry() {
  return platform()
      .registry()
      .Read(RegistryRoot::kLocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path")
      .value_or("");
}

std::string MapFolder() { return ReadSetting(setting::kMapFolder); }

bool launchDFLW() {
  try {
    StartGame();
  } catch (const std::exception&) {
    ShowError("launchDFLW");
  }
  return false;
}

bool IsGameRunning() {
  const std::string game = ToLower(ReadSetting(setting::kGameProgram));
  for (const std::string& name : platform().processes().RunningNames()) {
    if (ToLower(name.substr(0, name.find('\0'))) == game) return true;
  }
  return false;
}

void ShellOpen(const std::string& Operation, const std::string& File, const std::string& Parameters,
               const std::string& Directory, int ShowCommand) {
  static_cast<void>(platform().shell().Open(Operation, File, Parameters, Directory, ShowCommand));
}

}  // namespace kestrun
