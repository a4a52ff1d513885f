// Putting a map into the game: the one routine behind the windows and the auto host.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// Modes of PutMap; any other does nothing and gives false.
inline constexpr int32_t kPutInArchive = 0;   // into the archive and beside it
inline constexpr int32_t kPutBesideOnly = 1;  // only the loose file, for a game that is running

// Puts the local file MapPath into the game under Name. In mode 0 a Name of more than 16 bytes is cut, in the caller's
// variable too. Warn: questions about missing files and error boxes may appear; without it the routine is silent, but
// for the overwrite question, which does not depend on it. Gives whether the map is in. Nothing is rolled back: when
// the copy beside the archive fails, the archive keeps the new entry.
bool PutMap(const std::string& MapPath, std::string& Name, int32_t Mode, bool Warn);

// The same without a word, but for the overwrite question. Gives why the map could not be put, and nothing once it is
// in.
[[nodiscard]] std::string PutMapSilently(const std::string& MapPath, std::string& Name, int32_t Mode);

// Asks whether the archive's entry may be replaced, unless WARNOVERWRITE is off. True for go on.
bool ConfirmOverwrite(const std::string& ArchivePath, const std::string& Name);

}  // namespace kestrun
