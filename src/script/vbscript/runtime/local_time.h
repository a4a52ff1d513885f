// The local time as scripts see it.
#pragma once

namespace kestrun::vbs {

// Days since 30 December 1899: the platform's clock, or the system's for scripts that run without a platform.
[[nodiscard]] double LocalNow();

}  // namespace kestrun::vbs
