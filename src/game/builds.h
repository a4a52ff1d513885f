// What differs from build to build of the game: the title of its window, and fixed addresses in its process.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kestrun {

// What the auto host knows of a build.
struct HostBuild {
  std::string_view window_title;
  int32_t MemoryAdress;  // the text entry line
  int32_t GameTimer;     // the round clock: 32 bits, 62.5 units a second
  int32_t GameEndAddr;   // the byte that is above 0 while a game is running
};

// By DfVersion, from 0.
inline constexpr std::array kHostBuilds{
    HostBuild{"Delta Force Land Warrior, Demo V0.99.49", 0xDE575C, 0x5A0260, 0x5A7F54},
    HostBuild{"Delta Force Land Warrior,  V1.00.42", 0x10FE6C0, 0x648120, 0x650274},
    HostBuild{"Delta Force Land Warrior,  V1.00.31", 0x5C2D5C, 0x63F4A0, 0x6475F4},
};

// The row of a DfVersion; any value that has none of its own, -1 among them, means the last.
[[nodiscard]] constexpr const HostBuild& HostBuildOf(int DfVersion) {
  return DfVersion == 0 || DfVersion == 1 ? kHostBuilds[static_cast<size_t>(DfVersion)] : kHostBuilds.back();
}

// What the auto messenger knows of a build. Its text line of V1.00.42 is another one than the auto host's.
struct MessengerBuild {
  std::string_view caption;
  std::string_view window_title;
  int32_t MemoryAdress;
  int32_t GameEndAddress;
};

inline constexpr std::array kMessengerBuilds{
    MessengerBuild{"dflw, demo V0.99.49", "Delta Force Land Warrior, Demo V0.99.49", 0xDE575C, 0x5A7F54},
    MessengerBuild{"dflw, full V1.00.42", "Delta Force Land Warrior,  V1.00.42", 0x11038DC, 0x650274},
    MessengerBuild{"df2, full V1.0.15", "Delta Force 2,  V1.06.15", 0xAB045C, 0x680E3C},
    MessengerBuild{"dfbhd, demo", "Delta Force, Demo V0.0.7.33", 0x85B6D4, 0x9B9BD0},
    MessengerBuild{"dfbhd, full V1.3.0.37", "Delta Force,  V1.3.0.37", 0x8723E0, 0},
    MessengerBuild{"dfbhd, full V1.2.2.4", "Delta Force,  V1.2.2.4", 0x875F34, 0x9D7D8C},
    MessengerBuild{"dflw V1.0.31", "Delta Force Land Warrior,  V1.00.31", 0x5C2D5C, 0x6475F4},
};

}  // namespace kestrun
