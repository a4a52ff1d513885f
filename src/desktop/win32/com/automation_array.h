// Arrays on their way between the program and automation. Both keep the element of the first index' next value beside
// it in memory; the program's lower bounds are always 0.
#pragma once

#include "base/variant.h"
#include "desktop/win32/system/windows_api.h"
// The header below needs the one above.
#include <oleauto.h>

namespace kestrun {

// A copy of the array, which may be null: that is one without dimensions. `type` is that of its elements. Error 9 for
// more dimensions than arrays have here.
[[nodiscard]] Variant FromAutomationArray(SAFEARRAY* array, VARTYPE type);

// A new array of variants. An array without dimensions becomes one without elements. Error 7 when there is no memory.
[[nodiscard]] SAFEARRAY* NewAutomationArray(const ArrayBody& array);

}  // namespace kestrun
