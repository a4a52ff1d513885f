// Mixtures of two colours, and sweeps from one to the other.
#pragma once

#include <cstdint>
#include <vector>

#include "forms/canvas.h"
#include "forms/color.h"

namespace kestrun {

// For each channel `first` times alpha/255 plus `second` times the rest, to the nearest. Plain colours; alpha 0 to 255.
[[nodiscard]] Color MixColors(Color first, Color second, int alpha);

// How a gradient runs. Any other number is one diagonal sweep.
namespace gradient {
inline constexpr int kNone = 0;
inline constexpr int kAcross = 1;
inline constexpr int kAcrossMirrored = 2;
inline constexpr int kDown = 3;
inline constexpr int kDownMirrored = 4;
inline constexpr int kDiagonal = 5;
}  // namespace gradient

// The colours of a sweep, 0x00RRGGBB: for step k the first colour plus the difference times k divided by the last step,
// for each channel in whole numbers. Plain colours.
[[nodiscard]] std::vector<uint32_t> ColorTable(Color first, Color second, int steps);

// Fills the area by a colour table that is stretched in one call, or in two halves for the mirrored kinds. Nothing for
// an empty area and the kind 0.
void PaintGradient(Canvas& canvas, const PixelRect& area, int kind, Color first, Color second);

}  // namespace kestrun
