#include "desktop/win32/win32_platform.h"

namespace kestrun {

Win32Platform::Win32Platform() { InstallCodePage(&code_page_); }

Win32Platform::~Win32Platform() { InstallCodePage(nullptr); }

}  // namespace kestrun
