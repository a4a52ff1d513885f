// The command words: what `kestrun.exe -word` and `kestrun://-word` do.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// Results of ProcessCommand.
inline constexpr int kCommandIsFileName = 0;   // no option: the text names a file or an address
inline constexpr int kCommandCarriedOut = 1;   // carried out: the splash window closes and no main window opens
inline constexpr int kCommandStyleLoaded = 2;  // a style was given: start-up goes on to the main window

// Carries out one command text. A failure is reported and gives the result so far, 0 when the failing
// branch had not finished.
int ProcessCommand(const std::string& command);

// What the user is asked about before a link with that text is followed: a sentence, empty where it only opens a
// window.
[[nodiscard]] std::string_view LinkWarning(const std::string& command);

// The two boxes that list the words.
void ShowCommandHelp();

}  // namespace kestrun
