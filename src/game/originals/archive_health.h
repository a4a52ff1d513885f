// Whether a game archive is whole: its table readable, and each live entry in a place of its own inside the file.
#pragma once

#include <optional>
#include <string>

namespace kestrun::originals {

// The first fault as a sentence that names the archive; nothing for a sound archive and for one that is not there or
// cannot be opened.
[[nodiscard]] std::optional<std::string> FindArchiveFault(const std::string& path);

// The fault and what the ledger keeps of that archive, for the user.
[[nodiscard]] std::string TellArchiveFault(const std::string& fault, const std::string& path);

// Looks at the archive of the game folder that is set, if one is, and tells a fault in a box, once in the life of the
// process for each archive. Never raises.
void CheckKnownGameArchive();

// The game folder that is set, without a question to the user; empty when none is known.
[[nodiscard]] std::string KnownGameFolder();

}  // namespace kestrun::originals
