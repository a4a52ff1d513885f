#include "platform/folder_rights.h"

#include <atomic>

#include "base/runtime_error.h"

namespace kestrun {
namespace {

// Read by the background while the program ends.
std::atomic<FolderRightsProbe>& Installed() {
  static std::atomic<FolderRightsProbe> probe = nullptr;
  return probe;
}

}  // namespace

FolderRightsProbe InstallFolderRightsProbe(FolderRightsProbe probe) { return Installed().exchange(probe); }

bool MayMakeFilesIn(FileSystem& files, const std::string& folder) {
  const FolderRightsProbe probe = Installed();
  if (!probe) return true;
  bool may = true;
  Attempt([&] { may = probe(files.TruePath(folder)); });
  return may;
}

}  // namespace kestrun
