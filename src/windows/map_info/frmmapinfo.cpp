#include "windows/map_info/frmmapinfo.h"

#include "base/member_rows.h"
#include "formats/bms/mission_reader.h"
#include "maps/fetch/fetch_map.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/health/health_badges.h"
#include "maps/map_picture.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/apply_style.h"
#include "program/window_kit/open_window.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

const WindowRegistration registration(frmmapinfo::kName, [] { return MakeRef<frmmapinfo>(); });

constexpr Member kRows[]{MethodRow<&frmmapinfo::LoadMap>("LoadMap", "Path")};
constexpr MemberTable kTable{&Form::kFormMembers, kRows};

}  // namespace

const MemberTable& frmmapinfo::Members() const { return kTable; }

frmmapinfo::frmmapinfo() : Form(kName) {
  LayOut();
  ShowPreview(false);
  Command1.Click = [this] { Unload(); };
  Command2.Click = [this] { ShowPreview(!Frame3.Visible); };
  ImgPreview.DblClick = [this] { ShowLargePicture(ImgPreview.Picture); };
}

void frmmapinfo::Load() { StartStyleTimer(Timer1); }

void frmmapinfo::LoadMap(const std::string& Path) {
  const Ref<Form> keep(this);
  Clear();
  const FetchTurn turn;
  const FetchScope fetch(FetchScope::IsShown() ? nullptr : this);
  const std::string map = MapFileKind(Path) == map_file_kind::kZip ? GetFileFromZip(Path) : Path;
  if (map.empty()) return;
  Caption = "Map info " + GetFileName(map);
  ShowHealth(map);
  const std::optional<MissionInfo> info = ReadMissionInfo(map);
  if (!info) return;
  FillFields(*info);
  SetPicture(LoadMapPicture(map));
}

void frmmapinfo::Clear() {
  FillFields(MissionInfo());
  ShowHealth("");
  SetPicture({});
}

// A web address is not asked.
void frmmapinfo::ShowHealth(const std::string& map) {
  MapHealth health;
  if (!map.empty() && !IsUrl(map)) {
    const MapFacts facts = MapFactsReader(platform().files()).Read(map);
    health = JudgeMap({map, &facts}, {});
  }
  ImgHealth.Picture = PictureOfHealth(health.health, {ImgGood, ImgDoubtful, ImgBad});
  TxtHealth.Text = health.health == Health::kUnknown ? std::string() : DescribeHealth(health);
}

void frmmapinfo::FillFields(const MissionInfo& info) {
  TxtMissionName.Text = info.mission_name;
  TxtDesigner.Text = info.designer;
  TxtMapType.Text = info.game_types;
  TxtTerrain.Text = info.terrain;
  TxtItemColors.Text = info.item_colors;
  TxtFogColor.Text = info.fog_color_text;
  lblfogcolor.BackColor = info.fog_color.value_or(color::kButtonFace);
  TxtFogLevel.Text = info.fog_level;
  TxtSun.Text = info.sun;
  TxtWater.Text = info.water_level;
}

}  // namespace kestrun
