// What a control paints on that paints itself. Places and sizes are device pixels, the origin is the control's top left
// corner; colours are properties' colours, system colours included. On Windows it is a back buffer that is copied to
// the screen once; headless it records the calls and can give pixels.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "forms/color.h"
#include "forms/picture.h"
#include "platform/pixels.h"
#include "platform/windowing.h"

namespace kestrun {

// How a line of text stands in its rectangle. It is always centred vertically, drawn in one line and clipped.
enum class TextPlacement { kLeft = 0, kCenter = 1, kRight = 2 };

class Canvas {
 public:
  virtual ~Canvas() = default;

  [[nodiscard]] virtual PixelSize Size() const = 0;
  // Dots per inch: 96 at 100 %.
  [[nodiscard]] virtual int Dpi() const = 0;
  // 0x00BBGGRR for any colour; system colours as the user has set them.
  [[nodiscard]] virtual Color Translate(Color color) const = 0;

  virtual void Fill(const PixelRect& area, Color color) = 0;
  // One pixel wide.
  virtual void Frame(const PixelRect& area, Color color) = 0;
  virtual void HorizontalLine(int left, int right, int y, Color color) = 0;
  // A straight line of any direction with both its ends, so many pixels wide.
  virtual void Line(PixelPoint from, PixelPoint to, Color color, int width) = 0;
  // The dotted rectangle of the focus, drawn so that a second call takes it away.
  virtual void FocusRectangle(const PixelRect& area) = 0;
  virtual void Text(std::string_view text, const PixelRect& area, const FontDescription& font, Color color,
                    TextPlacement placement) = 0;
  // Extent of one line.
  [[nodiscard]] virtual PixelSize MeasureText(std::string_view text, const FontDescription& font) = 0;
  // The whole picture stretched into the area, with its transparency.
  virtual void DrawPicture(const Picture& picture, const PixelRect& area) = 0;
  // A block of width by height pixels 0x00RRGGBB, rows from top to bottom, stretched into the area without smoothing:
  // how gradients arrive, as one row, one column or one small block.
  virtual void DrawPixels(std::span<const uint32_t> pixels, PixelSize block, const PixelRect& area) = 0;
  // Paints only inside the area until the matching PopClip; clips nest.
  virtual void PushClip(const PixelRect& area) = 0;
  virtual void PopClip() = 0;
};

}  // namespace kestrun
