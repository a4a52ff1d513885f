// Numbers of members for automation. The same name has the same number in all objects for the life of the process, so
// that a caller may keep it: the controls of a window come and go, and their places among its members with them.
#pragma once

#include <string>
#include <string_view>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// Names compare without regard to case.
[[nodiscard]] DISPID NumberOfMember(std::string_view name);
// Null for a number that was never given out.
[[nodiscard]] const std::string* MemberOfNumber(DISPID number);

}  // namespace kestrun
