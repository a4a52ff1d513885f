// Bringing an archive back whose save was cut short.
#pragma once

#include <optional>
#include <string>

#include "base/bytes.h"

namespace kestrun::pff {

// The journal of an archive, beside the archive's own file whatever links lead to it.
[[nodiscard]] std::string JournalPath(const std::string& archive_path);

// When a journal stands beside the archive, and the process that wrote it is gone: puts the archive back to what it was
// before that save, or keeps the save when all of it had been written, and removes the journal. A journal that does not
// fit the archive, or is none, is set aside under another name, and the archive is not touched. Gives one sentence for
// the user about what was done, or nothing when there was nothing to do. Waits for the archive's turn where a save
// still runs; raises error 70 when it does not end.
[[nodiscard]] std::optional<std::string> RecoverArchive(const std::string& archive_path);

// Puts the old bytes back without asking what is there, and removes the journal: for a save that failed in this
// process. The caller holds the turn.
void RollBack(const std::string& archive_path);

// Notes that a save of this process has left its journal's file for the next one.
void NoteResting(const std::string& archive_path);
// Removes the files that were noted, and those of their turns: called before the process ends. What another process
// uses stays for that one.
void RemoveRestingJournals();

}  // namespace kestrun::pff
