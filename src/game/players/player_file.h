// The players' names in the game's save file: five fields at fixed places (docs/formats/player_file.md). All other
// bytes are the game's and stay as they are.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "base/bytes.h"

namespace kestrun {

inline constexpr const char* kPlayerFileName = "dflwplyr.sav";
inline constexpr size_t kPlayerCount = 5;
// Longest name, in characters of a single byte each.
inline constexpr size_t kPlayerNameLength = 15;

using PlayerNames = std::array<std::string, kPlayerCount>;

// Each name up to its first zero byte. It is not cut to 15 characters here: a file written by something else may hold a
// longer one. What lies behind the end of the bytes is empty.
[[nodiscard]] PlayerNames ReadPlayerNames(ByteView file);
// The bytes that the file has when the names have been written into it.
[[nodiscard]] Bytes WithPlayerNames(Bytes file, const PlayerNames& names);

[[nodiscard]] PlayerNames ReadPlayerFile(const std::string& path);
// Writes the names into the file, one after the other, each with its end in one step, and nothing else; makes the file
// when it is missing. After a failure the names before it are written.
void WritePlayerFile(const std::string& path, const PlayerNames& names);

}  // namespace kestrun
