// Shows the gallery of controls, or with the word "looks" the dark window; not part of a release.
#include "app/gallery/frmgallery.h"
#include "app/gallery/frmlooks.h"
#include "desktop/win32/win32_platform.h"
#include "forms/window_registry.h"

int main() {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  const bool looks = platform.program().CommandLine() == "looks";
  kestrun::DispatchEvent(nullptr, [looks] {
    if (looks) {
      kestrun::Window<kestrun::frmlooks>().Show();
    } else {
      kestrun::Window<kestrun::frmgallery>().Show();
    }
  });
  if (!kestrun::LoadedWindows().empty()) platform.windowing().RunUntilQuit();
  kestrun::CloseAllWindows();
  return 0;
}
