// What a window shows on the screen, pixel by pixel.
#pragma once

#include <algorithm>
#include <vector>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/windows_api.h"
#include "forms/color.h"

namespace kestrun {

// A window as it is on the screen, its edge included.
struct Shot {
  int width = 0;
  int height = 0;
  std::vector<Color> pixels;
  [[nodiscard]] Color At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
  bool operator==(const Shot&) const = default;
};

[[nodiscard]] inline Shot ShotOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  Shot shot{static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), {}};
  const PixelBitmap bitmap = MakePixelBitmap(shot.width, shot.height);
  const HDC source = GetWindowDC(window);
  const MemoryDevice copy(CreateCompatibleDC(source));
  const HGDIOBJ previous = SelectObject(copy.get(), bitmap.bitmap.get());
  BitBlt(copy.get(), 0, 0, shot.width, shot.height, source, 0, 0, SRCCOPY);
  GdiFlush();
  for (int at = 0; at < shot.width * shot.height; ++at) {
    const uint32_t pixel = bitmap.pixels[at];
    shot.pixels.push_back(Rgb(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF));
  }
  SelectObject(copy.get(), previous);
  ReleaseDC(window, source);
  return shot;
}

// Lighter than whatever a test draws in dark colours.
[[nodiscard]] inline bool IsLight(Color pixel) {
  constexpr int kLight = 0xC8;
  return (pixel & 0xFF) >= kLight && (pixel >> 8 & 0xFF) >= kLight && (pixel >> 16 & 0xFF) >= kLight;
}

// Light pixels in the whole picture.
[[nodiscard]] inline int LightPixels(const Shot& shot) {
  return static_cast<int>(std::ranges::count_if(shot.pixels, &IsLight));
}

[[nodiscard]] inline int CountOf(const Shot& shot, Color color) {
  return static_cast<int>(std::ranges::count(shot.pixels, color));
}

}  // namespace kestrun
