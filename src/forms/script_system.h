// Pictures on the clipboard, and the program's number, which scripts ask for and nothing else does. The desktop
// installs the system's; until then a picture stays within the process.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/pictures.h"

namespace kestrun {

struct ScriptSystem {
  // Nothing when no picture is there, or one whose size is not allowed.
  std::function<std::optional<DecodedPicture>()> clipboard_picture;
  // Takes the place of all that is there.
  std::function<void(const DecodedPicture& picture)> set_clipboard_picture;
  // Leaves nothing there.
  std::function<void()> clear_clipboard;
  // The number by which the system knows the loaded program file, its low 32 bits.
  int32_t instance = 0x400000;
};

// Without one a picture stays within the process again. Gives the one before.
ScriptSystem InstallScriptSystem(std::optional<ScriptSystem> system);
[[nodiscard]] const ScriptSystem& InstalledScriptSystem();

}  // namespace kestrun
