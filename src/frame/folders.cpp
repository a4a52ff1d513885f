#include "frame/folders.h"

#include "platform/platform.h"

namespace kestrun {
namespace {

std::string WithSeparator(std::string folder) {
  folder = folder.substr(0, folder.find('\0'));
  if (!folder.empty() && folder.back() != '\\') folder += '\\';
  return folder;
}

std::string KnownFolder(int32_t id) {
  Shell& shell = platform().shell();
  switch (id) {
    case folder_id::kTemporary: return shell.TemporaryFolder();
    case folder_id::kWindows: return shell.WindowsFolder();
    case folder_id::kSystem: return shell.SystemFolder();
    default: return shell.ShellFolder(id);
  }
}

}  // namespace

std::string SpecialFolder(int32_t Id) {
  return Id == folder_id::kStartPath ? std::string() : WithSeparator(KnownFolder(Id));
}

std::string BrowseForFolder(const std::string& Prompt, int32_t Root, const std::string& StartPath) {
  const bool opens_on_path = Root >= folder_id::kStartPath && Root <= folder_id::kSystem;
  const std::string start = Root == folder_id::kStartPath ? StartPath : opens_on_path ? SpecialFolder(Root) : "";
  const auto picked = platform().dialogs().PickFolder(Prompt, opens_on_path ? folder_id::kMyComputer : Root, start);
  return picked ? WithSeparator(*picked) : std::string();
}

}  // namespace kestrun
