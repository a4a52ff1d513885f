// A style that keeps the main window from coming up must not lock its user out: starts that end too early are counted.
#pragma once

namespace kestrun {

// Whether this start may load a style. Counts the start as one that has not got through yet; after two of these in a
// row the user is asked. The answer holds for the whole process.
[[nodiscard]] bool MayStartWithStyle();
// The start has got through.
void NoteStartWithStyle();

}  // namespace kestrun
