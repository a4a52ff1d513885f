// How well a text stands out from its ground: relative luminance and contrast as WCAG 2.1 defines them.
#pragma once

#include "forms/color.h"

namespace kestrun {

// The least contrast of a text that everybody can read (WCAG 2.1, 1.4.3).
inline constexpr double kReadableContrast = 4.5;

// From 1 for equal colours to 21 for black and white. System colours count as the user has set them.
[[nodiscard]] double ContrastOf(Color one, Color other);

}  // namespace kestrun
