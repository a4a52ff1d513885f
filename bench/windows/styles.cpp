// What styles cost: a bitmap to its list of rectangles beside one comparing pass, the list to a region beside the
// system's single call, and the skinning of the main window beside its opening.
//   kestrun_styles STYLE_FILE
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "desktop/win32/win32_platform.h"
#include "forms/window_registry.h"
#include "platform/window_effects.h"
#include "program/style_hook.h"
#include "styles/mod_style.h"
#include "styles/mod_trans_control.h"
#include "styles/style_active.h"
#include "timing.h"

namespace kestrun {
namespace {

constexpr int kRounds = 15;
constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kRunsPerRow = 5;
constexpr uint32_t kInk = 0x4080C0;

bool Tell(const char* what, double ours, double theirs, double most) {
  const bool is_fast = ours <= most * theirs;
  std::printf("%s: %.3f ms beside %.3f ms: %.2f times, at most %.2f   %s\n", what, ours, theirs, ours / theirs, most,
              is_fast ? "PASS" : "FAIL");
  return is_fast;
}

// Five bars of ink in each row, on black.
HBITMAP MakeBars() {
  BITMAPINFO info{};
  info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  auto* pixels = static_cast<uint32_t*>(bits);
  for (int at = 0; at < kWidth * kHeight; ++at) {
    const int place = at % kWidth % (kWidth / kRunsPerRow);
    pixels[at] = place >= 30 && place < 130 ? kInk : 0;
  }
  return bitmap;
}

int CountInk(const BitmapPixels& pixels) {
  int count = 0;
  const size_t stride = BitmapStride(static_cast<size_t>(pixels.width));
  for (int y = 0; y < pixels.height; ++y) {
    const uint8_t* at = pixels.bytes.data() + static_cast<size_t>(y) * stride;
    for (int x = 0; x < pixels.width; ++x, at += 3) count += at[0] != 0 || at[1] != 0 || at[2] != 0 ? 1 : 0;
  }
  return count;
}

bool MeasureRegions() {
  const auto bitmap = static_cast<BitmapNumber>(reinterpret_cast<intptr_t>(MakeBars()));
  std::vector<double> lists, passes, regions, calls;
  volatile int sink = 0;
  int32_t runs = 0;
  for (int round = 0; round < kRounds; ++round) {
    RegionList list;
    passes.push_back(Milliseconds([&] { sink = CountInk(*window_effects().ReadBitmap(bitmap, 0)); }));
    lists.push_back(Milliseconds([&] { list = ListRuns(*window_effects().ReadBitmap(bitmap, 0), 0, false); }));
    runs = list.count;
    RegionNumber made = 0;
    regions.push_back(Milliseconds([&] { made = RegionFromRects(list, kFirstRect, list.count + 1, 0, kWidth); }));
    window_effects().DeleteRegion(made);
    HRGN peer = nullptr;
    const auto size = static_cast<DWORD>((list.count + kFirstRect) * 16);
    calls.push_back(Milliseconds(
        [&] { peer = ExtCreateRegion(nullptr, size, reinterpret_cast<const RGNDATA*>(list.slots.data())); }));
    DeleteObject(peer);
  }
  std::printf("%d x %d pixels, %d runs\n", kWidth, kHeight, runs);
  const bool list_is_fast = Tell("bitmap to list beside one comparing pass", Median(lists), Median(passes), 2);
  return Tell("list to region beside one call", Median(regions), Median(calls), 1.1) && list_is_fast;
}

double OpenMainWindow() {
  const double time = Milliseconds([] {
    static_cast<void>(ShowWindow("frmain"));
    RunPendingEvents();
  });
  CloseAllWindows();
  RunPendingEvents();
  return time;
}

// The scripts on a window that has loaded without a style, as they find it in the middle of its load.
double SkinMainWindow() {
  SetStyleActive(false);
  Form& window = WindowByName("frmain");
  SetStyleActive(true);
  const double time = Milliseconds([&] { ModStyle::FormLoadStyle(window); });
  CloseAllWindows();
  RunPendingEvents();
  return time;
}

bool MeasureSkinning(const std::string& style) {
  OpenMainWindow();
  ModStyle::LoadStyleFile(style);
  if (!StyleActive()) return false;
  std::vector<double> plain, skinning, skinned;
  for (int round = 0; round < kRounds; ++round) {
    SetStyleActive(false);
    plain.push_back(OpenMainWindow());
    skinning.push_back(SkinMainWindow());
    skinned.push_back(OpenMainWindow());
  }
  std::printf("the main window opens in %.1f ms without the style and in %.1f ms with it\n", Median(plain),
              Median(skinned));
  return Tell("skinning the main window beside opening it", Median(skinning), Median(plain), 0.25);
}

}  // namespace
}  // namespace kestrun

int main(int argument_count, char** arguments) {
  if (argument_count != 2) return 2;
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  const bool regions = kestrun::MeasureRegions();
  return kestrun::MeasureSkinning(arguments[1]) && regions ? 0 : 1;
}
