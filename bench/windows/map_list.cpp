// A folder of many maps in the main window, from the change of the folder box to the painted list, beside the bare
// listing of the folder and the fill of an owner-drawn list box with as many rows. And what one keystroke in the folder
// box costs while that folder is shown. The same once more without the badges of the maps' health, which must not hold
// the listing up.
//   kestrun_map_list FOLDER EMPTY_FOLDER
#include <windows.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "desktop/win32/win32_platform.h"
#include "owner_drawn_list.h"
#include "timing.h"
#include "windows/main/frmain.h"

namespace kestrun {
namespace {

constexpr int kRounds = 15;
constexpr double kMostTimes = 1.5;
constexpr double kMostTimesWithoutBadges = 1.05;
// Faster than keys follow each other when a key is held down.
constexpr double kMostKeystrokeMs = 30;

void ListAndFill(HWND list, const std::wstring& folder) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.emplace_back(found.cFileName);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const std::wstring& name : names) SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
  UpdateWindow(list);
}

int Run(const std::string& folder, const std::string& empty_folder) {
  const HWND peer = MakeOwnerDrawnList(300, 340);
  auto& window = Window<frmain>();
  window.Show();
  RunPendingEvents();
  const std::wstring wide_folder(folder.begin(), folder.end());
  std::vector<double> ours;
  std::vector<double> theirs;
  std::vector<double> without_badges;
  std::vector<double> keystrokes;
  for (int round = 0; round < kRounds; ++round) {
    window.Text1.Text = empty_folder;
    RunPendingEvents();
    theirs.push_back(Milliseconds([&] { ListAndFill(peer, wide_folder); }));
    const auto list = [&] {
      window.Text1.Text = empty_folder;
      RunPendingEvents();
      return Milliseconds([&] {
        window.Text1.Text = folder;
        RunPendingEvents();
      });
    };
    const auto list_without_badges = [&] {
      RowBadges badges = window.ListBox.SetBadges({});
      without_badges.push_back(list());
      window.ListBox.SetBadges(std::move(badges));
    };
    // Each of the two goes first in every other round.
    if (round % 2 == 0) list_without_badges();
    ours.push_back(list());
    if (round % 2 == 1) list_without_badges();
    keystrokes.push_back(Milliseconds([&] {
      window.Text1.Text = folder + "x";
      RunPendingEvents();
    }));
  }
  const double our_time = Median(ours);
  const double their_time = Median(theirs);
  const double keystroke = Median(keystrokes);
  const int rows = window.ListBox.ListCount();
  const bool is_fast = rows > 0 && our_time <= kMostTimes * their_time;
  const double bare_time = Median(without_badges);
  const bool is_unhindered = our_time <= kMostTimesWithoutBadges * bare_time;
  const bool is_fluent = keystroke <= kMostKeystrokeMs;
  std::printf("%d maps shown in %.1f ms, listing and owner-drawn list box %.1f ms: %.2f times, at most %.1f   %s\n",
              rows, our_time, their_time, our_time / their_time, kMostTimes, is_fast ? "PASS" : "FAIL");
  std::printf("without badges %.1f ms: %.2f times, at most %.2f   %s\n", bare_time, our_time / bare_time,
              kMostTimesWithoutBadges, is_unhindered ? "PASS" : "FAIL");
  std::printf("a keystroke in the folder box %.1f ms, at most %.0f   %s\n", keystroke, kMostKeystrokeMs,
              is_fluent ? "PASS" : "FAIL");
  CloseAllWindows();
  RunPendingEvents();
  return is_fast && is_unhindered && is_fluent ? 0 : 1;
}

}  // namespace
}  // namespace kestrun

int main(int argument_count, char** arguments) {
  if (argument_count != 3) return 2;
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  return kestrun::Run(arguments[1], arguments[2]);
}
