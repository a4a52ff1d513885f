// Pictures as bitmap files, byte by byte.
#include "formats/bitmap/bitmap_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrun {
namespace {

using testing::ElementsAre;

constexpr size_t kHeaders = 54;

std::vector<int> PixelBytes(const Bytes& file) { return {file.begin() + kHeaders, file.end()}; }
uint32_t FieldAt(const Bytes& file, size_t at) { return LoadU32(file, at); }

TEST(BitmapFileTest, TheHeadersSayHowLargeThePictureIs) {
  const Bytes file = EncodeBitmap(3, 2, std::vector<uint32_t>(6, 0xFF000000));
  EXPECT_EQ(AsChars(file).substr(0, 2), "BM");
  EXPECT_EQ(FieldAt(file, 2), file.size());
  EXPECT_EQ(FieldAt(file, 10), kHeaders);  // where the pixels begin
  EXPECT_EQ(FieldAt(file, 14), 40U);       // of the second header
  EXPECT_EQ(FieldAt(file, 18), 3U);
  EXPECT_EQ(FieldAt(file, 22), 2U);
  EXPECT_EQ(FieldAt(file, 26), 24U << 16 | 1U);  // bits a pixel, planes
  EXPECT_EQ(FieldAt(file, 30), 0U);              // not packed
  EXPECT_EQ(FieldAt(file, 34), 24U);             // two rows of nine bytes and three to fill up
  EXPECT_EQ(file.size(), kHeaders + 24);
}

TEST(BitmapFileTest, TheLowestRowComesFirstAndBlueComesFirstInAPixel) {
  const Bytes file = EncodeBitmap(1, 2, {0xFF112233, 0xFF445566});
  EXPECT_THAT(PixelBytes(file), ElementsAre(0x66, 0x55, 0x44, 0, 0x33, 0x22, 0x11, 0));
}

TEST(BitmapFileTest, RowsAreFilledUpToFourBytes) {
  for (const auto& [width, row_bytes] : {std::pair{1, 4}, std::pair{2, 8}, std::pair{3, 12}, std::pair{4, 12}}) {
    const Bytes file = EncodeBitmap(width, 1, std::vector<uint32_t>(static_cast<size_t>(width), 0xFFFFFFFF));
    EXPECT_EQ(file.size(), kHeaders + static_cast<size_t>(row_bytes)) << width;
  }
}

TEST(BitmapFileTest, WhatShinesThroughIsWhite) {
  const Bytes file = EncodeBitmap(2, 1, {0x00102030, 0x80000000});
  EXPECT_THAT(PixelBytes(file), ElementsAre(255, 255, 255, 127, 127, 127, 0, 0));
}

TEST(BitmapFileTest, APictureWithoutPixelsIsHeadersAlone) { EXPECT_EQ(EncodeBitmap(0, 0, {}).size(), kHeaders); }

}  // namespace
}  // namespace kestrun
