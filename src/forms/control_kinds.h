// The kinds of control that a script can add to a form, by the names that Controls.Add takes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"

namespace kestrun {

// Adds a control to the form under a kind's name, such as "VB.Label"; names compare without regard to case. It is
// hidden, has the kind's usual size, and stands in the container, or in the form for null. Error 429 for a kind that
// does not exist.
Control& AddControlOfKind(Form& form, std::string_view kind, std::string name, Control* container);

[[nodiscard]] std::vector<std::string> ControlKindNames();

}  // namespace kestrun
