#include "desktop/win32/drawing/graphics.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr int kLargestCursor = 256;

uint32_t Premultiplied(uint32_t pixel) {
  const uint32_t alpha = pixel >> 24;
  const auto channel = [&](int shift) { return (((pixel >> shift) & 0xFF) * alpha + 127) / 255 << shift; };
  return (alpha << 24) | channel(16) | channel(8) | channel(0);
}

PixelBitmap PremultipliedBitmap(const Picture& picture, int width, int height) {
  PixelBitmap made = MakePixelBitmap(width, height);
  if (!made.pixels) return made;
  const std::vector<uint32_t> pixels = ScalePixels(picture, width, height);
  std::transform(pixels.begin(), pixels.end(), made.pixels, Premultiplied);
  return made;
}

// Sums of the pixels under one target pixel, weighted by the covered area and by alpha.
struct PixelSum {
  double alpha = 0;
  double red = 0;
  double green = 0;
  double blue = 0;
  double weight = 0;

  void Add(uint32_t pixel, double area) {
    const double opaque = (pixel >> 24) * area;
    alpha += opaque;
    red += ((pixel >> 16) & 0xFF) * opaque;
    green += ((pixel >> 8) & 0xFF) * opaque;
    blue += (pixel & 0xFF) * opaque;
    weight += area;
  }

  [[nodiscard]] uint32_t Average() const {
    if (alpha <= 0 || weight <= 0) return 0;
    const auto byte = [](double value) { return static_cast<uint32_t>(std::clamp(std::lround(value), 0L, 255L)); };
    return byte(alpha / weight) << 24 | byte(red / alpha) << 16 | byte(green / alpha) << 8 | byte(blue / alpha);
  }
};

// A square icon, or a mouse cursor whose hot spot is its top left corner.
IconHandle MakeIconOrCursor(const Picture& picture, int size_pixels, bool is_icon) {
  PixelBitmap colors = MakePixelBitmap(size_pixels, size_pixels);
  if (!colors.pixels) return {};
  const std::vector<uint32_t> pixels = ScalePixels(picture, size_pixels, size_pixels);
  std::copy(pixels.begin(), pixels.end(), colors.pixels);
  // One bit for each pixel, rows padded to 16 bits: set where nothing is drawn.
  const size_t row_bytes = (static_cast<size_t>(size_pixels) + 15) / 16 * 2;
  std::vector<uint8_t> mask_bits(row_bytes * static_cast<size_t>(size_pixels));
  for (size_t at = 0; at < pixels.size(); ++at) {
    const size_t x = at % static_cast<size_t>(size_pixels);
    const size_t y = at / static_cast<size_t>(size_pixels);
    if (pixels[at] >> 24 == 0) mask_bits[y * row_bytes + x / 8] |= static_cast<uint8_t>(0x80 >> (x % 8));
  }
  const BitmapHandle mask(CreateBitmap(size_pixels, size_pixels, 1, 1, mask_bits.data()));
  ICONINFO info{};
  info.fIcon = is_icon;
  info.hbmColor = colors.bitmap.get();
  info.hbmMask = mask.get();
  return IconHandle(CreateIconIndirect(&info));
}

}  // namespace

BITMAPINFO TopDownInfo(int width, int height, WORD bits_per_pixel) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = bits_per_pixel;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

PixelBitmap MakePixelBitmap(int width, int height) {
  const BITMAPINFO info = TopDownInfo(width, height, 32);
  void* bits = nullptr;
  PixelBitmap made;
  made.bitmap.Reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  made.pixels = static_cast<uint32_t*>(bits);
  return made;
}

COLORREF ToColorRef(Color color) {
  return IsSystemColor(color) ? GetSysColor(static_cast<int>(color & 0xFF)) : color & 0xFFFFFF;
}

FontHandle MakeFont(const FontDescription& font, ScreenScale scale) {
  LOGFONTW description{};
  description.lfHeight = -static_cast<LONG>(std::lround(font.size_points * scale.dpi() / 72.0));
  description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  description.lfItalic = font.italic;
  description.lfUnderline = font.underline;
  description.lfStrikeOut = font.strikethrough;
  description.lfCharSet = static_cast<BYTE>(font.charset == 0 ? DEFAULT_CHARSET : font.charset);
  description.lfQuality = CLEARTYPE_QUALITY;
  // The bitmap font of old dialogues has one size only; Tahoma has its widths, and every size.
  const std::wstring name = ToWide(font.name == "MS Sans Serif" ? "Tahoma" : font.name);
  std::wcsncpy(description.lfFaceName, name.c_str(), LF_FACESIZE - 1);
  return FontHandle(CreateFontIndirectW(&description));
}

std::vector<uint32_t> ScalePixels(const Picture& picture, int width, int height) {
  const int source_width = picture.width_pixels();
  const int source_height = picture.height_pixels();
  if (width == source_width && height == source_height) return picture.pixels();
  std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
  const double step_x = static_cast<double>(source_width) / width;
  const double step_y = static_cast<double>(source_height) / height;
  for (int y = 0; y < height; ++y) {
    const double top = y * step_y;
    const double bottom = std::min<double>((y + 1) * step_y, source_height);
    for (int x = 0; x < width; ++x) {
      const double left = x * step_x;
      const double right = std::min<double>((x + 1) * step_x, source_width);
      PixelSum sum;
      for (int from_y = static_cast<int>(top); from_y < bottom; ++from_y) {
        const double covered_y = std::min<double>(bottom, from_y + 1) - std::max<double>(top, from_y);
        for (int from_x = static_cast<int>(left); from_x < right; ++from_x) {
          const double covered_x = std::min<double>(right, from_x + 1) - std::max<double>(left, from_x);
          sum.Add(picture.pixels()[static_cast<size_t>(from_y * source_width + from_x)], covered_x * covered_y);
        }
      }
      pixels[static_cast<size_t>(y * width + x)] = sum.Average();
    }
  }
  return pixels;
}

void DrawPictureTo(HDC target, const Picture& picture, const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  const PixelBitmap bitmap = PremultipliedBitmap(picture, width, height);
  if (!bitmap.pixels) return;
  const MemoryDevice source(CreateCompatibleDC(target));
  const HGDIOBJ previous = SelectObject(source.get(), bitmap.bitmap.get());
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  // AlphaBlend itself, without the library that only passes the call on.
  GdiAlphaBlend(target, area.left, area.top, width, height, source.get(), 0, 0, width, height, blend);
  SelectObject(source.get(), previous);
}

IconHandle MakeIcon(const Picture& picture, int size_pixels) { return MakeIconOrCursor(picture, size_pixels, true); }

IconHandle MakeCursor(const Picture& picture, int dpi) {
  const int largest = std::clamp(std::max(picture.width_pixels(), picture.height_pixels()), 1, kLargestCursor);
  return MakeIconOrCursor(picture, MulDiv(largest, dpi, 96), false);
}

bool IsWine() {
  static const bool is_wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return is_wine;
}

// Windows blends a menu's bitmaps with what is behind them; Wine copies their pixels, and leaves no gap to the text.
BitmapHandle MakeMenuBitmap(const Picture& picture, int size_pixels) {
  return std::move(PremultipliedBitmap(picture, size_pixels, size_pixels).bitmap);
}

void FillColor(HDC target, const RECT& area, Color color) {
  const BrushHandle brush(CreateSolidBrush(ToColorRef(color)));
  FillRect(target, &area, brush.get());
}

}  // namespace kestrun
