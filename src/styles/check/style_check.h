// The check of a style: every window of the program is made, loaded and given the style where nobody sees it, and
// compared with what it is without. Nothing of it reaches the user, the settings, the files or the style in use.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "styles/check/style_fault.h"

namespace kestrun {

struct StyleCheckLimits {
  // Only these; all that take a style where it is empty.
  std::vector<std::string> windows;
  // How long one call into the scripts may take; a style that takes longer is not looked at any further.
  int64_t script_ms = kScriptTimeoutMs;
  // And all of it: the windows behind are left out then.
  int64_t whole_ms = 60000;
};

// What is wrong with the style, in the order of the file, its modules, and the windows by their names. Raises what the
// file layer raises when the file cannot be read.
[[nodiscard]] std::vector<StyleFault> CheckStyle(const std::string& file, const StyleCheckLimits& limits = {});

}  // namespace kestrun
