// Loading an archive that is to be changed.
#pragma once

#include <string>

#include "formats/pff/cls_pff.h"

namespace kestrun {

// LoadPff, whose result is ignored as ever: a missing or broken archive shows when something is packed. Only an archive
// that is there and cannot be opened is raised at once, as a FileError that says what is in the way.
void LoadArchive(ClsPFF& archive, const std::string& path);

}  // namespace kestrun
