// What the start-up decides once for the whole process.
#pragma once

namespace kestrun {

// Set by a start with the word -safe alone: the main window then loads as little as it can.
[[nodiscard]] bool SafeMode();
void SetSafeMode(bool on);

}  // namespace kestrun
