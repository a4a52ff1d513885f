// The auto host's window in a process of its own, driven by its buttons and menus.
#pragma once

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/win32/game_process.h"

namespace kestrun {

inline constexpr const wchar_t* kHostTitle = L"Kestrun - Auto Host";

[[nodiscard]] inline std::wstring TextOf(HWND window) {
  std::wstring text(1024, L'\0');
  text.resize(
      static_cast<size_t>(SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

// Also of a window whose program does not answer.
[[nodiscard]] inline std::wstring CaptionOf(HWND window) {
  DWORD_PTR length = 0;
  std::wstring text(1024, L'\0');
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG, 1000,
                      &length);
  text.resize(length);
  return text;
}

[[nodiscard]] inline std::wstring ClassOf(HWND window) {
  wchar_t name[64];
  return {name, static_cast<size_t>(GetClassNameW(window, name, 64))};
}

[[nodiscard]] inline std::vector<HWND> ChildrenOf(HWND parent) {
  std::vector<HWND> children;
  EnumChildWindows(
      parent,
      [](HWND child, LPARAM list) CALLBACK -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

// Null when there is none.
[[nodiscard]] inline HWND ChildWithText(HWND parent, std::wstring_view text) {
  const std::vector<HWND> children = ChildrenOf(parent);
  const auto found = std::ranges::find_if(children, [text](HWND child) { return TextOf(child) == text; });
  return found == children.end() ? nullptr : *found;
}

// Presses the button with that caption in the window, once both are there and it is enabled.
[[nodiscard]] inline bool PressIn(const std::function<HWND()>& window, std::wstring_view caption) {
  return WaitFor([&] {
    const HWND parent = window();
    const HWND button = parent ? ChildWithText(parent, caption) : nullptr;
    return button && IsWindowEnabled(button) && PostMessageW(button, BM_CLICK, 0, 0);
  });
}

[[nodiscard]] inline bool IsMenuOpen() {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  return menu && IsWindowVisible(menu);
}

// Chooses an item of a menu by the access keys of both, as the keyboard does, once the window takes input.
[[nodiscard]] inline bool ChooseIn(const std::function<HWND()>& window, wchar_t menu, wchar_t item) {
  if (!WaitFor([&] { return IsWindowEnabled(window()) && !IsMenuOpen(); })) return false;
  PostMessageW(window(), WM_SYSCOMMAND, SC_KEYMENU, menu);
  if (!WaitFor(&IsMenuOpen)) return false;
  PostMessageW(window(), WM_CHAR, static_cast<WPARAM>(item), 0);
  return WaitFor([] { return !IsMenuOpen(); });
}

// What is on the screen, for the report of a window that does not come: class, caption, state and texts of each window.
[[nodiscard]] inline std::string ScreenReport() {
  std::string report;
  const auto describe = [](HWND window, LPARAM target) CALLBACK -> BOOL {
    if (!IsWindowVisible(window)) return TRUE;
    std::string& text = *reinterpret_cast<std::string*>(target);
    text += FromWide(ClassOf(window)) + (IsWindowEnabled(window) ? "" : " (disabled)");
    for (const HWND part : ChildrenOf(window)) text += " | " + FromWide(CaptionOf(part));
    text += " \"" + FromWide(CaptionOf(window)) + "\"\n";
    return TRUE;
  };
  EnumWindows(describe, reinterpret_cast<LPARAM>(&report));
  return report;
}

// The auto host's window, in a process of its own.
class HostWindow {
 public:
  // A process of Wine's now and then, once in many hundred starts, stands still before its first window: such a one is
  // told of and started again.
  HostWindow(const std::string& program, const std::string& list) {
    for (int start = 0; start < 2 && !is_there_; ++start) {
      if (start > 0) std::cout << "The auto host did not come up, " << StateOfProcess() << ":\n" << ScreenReport();
      EndProcess(process_);
      process_ = StartProcess(ToWide("\"" + program + "\" \"" + list + "\""));
      is_there_ = WaitFor([this] { return window() && IsWindowVisible(window()) && RowCount() > 0; });
    }
  }
  ~HostWindow() { EndProcess(process_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  [[nodiscard]] bool IsThere() const { return is_there_; }
  [[nodiscard]] static HWND window() { return FindWindowW(nullptr, kHostTitle); }

  [[nodiscard]] static bool HasButton(std::wstring_view caption) { return FindButton(caption) != nullptr; }
  // Presses the button with that caption, once there is one and it is enabled.
  [[nodiscard]] static bool Press(std::wstring_view caption) { return PressIn(&HostWindow::window, caption); }
  [[nodiscard]] static bool Choose(wchar_t menu, wchar_t item) { return ChooseIn(&HostWindow::window, menu, item); }

  [[nodiscard]] DWORD Id() const { return GetProcessId(process_.get()); }
  // Waits for the end of the process, and gives its exit code; nothing when it goes on.
  [[nodiscard]] std::optional<DWORD> WaitForTheEnd() const {
    DWORD code = 0;
    const bool has_ended = WaitForSingleObject(process_.get(), kPatienceMs) == WAIT_OBJECT_0;
    return has_ended && GetExitCodeProcess(process_.get(), &code) ? std::optional(code) : std::nullopt;
  }

  // File name of the row that is current in the play list; empty when none is.
  [[nodiscard]] static std::string CurrentMap() {
    const HWND list = PlayList();
    const auto row = SendMessageW(list, LB_GETCURSEL, 0, 0);
    if (!list || row < 0) return {};
    const std::string text = FromWide(RowText(list, row));
    return text.substr(text.find_last_of('\\') + 1);
  }
  // What all text fields hold, those of the running clock among them.
  [[nodiscard]] static std::wstring FieldTexts() {
    std::wstring texts;
    for (const HWND child : ChildrenOf(window())) {
      if (_wcsicmp(ClassOf(child).c_str(), L"Edit") == 0) texts += TextOf(child) + L"|";
    }
    return texts;
  }
  [[nodiscard]] static LRESULT RowCount() { return PlayList() ? SendMessageW(PlayList(), LB_GETCOUNT, 0, 0) : 0; }
  // Boxes that wait for an answer.
  [[nodiscard]] static HWND Box() { return FindWindowW(L"#32770", nullptr); }

 private:
  [[nodiscard]] std::string StateOfProcess() const {
    if (!process_.IsValid()) return "which could not be started";
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return code == STILL_ACTIVE ? "which runs" : "which has ended with " + std::to_string(code);
  }
  static HWND FindButton(std::wstring_view caption) { return ChildWithText(window(), caption); }
  static std::wstring RowText(HWND list, LRESULT row) {
    std::wstring text(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0)) + 1, L'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
  }
  // Of the two lists the one whose rows are whole paths.
  static HWND PlayList() {
    for (const HWND child : ChildrenOf(window())) {
      if (_wcsicmp(ClassOf(child).c_str(), L"ListBox") != 0 || SendMessageW(child, LB_GETCOUNT, 0, 0) < 1) continue;
      if (RowText(child, 0).find(L'\\') != std::wstring::npos) return child;
    }
    return nullptr;
  }

  ProcessHandle process_;
  bool is_there_ = false;
};

}  // namespace kestrun
