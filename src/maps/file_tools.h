// Small routines around files and lists that the map windows share.
#pragma once

#include <cstdint>
#include <string>

#include "forms/form.h"
#include "forms/list_box.h"
#include "forms/picture.h"

namespace kestrun {

// The CRC-32 of the file's bytes and one zero byte behind them: equal for equal files, and never to be compared with a
// checksum from elsewhere. What the file layer raises reaches the caller.
[[nodiscard]] int32_t FileChecksum(const std::string& Path);

// Deletes a folder with all it holds. True when it was there and has gone, all of it. A link inside it or in its place
// goes; what it leads to stays. The root of a drive or of a share is never deleted.
bool DeleteFolder(const std::string& Path);

// The shell's icon for a file type, by its extension without a dot. Size: 0 large, 1 small. Null for an empty
// extension, and after a failure, which is shown.
[[nodiscard]] Ref<Picture> GetIcon(const std::string& Extension, int32_t Size);

// Lets the list scroll sideways when an entry is wider than it.
void FitListWidth(const Form& Form, ListBox& List);

}  // namespace kestrun
