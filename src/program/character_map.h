// The system's table of characters, for texts that hold some that the keyboard has not.
#pragma once

namespace kestrun {

// Starts it and does not wait for it. Error 53 when the system has none.
void StartCharacterMap();

}  // namespace kestrun
