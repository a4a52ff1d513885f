// The batch command that puts originals back.
#pragma once

#include <string>

namespace kestrun::originals {

// -restore "archive" ["name"]
// Puts back the entry of that name, or all entries of the archive that differ from their originals; the path of a loose
// file instead of an archive's puts that file back. What was not there before is removed when it is named; without a
// name such entries stay, and the log says so. What another program put there is kept first. For each, the line
// `originals --> archive:name ~>OK` goes to kestrun.log, with the failure in the place of "OK" when there was one;
// failures are reported by ShowError with the context "restore ". A text with fewer than two quotes ends silently.
void RestoreFromLedger(const std::string& command);

}  // namespace kestrun::originals
