// Files as the desktop hands them to the window that they are dropped on.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

// The block that a drop message carries: its head, then the paths, each with a NUL, and one more NUL.
inline HDROP MakeDrop(const std::vector<std::string>& paths) {
  std::wstring list;
  for (const std::string& path : paths) list += ToWide(path) + L'\0';
  list += L'\0';
  DROPFILES head{};
  head.pFiles = sizeof head;
  head.fWide = TRUE;
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof head + list.size() * sizeof(wchar_t));
  auto* bytes = static_cast<char*>(GlobalLock(block));
  std::memcpy(bytes, &head, sizeof head);
  std::memcpy(bytes + sizeof head, list.data(), list.size() * sizeof(wchar_t));
  GlobalUnlock(block);
  return static_cast<HDROP>(block);
}

inline void DropOn(HWND window, const std::vector<std::string>& paths) {
  SendMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop(paths)), 0);
}

}  // namespace kestrun
