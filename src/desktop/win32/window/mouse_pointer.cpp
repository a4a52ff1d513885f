#include "desktop/win32/window/mouse_pointer.h"

#include <array>

#include "desktop/win32/drawing/graphics.h"
#include "forms/script_globals.h"

namespace kestrun {
namespace {

constexpr int kUsual = 0;
constexpr int kOwnPicture = 99;

// The system's pointer for a value of MousePointer; null for 0 and other values that leave the usual one.
HCURSOR SystemPointer(int value) {
  // By the value: 4 means an icon and 12 no drop.
  static const std::array<LPCWSTR, 16> names{
      nullptr,      IDC_ARROW,  IDC_CROSS,   IDC_IBEAM, IDC_ICON, IDC_SIZEALL,     IDC_SIZENESW, IDC_SIZENS,
      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,  IDC_NO,   IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
  if (value <= 0 || value >= static_cast<int>(names.size())) return nullptr;
  return LoadCursorW(nullptr, names[static_cast<size_t>(value)]);
}

}  // namespace

bool MousePointerShape::Show(const Control& control, int dpi) {
  if (const HCURSOR everywhere = SystemPointer(ScreenMousePointer())) {
    SetCursor(everywhere);
    return true;
  }
  const Picture* icon = control.MouseIcon.get().get();
  const bool shows_icon = icon && (control.MousePointer == kUsual || control.MousePointer == kOwnPicture);
  if (!shows_icon) {
    const HCURSOR named = SystemPointer(control.MousePointer);
    if (named) SetCursor(named);
    return named != nullptr;
  }
  if (picture_.get() != icon) {
    IconHandle made = MakeCursor(*icon, dpi);
    SetCursor(made.get());
    cursor_ = std::move(made);
    picture_ = control.MouseIcon;
  }
  SetCursor(cursor_.get());
  return true;
}

}  // namespace kestrun
