// One value of automation where it stands: in a variant, behind a reference or in an array.
#pragma once

#include "base/variant.h"
#include "desktop/win32/system/windows_api.h"
// The header below needs the one above.
#include <oleauto.h>

namespace kestrun {

// A copy of the value of that type. Error 458 for a type that the program does not know.
[[nodiscard]] Variant FromAutomationElement(VARTYPE type, const void* place);
// In bytes. Error 458 likewise.
[[nodiscard]] size_t SizeOfElement(VARTYPE type);
// Raises what the failure of a conversion means: error 6 or 13.
void CheckConversion(HRESULT result);

}  // namespace kestrun
