// What the auto host of this program plays, for whoever tells players of it.
#pragma once

#include <string>

namespace kestrun {

// Maps by their file's name without folder and ending. Empty: not known, or the auto host is not started.
struct Rotation {
  std::string map;   // plays now
  std::string next;  // "a random map" when it is drawn
  std::string left;  // minutes and seconds until then, "4:05"
};

[[nodiscard]] const Rotation& PresentRotation();
void SetPresentRotation(Rotation rotation);

// "4:05" from the texts of minutes and seconds.
[[nodiscard]] std::string TimeLeftText(const std::string& minutes, const std::string& seconds);

// The name of the map for players, from the path or address in the play list.
[[nodiscard]] std::string PlainMapName(const std::string& row);

}  // namespace kestrun
