// A McListBox and the system's own list box drawn by its owner, with the same 10,000 rows, painted whole and scrolled
// row by row: how long a paint takes in each.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "controls/list_box/mc_list_box.h"
#include "desktop/win32/win32_platform.h"
#include "forms/form.h"
#include "owner_drawn_list.h"

namespace kestrun {
namespace {

constexpr int kRows = 10'000;
constexpr int kPaints = 200;
constexpr double kTimesFaster = 5;

using Clock = std::chrono::steady_clock;

class PaintForm final : public Form {
 public:
  PaintForm() : Form("PaintForm") {
    SetClientSize(6000, 6600);
    list.Move(0, 0, 6000, 6600);
  }
  McListBox& list = Add<McListBox>("ListBox1");
};

std::wstring RowText(int row) { return L"Map number " + std::to_wstring(row) + L" of the month.bms"; }

HWND MakePeer() {
  const HWND list = MakeOwnerDrawnList(400, 440);
  for (int row = 0; row < kRows; ++row) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(RowText(row).c_str()));
  }
  SendMessageW(list, LB_SETCURSEL, 3, 0);
  return list;
}

// The median of single paints: now and then the window system is busy.
template <class Work>
double MedianOf(Work&& work) {
  std::vector<double> times;
  for (int paint = 0; paint < kPaints; ++paint) {
    const auto start = Clock::now();
    work(paint);
    GdiFlush();
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::nth_element(times.begin(), times.begin() + kPaints / 2, times.end());
  return times[kPaints / 2];
}

double PaintWhole(HWND list) {
  return MedianOf([list](int) {
    InvalidateRect(list, nullptr, TRUE);
    UpdateWindow(list);
  });
}

// Until the window has handled what was posted to it and is painted.
void Settle(HWND window) {
  MSG message;
  while (PeekMessageW(&message, window, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

bool Report(const char* what, double peer, double ours) {
  const bool passed = peer >= kTimesFaster * ours;
  std::printf("%-24s owner-drawn list box %6.3f ms, McListBox %6.3f ms: %5.1f times, at least %.0f   %s\n", what, peer,
              ours, peer / ours, kTimesFaster, passed ? "PASS" : "FAIL");
  return passed;
}

int Run() {
  const Ref<PaintForm> form = MakeRef<PaintForm>();
  for (int row = 0; row < kRows; ++row) form->list.AddItem("Map number " + std::to_string(row) + " of the month.bms");
  form->list.SetListIndex(3);
  form->Show();
  form->list.Refresh();
  const HWND top = FindWindowW(nullptr, L"PaintForm");
  const HWND ours = FindWindowExW(top ? top : GetActiveWindow(), nullptr, L"KestrunControl", nullptr);
  const HWND peer = MakePeer();
  RunPendingEvents();
  if (!ours) {
    std::printf("the list's window was not found\n");
    return 1;
  }
  // A paint of ours is a change of the model first: what is unchanged is only copied to the screen.
  const double ours_whole = MedianOf([&](int) {
    form->list.Refresh();
    Settle(ours);
  });
  const double peer_whole = PaintWhole(peer);
  const double ours_scroll = MedianOf([&](int step) {
    form->list.OnScroll(100 + step);
    Settle(ours);
  });
  const double peer_scroll = MedianOf([&](int step) {
    SendMessageW(peer, LB_SETTOPINDEX, static_cast<WPARAM>(100 + step), 0);
    // The same rows again: the system moves what is there and would draw one row only.
    InvalidateRect(peer, nullptr, TRUE);
    UpdateWindow(peer);
  });
  // Without the bar both spend most of a paint in bringing it to the screen.
  const double bare = PaintWhole(ours);
  std::printf("the same rows again:     owner-drawn list box  %.3f ms, McListBox  %.3f ms, a bare copy %.3f ms\n",
              peer_whole, ours_whole, bare);
  const bool passed = Report("scrolled by one row:", peer_scroll, ours_scroll);
  form->Unload();
  return passed ? 0 : 1;
}

}  // namespace
}  // namespace kestrun

int main() {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  return kestrun::Run();
}
