// A desktop for a check: windows open on it, load and take a style as everywhere, but nothing is shown or played, no
// question reaches the user, and nothing that is written outlives it. While it lives it stands in the place of the
// program's platform, and the program's own windows are out of reach.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "forms/script_system.h"
#include "forms/window_registry.h"
#include "game/run/rotation.h"
#include "platform/background_work.h"
#include "platform/platform.h"
#include "platform/window_effects.h"
#include "styles/check/unseen_clock.h"
#include "styles/check/unseen_files.h"
#include "styles/check/unseen_windowing.h"

namespace kestrun {

// A gradient that a style drew on a bitmap, from its top to the row `bottom`.
struct DrawnGradient {
  int bottom = 0;
  Color first = 0;
  Color last = 0;
};

class UnseenDesktop {
 public:
  UnseenDesktop();
  ~UnseenDesktop();
  UnseenDesktop(const UnseenDesktop&) = delete;
  UnseenDesktop& operator=(const UnseenDesktop&) = delete;

  [[nodiscard]] UnseenFiles& files();
  [[nodiscard]] UnseenClock& clock();
  [[nodiscard]] UnseenWindowing& windowing();
  // Hears the text of each box; all boxes are answered so that least is changed.
  void OnBox(std::function<void(const std::string& text)> hear);
  // The last gradient on the bitmap of that number; null for none.
  [[nodiscard]] const DrawnGradient* GradientOn(ContextNumber context) const;
  // Closes all windows and forgets files, timers and what else they have left.
  void Clear();

 private:
  class Services;
  class Effects;

  std::unique_ptr<Services> services_;
  std::unique_ptr<Effects> effects_;
  PlatformInstallation installation_;
  SeparateWindows windows_;
  WindowEffects* effects_before_;
  ScriptSystem system_before_;
  BackgroundWork* background_before_;
  Rotation rotation_before_;
};

}  // namespace kestrun
