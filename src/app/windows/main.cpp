// The Windows program: installs the real platform and loads the splash window, whose load handler starts everything.
#include "desktop/win32/com/active_script.h"
#include "desktop/win32/com/component_registration.h"
#include "desktop/win32/com/created_object.h"
#include "desktop/win32/com/object_bridge.h"
#include "desktop/win32/system/command_output.h"
#include "desktop/win32/win32_platform.h"
#include "formats/pff/pff_recovery.h"
#include "forms/window_registry.h"
#include "game/add_ins/add_ins.h"
#include "platform/command_result.h"
#include "platform/foreign_scripts.h"
#include "program/shell_registration.h"
#include "styles/mod_style.h"

int main() {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  kestrun::InstallAddInServices({&kestrun::CreateObjectOfClass, &kestrun::RunRegistrationEntry});
  kestrun::InstallShellIntegration(kestrun::RegistryShellIntegration());
  kestrun::InstallForeignScripts(&kestrun::OpenActiveScript);
  kestrun::InstallCommandOutput(&kestrun::WriteToStandardOutput);
  kestrun::DispatchEvent(nullptr, [] { static_cast<void>(kestrun::WindowByName("frmsplash")); });
  if (!kestrun::LoadedWindows().empty()) platform.windowing().RunUntilQuit();
  kestrun::CloseAllWindows();
  kestrun::ModStyle::Forget();  // its engine may be a component
  kestrun::CloseObjectBridge();
  kestrun::pff::RemoveRestingJournals();
  return kestrun::ExitCode();
}
