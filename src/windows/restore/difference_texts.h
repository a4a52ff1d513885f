// What differs from an original, in the words of the restore window.
#pragma once

#include <string>
#include <vector>

#include "game/originals/differences.h"

namespace kestrun {

// One line: name, archive, and what is there now.
[[nodiscard]] std::string RowText(const originals::Difference& difference);
// File and entry.
[[nodiscard]] std::string PlaceText(const originals::Difference& difference);
// The map and its mission, or that another program put it there, or why it cannot be told.
[[nodiscard]] std::string PresentText(const originals::Difference& difference);
[[nodiscard]] std::string SinceText(const originals::Difference& difference);
[[nodiscard]] std::string SizeText(const originals::Difference& difference);
// What can be put back: the original, and behind it the further versions.
[[nodiscard]] std::string OriginalText(const originals::Difference& difference);
[[nodiscard]] std::string FurtherText(const originals::KeptVersion& version);
// How many places differ, and how many more have further versions.
[[nodiscard]] std::string CountText(const std::vector<originals::Difference>& differences);
// What a command has put back and removed.
struct Restored {
  int originals = 0;
  int further = 0;
  int removed = 0;
  [[nodiscard]] int& Of(const originals::Difference& difference, const originals::KeptVersion& version);
};
// "1 original is back."; a count of 0 is not mentioned.
[[nodiscard]] std::string RestoredText(const Restored& restored);

// The names in quotes, the first of them when they are many.
[[nodiscard]] std::string QuotedNames(const std::vector<originals::Difference>& differences);

// The same as the start of a sentence that tells loose files from entries: both may have one name.
[[nodiscard]] std::string AdditionsText(const std::vector<originals::Difference>& differences);

}  // namespace kestrun
