// The three files that the game's map editor needs and that the program can carry.
#pragma once

#include <string>

namespace kestrun {

// Asks for each of the files that the folder lacks, and writes it there on Yes. False after a failure, which is shown;
// a No is none.
bool ExtractEditorFiles(const std::string& Folder);

}  // namespace kestrun
