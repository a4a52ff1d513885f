// The pages of docs/ that are written from the member tables: what scripts and add-ins find by name.
#pragma once

#include <string>

namespace kestrun {

// All registered windows with their controls and public procedures, then each class with its members. Needs a platform;
// the windows are made, not loaded.
[[nodiscard]] std::string ScriptObjectsPage();

// The end of docs/add-ins.md: the auto host's window, its controls and their classes. Needs the same.
[[nodiscard]] std::string AddInSurface();

}  // namespace kestrun
