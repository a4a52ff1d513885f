// Turns a bitmap and a key colour into the region of its other pixels, and cuts controls to such a shape.
#pragma once

#include <cstdint>
#include <vector>

#include "base/object.h"
#include "forms/color.h"
#include "forms/form.h"
#include "platform/window_effects.h"

namespace kestrun {

// The key colour of the windows' InitTransControls. Nothing assigns it: they cut away black.
inline Color TransColor = 0;

// Rectangles in the order of their rows. The first two slots stay free for the header that the system wants in front of
// the rectangles, so that both lie in one block.
struct RegionList {
  std::vector<RegionRect> slots;
  int32_t count = 0;  // of rectangles; the first stands in slot 2
};
inline constexpr int32_t kFirstRect = 2;

// One rectangle for each run of pixels that differ from the key; with invert, of those that equal it. A negative key
// means the top left pixel; only red, green and blue are compared.
[[nodiscard]] RegionList ListRuns(const BitmapPixels& pixels, int32_t KeyColor, bool Invert);

// The region that covers the bitmap's pixels as ListRuns finds them. 0 when there is no such bitmap or no such pixel.
// When the system cannot make the region a box says so, and the result is 0.
[[nodiscard]] RegionNumber RegionFromBitmap(BitmapNumber bitmap, ContextNumber context, int32_t KeyColor, bool Invert);

// The region of the rectangles from slot `first` to slot `last`. The two slots in front of them are overwritten by the
// header. 0 when the system refuses.
[[nodiscard]] RegionNumber RegionFromRects(RegionList& rectangles, int32_t first, int32_t last, int32_t left,
                                           int32_t width);

// The same in blocks of up to 2001 rectangles, since the system may refuse a large block. Each block's last rectangle
// is the next block's first as well. When a block is refused, what was built is deleted and its number still returned.
[[nodiscard]] RegionNumber RegionFromRectBlocks(RegionList& rectangles, int32_t last, int32_t left, int32_t width);

// Cuts a control to the shape of what it looks like on the screen now. One without a window of its own is left alone.
void CutControlToKeyColour(Object& control, int32_t KeyColor);

// What the windows' InitTransControls does: shows the form, lets the message loop run once, so that all of it is
// painted, and cuts each of its controls to TransColor.
void CutAllControls(Form& form);

}  // namespace kestrun
