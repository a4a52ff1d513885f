// Members on disk: folders made as needed, files written and dated.
#pragma once

#include <string>
#include <string_view>

#include "base/bytes.h"

namespace kestrun::zip {

// Makes a folder with all folders above it that are missing. False when one cannot be made, after the box "Error While
// Attempting to Create Directories on Destination Drive." with the title "SETUP"; false without a box when the path's
// drive is not there.
bool CreateFolders(std::string_view path);

// Makes the folder of a directory member below the destination. A name that leads outside shows "error writing file".
void CreateMemberFolder(const std::string& destination, std::string_view name);

// Writes a file below the destination, in the place of one that is there, and gives it the DOS date and time as local
// time of its creation and last write, unless both are 0 or there is no such moment; its last access is today. A write
// failure, and a name that leads outside the destination, show "error writing file"; a path that is longer than paths
// may be raises what the file layer says of it.
void WriteMember(const std::string& destination, std::string_view name, ByteView bytes, uint16_t date, uint16_t time);

}  // namespace kestrun::zip
