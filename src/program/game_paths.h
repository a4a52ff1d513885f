// The game: its folder, its start, and whether it runs.
#pragma once

#include <cstdint>
#include <string>

#include "base/variant.h"

namespace kestrun {

// The game's installation folder: the stored one, else the registry's, else the program's own folder when the game lies
// there. Only then the user is asked, and the answer is stored; error 5 when that is cancelled.
[[nodiscard]] std::string GameFolder();

// Lets the user pick the game folder, stores it without its last separator, and gives it. About a folder without the
// game's program or archive the user is asked: to pick again, or to keep it; one whose path is too long for the
// settings is refused. Error 5, and nothing stored, when the user gives up. Prompt, root and start are
// BrowseForFolder's.
std::string PickGameFolder(const std::string& prompt, int32_t root, const std::string& start);

// While it lives GameFolder asks nobody: where no folder is known it gives the empty text. For what follows a start
// that has asked already.
class GameFolderUnasked {
 public:
  GameFolderUnasked();
  ~GameFolderUnasked();
  GameFolderUnasked(const GameFolderUnasked&) = delete;
  GameFolderUnasked& operator=(const GameFolderUnasked&) = delete;

 private:
  bool before_;
};

// The folder under the game's App Paths key; empty when there is none.
[[nodiscard]] std::string GamePathFromRegistry();

// The default map folder; the game folder until the user says otherwise.
[[nodiscard]] std::string MapFolder();

// Starts the game and does not wait for it, or tells that it is missing and opens the options. Always false.
bool launchDFLW();

// True when any process has the game program's file name, in whatever case.
[[nodiscard]] bool IsGameRunning();

// The shell's open service; a failed open is silent. The three values are taken as texts, the number 0 as "0".
void ShellOpen(const std::string& Operation, const Variant& File, const Variant& Parameters, const Variant& Directory,
               int32_t ShowCommand);
inline constexpr int32_t kShowNormal = 1;
// Starts a program in the folder, which may be empty. Error 53 where it cannot be started.
void StartProgram(const std::string& program, const std::string& folder);
// A file or a web address in the program that the system opens it with.
void OpenDocument(const std::string& path_or_address);
// The help file beside the program, which has the program's name and ".chm"; where there is none, the manual.
void OpenHelpFile();

}  // namespace kestrun
