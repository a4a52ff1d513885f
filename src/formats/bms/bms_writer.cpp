#include "formats/bms/bms_writer.h"

#include <algorithm>
#include <string_view>

#include "base/code_page.h"
#include "formats/bms/mission_layout.h"

namespace kestrun {
namespace {

void StoreText(Bytes& mission, size_t offset, std::string_view text) {
  const std::string bytes = EncodeText(text);
  std::copy_n(bytes.begin(), std::min(bytes.size(), bms::kTextBytes),
              mission.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace

Bytes WriteMission(const MissionFields& fields) {
  Bytes mission(bms::kKnownBytes);
  std::copy(bms::kSignature.begin(), bms::kSignature.end(), mission.begin());
  mission[bms::kSignature.size()] = 1;
  StoreText(mission, bms::kMissionName, fields.mission_name);
  StoreText(mission, bms::kDesigner, fields.designer);
  StoreText(mission, bms::kTerrain, fields.terrain);
  mission[bms::kItemColors] = fields.item_colors;
  StoreU16(mission, bms::kGameTypes, fields.game_types);
  StoreU16(mission, bms::kWaterLevel, fields.water_level);
  StoreU16(mission, bms::kFogLevel, static_cast<uint16_t>(fields.fog_level));
  std::copy(fields.fog_color.begin(), fields.fog_color.end(), mission.begin() + bms::kFogColor);
  StoreText(mission, bms::kSun, fields.sun);
  return mission;
}

}  // namespace kestrun
