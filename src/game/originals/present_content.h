// What a place of the game holds now.
#pragma once

#include <optional>

#include "formats/pff/cls_pff.h"
#include "game/originals/ledger.h"

namespace kestrun::originals {

// An entry of a loaded archive by its number. Raises when its data cannot be read.
[[nodiscard]] Content ReadEntry(ClsPFF& archive, int32_t number);
// Nothing when there is no such file.
[[nodiscard]] std::optional<Content> ReadLooseFile(const std::string& path);
// The archive at the path; raises what keeps it from being read.
void LoadArchive(ClsPFF& archive, const std::string& path);
// The place's content: nothing when the entry or file is not there. Raises when it, or its archive, cannot be read.
[[nodiscard]] std::optional<Content> ReadPlace(const Place& place);

}  // namespace kestrun::originals
