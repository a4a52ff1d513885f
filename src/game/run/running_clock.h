// The limits of the running clock's two fields, which hold for every change of their text.
#pragma once

#include <string>

namespace kestrun {

// 60 and more become 59; below 0 becomes 0. A text that is no number stays.
[[nodiscard]] std::string LimitedSeconds(const std::string& text);
// 241 and more become 59, so that 240 minutes are the most; below 0 becomes 0.
[[nodiscard]] std::string LimitedMinutes(const std::string& text);

}  // namespace kestrun
