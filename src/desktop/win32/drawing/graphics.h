// Colours, fonts and pictures of the model in terms of GDI.
#pragma once

#include <string_view>

#include "desktop/win32/system/handles.h"
#include "desktop/win32/window/screen_scale.h"
#include "forms/color.h"
#include "forms/picture.h"
#include "platform/windowing.h"

namespace kestrun {

// Describes pixels of 24 or 32 bits without a table of colours, in rows from top to bottom.
[[nodiscard]] BITMAPINFO TopDownInfo(int width, int height, WORD bits_per_pixel);

// A top-down bitmap of 32-bit pixels; the pixels are null when the system refuses it.
struct PixelBitmap {
  BitmapHandle bitmap;
  uint32_t* pixels = nullptr;
};
[[nodiscard]] PixelBitmap MakePixelBitmap(int width, int height);

[[nodiscard]] COLORREF ToColorRef(Color color);
[[nodiscard]] FontHandle MakeFont(const FontDescription& font, ScreenScale scale);
// The picture's pixels averaged to another size, with their transparency.
[[nodiscard]] std::vector<uint32_t> ScalePixels(const Picture& picture, int width, int height);
// Draws the whole picture into the area.
void DrawPictureTo(HDC target, const Picture& picture, const RECT& area);
[[nodiscard]] IconHandle MakeIcon(const Picture& picture, int size_pixels);
// A mouse cursor of the picture's own size at 96 dots per inch, larger on finer screens.
[[nodiscard]] IconHandle MakeCursor(const Picture& picture, int dpi);
// Whether the system is Wine, for the few places where it draws otherwise.
[[nodiscard]] bool IsWine();
// A bitmap for a menu item, with its transparency.
[[nodiscard]] BitmapHandle MakeMenuBitmap(const Picture& picture, int size_pixels);
void FillColor(HDC target, const RECT& area, Color color);

}  // namespace kestrun
