#include "forms/script_system.h"

#include <utility>

#include "platform/platform.h"

namespace kestrun {
namespace {

// What SetData left, for as long as no text took its place.
std::optional<DecodedPicture>& OwnPicture() {
  static std::optional<DecodedPicture> picture;
  return picture;
}

ScriptSystem WithinTheProcess() {
  ScriptSystem system;
  system.clipboard_picture = [] {
    if (!platform().clipboard().Text().empty()) OwnPicture().reset();
    return OwnPicture();
  };
  system.set_clipboard_picture = [](const DecodedPicture& picture) {
    platform().clipboard().SetText("");
    OwnPicture() = picture;
  };
  system.clear_clipboard = [] {
    platform().clipboard().SetText("");
    OwnPicture().reset();
  };
  return system;
}

ScriptSystem& Installed() {
  static ScriptSystem system = WithinTheProcess();
  return system;
}

}  // namespace

ScriptSystem InstallScriptSystem(std::optional<ScriptSystem> system) {
  return std::exchange(Installed(), system ? std::move(*system) : WithinTheProcess());
}

const ScriptSystem& InstalledScriptSystem() { return Installed(); }

}  // namespace kestrun
