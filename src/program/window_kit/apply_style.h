// How a window puts on the current style: at once when it loads, or once a little later by its timer.
#pragma once

#include <string>

#include "forms/form.h"
#include "forms/timer.h"

namespace kestrun {

// Applies the style when one is active. A failure is reported under the context and leaves the window usable.
void ApplyStyleAtOnce(Form& window, const std::string& context);

// Makes a timer that applies the style once after the interval. It stands still until StartStyleTimer.
void SetUpStyleTimer(Form& window, Timer& timer, int interval_ms, const std::string& context);
// For the window's load handler: starts the timer when a style is active.
void StartStyleTimer(Timer& timer);

}  // namespace kestrun
