// Any pixels as a bitmap that is turned into runs: as many as there are, and none outside the bitmap.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "styles/mod_trans_control.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kHeadBytes = 3;
  if (size < kHeadBytes) return 0;
  const int width = data[0] % 64 + 1;
  const size_t stride = kestrun::BitmapStride(static_cast<size_t>(width));
  const size_t height = std::max<size_t>(1, (size - kHeadBytes) / stride);
  kestrun::BitmapPixels pixels{width, static_cast<int>(height), std::vector<uint8_t>(stride * height)};
  const size_t count = std::min(pixels.bytes.size(), size - kHeadBytes);
  std::copy_n(data + kHeadBytes, count, pixels.bytes.begin());
  const int32_t key = (data[1] & 1) != 0 ? -1 : data[2] * 0x010101;
  const kestrun::RegionList list = kestrun::ListRuns(pixels, key, (data[1] & 2) != 0);
  kestrun::RegionRect before{0, -1, 0, 0};
  for (int32_t at = 0; at < list.count; ++at) {
    const kestrun::RegionRect& run = list.slots[static_cast<size_t>(at + kestrun::kFirstRect)];
    const bool lies_inside = run.left >= 0 && run.left < run.right && run.right <= width && run.top >= 0 &&
                             run.bottom == run.top + 1 && run.bottom <= static_cast<int>(height);
    const bool lies_behind = run.top > before.top || (run.top == before.top && run.left > before.right);
    if (!lies_inside || !lies_behind) std::abort();
    before = run;
  }
  return 0;
}
