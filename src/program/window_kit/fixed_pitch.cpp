#include "program/window_kit/fixed_pitch.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr std::array kFonts{"Consolas", "Lucida Console", "Courier New", "DejaVu Sans Mono", "Liberation Mono"};

}  // namespace

void GiveFixedPitch(Control& control, double size_points) {
  const std::vector<std::string> present = platform().windowing().FontNames();
  const auto* const found =
      std::ranges::find_if(kFonts, [&](const char* name) { return std::ranges::find(present, name) != present.end(); });
  FontDescription font = control.Font;
  font.name = found == kFonts.end() ? "Courier New" : *found;
  font.size_points = size_points;
  control.Font = font;
}

}  // namespace kestrun
