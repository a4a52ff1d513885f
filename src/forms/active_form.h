// Which form the user works in.
#pragma once

#include "forms/form.h"

namespace kestrun {

// The form that was activated last and is still shown; null when there is none.
[[nodiscard]] Form* ActiveForm();
// For what shows the forms.
void NoteActivated(Form& form);

}  // namespace kestrun
