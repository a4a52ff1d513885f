// Every name that scripts of one engine use, numbered once, so that the compiler and the machine compare numbers.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/live_bytes.h"

namespace kestrun::vbs {

using NameId = uint32_t;
inline constexpr NameId kNoName = UINT32_MAX;

// Lower-cased form by which names are equal.
[[nodiscard]] std::string FoldName(std::string_view name);

class NameTable {
 public:
  // The number of a name in any case; a new one for a new name.
  NameId Intern(std::string_view name);
  // kNoName when no script has used the name yet.
  [[nodiscard]] NameId Find(std::string_view name) const;
  // As it was first written.
  [[nodiscard]] const std::string& Spelling(NameId name) const { return spellings_[name]; }
  [[nodiscard]] size_t size() const { return spellings_.size(); }

 private:
  std::unordered_map<std::string_view, NameId> numbers_;  // keys live in folded_
  std::deque<std::string> folded_;
  std::deque<std::string> spellings_;
  std::string scratch_;
  LiveBytes bytes_;
};

}  // namespace kestrun::vbs
