// Word wrap by a measure that the caller gives.
#pragma once

#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace kestrun {

// True for everything but A to Z, a to z and "_": a line may end in front of it. Digits too.
[[nodiscard]] bool IsDelimiter(char32_t character);

// Cuts a text into lines that are no wider than `width` by the measure, in front of the last delimiter that fits, or
// inside a word where there is none. What is left behind the last cut goes onto the last line. `strip` takes carriage
// returns with line feeds out first. No more lines than `most` are made; the rest is then left out.
[[nodiscard]] std::vector<std::string> SplitIntoLines(std::string_view text, int width, bool strip,
                                                      const std::function<int(std::string_view)>& measure,
                                                      size_t most = std::numeric_limits<size_t>::max());

}  // namespace kestrun
