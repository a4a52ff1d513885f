#include "platform/platform.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace kestrun {
namespace {

Platform* installed_platform = nullptr;

}  // namespace

Platform& platform() {
  if (!installed_platform) {
    std::fputs("kestrun: no platform is installed\n", stderr);
    std::abort();
  }
  return *installed_platform;
}

Platform* InstalledPlatform() { return installed_platform; }

PlatformInstallation::PlatformInstallation(Platform& platform)
    : previous_(std::exchange(installed_platform, &platform)) {}

PlatformInstallation::~PlatformInstallation() { installed_platform = previous_; }

BoxAnswer MsgBox(std::string_view text, BoxButtons buttons, BoxIcon icon, std::string_view title) {
  return platform().dialogs().ShowMessage({std::string(text), std::string(title), buttons, icon, 1});
}

void RunPendingEvents() { platform().clock().RunPendingEvents(); }

void Sleep(uint32_t milliseconds) { platform().clock().SleepMs(milliseconds); }

}  // namespace kestrun
