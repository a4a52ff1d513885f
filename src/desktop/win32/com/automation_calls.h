// The system's automation library, loaded at its first use.
#pragma once

#include "desktop/win32/system/late_call.h"
// The header below needs the one above.
#include <oleauto.h>

// AUTOMATION_CALL(VariantClear)(&value)
#define AUTOMATION_CALL(function) KESTRUN_LATE(L"oleaut32.dll", function)
