#include "desktop/headless/raster_canvas.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

uint32_t PixelOf(Color plain) { return ((plain & 255) << 16) | (plain & 0xFF00) | ((plain >> 16) & 255); }

std::string Hex(Color plain) {
  char text[8];
  std::snprintf(text, sizeof text, "%06X", plain & 0xFFFFFF);
  return text;
}

PixelRect Intersect(const PixelRect& one, const PixelRect& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
          std::min(one.bottom, other.bottom)};
}

uint32_t Blend(uint32_t under, uint32_t over) {
  const uint32_t alpha = over >> 24;
  uint32_t mixed = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const uint32_t value = (((over >> shift) & 255) * alpha + ((under >> shift) & 255) * (255 - alpha) + 127) / 255;
    mixed |= value << shift;
  }
  return mixed;
}

// The source column or row that a place in a stretched area shows.
int SourceOf(int at, int start, int extent, int source_extent) {
  return static_cast<int>(int64_t{at - start} * source_extent / extent);
}

}  // namespace

RasterCanvas::RasterCanvas(PixelSize size, int dpi)
    : size_(size),
      dpi_(dpi),
      pixels_(static_cast<size_t>(size.width) * static_cast<size_t>(size.height)),
      clips_{{0, 0, size.width, size.height}} {}

uint32_t RasterCanvas::At(int x, int y) const {
  if (!PixelRect{0, 0, size_.width, size_.height}.Contains(x, y)) return 0;
  return pixels_[static_cast<size_t>(y) * static_cast<size_t>(size_.width) + static_cast<size_t>(x)];
}

uint32_t& RasterCanvas::Pixel(int x, int y) {
  return pixels_[static_cast<size_t>(y) * static_cast<size_t>(size_.width) + static_cast<size_t>(x)];
}

void RasterCanvas::Note(std::string_view call, const PixelRect& area, const std::string& rest) {
  calls_.push_back(std::string(call) + " " + std::to_string(area.left) + "," + std::to_string(area.top) + "," +
                   std::to_string(area.right) + "," + std::to_string(area.bottom) + (rest.empty() ? "" : " " + rest));
}

PixelRect RasterCanvas::Visible(const PixelRect& area) const { return Intersect(area, clips_.back()); }

void RasterCanvas::FillVisible(const PixelRect& area, uint32_t pixel) {
  const PixelRect visible = Visible(area);
  for (int y = visible.top; y < visible.bottom; ++y) {
    for (int x = visible.left; x < visible.right; ++x) Pixel(x, y) = pixel;
  }
}

Color RasterCanvas::Translate(Color color) const { return PlainColor(color).value_or(color::kBlack); }

void RasterCanvas::Fill(const PixelRect& area, Color color) {
  Note("Fill", area, Hex(Translate(color)));
  FillVisible(area, PixelOf(Translate(color)));
}

void RasterCanvas::Frame(const PixelRect& area, Color color) {
  Note("Frame", area, Hex(Translate(color)));
  const uint32_t pixel = PixelOf(Translate(color));
  FillVisible({area.left, area.top, area.right, area.top + 1}, pixel);
  FillVisible({area.left, area.bottom - 1, area.right, area.bottom}, pixel);
  FillVisible({area.left, area.top, area.left + 1, area.bottom}, pixel);
  FillVisible({area.right - 1, area.top, area.right, area.bottom}, pixel);
}

void RasterCanvas::HorizontalLine(int left, int right, int y, Color color) {
  Note("Line", {left, y, right, y + 1}, Hex(Translate(color)));
  FillVisible({left, y, right, y + 1}, PixelOf(Translate(color)));
}

void RasterCanvas::Line(PixelPoint from, PixelPoint to, Color color, int width) {
  Note("Line", {from.x, from.y, to.x, to.y}, Hex(Translate(color)));
  const uint32_t pixel = PixelOf(Translate(color));
  const int steps = std::max({std::abs(to.x - from.x), std::abs(to.y - from.y), 1});
  for (int step = 0; step <= steps; ++step) {
    const int left = from.x + (to.x - from.x) * step / steps - (width - 1) / 2;
    const int top = from.y + (to.y - from.y) * step / steps - (width - 1) / 2;
    FillVisible({left, top, left + width, top + width}, pixel);
  }
}

void RasterCanvas::FocusRectangle(const PixelRect& area) {
  Note("Focus", area);
  const PixelRect visible = Visible(area);
  for (int y = visible.top; y < visible.bottom; ++y) {
    for (int x = visible.left; x < visible.right; ++x) {
      const bool is_edge = x == area.left || x == area.right - 1 || y == area.top || y == area.bottom - 1;
      if (is_edge && (x + y) % 2 == 0) Pixel(x, y) ^= 0xFFFFFF;
    }
  }
}

void RasterCanvas::Text(std::string_view text, const PixelRect& area, const FontDescription& font, Color color,
                        TextPlacement placement) {
  static constexpr const char* kPlacements[]{"left", "center", "right"};
  Note("Text", area,
       Hex(Translate(color)) + " " + kPlacements[static_cast<int>(placement)] + (font.bold ? " bold '" : " '") +
           std::string(text) + "'");
  const PixelSize extent = MeasureText(text, font);
  const auto count = static_cast<int>(CodePointCount(text));
  if (count == 0) return;
  const int slack = area.width() - extent.width;
  const int offset = placement == TextPlacement::kLeft ? 0 : placement == TextPlacement::kCenter ? slack / 2 : slack;
  const int advance = extent.width / count;
  const int top = area.top + (area.height() - extent.height) / 2;
  size_t at = 0;
  for (int left = area.left + offset; at < text.size() && left < area.right; left += advance) {
    if (NextCodePoint(text, at) == U' ') continue;
    const PixelRect block{left, top + 1, left + std::max(advance - 1, 1), top + extent.height - 1};
    FillVisible(Intersect(block, area), PixelOf(Translate(color)));
  }
}

PixelSize RasterCanvas::MeasureText(std::string_view text, const FontDescription& font) {
  return platform().windowing().MeasureText(text, font, dpi_);
}

void RasterCanvas::DrawPicture(const Picture& picture, const PixelRect& area) {
  Note("Picture", area);
  const PixelRect visible = Visible(area);
  for (int y = visible.top; y < visible.bottom; ++y) {
    const int row = SourceOf(y, area.top, area.height(), picture.height_pixels());
    for (int x = visible.left; x < visible.right; ++x) {
      const int column = SourceOf(x, area.left, area.width(), picture.width_pixels());
      const auto place = static_cast<size_t>(row) * static_cast<size_t>(picture.width_pixels());
      uint32_t& pixel = Pixel(x, y);
      pixel = Blend(pixel, picture.pixels()[place + static_cast<size_t>(column)]);
    }
  }
}

void RasterCanvas::DrawPixels(std::span<const uint32_t> pixels, PixelSize block, const PixelRect& area) {
  Note("Pixels", area, std::to_string(block.width) + "x" + std::to_string(block.height));
  const PixelRect visible = Visible(area);
  for (int y = visible.top; y < visible.bottom; ++y) {
    const int row = SourceOf(y, area.top, area.height(), block.height);
    for (int x = visible.left; x < visible.right; ++x) {
      const int column = SourceOf(x, area.left, area.width(), block.width);
      const auto place = static_cast<size_t>(row) * static_cast<size_t>(block.width) + static_cast<size_t>(column);
      Pixel(x, y) = pixels[place] & 0xFFFFFF;
    }
  }
}

void RasterCanvas::PushClip(const PixelRect& area) { clips_.push_back(Visible(area)); }

void RasterCanvas::PopClip() {
  if (clips_.size() > 1) clips_.pop_back();
}

}  // namespace kestrun
