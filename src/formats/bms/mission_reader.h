// Reads the known fields of a mission (docs/formats/bms.md). Nothing here ever writes one.
//
// A file that is shorter than the fields is read as far as it goes. A file whose first three bytes are not "BMS" shows
// "This map is not a BMS file". What the file layer raises reaches the caller.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/bytes.h"

namespace kestrun {

// A mission as the user reads it. Fields that the file is too short for are empty.
struct MissionInfo {
  std::string mission_name;  // texts: up to the first NUL
  std::string designer;
  std::string terrain;
  std::string item_colors;
  std::string game_types;
  std::string water_level;
  std::string fog_level;
  std::string fog_color_text;         // blue, green and red as the file has them, joined with ", "
  std::optional<uint32_t> fog_color;  // 0x00BBGGRR
  std::string sun;
};

// The mission's name in the bytes of a mission, up to the first NUL and without blanks around it.
[[nodiscard]] std::string MissionNameIn(ByteView mission);

// Nothing when the file is missing, after "Can't find map on your computer!", or is no mission.
[[nodiscard]] std::optional<MissionInfo> ReadMissionInfo(const std::string& path);

// What goes with an upload. The name still has to be made valid for the service.
struct UploadInfo {
  std::string mission_name;  // without NULs, trimmed
  std::string designer;
  int32_t game_type = 0;  // 32 bits at the place of the mask: the two bytes behind it come with it
};

// Nothing when the file is no mission. Error 53 when it is missing.
[[nodiscard]] std::optional<UploadInfo> ReadUploadInfo(const std::string& path);

}  // namespace kestrun
