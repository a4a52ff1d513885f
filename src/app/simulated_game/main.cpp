// The simulated game as a process of its own: for tests of the auto host and for its demonstration, no part of a
// release. docs/simulated_game.md says how it plays.
#include "app/simulated_game/frmsimulatedgame.h"
#include "app/simulated_game/process_memory.h"
#include "base/runtime_error.h"
#include "desktop/win32/win32_platform.h"
#include "forms/window_registry.h"

namespace {

constexpr int kWrongUse = 2;

int Refuse(const std::string& sentence) {
  kestrun::MsgBox(sentence, kestrun::BoxButtons::kOk, kestrun::BoxIcon::kWarning, "kestrun_game");
  return kWrongUse;
}

}  // namespace

int main() {
  using namespace kestrun;
  Win32Platform platform;
  const PlatformInstallation installation(platform);
  if (!ProcessMemory::HoldsAllBuilds())
    return Refuse("The addresses of the game lie outside of this program's memory.");
  GameOptions options;
  try {
    options = ParseGameOptions(platform.program().CommandLine());
  } catch (const RuntimeError& failure) {
    return Refuse(failure.description() + ".\r\n\r\n" + GameOptionsUsage());
  }
  if (options.folder.empty()) options.folder = platform.program().Folder();
  const WindowRegistration registration(frmsimulatedgame::kName, [&] { return MakeRef<frmsimulatedgame>(options); });
  DispatchEvent(nullptr, [] { Window<frmsimulatedgame>().Show(); });
  if (!LoadedWindows().empty()) platform.windowing().RunUntilQuit();
  CloseAllWindows();
  return 0;
}
