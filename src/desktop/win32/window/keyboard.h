// Moving about a form by keys: Tab, access keys, arrows in option groups, Enter and Esc, menu shortcuts, key events.
#pragma once

#include "desktop/win32/window/form_window.h"

namespace kestrun {

// Looks at a keyboard message for a form's window before it is dispatched; true takes it away.
bool HandleKeyMessage(FormWindow& form_window, MSG& message);

// The letter behind a caption's "&", lower-cased; NUL when there is none. "&&" stands for itself.
[[nodiscard]] wchar_t AccessKeyOf(std::wstring_view caption);

}  // namespace kestrun
