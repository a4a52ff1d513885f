// The health of the maps in the main window: badges beside the rows, and words in the status line.
#include "maps/health/health_badges.h"
#include "maps/put/mission_name.h"
#include "program/start_mode.h"
#include "windows/main/frmain.h"

namespace kestrun {

void frmain::ConnectHealth() {
  LoadHealthPictures({ImgGood, ImgDoubtful, ImgBad});
  // A list that was just filled is painted without badges, as quickly as it can be; the timer's one tick paints it
  // anew.
  const auto badge_of = [this](int row) {
    if (Timer1.Enabled) return RowBadge();
    return BadgeOfHealth(HealthOf(ListBox.List(row)), {ImgGood, ImgDoubtful, ImgBad});
  };
  ListBox.SetBadges({badge_of, std::string(kWidestHealthWord)});
  // What a map is to be put in as decides about its health.
  for (OptionButton* option : {&opcapflag, &opdeath, &oprename}) {
    option->Click = [this] { ListBox.Refresh(); };
  }
}

MapUse frmain::UseOfMaps() const {
  if (opcapflag.Value) return {MapPlace::kMainList, kCaptureTheFlagMission};
  if (opdeath.Value) return {MapPlace::kMainList, kDeathmatchMission};
  return {MapPlace::kMainList, txtoutput.Text, true};
}

MapHealth frmain::HealthOf(const std::string& name) {
  const std::string path = FileMaps.Path() + "\\" + name;
  return JudgeMap({path, health_.Look(path)}, UseOfMaps());
}

// The reasons of a map that is not simply good, as words.
void frmain::TellHealthOfSelection() {
  const std::string name = FileMaps.FileName();
  if (name.empty() || SafeMode()) return;
  const MapHealth health = HealthOf(name);
  if (health.health != Health::kGood && !health.reasons.empty())
    status_line_.Say(name + " is " + DescribeHealth(health));
}

}  // namespace kestrun
