// The script engines that Windows has installed ("Active Scripting"), behind platform/foreign_scripts.h.
#pragma once

#include <memory>
#include <string_view>

#include "platform/foreign_scripts.h"

namespace kestrun {

// An engine for a language by the name that it is registered under. Error 429 with a sentence when no script engine has
// that name, or when it does not promise to keep scripts from what is unsafe.
[[nodiscard]] std::unique_ptr<ForeignScript> OpenActiveScript(std::string_view language);

}  // namespace kestrun
