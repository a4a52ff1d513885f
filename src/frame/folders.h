// The platform's known folders and its folder dialogue.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// Ids above the shell's own. In BrowseForFolder they open the dialogue on a given path.
namespace folder_id {
inline constexpr int32_t kSendTo = 9;
inline constexpr int32_t kMyComputer = 17;
inline constexpr int32_t kStartPath = 1024;
inline constexpr int32_t kTemporary = 1025;
inline constexpr int32_t kWindows = 1026;
inline constexpr int32_t kSystem = 1027;
}  // namespace folder_id

// The folder with a trailing backslash; empty for kStartPath and on any failure. Any id that is not above is a shell
// folder's.
[[nodiscard]] std::string SpecialFolder(int32_t Id);

// The folder that the user picks, with a trailing backslash; empty on Cancel. Root: a shell folder, or kStartPath to
// open on StartPath, or kTemporary to kSystem to open on that folder.
[[nodiscard]] std::string BrowseForFolder(const std::string& Prompt, int32_t Root = folder_id::kMyComputer,
                                          const std::string& StartPath = "");

}  // namespace kestrun
