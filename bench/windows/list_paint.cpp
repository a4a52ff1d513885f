// A McListBox and the system's own list box drawn by its owner, with the same 10,000 rows, painted whole and scrolled
// row by row: how long a paint takes in each.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "controls/list_box/mc_list_box.h"
#include "forms/form.h"
#include "platform/win32/win32_platform.h"

namespace kestrun {
namespace {

constexpr int kRows = 10'000;
constexpr int kPaints = 200;
constexpr int kRowHeight = 22;
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

// The plain way of an owner: background, then the text.
void DrawRow(const DRAWITEMSTRUCT& item) {
  const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(is_selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(is_selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  wchar_t text[100]{};
  SendMessageW(item.hwndItem, LB_GETTEXT, item.itemID, reinterpret_cast<LPARAM>(text));
  RECT place = item.rcItem;
  place.left += 5;
  DrawTextW(item.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MEASUREITEM) {
    reinterpret_cast<MEASUREITEMSTRUCT*>(second)->itemHeight = kRowHeight;
    return TRUE;
  }
  if (message == WM_DRAWITEM) {
    DrawRow(*reinterpret_cast<DRAWITEMSTRUCT*>(second));
    return TRUE;
  }
  return DefWindowProcW(window, message, first, second);
}

HWND MakeOwnerDrawn() {
  WNDCLASSW owner_class{};
  owner_class.lpfnWndProc = OwnerProcedure;
  owner_class.hInstance = GetModuleHandleW(nullptr);
  owner_class.lpszClassName = L"Owner";
  RegisterClassW(&owner_class);
  const HWND owner = CreateWindowW(L"Owner", L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 500, 0, 430, 480, nullptr,
                                   nullptr, owner_class.hInstance, nullptr);
  const HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                                    WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 0, 0, 400,
                                    440, owner, nullptr, owner_class.hInstance, nullptr);
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
  const HWND peer = MakeOwnerDrawn();
  RunPendingEvents();
  if (!ours) {
    std::printf("the list's window was not found\n");
    return 1;
  }
  // A paint of ours is a change of the model first: what is unchanged is only copied to the screen.
  const double ours_whole = MedianOf([&](int) {
    form->list.Refresh();
    UpdateWindow(ours);
  });
  const double peer_whole = PaintWhole(peer);
  const double ours_scroll = MedianOf([&](int step) {
    form->list.OnScroll(100 + step);
    UpdateWindow(ours);
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
