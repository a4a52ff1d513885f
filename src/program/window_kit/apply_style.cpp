#include "program/window_kit/apply_style.h"

#include "program/style_hook.h"
#include "program/window_kit/run_command.h"

namespace kestrun {

void ApplyStyleAtOnce(Form& window, const std::string& context) {
  if (StyleActive()) RunCommand([&] { FormLoadStyle(window); }, context);
}

void SetUpStyleTimer(Form& window, Timer& timer, int interval_ms, const std::string& context) {
  timer.Enabled = false;
  timer.Interval = interval_ms;
  timer.Tick = [&window, &timer, context] {
    timer.Enabled = false;
    RunCommand([&] { FormLoadStyle(window); }, context);
  };
}

void StartStyleTimer(Timer& timer) {
  if (StyleActive()) timer.Enabled = true;
}

}  // namespace kestrun
