// What a text box's Tag says of the entry whose text is in the box: its name alone while the text is changed, and with
// blanks behind it while it is as it was written. An empty tag says that no entry is open.
#pragma once

#include <string>

#include "base/text.h"

namespace kestrun {

// Longest name of an entry, in characters.
inline constexpr size_t kMostEntryName = 16;
inline constexpr size_t kCleanBlanks = 20;

[[nodiscard]] inline std::string CleanTag(const std::string& name) { return name + std::string(kCleanBlanks, ' '); }
[[nodiscard]] inline std::string DirtyTag(const std::string& tag) { return std::string(TrimBlanks(tag)); }
[[nodiscard]] inline bool IsDirtyTag(const std::string& tag) {
  return !tag.empty() && CodePointCount(tag) <= kMostEntryName;
}

}  // namespace kestrun
