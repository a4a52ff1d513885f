#include "program/folders.h"

#include <utility>

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

std::string WithBackslash(std::string folder) {
  if (!folder.empty() && folder.back() != '\\') folder += '\\';
  return folder;
}

std::string PlatformFolder(int32_t id) {
  Shell& shell = platform().shell();
  switch (id) {
    case folder::kGivenPath: return {};
    case folder::kTemporary: return shell.TemporaryFolder();
    case folder::kWindows: return shell.WindowsFolder();
    case folder::kSystem: return shell.SystemFolder();
    default: return shell.ShellFolder(id);
  }
}

}  // namespace

std::string SpecialFolder(int32_t Id) {
  std::string path;
  Attempt([&] { path = PlatformFolder(Id); });
  return WithBackslash(path.substr(0, path.find('\0')));
}

std::string BrowseForFolder(const std::string& Prompt, int32_t Root, const std::string& StartPath, bool, bool) {
  const bool opens_at_path = Root >= folder::kGivenPath && Root <= folder::kSystem;
  const std::string start = !opens_at_path               ? std::string()
                            : Root == folder::kGivenPath ? StartPath
                                                         : SpecialFolder(Root);
  const int root = opens_at_path ? folder::kMyComputer : Root;
  return WithBackslash(platform().dialogs().PickFolder(Prompt, root, start).value_or(std::string()));
}

}  // namespace kestrun
