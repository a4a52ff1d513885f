#include "program/game_paths.h"

#include <algorithm>
#include <utility>

#include "base/code_page.h"
#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/profile/profile_file.h"
#include "forms/window_registry.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

// What a folder dialogue gave is used without its last separator. Error 5 for a cancelled one.
std::string PickFolder(const std::string& prompt, int32_t root, const std::string& start) {
  return ParentFolder(BrowseForFolder(prompt, root, start));
}

bool HoldsGame(const std::string& folder) {
  return FileExists(folder + "\\" + ReadSetting(setting::kGameProgram)) ||
         FileExists(folder + "\\" + ReadSetting(setting::kArchiveName));
}

// Why this folder cannot be the game's, and what to do; empty for one that can.
std::string RefusalOf(const std::string& folder) {
  const size_t bytes = EncodeText(folder).size();
  if (bytes <= kProfileValueBytes) return {};
  return "The path of this folder is too long to be kept in the settings: it has " + std::to_string(bytes) +
         " characters, and " + std::to_string(kProfileValueBytes) +
         " are possible. Move the game to a folder with a shorter path, or choose a shorter path that leads to it, "
         "such "
         "as a link or a drive letter.";
}

// Why this folder may not be the right one; empty for one that is.
std::string DoubtAbout(const std::string& folder) {
  if (HoldsGame(folder)) return {};
  return "The game is not in the folder " + folder + ": there is neither " + ReadSetting(setting::kGameProgram) +
         " nor " + ReadSetting(setting::kArchiveName) + " in it.";
}

bool WantsAnotherFolder(const std::string& reason) {
  return AskYesNo(reason + std::string(kCrLf) + "Do you want to choose another folder?", BoxIcon::kWarning);
}

bool is_asking_off = false;

std::string AskForGameFolder() {
  MsgBox(
      "Kestrun was unable to find your dflw game folder. Please select your game folder (directory where you installed "
      "the dflw game).");
  return PickGameFolder(
      "Select your game folder (game installation directory 'C:\\program files\\novalogic\\delta force land "
      "warrior...').",
      folder::kGivenPath, "C:\\");
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
  return is_asking_off ? std::string() : AskForGameFolder();
}

std::string PickGameFolder(const std::string& prompt, int32_t root, const std::string& start) {
  for (;;) {
    std::string folder = PickFolder(prompt, root, start);
    if (const std::string refusal = RefusalOf(folder); !refusal.empty()) {
      if (!WantsAnotherFolder(refusal)) Raise(error::kInvalidProcedureCall);  // as after a cancelled dialogue
      continue;
    }
    const std::string doubt = DoubtAbout(folder);
    if (doubt.empty() || !WantsAnotherFolder(doubt)) {
      WriteSetting(setting::kGameFolder, folder);
      Attempt(CheckGameArchive);
      return folder;
    }
  }
}

GameFolderUnasked::GameFolderUnasked() : before_(std::exchange(is_asking_off, true)) {}

GameFolderUnasked::~GameFolderUnasked() { is_asking_off = before_; }

std::string GamePathFromRegistry() {
  return platform()
      .registry()
      .Read(RegistryRoot::kLocalMachine, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path")
      .value_or(std::string());
}

std::string MapFolder() { return ReadSetting(setting::kMapFolder); }

bool launchDFLW() {
  RunCommand(StartGame, "launchDFLW");
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

void StartProgram(const std::string& program, const std::string& folder) {
  constexpr int kLeastSuccess = 33;  // of the shell's open service
  const int result = platform().shell().Open("open", program, "", folder, kShowNormal);
  if (result < kLeastSuccess) throw FileError(error::kFileNotFound, program);
}

void OpenDocument(const std::string& path_or_address) { ShellOpen("open", path_or_address, "", "", kShowNormal); }

void OpenHelpFile() {
  const std::string help = AppFile(platform().program().ExeName() + ".chm");
  const std::string manual = AppFile("manual.html");
  OpenDocument(!FileExists(help) && FileExists(manual) ? manual : help);
}

}  // namespace kestrun
