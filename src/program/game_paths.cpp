#include "program/game_paths.h"

#include <algorithm>

#include "base/convert.h"
#include "base/text.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/show_error.h"
#include "program/window_kit/open_window.h"

namespace kestrun {
namespace {

std::string AskForGameFolder() {
  MsgBox(
      "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
      "the dflw game).");
  const std::string picked = BrowseForFolder(
      "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
      "warrior...').",
      folder::kGivenPath, "C:\\");
  const std::string game_folder = ParentFolder(picked);
  WriteSetting(setting::kGameFolder, game_folder);
  return game_folder;
}

void StartGame() {
  const std::string game = GameFolder() + "\\" + ReadSetting(setting::kGameProgram);
  if (FileExists(game)) {
    // The game starts with the text "0" for its parameters, whatever DFLWPAR holds.
    ShellOpen("open", game, int32_t{0}, GameFolder(), kShowNormal);
    return;
  }
  MsgBox("Game file 'dflwdem.exe' not found!!!!! Please select your game folder in the options window!!!",
         BoxButtons::kOk, BoxIcon::kCritical);
  OpenWindow(window_name::kOptions, ShowWay::kShowModal);
}

}  // namespace

std::string GameFolder() {
  std::string stored = ReadSetting(setting::kGameFolder);
  if (!stored.empty()) return stored;
  if (FileExists(AppFile("dflwdem.exe"))) return platform().program().Folder();
  return AskForGameFolder();
}

std::string GamePathFromRegistry() {
  return platform()
      .registry()
      .Read(RegistryRoot::kLocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path")
      .value_or(std::string());
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
  const std::vector<std::string> names = platform().processes().RunningNames();
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& name) { return ToLower(name.substr(0, name.find('\0'))) == game; });
}

void ShellOpen(const std::string& Operation, const Variant& File, const Variant& Parameters, const Variant& Directory,
               int32_t ShowCommand) {
  static_cast<void>(
      platform().shell().Open(Operation, ToText(File), ToText(Parameters), ToText(Directory), ShowCommand));
}

void OpenDocument(const std::string& path_or_address) { ShellOpen("open", path_or_address, "", "", kShowNormal); }

}  // namespace kestrun
