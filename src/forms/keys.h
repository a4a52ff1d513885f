// Key codes as key events carry them: the system's virtual keys.
#pragma once

namespace kestrun::key {

inline constexpr int kTab = 9;
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kUp = 38;
inline constexpr int kDown = 40;
inline constexpr int kInsert = 45;
inline constexpr int kDelete = 46;
inline constexpr int kMenu = 93;
inline constexpr int kF2 = 113;
inline constexpr int kF5 = 116;
inline constexpr int kF6 = 117;

}  // namespace kestrun::key
