// Whether a style is in use: the one flag that all windows ask for.
#pragma once

namespace kestrun {

[[nodiscard]] bool IsStyleActive();
void SetStyleActive(bool active);

}  // namespace kestrun
