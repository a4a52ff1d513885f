// Shortcuts: files that stand for another one.
#pragma once

#include <string>

namespace kestrun {

// What a shortcut (.lnk) points at, or the web address of an internet shortcut (.url), as the system's own file
// dialogue follows them. Any other path, and a shortcut that leads nowhere, comes back as it is.
[[nodiscard]] std::string FollowLink(const std::string& path);

}  // namespace kestrun
