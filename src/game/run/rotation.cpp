#include "game/run/rotation.h"

#include <utility>

namespace kestrun {
namespace {

Rotation& Present() {
  static Rotation rotation;
  return rotation;
}

}  // namespace

const Rotation& PresentRotation() { return Present(); }

void SetPresentRotation(Rotation rotation) { Present() = std::move(rotation); }

std::string TimeLeftText(const std::string& minutes, const std::string& seconds) {
  return minutes + ":" + (seconds.size() == 1 ? "0" : "") + seconds;
}

std::string PlainMapName(const std::string& row) {
  const std::string name = row.substr(row.find_last_of("\\/") + 1);
  return name.substr(0, name.find_last_of('.'));
}

}  // namespace kestrun
