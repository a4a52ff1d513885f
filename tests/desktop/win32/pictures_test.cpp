#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "desktop/win32/drawing/win32_pictures.h"
#include "desktop/win32/picture_samples.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/win32_files.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

constexpr uint32_t kRed = 0xFFFF0000;
constexpr uint32_t kGreen = 0xFF00FF00;
constexpr uint32_t kBlue = 0xFF0000FF;
constexpr uint32_t kWhite = 0xFFFFFFFF;
constexpr uint32_t kBlack = 0xFF000000;
constexpr uint32_t kGrey = 0xFF808080;
const std::vector<uint32_t> kSixColors{kRed, kGreen, kBlue, kWhite, kBlack, kGrey};

template <size_t kSize>
ByteView Sample(const char (&text)[kSize]) {
  return AsBytes(std::string_view(text, kSize - 1));
}

class PicturesTest : public testing::Test {
 protected:
  void ExpectSixColors(ByteView file) {
    const auto picture = pictures.Decode(file);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 3);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->pixels, kSixColors);
  }
  static uint32_t PixelAt(const DecodedPicture& picture, int x, int y) {
    return picture.pixels[static_cast<size_t>(y * picture.width + x)];
  }
  // Red where the quarter is painted, free elsewhere.
  static void ExpectRedQuarter(const std::optional<DecodedPicture>& picture) {
    ASSERT_TRUE(picture);
    EXPECT_EQ(PixelAt(*picture, picture->width / 4, picture->height / 4), kRed);
    EXPECT_EQ(PixelAt(*picture, picture->width * 3 / 4, picture->height * 3 / 4) >> 24, 0U);
  }

  Win32Pictures pictures;
};

TEST_F(PicturesTest, PngGifAndBitmapDecodeToTheirPixels) {
  ExpectSixColors(Sample(sample::kPng));
  ExpectSixColors(Sample(sample::kGif));
  ExpectSixColors(Sample(sample::kBitmap));
}

TEST_F(PicturesTest, AJpegDecodesCloseToItsPixels) {
  const auto picture = pictures.Decode(Sample(sample::kJpeg));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 8);
  EXPECT_EQ(picture->height, 8);
  const uint32_t pixel = PixelAt(*picture, 4, 4);
  EXPECT_EQ(pixel >> 24, 0xFFU);
  EXPECT_NEAR((pixel >> 16) & 0xFF, 0xC0, 4);
  EXPECT_NEAR((pixel >> 8) & 0xFF, 0x40, 4);
  EXPECT_NEAR(pixel & 0xFF, 0x20, 4);
}

// ---- icons and mouse cursors -------------------------------------------------------------------------------------

constexpr uint16_t kIconKind = 1;
constexpr uint16_t kCursorKind = 2;

// One image of 16 by 16 pixels with 32 bits each: red in its upper left quarter, free elsewhere.
Bytes IconFile(uint16_t kind) {
  constexpr size_t kSide = 16;
  constexpr size_t kImageAt = 22;
  constexpr size_t kPixelsAt = kImageAt + 40;
  constexpr size_t kMaskAt = kPixelsAt + kSide * kSide * 4;
  Bytes file(kMaskAt + kSide * 4);
  StoreU16(file, 2, kind);
  StoreU16(file, 4, 1);  // images
  file[6] = kSide;
  file[7] = kSide;
  if (kind == kIconKind) {
    StoreU16(file, 10, 1);   // planes
    StoreU16(file, 12, 32);  // bits
  } else {
    StoreU16(file, 10, 3);  // hot spot
    StoreU16(file, 12, 4);
  }
  StoreU32(file, 14, static_cast<uint32_t>(file.size() - kImageAt));
  StoreU32(file, 18, kImageAt);
  StoreU32(file, kImageAt, 40);
  StoreU32(file, kImageAt + 4, kSide);
  StoreU32(file, kImageAt + 8, 2 * kSide);  // with the mask
  StoreU16(file, kImageAt + 12, 1);
  StoreU16(file, kImageAt + 14, 32);
  for (size_t row = 0; row < kSide; ++row) {
    const bool is_upper = row >= kSide / 2;  // rows go from the bottom to the top
    for (size_t x = 0; x < kSide / 2 && is_upper; ++x) StoreU32(file, kPixelsAt + (row * kSide + x) * 4, kRed);
    file[kMaskAt + row * 4] = is_upper ? 0x00 : 0xFF;
    file[kMaskAt + row * 4 + 1] = 0xFF;
  }
  return file;
}

TEST_F(PicturesTest, AnIconKeepsItsTransparency) {
  const auto picture = pictures.Decode(IconFile(kIconKind));
  ExpectRedQuarter(picture);
  EXPECT_EQ(picture->width, 16);
  EXPECT_EQ(picture->height, 16);
}

TEST_F(PicturesTest, ACursorIsAPictureToo) { ExpectRedQuarter(pictures.Decode(IconFile(kCursorKind))); }

// ---- metafiles ---------------------------------------------------------------------------------------------------

void PaintRedQuarter(HDC target, int side) {
  const BrushHandle brush(CreateSolidBrush(RGB(255, 0, 0)));
  const RECT quarter{0, 0, side / 2, side / 2};
  FillRect(target, &quarter, brush.get());
}

// A metafile of 10 by 10 millimetres.
Bytes EnhancedMetafile() {
  const RECT frame{0, 0, 1000, 1000};
  const HDC target = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
  SetMapMode(target, MM_ANISOTROPIC);
  SetWindowExtEx(target, 100, 100, nullptr);
  const HDC screen = GetDC(nullptr);
  const int side = MulDiv(10, GetDeviceCaps(screen, HORZRES), GetDeviceCaps(screen, HORZSIZE));
  ReleaseDC(nullptr, screen);
  SetViewportExtEx(target, side, side, nullptr);
  PaintRedQuarter(target, 100);
  const HENHMETAFILE metafile = CloseEnhMetaFile(target);
  Bytes file(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(file.size()), file.data());
  DeleteEnhMetaFile(metafile);
  return file;
}

// An old metafile behind the header that tells its size: 100 by 100 units of 1/254 inch.
Bytes PlaceableMetafile() {
  const HDC target = CreateMetaFileW(nullptr);
  SetMapMode(target, MM_ANISOTROPIC);
  SetWindowOrgEx(target, 0, 0, nullptr);
  SetWindowExtEx(target, 100, 100, nullptr);
  const BrushHandle brush(CreateSolidBrush(RGB(255, 0, 0)));
  SelectObject(target, brush.get());
  SelectObject(target, GetStockObject(NULL_PEN));
  Rectangle(target, 0, 0, 51, 51);
  const HMETAFILE metafile = CloseMetaFile(target);
  Bytes records(GetMetaFileBitsEx(metafile, 0, nullptr));
  GetMetaFileBitsEx(metafile, static_cast<UINT>(records.size()), records.data());
  DeleteMetaFile(metafile);
  Bytes file(22);
  StoreU32(file, 0, 0x9AC6CDD7);
  StoreU16(file, 10, 100);  // right
  StoreU16(file, 12, 100);  // bottom
  StoreU16(file, 14, 254);  // units to the inch
  uint16_t checksum = 0;
  for (size_t at = 0; at < 20; at += 2) checksum = static_cast<uint16_t>(checksum ^ LoadU16(file, at));
  StoreU16(file, 20, checksum);
  file.insert(file.end(), records.begin(), records.end());
  return file;
}

TEST_F(PicturesTest, AnEnhancedMetafileIsPaintedAtItsOwnSize) {
  const auto picture = pictures.Decode(EnhancedMetafile());
  ExpectRedQuarter(picture);
  EXPECT_NEAR(picture->width, 38, 2);  // 10 mm at 96 dots per inch
}

TEST_F(PicturesTest, APlaceableMetafileIsPaintedAtItsOwnSize) {
  const auto picture = pictures.Decode(PlaceableMetafile());
  ExpectRedQuarter(picture);
  EXPECT_NEAR(picture->width, 38, 2);
}

// ---- what is no picture ------------------------------------------------------------------------------------------

TEST_F(PicturesTest, BytesThatAreNoPictureGiveNothing) {
  EXPECT_FALSE(pictures.Decode({}));
  EXPECT_FALSE(pictures.Decode(AsBytes("BM")));
  EXPECT_FALSE(pictures.Decode(AsBytes("<html>not found</html>")));
  EXPECT_FALSE(pictures.Decode(AsBytes("GIF89a")));
  EXPECT_FALSE(pictures.Decode(Sample(sample::kJpeg).first(20)));
}

// A bitmap's header that claims a size.
Bytes ClaimingBitmap(uint32_t width, uint32_t height) {
  const ByteView sample = Sample(sample::kBitmap);
  Bytes file(sample.begin(), sample.end());
  StoreU32(file, 18, width);
  StoreU32(file, 22, height);
  return file;
}

TEST_F(PicturesTest, AClaimedSizeThatIsNotAllowedIsRefused) {
  EXPECT_FALSE(pictures.Decode(ClaimingBitmap(20000, 2)));
  EXPECT_FALSE(pictures.Decode(ClaimingBitmap(2, 20000)));
  EXPECT_FALSE(pictures.Decode(ClaimingBitmap(16000, 16000)));
  EXPECT_FALSE(pictures.Decode(ClaimingBitmap(0x7FFFFFFF, 0x7FFFFFFF)));
}

TEST_F(PicturesTest, ACutPictureIsNeverMoreThanItsSize) {
  for (const ByteView whole : {Sample(sample::kPng), Sample(sample::kGif), Sample(sample::kBitmap)}) {
    for (size_t length = 0; length < whole.size(); length += 7) {
      const auto picture = pictures.Decode(whole.first(length));
      if (picture) {
        EXPECT_EQ(picture->pixels.size(), 6U) << length;
      }
    }
  }
}

// ---- icons of the shell ------------------------------------------------------------------------------------------

TEST_F(PicturesTest, TheShellsIconOfAFileHasPixels) {
  const TemporaryFolder folder;
  const std::string path = folder.path() + "\\a.txt";
  Win32FileSystem().WriteAll(path, AsBytes("x"));
  const auto large = pictures.FileIcon(path, 0);
  ASSERT_TRUE(large);
  EXPECT_EQ(large->width, GetSystemMetrics(SM_CXICON));
  EXPECT_TRUE(std::any_of(large->pixels.begin(), large->pixels.end(), [](uint32_t pixel) { return pixel >> 24; }));
  const auto small = pictures.FileIcon(path, 1);
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width, GetSystemMetrics(SM_CXSMICON));
}

TEST_F(PicturesTest, AFileThatIsNotThereHasNoIcon) { EXPECT_FALSE(pictures.FileIcon("c:\\none\\none.txt", 0)); }

// ---- the owner of references -------------------------------------------------------------------------------------

struct CountedReference {
  int releases = 0;
  void Release() { ++releases; }
};

TEST(ComOwnerTest, EachReferenceIsReleasedOnce) {
  CountedReference first;
  CountedReference second;
  {
    ComOwner<CountedReference> owner;
    *owner.Receive() = &first;
    *owner.Receive() = &second;
    EXPECT_EQ(first.releases, 1);
    ComOwner<CountedReference> other(std::move(owner));
    EXPECT_FALSE(owner);
    ComOwner<CountedReference>& same = other;
    other = std::move(same);
    EXPECT_EQ(other.get(), &second);
    EXPECT_EQ(second.releases, 0);
  }
  EXPECT_EQ(second.releases, 1);
}

}  // namespace
}  // namespace kestrun
