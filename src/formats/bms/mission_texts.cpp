#include "formats/bms/mission_texts.h"

namespace kestrun {

std::string GameTypeText(int32_t mask) {
  std::string text;
  for (const GameType& type : kGameTypes) {
    if ((static_cast<uint32_t>(mask) & type.bit) == 0) continue;
    if (!text.empty()) text += ", ";
    text += type.text;
  }
  return text;
}

std::string_view ItemColorText(uint8_t set) {
  constexpr std::array<std::string_view, 4> kColors{"Green", "Brown", "White", "Alpha"};
  return set < kColors.size() ? kColors[set] : std::string_view();
}

std::string WaterLevelText(uint8_t low, uint8_t high) {
  const int low_digit_weight = low < 0x10 ? 0x10 : 0x100;
  return std::to_string(high * low_digit_weight + low);
}

}  // namespace kestrun
