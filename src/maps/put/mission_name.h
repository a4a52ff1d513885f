// The name under which a map goes into the game: a stock mission's or one that the user types.
#pragma once

#include <cstddef>
#include <string>

#include "forms/option_button.h"
#include "forms/text_box.h"

namespace kestrun {

// The stock missions that a map takes the place of.
inline constexpr const char* kCaptureTheFlagMission = "D08M03.BMS";
inline constexpr const char* kDeathmatchMission = "D08M04.BMS";

// What a name field of the archive holds, in bytes of its single-byte text.
inline constexpr size_t kMissionNameBytes = 16;
// How much of that a name takes: "10 / 16".
[[nodiscard]] std::string MissionNameLength(const std::string& name);

// The controls in which a window lets the user choose the mission.
struct MissionChoice {
  const OptionButton& capture_the_flag;
  const OptionButton& deathmatch;
  const OptionButton& rename;
  TextBox& typed_name;
};
// The name that is chosen; that of a stock mission is shown in the text box as well. Empty when no option is on.
[[nodiscard]] std::string ChosenMission(const MissionChoice& choice);

}  // namespace kestrun
