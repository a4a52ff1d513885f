// Byte layout at the start of a mission file. All fields little-endian; texts are code page bytes padded with NUL.
#pragma once

#include <cstddef>
#include <string_view>

namespace kestrun::bms {

inline constexpr std::string_view kSignature = "BMS";
inline constexpr size_t kKnownBytes = 256;
inline constexpr size_t kTextBytes = 32;

inline constexpr size_t kMissionName = 4;
inline constexpr size_t kDesigner = 36;
inline constexpr size_t kTerrain = 68;
inline constexpr size_t kItemColors = 116;
inline constexpr size_t kGameTypes = 122;
inline constexpr size_t kWaterLevel = 136;
inline constexpr size_t kFogLevel = 140;
inline constexpr size_t kFogColor = 144;  // blue, green, red
inline constexpr size_t kSun = 224;

}  // namespace kestrun::bms
