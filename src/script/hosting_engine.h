// The engine of a style of any language: VBScript by the built-in one, others by those that the machine has installed.
#pragma once

#include <memory>

#include "script/script_engine.h"

namespace kestrun {

[[nodiscard]] std::unique_ptr<ScriptEngine> MakeHostingEngine();

}  // namespace kestrun
