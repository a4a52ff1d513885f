#include "desktop/win32/window/form_tips.h"

#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr int kTipWidthTwips = 6000;

}  // namespace

bool FormTips::MakeWindow(HWND form_window, ScreenScale scale) {
  if (tips_) return false;
  POINT pointer{};
  GetCursorPos(&pointer);
  if (pointer.x == pointer_at_opening_.x && pointer.y == pointer_at_opening_.y) return false;
  tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0,
                          form_window, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, scale.Pixels(kTipWidthTwips));
  return tips_ != nullptr;
}

void FormTips::Forget(const Control& control) {
  const auto found = tools_.find(&control);
  if (found == tools_.end()) return;
  SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&found->second));
  tools_.erase(found);
}

void FormTips::Show(const Control& control, HWND form_window, HWND tool_window, const RECT* area) {
  if (!tips_) return;
  Forget(control);
  std::wstring text = ToWide(control.ToolTipText.get());
  if (text.empty() || (area && !control.Visible)) return;
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS | (area ? 0 : TTF_IDISHWND);
  tool.hwnd = area ? tool_window : form_window;
  tool.uId = area ? reinterpret_cast<UINT_PTR>(&control) : reinterpret_cast<UINT_PTR>(tool_window);
  if (area) tool.rect = *area;
  tool.lpszText = text.data();
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tool.lpszText = nullptr;
  tools_[&control] = tool;
}

}  // namespace kestrun
