#include "formats/bms/mission_reader.h"

#include <algorithm>
#include <string_view>

#include "base/bytes.h"
#include "base/code_page.h"
#include "base/text.h"
#include "formats/bms/mission_layout.h"
#include "formats/bms/mission_texts.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// The known part of a mission, as far as the file goes.
class MissionStart {
 public:
  explicit MissionStart(const std::string& path) {
    const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
    bytes_.resize(bms::kKnownBytes);
    bytes_.resize(file->ReadAt(0, bytes_));
  }

  [[nodiscard]] bool IsMission() const { return StartsWith(AsChars(bytes_), bms::kSignature); }
  [[nodiscard]] bool Has(size_t offset, size_t bytes) const { return offset + bytes <= bytes_.size(); }
  [[nodiscard]] uint8_t U8(size_t offset) const { return bytes_[offset]; }
  [[nodiscard]] uint16_t U16(size_t offset) const { return LoadU16(bytes_, offset); }
  [[nodiscard]] std::string_view Text(size_t offset) const {
    const std::string_view all = AsChars(bytes_);
    return all.substr(std::min(offset, all.size()), bms::kTextBytes);
  }

 private:
  Bytes bytes_;
};

std::optional<MissionStart> OpenMission(const std::string& path) {
  MissionStart mission(path);
  if (mission.IsMission()) return mission;
  MsgBox("This map is not a BMS file");
  return std::nullopt;
}

std::string ShownText(std::string_view field) { return DecodeText(field.substr(0, field.find('\0'))); }

std::string CleanText(std::string_view field) {
  std::string bytes(field);
  std::erase(bytes, '\0');
  return DecodeText(TrimBlanks(bytes));
}

void ReadFog(const MissionStart& mission, MissionInfo& info) {
  if (mission.Has(bms::kFogLevel, 2)) {
    info.fog_level = std::to_string(static_cast<int16_t>(mission.U16(bms::kFogLevel)));
  }
  if (!mission.Has(bms::kFogColor, 3)) return;
  const uint32_t blue = mission.U8(bms::kFogColor);
  const uint32_t green = mission.U8(bms::kFogColor + 1);
  const uint32_t red = mission.U8(bms::kFogColor + 2);
  info.fog_color_text = std::to_string(blue) + ", " + std::to_string(green) + ", " + std::to_string(red);
  info.fog_color = (blue << 16) | (green << 8) | red;
}

}  // namespace

std::string MissionNameIn(ByteView mission) {
  const std::string_view all = AsChars(mission);
  return std::string(TrimBlanks(ShownText(all.substr(std::min(bms::kMissionName, all.size()), bms::kTextBytes))));
}

std::optional<MissionInfo> ReadMissionInfo(const std::string& path) {
  if (!platform().files().Exists(path) || platform().files().IsFolder(path)) {
    MsgBox("Can't find map on your computer!");
    return std::nullopt;
  }
  const std::optional<MissionStart> mission = OpenMission(path);
  if (!mission) return std::nullopt;
  MissionInfo info;
  info.mission_name = ShownText(mission->Text(bms::kMissionName));
  info.designer = ShownText(mission->Text(bms::kDesigner));
  info.terrain = ShownText(mission->Text(bms::kTerrain));
  if (mission->Has(bms::kItemColors, 1)) info.item_colors = ItemColorText(mission->U8(bms::kItemColors));
  if (mission->Has(bms::kGameTypes, 2)) {
    info.game_types = GameTypeText(static_cast<int16_t>(mission->U16(bms::kGameTypes)));
  }
  if (mission->Has(bms::kWaterLevel, 2)) {
    info.water_level = WaterLevelText(mission->U8(bms::kWaterLevel), mission->U8(bms::kWaterLevel + 1));
  }
  ReadFog(*mission, info);
  info.sun = ShownText(mission->Text(bms::kSun));
  return info;
}

std::optional<UploadInfo> ReadUploadInfo(const std::string& path) {
  const std::optional<MissionStart> mission = OpenMission(path);
  if (!mission) return std::nullopt;
  UploadInfo info;
  info.mission_name = CleanText(mission->Text(bms::kMissionName));
  info.designer = CleanText(mission->Text(bms::kDesigner));
  uint32_t game_type = 0;
  for (size_t byte = 0; byte < 4 && mission->Has(bms::kGameTypes + byte, 1); ++byte) {
    game_type |= uint32_t{mission->U8(bms::kGameTypes + byte)} << (8 * byte);
  }
  info.game_type = static_cast<int32_t>(game_type);
  return info;
}

}  // namespace kestrun
