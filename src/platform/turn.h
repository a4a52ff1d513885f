// Taking turns between processes at one file or folder: who changes an archive, or uses a temporary folder with a fixed
// name, holds its turn meanwhile.
#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

namespace kestrun {

// How long the second one waits before it gives up.
inline constexpr uint32_t kTurnWaitMs = 5000;

// Holds the turn at `path` until the last copy of the result is gone. Within this process the turn is shared: what asks
// again for a path whose turn is held gets it at once. Another process is waited for; when it still has the turn after
// 5 s, error 70 names it: "'C:\game\dflw.pff' is in use by kestrun (process 4711). Try again when it has finished."
// Raises what the file layer raises when the turn's file, `path` + ".lock", cannot be made.
[[nodiscard]] std::shared_ptr<FileLock> TakeTurn(const std::string& path);

}  // namespace kestrun
