// Shortcuts: files that stand for another one.
#pragma once

#include <string>

#include "platform/shell.h"

namespace kestrun {

// What a shortcut (.lnk) points at, or the web address of an internet shortcut (.url), as the system's own file
// dialogue follows them. Any other path, and a shortcut that leads nowhere, comes back as it is.
[[nodiscard]] std::string FollowLink(const std::string& path);

// Writes a shortcut (.lnk). False when the system refuses.
[[nodiscard]] bool WriteShellLink(const std::string& path, const Shortcut& shortcut);

}  // namespace kestrun
