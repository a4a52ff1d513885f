// A user without rights in any folder, on every system: for as long as it lives.
#pragma once

#include <string>

#include "platform/folder_rights.h"

namespace kestrun {

class ClosedFolders {
 public:
  ClosedFolders() : before_(InstallFolderRightsProbe([](const std::string&) { return false; })) {}
  ~ClosedFolders() { InstallFolderRightsProbe(before_); }
  ClosedFolders(const ClosedFolders&) = delete;
  ClosedFolders& operator=(const ClosedFolders&) = delete;

 private:
  FolderRightsProbe before_;
};

}  // namespace kestrun
