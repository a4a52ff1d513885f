// What controls that paint themselves paint on: a bitmap that is copied to the window once.
#pragma once

#include <vector>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/handles.h"
#include "forms/canvas.h"

namespace kestrun {

// Fonts by description and scale, made at their first use.
class FontCache {
 public:
  // Valid until the next call.
  [[nodiscard]] HFONT Get(const FontDescription& font, int dpi);

 private:
  struct Entry {
    FontDescription font;
    int dpi;
    FontHandle handle;
  };
  std::vector<Entry> entries_;
};

// Extent of one line of text in the font that is selected into the device.
[[nodiscard]] PixelSize MeasureLine(HDC device, std::string_view text);

// A bitmap in memory with a device to paint on it, kept from one paint to the next.
class BackBuffer {
 public:
  // Gives the bitmap that size. False when there is no memory for it; its content is lost with a new size.
  [[nodiscard]] bool Resize(HDC like, PixelSize size);
  [[nodiscard]] HDC device() const { return device_.get(); }
  [[nodiscard]] PixelSize size() const { return size_; }
  void Release();

 private:
  BitmapHandle bitmap_;
  MemoryDevice device_;  // goes before the bitmap that is selected into it
  PixelSize size_;
};

// Paints on a device for as long as it lives, and leaves the device as it was.
class GdiCanvas final : public Canvas {
 public:
  GdiCanvas(HDC target, PixelSize size, int dpi, FontCache& fonts);
  ~GdiCanvas() override;
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  [[nodiscard]] PixelSize Size() const override { return size_; }
  [[nodiscard]] int Dpi() const override { return dpi_; }
  [[nodiscard]] Color Translate(Color color) const override { return ToColorRef(color); }
  void Fill(const PixelRect& area, Color color) override;
  void Frame(const PixelRect& area, Color color) override;
  void HorizontalLine(int left, int right, int y, Color color) override;
  void Line(PixelPoint from, PixelPoint to, Color color, int width) override;
  void FocusRectangle(const PixelRect& area) override;
  void Text(std::string_view text, const PixelRect& area, const FontDescription& font, Color color,
            TextPlacement placement) override;
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription& font) override;
  void DrawPicture(const Picture& picture, const PixelRect& area) override;
  void DrawPixels(std::span<const uint32_t> pixels, PixelSize block, const PixelRect& area) override;
  void PushClip(const PixelRect& area) override;
  void PopClip() override;

 private:
  HDC target_;
  PixelSize size_;
  int dpi_;
  FontCache& fonts_;
  int saved_;  // the device's state before the first call
  int clips_ = 0;
};

}  // namespace kestrun
