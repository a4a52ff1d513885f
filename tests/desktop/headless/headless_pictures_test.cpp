#include "desktop/headless/headless_pictures.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrun {
namespace {

struct BitmapFields {
  uint32_t width = 2;
  uint32_t height = 2;  // negative: from the top
  uint16_t bit_count = 24;
  uint32_t compression = 0;
  uint32_t colors_used = 0;
  uint32_t info_bytes = 40;
  std::string colors{};
  std::string pixels{};
};

// A bitmap file whose pixels stand right behind its colours.
Bytes BitmapFile(const BitmapFields& fields) {
  Bytes file(54);
  file[0] = 'B';
  file[1] = 'M';
  StoreU32(file, 10, static_cast<uint32_t>(54 + fields.colors.size()));
  StoreU32(file, 14, fields.info_bytes);
  StoreU32(file, 18, fields.width);
  StoreU32(file, 22, fields.height);
  StoreU16(file, 28, fields.bit_count);
  StoreU32(file, 30, fields.compression);
  StoreU32(file, 46, fields.colors_used);
  for (const std::string& part : {fields.colors, fields.pixels}) file.insert(file.end(), part.begin(), part.end());
  return file;
}

// Two rows of two pixels, lowest first: blue green / red white, blue first in each.
const std::string kRows24("\xFF\0\0\0\xFF\0..\0\0\xFF\xFF\xFF\xFF..", 16);
const std::vector<uint32_t> kFromTheTop{0xFFFF0000, 0xFFFFFFFF, 0xFF0000FF, 0xFF00FF00};

TEST(HeadlessPicturesTest, TheLowestRowOfABitmapComesFirst) {
  const auto picture = HeadlessPictures().Decode(BitmapFile({.pixels = kRows24}));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 2);
  EXPECT_EQ(picture->height, 2);
  EXPECT_EQ(picture->pixels, kFromTheTop);
}

TEST(HeadlessPicturesTest, ANegativeHeightStartsAtTheTop) {
  const std::string rows = kRows24.substr(8) + kRows24.substr(0, 8);
  const auto picture = HeadlessPictures().Decode(BitmapFile({.height = static_cast<uint32_t>(-2), .pixels = rows}));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->pixels, kFromTheTop);
}

TEST(HeadlessPicturesTest, ThirtyTwoBitsHaveNoTransparency) {
  const auto picture = HeadlessPictures().Decode(
      BitmapFile({.width = 1, .height = 1, .bit_count = 32, .pixels = std::string("\x01\x02\x03\0", 4)}));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->pixels, std::vector<uint32_t>{0xFF030201});
}

TEST(HeadlessPicturesTest, EightBitsAreColorNumbers) {
  const auto picture = HeadlessPictures().Decode(BitmapFile({.height = 1,
                                                             .bit_count = 8,
                                                             .colors_used = 2,
                                                             .colors = std::string("\x01\x02\x03\0\x04\x05\x06\0", 8),
                                                             .pixels = std::string("\x01\x09\0\0", 4)}));
  ASSERT_TRUE(picture);
  // A number beyond the table is black.
  EXPECT_EQ(picture->pixels, (std::vector<uint32_t>{0xFF060504, 0xFF000000}));
}

TEST(HeadlessPicturesTest, DamagedBitmapsAreNoPictures) {
  HeadlessPictures pictures;
  EXPECT_FALSE(pictures.Decode({}));
  EXPECT_FALSE(pictures.Decode(AsBytes("BM")));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.pixels = "short"})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.width = 0, .pixels = kRows24})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.width = 20000, .height = 20000, .pixels = kRows24})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.width = 0x80000000, .height = 0x80000000, .pixels = kRows24})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.bit_count = 4, .pixels = kRows24})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.compression = 1, .pixels = kRows24})));
  EXPECT_FALSE(pictures.Decode(BitmapFile({.bit_count = 8, .pixels = kRows24})));  // no room for 256 colours
  EXPECT_FALSE(pictures.Decode(BitmapFile({.bit_count = 8, .colors_used = 257, .pixels = kRows24})));
  EXPECT_FALSE(
      pictures.Decode(BitmapFile({.bit_count = 8, .colors_used = 1, .info_bytes = 0xFFFFFFF0, .pixels = kRows24})));
}

TEST(HeadlessPicturesTest, OtherKindsDecodeAsTheTestSays) {
  HeadlessPictures pictures;
  EXPECT_FALSE(pictures.Decode(AsBytes("\xFF\xD8\xFF jpeg")));
  pictures.Answer("\xFF\xD8\xFF jpeg", {1, 1, {0xFF112233}});
  const auto picture = pictures.Decode(AsBytes("\xFF\xD8\xFF jpeg"));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->pixels, std::vector<uint32_t>{0xFF112233});
}

TEST(HeadlessPicturesTest, IconsHaveTheTwoSizesOfTheShell) {
  HeadlessPictures pictures;
  EXPECT_EQ(pictures.FileIcon("c:\\a.zip", 0)->width, 32);
  EXPECT_EQ(pictures.FileIcon("c:\\a.zip", 1)->width, 16);
  pictures.has_icons = false;
  EXPECT_FALSE(pictures.FileIcon("c:\\a.zip", 0));
  EXPECT_EQ(pictures.icon_requests.size(), 3U);
}

}  // namespace
}  // namespace kestrun
