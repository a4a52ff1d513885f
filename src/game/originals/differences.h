// What of a game differs from its originals, and putting them back.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "game/originals/ledger.h"

namespace kestrun::originals {

enum class Present {
  kOurs,     // what the program put there last
  kForeign,  // what another program put there
  kGone,     // nothing any more
  kUnknown,  // it, or its archive, cannot be read
};

struct Difference {
  Place place;
  KeptVersion original;
  Present present = Present::kOurs;
  uint64_t length = 0;         // of what is there now
  std::string source;          // where the program had it from; empty when it is not the program's
  std::string mission;         // name of the mission that is there now; empty when it is none
  std::string since;           // when the program put it there; empty when it is not the program's
  std::string fault;           // of kUnknown: why it cannot be read
  std::string present_sha256;  // empty when nothing is there

  // A loose file that was not there before the program made it: restoring removes it.
  [[nodiscard]] bool IsAddition() const { return original.IsAbsence(); }
};

// Folders of which the ledger knows something, as they are written, in the order of their names.
[[nodiscard]] std::vector<std::string> LedgerFolders();

// All that differs from the originals in a folder. Of a folder that the ledger does not know, what it knows of another
// one that the game was moved or copied from.
[[nodiscard]] std::vector<Difference> FindDifferences(const std::string& folder);

// Puts the original back and compares what is there then with it. `keep_present`: what is there now is kept first, as
// another program put it there. Raises when any of it fails, and when something else is there than the difference says;
// the game is not touched before the kept content was read and found whole.
void RestoreOriginal(const Difference& difference, bool keep_present);

}  // namespace kestrun::originals
