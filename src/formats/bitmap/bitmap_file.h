// Pictures as bitmap files: the BMP format with a BITMAPINFOHEADER and 24 bits a pixel.
#pragma once

#include <cstdint>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

// A file of width x height pixels 0xAARRGGBB, which come in rows from top to bottom. The format knows no transparency:
// what shines through is white.
[[nodiscard]] Bytes EncodeBitmap(int width, int height, const std::vector<uint32_t>& pixels);

}  // namespace kestrun
