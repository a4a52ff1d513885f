// Which copy of the program is the computer's own, and its place in the Send To menu.
#pragma once

#include <string>

namespace kestrun {

// The full path of this copy's program file, and its name alone.
[[nodiscard]] std::string OwnPath();
[[nodiscard]] std::string OwnFile();

// Both stored values name this copy of the program.
[[nodiscard]] bool IsDefaultCopy();
void MakeDefaultCopy();
// At a start: notes this copy, unless one was made the default.
void NoteDefaultCopy();
// Whether any copy has been noted, by an earlier start.
[[nodiscard]] bool HasNotedCopy();
// Takes both stored values away.
void ForgetDefaultCopy();

// Whether this user was asked, by a version that can do it, if maps are to be opened with the program.
[[nodiscard]] bool HasAskedForMaps();
void NoteAskedForMaps();

// Full path of the link.
[[nodiscard]] std::string SendToShortcut();

}  // namespace kestrun
