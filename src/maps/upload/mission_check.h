// The name under which a map goes to the Mapping Center, and what its zip says about it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "formats/bms/mission_reader.h"

namespace kestrun {

// One line for the uploader's log.
using UploadLog = std::function<void(const std::string& line)>;

// True when the file's name has the mission's in it, in any case. "?" and "*" of a mission's name, which no file's name
// can have, stand for anything. A mission without a name is in none.
[[nodiscard]] bool FileNamesMission(const std::string& file_name, const std::string& mission);

// The name as the service takes it: without its signs, and at most 32 characters of it.
[[nodiscard]] std::string ServiceMissionName(const std::string& name);

// Reads a mission that was unpacked; nothing when it cannot be read.
using ReadMission = std::function<std::optional<UploadInfo>(const std::string& path)>;

// The first mission of the zip that can be read, unpacked into the folder. What cannot be read is logged; nothing when
// no member can. Raises what the zip reader raises.
[[nodiscard]] std::optional<UploadInfo> FindMission(const std::string& zip, const std::string& folder,
                                                    const ReadMission& read, const UploadLog& log);

}  // namespace kestrun
