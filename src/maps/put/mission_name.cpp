#include "maps/put/mission_name.h"

#include "base/code_page.h"

namespace kestrun {

std::string MissionNameLength(const std::string& name) {
  return std::to_string(EncodeText(name).size()) + " / " + std::to_string(kMissionNameBytes);
}

std::string ChosenMission(const MissionChoice& choice) {
  if (choice.capture_the_flag.Value) choice.typed_name.Text = kCaptureTheFlagMission;
  if (choice.deathmatch.Value) choice.typed_name.Text = kDeathmatchMission;
  const bool is_chosen = choice.capture_the_flag.Value || choice.deathmatch.Value || choice.rename.Value;
  return is_chosen ? choice.typed_name.Text.get() : std::string();
}

}  // namespace kestrun
