// The Windows program: installs the real platform and loads the splash window, whose load handler starts everything.
#include "forms/window_registry.h"
#include "platform/win32/win32_platform.h"

int main() {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  kestrun::DispatchEvent(nullptr, [] { static_cast<void>(kestrun::WindowByName("frmsplash")); });
  if (!kestrun::LoadedWindows().empty()) platform.windowing().RunUntilQuit();
  kestrun::CloseAllWindows();
  return 0;
}
