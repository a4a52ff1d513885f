#include "desktop/win32/win32_platform.h"

#include "desktop/win32/system/wide_text.h"
#include "forms/script_system.h"
#include "platform/folder_rights.h"

namespace kestrun {
namespace {

// Opens the folder for what making a file takes.
bool MayAddFile(const std::string& folder) {
  const FileHandle opened(CreateFileW(ToWide(folder).c_str(), FILE_ADD_FILE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  return opened.get() != INVALID_HANDLE_VALUE || GetLastError() != ERROR_ACCESS_DENIED;
}

}  // namespace

Win32Platform::Win32Platform() {
  InstallBackgroundWork(&background_);
  InstallFolderRightsProbe(&MayAddFile);
  InstallCodePage(&code_page_);
  InstallWindowEffects(&effects_);
  InstallScriptSystem(ScriptSystem{.clipboard_picture = &Win32Clipboard::Picture,
                                   .set_clipboard_picture = &Win32Clipboard::SetPicture,
                                   .clear_clipboard = &Win32Clipboard::Clear,
                                   .instance = Win32Program::InstanceNumber()});
}

Win32Platform::~Win32Platform() {
  InstallBackgroundWork(nullptr);
  InstallFolderRightsProbe(nullptr);
  InstallScriptSystem(std::nullopt);
  InstallWindowEffects(nullptr);
  InstallCodePage(nullptr);
}

}  // namespace kestrun
