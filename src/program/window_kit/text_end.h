// Text boxes that grow at their end, as logs do.
#pragma once

#include "base/text.h"
#include "forms/text_box.h"

namespace kestrun {

// Puts the caret behind the last character, which brings it into sight.
inline void PutCaretAtEnd(TextBox& box) { box.SelStart = static_cast<int>(ToUtf16(box.Text.get()).size()); }

}  // namespace kestrun
