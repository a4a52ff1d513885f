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

// The names in quotes, the first of them when they are many.
[[nodiscard]] std::string QuotedNames(const std::vector<originals::Difference>& differences);

}  // namespace kestrun
