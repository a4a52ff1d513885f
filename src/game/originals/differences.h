// What of a game differs from its originals, and putting them back.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "game/originals/ledger.h"

namespace kestrun::originals {

enum class Present {
  kOriginal,  // what was there first
  kOurs,      // what the program put there last
  kKept,      // a further version, which the ledger keeps
  kForeign,   // what another program put there
  kGone,      // nothing any more
  kUnknown,   // it, or its archive, cannot be read
};

struct Difference {
  Place place;
  KeptVersion original;
  std::vector<KeptVersion> further;  // contents of other programs that are kept, the oldest first
  Present present = Present::kOurs;
  uint64_t length = 0;         // of what is there now
  std::string source;          // where the program had it from; empty when it is not the program's
  std::string mission;         // name of the mission that is there now; empty when it is none
  std::string since;           // when the program put it there; empty when it is not the program's
  std::string fault;           // of kUnknown: why it cannot be read
  std::string present_sha256;  // empty when nothing is there

  // A loose file or an entry that was not there before the program made it: restoring removes it.
  [[nodiscard]] bool IsAddition() const { return original.IsAbsence(); }
  [[nodiscard]] bool IsThere(const KeptVersion& version) const {
    return present != Present::kUnknown && present_sha256 == version.sha256;
  }
};

// Folders of which the ledger knows something, as they are written, in the order of their names.
[[nodiscard]] std::vector<std::string> LedgerFolders();

// All that differs from the originals in a folder. Of a folder that the ledger does not know, what it knows of another
// one that the game was moved or copied from.
[[nodiscard]] std::vector<Difference> FindDifferences(const std::string& folder);
// The same, and places that hold their original while further versions of them are kept.
[[nodiscard]] std::vector<Difference> FindRestorable(const std::string& folder);
// The mission that a kept content is; empty when it is none or cannot be read.
[[nodiscard]] std::string MissionOf(const KeptVersion& version);

// Puts a version back, the original or a further one, and compares what is there then with it; where nothing was, what
// is there is removed: a loose file goes, an entry is marked as deleted. `keep_present`: what is there now is kept
// first, as another program put it there. Raises when any of it fails, and when something else is there than the
// difference says; the game is not touched before the kept content was read and found whole.
void RestoreVersion(const Difference& difference, const KeptVersion& version, bool keep_present);
void RestoreOriginal(const Difference& difference, bool keep_present);

}  // namespace kestrun::originals
