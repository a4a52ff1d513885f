// The style of the whole program: loads style files and applies the current one to windows. Windows reach it through
// program/style_hook.h.
#pragma once

#include <string>

#include "forms/form.h"
#include "styles/cls_style.h"

namespace kestrun::ModStyle {

// Makes this the style runtime behind program/style_hook.h. It is so from the start.
void Install();

// Null until a style was loaded.
[[nodiscard]] const Ref<ClsStyle>& CurrentStyle();
// Makes the file the current style, whatever becomes of it; a file that is not there is told and changes nothing.
void LoadStyleFile(const std::string& path);
// Applies the current style to a window.
void FormLoadStyle(Form& form);
// No style any more: for the end of a test.
void Forget();

}  // namespace kestrun::ModStyle
