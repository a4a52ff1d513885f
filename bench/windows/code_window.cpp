// The style editor's code window with a module of 1 MB beside the system's bare edit control with the same text and
// font: opening it until it is painted, and a keystroke in the middle of it.
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "desktop/win32/win32_platform.h"
#include "formats/pff/cls_pff.h"
#include "forms/window_registry.h"
#include "styles/style_project.h"
#include "timing.h"
#include "windows/style_editor/frmedit.h"

namespace kestrun {
namespace {

constexpr int kRounds = 9;
constexpr int kKeys = 25;
constexpr size_t kModuleBytes = 1 << 20;
constexpr double kMostTimes = 3;

std::string ModuleText() {
  std::string text;
  for (int line = 0; text.size() < kModuleBytes; ++line) {
    text += "    Form.Controls(" + std::to_string(line) + ").BackColor = RGB(31, 55, 65)  ' the field's own colour\r\n";
  }
  return text;
}

// The edit control in the editor's window.
HWND CodeWindow(FrmEdit& editor) {
  return reinterpret_cast<HWND>(static_cast<intptr_t>(editor.TxtCode.WindowNumber()));
}

HWND MakePeer(HWND like) {
  RECT place{};
  GetClientRect(like, &place);
  const HWND edit = CreateWindowExW(
      0, L"EDIT", L"",
      WS_POPUP | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_WANTRETURN | ES_AUTOHSCROLL | ES_AUTOVSCROLL,
      0, 0, place.right, place.bottom, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(edit, EM_LIMITTEXT, 0, 0);
  SendMessageW(edit, WM_SETFONT, static_cast<WPARAM>(SendMessageW(like, WM_GETFONT, 0, 0)), FALSE);
  return edit;
}

double TypeOne(HWND edit) {
  return Milliseconds([&] {
    SendMessageW(edit, WM_CHAR, L'x', 1);
    UpdateWindow(edit);
    RunPendingEvents();
  });
}

std::vector<double> TypeMany(HWND edit) {
  const auto middle = static_cast<WPARAM>(kModuleBytes / 2);
  SendMessageW(edit, EM_SETSEL, middle, static_cast<LPARAM>(middle));
  SendMessageW(edit, EM_SCROLLCARET, 0, 0);
  UpdateWindow(edit);
  std::vector<double> times;
  for (int key = 0; key < kKeys; ++key) times.push_back(TypeOne(edit));
  return times;
}

void OpenEntry(FrmEdit& editor, const char* key) {
  editor.TreeView.Select(editor.TreeView.FindNode(key));
  editor.TreeView.DblClick();
  UpdateWindow(CodeWindow(editor));
}

bool Report(const char* what, double peer, double ours) {
  const bool passed = ours <= kMostTimes * peer;
  std::printf("%-14s bare edit control %8.2f ms, code window %8.2f ms: %5.2f times, at most %.0f   %s\n", what, peer,
              ours, ours / peer, kMostTimes, passed ? "PASS" : "FAIL");
  return passed;
}

int Run(const std::string& file) {
  const std::string text = ModuleText();
  ClsPFF archive;
  archive.NewPffFile(file);
  archive.PackFile(AsBytes("include main.vbs"), "assembly.txt");
  archive.PackFile(AsBytes(text), "main.vbs");
  archive.SavePffFile();
  auto& editor = Window<FrmEdit>();
  editor.LoadStyle(file);
  editor.Show();
  RunPendingEvents();
  const HWND peer = MakePeer(CodeWindow(editor));
  const std::wstring wide(text.begin(), text.end());
  std::vector<double> ours;
  std::vector<double> theirs;
  for (int round = 0; round < kRounds; ++round) {
    OpenEntry(editor, "0TEXT");
    editor.SaveStyleScript();
    SetWindowTextW(peer, L"");
    theirs.push_back(Milliseconds([&] {
      SetWindowTextW(peer, wide.c_str());
      UpdateWindow(peer);
    }));
    ours.push_back(Milliseconds([&] { OpenEntry(editor, "1MOD"); }));
    editor.SaveStyleScript();
  }
  bool passed = Report("opening:", Median(theirs), Median(ours));
  passed = Report("a keystroke:", Median(TypeMany(peer)), Median(TypeMany(CodeWindow(editor)))) && passed;
  CloseAllWindows();
  return passed ? 0 : 1;
}

}  // namespace
}  // namespace kestrun

int main(int count, char** arguments) {
  kestrun::Win32Platform platform;
  const kestrun::PlatformInstallation installation(platform);
  return count == 2 ? kestrun::Run(arguments[1]) : 2;
}
