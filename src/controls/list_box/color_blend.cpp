#include "controls/list_box/color_blend.h"

#include <algorithm>
#include <cmath>

namespace kestrun {
namespace {

constexpr int kChannelBits = 8;

int Channel(Color color, int channel) { return static_cast<int>((color >> (kChannelBits * channel)) & 255); }

int MixChannel(int first, int second, int alpha) {
  const double part = alpha;
  const double mixed = first * part / 255 + second * (255 - part) / 255;
  return static_cast<int>(std::lround(std::clamp(mixed, 0.0, 255.0)));
}

void PaintSweep(Canvas& canvas, const PixelRect& area, bool down, Color first, Color second) {
  if (area.IsEmpty()) return;
  const int steps = down ? area.height() : area.width();
  const PixelSize block = down ? PixelSize{1, steps} : PixelSize{steps, 1};
  canvas.DrawPixels(ColorTable(first, second, steps), block, area);
}

// Each row of the block is the table, one step further on.
void PaintDiagonal(Canvas& canvas, const PixelRect& area, Color first, Color second) {
  const auto width = static_cast<size_t>(area.width());
  const auto height = static_cast<size_t>(area.height());
  const std::vector<uint32_t> table = ColorTable(first, second, area.width() + area.height() - 1);
  std::vector<uint32_t> block(width * height);
  for (size_t row = 0; row < height; ++row) {
    std::copy_n(table.begin() + static_cast<ptrdiff_t>(row), width,
                block.begin() + static_cast<ptrdiff_t>(row * width));
  }
  canvas.DrawPixels(block, {area.width(), area.height()}, area);
}

}  // namespace

Color MixColors(Color first, Color second, int alpha) {
  Color mixed = 0;
  for (int channel = 0; channel < 3; ++channel) {
    const int value = MixChannel(Channel(first, channel), Channel(second, channel), alpha);
    mixed |= static_cast<Color>(value) << (kChannelBits * channel);
  }
  return mixed;
}

std::vector<uint32_t> ColorTable(Color first, Color second, int steps) {
  std::vector<uint32_t> table(static_cast<size_t>(std::max(steps, 0)));
  const int64_t last = std::max(steps - 1, 1);
  for (int64_t step = 0; step < steps; ++step) {
    uint32_t pixel = 0;
    for (int channel = 0; channel < 3; ++channel) {
      const int64_t difference = Channel(second, channel) - Channel(first, channel);
      const auto value = static_cast<uint32_t>(Channel(first, channel) + difference * step / last);
      pixel = (pixel << kChannelBits) | value;  // red, the lowest channel of a colour, is the highest of a pixel
    }
    table[static_cast<size_t>(step)] = pixel;
  }
  return table;
}

void PaintGradient(Canvas& canvas, const PixelRect& area, int kind, Color first, Color second) {
  if (area.IsEmpty() || kind == gradient::kNone) return;
  const bool down = kind == gradient::kDown || kind == gradient::kDownMirrored;
  if (kind == gradient::kAcross || kind == gradient::kDown) return PaintSweep(canvas, area, down, first, second);
  if (kind != gradient::kAcrossMirrored && kind != gradient::kDownMirrored) {
    return PaintDiagonal(canvas, area, first, second);
  }
  PixelRect near = area;
  PixelRect far = area;
  (down ? near.bottom : near.right) = down ? area.top + area.height() / 2 : area.left + area.width() / 2;
  (down ? far.top : far.left) = down ? near.bottom : near.right;
  PaintSweep(canvas, near, down, first, second);
  PaintSweep(canvas, far, down, second, first);
}

}  // namespace kestrun
