#include "formats/bms/bms_writer.h"

#include <algorithm>
#include <string_view>

#include "base/code_page.h"

namespace kestrun {
namespace {

constexpr size_t kMissionBytes = 256;
constexpr size_t kTextBytes = 32;

void StoreText(Bytes& mission, size_t offset, std::string_view text) {
  const std::string bytes = EncodeText(text);
  std::copy_n(bytes.begin(), std::min(bytes.size(), kTextBytes), mission.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace

Bytes WriteMission(const MissionFields& fields) {
  Bytes mission(kMissionBytes);
  StoreText(mission, 0, "BMS\x01");
  StoreText(mission, 4, fields.mission_name);
  StoreText(mission, 36, fields.designer);
  StoreText(mission, 68, fields.terrain);
  mission[116] = fields.item_colors;
  StoreU16(mission, 122, fields.game_types);
  StoreU16(mission, 136, fields.water_level);
  StoreU16(mission, 140, static_cast<uint16_t>(fields.fog_level));
  std::copy(fields.fog_color.begin(), fields.fog_color.end(), mission.begin() + 144);
  StoreText(mission, 224, fields.sun);
  return mission;
}

}  // namespace kestrun
