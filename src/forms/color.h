// Colours as properties hold them: 0x00BBGGRR, or 0x80000000 plus the number of a system colour.
#pragma once

#include <cstdint>
#include <optional>

namespace kestrun {

using Color = uint32_t;

namespace color {
inline constexpr Color kScrollBars = 0x80000000;
inline constexpr Color kDesktop = 0x80000001;
inline constexpr Color kWindowBackground = 0x80000005;
inline constexpr Color kWindowText = 0x80000008;
inline constexpr Color kHighlight = 0x8000000D;
inline constexpr Color kHighlightText = 0x8000000E;
inline constexpr Color kButtonFace = 0x8000000F;
inline constexpr Color kButtonShadow = 0x80000010;
inline constexpr Color kGrayText = 0x80000011;
inline constexpr Color kButtonText = 0x80000012;
inline constexpr Color kInfoText = 0x80000017;
inline constexpr Color kInfoBackground = 0x80000018;
inline constexpr Color kBlack = 0x000000;
inline constexpr Color kWhite = 0xFFFFFF;
}  // namespace color

[[nodiscard]] constexpr bool IsSystemColor(Color value) { return (value & 0x80000000) != 0; }
[[nodiscard]] constexpr Color Rgb(uint8_t red, uint8_t green, uint8_t blue) {
  return static_cast<Color>(red) | (static_cast<Color>(green) << 8) | (static_cast<Color>(blue) << 16);
}

// 0x00BBGGRR for any colour, system colours as the user has set them; nothing for a value that is no colour.
[[nodiscard]] std::optional<Color> PlainColor(Color value);

}  // namespace kestrun
