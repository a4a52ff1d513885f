// Known folders and the folder dialogue. Both give a folder with a backslash at its end.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// Folder numbers beyond those of the shell.
namespace folder {
inline constexpr int32_t kSendTo = 9;
inline constexpr int32_t kMyComputer = 17;
inline constexpr int32_t kGivenPath = 1024;
inline constexpr int32_t kTemporary = 1025;
inline constexpr int32_t kWindows = 1026;
inline constexpr int32_t kSystem = 1027;
}  // namespace folder

// A folder by one of the numbers above or a shell folder number; empty when there is none, and for kGivenPath.
[[nodiscard]] std::string SpecialFolder(int32_t Id);

// Lets the user pick a folder; empty on Cancel. Root is a shell folder number; kGivenPath opens the dialogue at
// StartPath, kTemporary to kSystem at that folder. The two flags are there for callers that pass them and change
// nothing.
[[nodiscard]] std::string BrowseForFolder(const std::string& Prompt, int32_t Root, const std::string& StartPath,
                                          bool = false, bool = false);

}  // namespace kestrun
