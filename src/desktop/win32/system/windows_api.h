// The Windows headers, in the one order that works, for this folder only.
#pragma once

#include <windows.h>
// The headers below need the one above.
#include <commctrl.h>
#include <commdlg.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <tlhelp32.h>
#include <urlmon.h>
