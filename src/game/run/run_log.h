// autohost.log in the program's folder: what a run did, for whoever reads it the next morning.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "game/run/run_window.h"

namespace kestrun {

// The file never grows beyond this; before it would, the older half of it goes.
inline constexpr uint64_t kMostRunLogBytes = uint64_t{1} << 20;

// The text without line ends and tabs, which are blanks then.
[[nodiscard]] std::string InOneLine(std::string_view text);

// Appends a line in UTF-8, its fields parted by tabs: time, row counted from 1, result, map, reason. Raises what the
// file raises.
void AppendToRunLog(const RunEvent& event);

// The event in words: "inserted", "failed", "started", "stopped".
[[nodiscard]] const char* RunResultText(RunEvent::Kind kind);

}  // namespace kestrun
