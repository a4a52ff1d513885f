// The selected part of a text: start and length in UTF-16 units, as text controls count them.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// Empty where start and length lie outside of the text.
[[nodiscard]] std::string SelectedPart(std::string_view text, int start, int length);

struct ReplacedText {
  std::string text;
  int end;  // of the replacement, in UTF-16 units
};
[[nodiscard]] ReplacedText ReplaceSelection(std::string_view text, int start, int length, std::string_view replacement);

}  // namespace kestrun
