// What styles do to windows beyond the properties of controls: see-through windows, gradients, windows cut to a shape,
// and sounds. The desktop installs the system's; until then each of them raises error 445.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

// The numbers by which the system knows windows and drawing contexts (as hWnd and hDC give them), bitmaps and regions.
// 0 is none.
using WindowNumber = int32_t;
using ContextNumber = int64_t;
using BitmapNumber = int64_t;
using RegionNumber = int64_t;

// One corner of a gradient. Channels have 16 bits.
struct GradientVertex {
  int32_t x = 0;
  int32_t y = 0;
  uint16_t red = 0;
  uint16_t green = 0;
  uint16_t blue = 0;
  uint16_t alpha = 0;
  friend bool operator==(const GradientVertex&, const GradientVertex&) = default;
};

// A rectangle of a region as the system takes it. Right and bottom are not part of it.
struct RegionRect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
  friend bool operator==(const RegionRect&, const RegionRect&) = default;
};
static_assert(sizeof(RegionRect) == 16);

// 24-bit pixels, blue, green, red, rows from top to bottom, each padded to a multiple of 4 bytes.
struct BitmapPixels {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> bytes;
};
[[nodiscard]] constexpr size_t BitmapStride(size_t width) { return (width * 3 + 3) & ~size_t{3}; }

class WindowEffects {
 public:
  virtual ~WindowEffects() = default;
  // Gives the window the layered style and this opacity, 255 for all. A window that is none stays without effect.
  virtual void SetOpacity(WindowNumber window, uint8_t alpha) = 0;
  // From the first vertex at the top to the second at the bottom.
  virtual void FillGradient(ContextNumber context, const std::array<GradientVertex, 2>& vertices) = 0;
  // All pixels with one call. Nothing for a number that is no bitmap; a context of 0 stands for the desktop's.
  [[nodiscard]] virtual std::optional<BitmapPixels> ReadBitmap(BitmapNumber bitmap, ContextNumber context) = 0;
  // The region of a block of rectangles whose first two slots hold the system's header. 0 when it refuses.
  [[nodiscard]] virtual RegionNumber CreateRegion(std::span<const RegionRect> block) = 0;
  // Makes `region` cover what `other` covers as well.
  virtual void UniteRegions(RegionNumber region, RegionNumber other) = 0;
  virtual void DeleteRegion(RegionNumber region) = 0;
  // Takes a picture of the window with its frame, as it looks on the screen now, and hands over the bitmap with the
  // window's context; both are gone when this returns. Nothing happens for a number that is no window.
  virtual void PictureWindow(WindowNumber window,
                             const std::function<void(BitmapNumber bitmap, ContextNumber context)>& use) = 0;
  // Cuts the window to the region, which it owns from then on; 0 makes it a whole rectangle again.
  virtual void SetWindowRegion(WindowNumber window, RegionNumber region) = 0;
  // Plays a wave file's bytes and returns when it has ended.
  virtual void PlaySoundAndWait(ByteView wave) = 0;
  // Begins to play one and returns at once; one that still plays ends.
  virtual void StartSound(Bytes wave) = 0;
};

// Null takes the installed one away. It must outlive its use. Gives the one before.
WindowEffects* InstallWindowEffects(WindowEffects* effects);
[[nodiscard]] WindowEffects& window_effects();

}  // namespace kestrun
