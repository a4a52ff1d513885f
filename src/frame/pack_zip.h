// The zip half of the batch command.
#pragma once

#include <string>

#include "formats/pff/cls_pff.h"

namespace kestrun {

// Unpacks every member of the zip into the folder, which is left behind, and stages each file under its own base name.
void PackZipMembers(ClsPFF& archive, const std::string& zip_path, const std::string& folder);

}  // namespace kestrun
