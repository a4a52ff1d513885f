// What search and replace make of the texts of a list.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// Without regard to case; every text contains the empty one.
[[nodiscard]] bool ContainsNoCase(std::string_view text, std::string_view wanted);
// All occurrences, from left to right; nothing is replaced for an empty `wanted`.
[[nodiscard]] std::string ReplaceAllNoCase(std::string_view text, std::string_view wanted,
                                           std::string_view replacement);

}  // namespace kestrun
