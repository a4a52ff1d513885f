// Whether the user may make files in a folder, found out without making one.
#pragma once

#include <string>

#include "platform/files.h"

namespace kestrun {

// False only where the system refuses it for want of rights: true for a folder that is not there. Takes any path of
// these files, and may be called from any thread. Never raises.
[[nodiscard]] bool MayMakeFilesIn(FileSystem& files, const std::string& folder);

// Asks the system about a path as the system writes it. Null for a system that has no such rights.
// Gives the one that was installed before.
using FolderRightsProbe = bool (*)(const std::string& native_path);
FolderRightsProbe InstallFolderRightsProbe(FolderRightsProbe probe);

}  // namespace kestrun
