// The game: where it is installed, where the maps lie, starting it, and whether it runs.
#pragma once

#include <string>

namespace kestrun {

// The game's folder without a trailing backslash: the setting, else the game's own registry entry, else the program's
// folder when the game lies there, else the user is asked and the answer stored. Error 5 when the user cancels.
[[nodiscard]] std::string GameFolder();
// Empty when the game has no App Paths entry.
[[nodiscard]] std::string GamePathFromRegistry();
// The folder of the maps: the game folder until the user says otherwise.
[[nodiscard]] std::string MapFolder();

// Starts the game, or says that it is missing and opens the Options window. Failures are reported by ShowError. Always
// gives false.
bool launchDFLW();
// True when a process with the game's file name runs, wherever it was started from.
[[nodiscard]] bool IsGameRunning();

// The shell's open service; a failed open is silent.
void ShellOpen(const std::string& Operation, const std::string& File, const std::string& Parameters,
               const std::string& Directory, int ShowCommand);

}  // namespace kestrun
