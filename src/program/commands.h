// The command words: what `kestrun.exe -word` and `kestrun://-word` do.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

// Results of ProcessCommand.
inline constexpr int kCommandIsFileName = 0;   // no option: the text names a file or an address
inline constexpr int kCommandCarriedOut = 1;   // carried out: the splash window closes and no main window opens
inline constexpr int kCommandStyleLoaded = 2;  // a style was given: start-up goes on to the main window

// Carries out one command text. A failure is reported and gives the result so far, 0 when the failing
// branch had not finished.
int ProcessCommand(const std::string& command);

// True for a command that takes the place of the whole start: it shows nothing and asks nothing, so that it can be run
// over and over from a script of the user's.
[[nodiscard]] bool RunsUnseen(const std::string& command);

// What the user is asked about before a link with that text is followed: a sentence, empty where it only opens a
// window.
[[nodiscard]] std::string_view LinkWarning(const std::string& command);

// The words as they begin a command text, in the order of the help. "-safe" is none of them: start-up looks for it
// itself.
[[nodiscard]] std::vector<std::string> CommandWords();

// The two boxes that list the words.
void ShowCommandHelp();

}  // namespace kestrun
