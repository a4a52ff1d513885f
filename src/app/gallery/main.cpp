// Shows the gallery of controls; not part of a release.
#include "app/gallery/frmgallery.h"
#include "desktop/win32/win32_platform.h"
#include "forms/window_registry.h"

int main() {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  kestrun::DispatchEvent(nullptr, [] { kestrun::Window<kestrun::frmgallery>().Show(); });
  if (!kestrun::LoadedWindows().empty()) platform.windowing().RunUntilQuit();
  kestrun::CloseAllWindows();
  return 0;
}
