#include "styles/mod_trans_control.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <span>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int32_t kHeaderSlots = 2;
constexpr int32_t kHeaderBytes = 32;
constexpr int32_t kRectangles = 1;  // the header's type
constexpr int32_t kRectBytes = 16;
constexpr int32_t kBlockStep = 2000;
constexpr int32_t kLeastForBlocks = 2001;
constexpr uint32_t kColorBits = 0xFFFFFF;

// The bytes of a pixel lie blue, green, red.
uint32_t PixelAt(const uint8_t* bytes) {
  return static_cast<uint32_t>(bytes[0]) | static_cast<uint32_t>(bytes[1]) << 8 | static_cast<uint32_t>(bytes[2]) << 16;
}

// The pixels of one row, compared with the key.
class RowReader {
 public:
  RowReader(const uint8_t* row, uint32_t key, bool invert) : row_(row), key_(key), invert_(invert) {}
  [[nodiscard]] bool Belongs(int x) const { return (PixelAt(row_ + static_cast<size_t>(x) * 3) == key_) == invert_; }

 private:
  const uint8_t* row_;
  uint32_t key_;
  bool invert_;
};

// A colour has red in its low byte, a pixel blue.
uint32_t KeyPixel(const BitmapPixels& pixels, int32_t key_color) {
  if (key_color < 0) return PixelAt(pixels.bytes.data());
  const auto color = static_cast<uint32_t>(key_color) & kColorBits;
  return (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16;
}

void AddRun(RegionList& list, int width, const RegionRect& run) {
  const auto top_index = static_cast<int32_t>(list.slots.size()) - 1;
  if (list.count + 1 >= top_index) list.slots.resize(list.slots.size() + static_cast<size_t>(width) * 3);
  list.slots[static_cast<size_t>(list.count + kFirstRect)] = run;
  ++list.count;
}

void AddRunsOfRow(RegionList& list, const RowReader& row, int width, int y) {
  int x = 0;
  while (true) {
    while (x < width && !row.Belongs(x)) ++x;
    if (x == width) return;
    const int start = x;
    while (x < width && row.Belongs(x)) ++x;
    AddRun(list, width, {start, y, x, y + 1});
  }
}

RegionNumber RegionOfPixels(const BitmapPixels& pixels, int32_t key_color, bool invert) {
  RegionList list = ListRuns(pixels, key_color, invert);
  if (list.count == 0) return 0;
  const RegionNumber region = RegionFromRects(list, kFirstRect, list.count + 1, 0, pixels.width);
  if (region != 0 || list.count < kLeastForBlocks) return region;
  return RegionFromRectBlocks(list, list.count + 1, 0, pixels.width);
}

}  // namespace

RegionList ListRuns(const BitmapPixels& pixels, int32_t KeyColor, bool Invert) {
  RegionList list;
  list.slots.resize(static_cast<size_t>(pixels.width) * 3 + 1);
  const uint32_t key = KeyPixel(pixels, KeyColor);
  const size_t stride = BitmapStride(static_cast<size_t>(pixels.width));
  for (int y = 0; y < pixels.height; ++y) {
    const RowReader row(pixels.bytes.data() + static_cast<size_t>(y) * stride, key, Invert);
    AddRunsOfRow(list, row, pixels.width, y);
  }
  return list;
}

RegionNumber RegionFromBitmap(BitmapNumber bitmap, ContextNumber context, int32_t KeyColor, bool Invert) {
  if (bitmap == 0) return 0;
  try {
    const std::optional<BitmapPixels> pixels = window_effects().ReadBitmap(bitmap, context);
    if (!pixels || pixels->width <= 0 || pixels->height <= 0) return 0;
    return RegionOfPixels(*pixels, KeyColor, Invert);
  } catch (const std::exception&) {
    MsgBox("Shaped Region failed. Windows could not create the region.");
    return 0;
  }
}

RegionNumber RegionFromRects(RegionList& rectangles, int32_t first, int32_t last, int32_t left, int32_t width) {
  const auto start = static_cast<size_t>(first - kHeaderSlots);
  std::vector<RegionRect>& slots = rectangles.slots;
  const int32_t count = last - first + 1;
  slots[start] = {kHeaderBytes, kRectangles, count, count * kRectBytes};
  slots[start + 1] = {left, slots[start + kHeaderSlots].top, left + width, slots[static_cast<size_t>(last)].bottom};
  return window_effects().CreateRegion(
      std::span<const RegionRect>(slots).subspan(start, static_cast<size_t>(count + kHeaderSlots)));
}

RegionNumber RegionFromRectBlocks(RegionList& rectangles, int32_t last, int32_t left, int32_t width) {
  RegionNumber region = 0;
  for (int32_t first = kFirstRect; first <= last; first += kBlockStep) {
    const RegionNumber block = RegionFromRects(rectangles, first, std::min(first + kBlockStep, last), left, width);
    if (block == 0) {
      if (region != 0) window_effects().DeleteRegion(region);
      return region;
    }
    if (region == 0) {
      region = block;
      continue;
    }
    window_effects().UniteRegions(region, block);
    window_effects().DeleteRegion(block);
  }
  return region;
}

void CutControlToKeyColour(Object& control, int32_t KeyColor) {
  WindowNumber window = 0;
  Attempt([&] { window = ToLong(GetMember(control, "hWnd")); });
  if (window == 0) return;
  RegionNumber region = 0;
  bool is_there = false;
  window_effects().PictureWindow(window, [&](BitmapNumber bitmap, ContextNumber context) {
    is_there = true;
    region = RegionFromBitmap(bitmap, context, KeyColor, false);
  });
  if (is_there) window_effects().SetWindowRegion(window, region);
}

void CutAllControls(Form& form) {
  form.Show();
  RunPendingEvents();
  const std::vector<Ref<Control>> controls = form.controls();
  for (const Ref<Control>& control : controls) CutControlToKeyColour(*control, static_cast<int32_t>(TransColor));
}

}  // namespace kestrun
