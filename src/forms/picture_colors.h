// The colours of the pictures that the program draws itself: 0xRRGGBB.
#pragma once

#include <cstdint>

namespace kestrun::picture_color {

inline constexpr uint32_t kBlue = 0x2C6E8F;
inline constexpr uint32_t kPaleBlue = 0xBFDCEB;
inline constexpr uint32_t kGreen = 0x3C8D4A;
inline constexpr uint32_t kRed = 0xC0392B;
inline constexpr uint32_t kAmber = 0xD9A441;
inline constexpr uint32_t kBrown = 0x6B4A1F;
inline constexpr uint32_t kGrey = 0x5B6670;
inline constexpr uint32_t kWhite = 0xFFFFFF;

}  // namespace kestrun::picture_color
