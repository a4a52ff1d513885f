#include "desktop/win32/win32_platform.h"

#include "forms/script_system.h"

namespace kestrun {

Win32Platform::Win32Platform() {
  InstallCodePage(&code_page_);
  InstallWindowEffects(&effects_);
  InstallScriptSystem(ScriptSystem{.clipboard_picture = &Win32Clipboard::Picture,
                                   .set_clipboard_picture = &Win32Clipboard::SetPicture,
                                   .clear_clipboard = &Win32Clipboard::Clear,
                                   .instance = Win32Program::InstanceNumber()});
}

Win32Platform::~Win32Platform() {
  InstallScriptSystem(std::nullopt);
  InstallWindowEffects(nullptr);
  InstallCodePage(nullptr);
}

}  // namespace kestrun
