// The page of docs/script_objects.md: what scripts and add-ins find by name, written from the member tables.
#pragma once

#include <string>

namespace kestrun {

// All registered windows with their controls and public procedures, then each class with its members. Needs a platform;
// the windows are made, not loaded.
[[nodiscard]] std::string ScriptObjectsPage();

}  // namespace kestrun
