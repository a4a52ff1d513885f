// What a place of the game holds now.
#pragma once

#include <optional>

#include "formats/pff/cls_pff.h"
#include "game/originals/ledger.h"

namespace kestrun::originals {

// The live entry of that name in a loaded archive; nothing when there is none, or when it is marked as deleted. Raises
// when its data cannot be read.
[[nodiscard]] std::optional<Content> ReadEntry(ClsPFF& archive, const std::string& name);
// Nothing when there is no such file.
[[nodiscard]] std::optional<Content> ReadLooseFile(const std::string& path);
// The archive at the path; raises what keeps it from being read.
void LoadArchive(ClsPFF& archive, const std::string& path);
// The place's content: nothing when the entry or file is not there. Raises when it, or its archive, cannot be read.
[[nodiscard]] std::optional<Content> ReadPlace(const Place& place);

}  // namespace kestrun::originals
