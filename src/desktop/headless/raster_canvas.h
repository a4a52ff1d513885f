// A canvas in memory: real pixels, and a line for each call that painted them. Text is drawn as one block for each
// character, for there are no fonts here.
#pragma once

#include <string>
#include <vector>

#include "forms/canvas.h"

namespace kestrun {

class RasterCanvas final : public Canvas {
 public:
  explicit RasterCanvas(PixelSize size, int dpi = 96);

  // 0x00RRGGBB; 0 outside.
  [[nodiscard]] uint32_t At(int x, int y) const;
  [[nodiscard]] const std::vector<uint32_t>& pixels() const { return pixels_; }
  // The calls in their order, such as "Fill 0,0,10,22 FF8C1A" with left, top, right, bottom and a plain colour BBGGRR.
  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }
  void ForgetCalls() { calls_.clear(); }

  [[nodiscard]] PixelSize Size() const override { return size_; }
  [[nodiscard]] int Dpi() const override { return dpi_; }
  [[nodiscard]] Color Translate(Color color) const override;
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
  void Note(std::string_view call, const PixelRect& area, const std::string& rest = {});
  // What of the area may be painted.
  [[nodiscard]] PixelRect Visible(const PixelRect& area) const;
  [[nodiscard]] uint32_t& Pixel(int x, int y);
  void FillVisible(const PixelRect& area, uint32_t pixel);

  PixelSize size_;
  int dpi_;
  std::vector<uint32_t> pixels_;
  std::vector<PixelRect> clips_;
  std::vector<std::string> calls_;
};

}  // namespace kestrun
