// Mouse, keys and the pop-up of a McListBox.
#include <algorithm>
#include <cmath>

#include "base/runtime_error.h"
#include "base/text.h"
#include "controls/list_box/mc_list_box.h"
#include "controls/list_box/text_lines.h"
#include "forms/keys.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kTwipsPerInch = 1440;

bool IsHeld(int shift_state, int key) { return (shift_state & key) != 0; }

}  // namespace

int McListBox::Twips(int pixels) const { return static_cast<int>(int64_t{pixels} * kTwipsPerInch / dpi()); }

void McListBox::TellSelection() {
  TellAccessibility(AccessibleEvent::kSelection, ListIndex());
  if (has_focus_) TellAccessibility(AccessibleEvent::kFocus, ListIndex());
  SelChange();
}

// ---- pressing ------------------------------------------------------------------------------------------------------

void McListBox::OnMouseDown(int button, int shift_state, int x, int y) {
  is_left_down_ = button == mouse::kLeft;
  was_double_click_ = false;
  DropPopup();
  Press(button, shift_state, x, y);
}

// The keys come this way too, with kKeyButton and the row in the place of x.
void McListBox::Press(int button, int shift_state, int x, int y) {
  if (list_index_ < 0 || list_index_ >= items_.Count() || visible_rows_ == 0) return;
  int row = x;
  if (button != kKeyButton) {
    const double rows_above = y / PaintedRowHeight();
    if (y < 0 || rows_above > items_.Count()) return;
    row = static_cast<int>(rows_above) + position_;
  }
  const Ref<Control> keep(this);
  list_index_ = row;
  Select(button, shift_state, row);
  Invalidate();
  RunPendingEvents();
  if (!IsAlive()) return;
  Redraw();
  TellSelection();
  if (!IsAlive()) return;
  if (button == kKeyButton) {
    MouseDown(button, shift_state, x, y);
  } else {
    MouseDown(button, shift_state, Twips(x), Twips(y));
  }
}

void McListBox::Select(int button, int shift_state, int row) {
  if (button == mouse::kLeft && IsHeld(shift_state, shift::kCtrl) && MultiSelect) {
    selection_.Toggle(row);
    anchor_ = row;
  } else if (IsHeld(shift_state, shift::kShift) && MultiSelect) {
    SelectFromAnchor(row);
  } else {
    anchor_ = row;
    selection_.SetOnly(row);
  }
}

// The list may have become shorter since the anchor was set.
void McListBox::SelectFromAnchor(int row) { selection_.SetRange(std::min(anchor_, items_.Count() - 1), row); }

void McListBox::OnMouseUp(int button, int shift_state, int x, int y) {
  const Ref<Control> keep(this);
  const bool was_left_down = button == mouse::kLeft && is_left_down_;
  if (button == mouse::kLeft) is_left_down_ = false;
  const bool is_inside = PixelRect{0, 0, client().width, client().height}.Contains(x, y);
  if (list_index_ >= 0 && list_index_ < items_.Count()) {
    if (MultiSelect) SelChange();
    if (IsAlive()) MouseUp(button, shift_state, Twips(x), Twips(y));
  }
  if (IsAlive() && was_left_down && is_inside && !was_double_click_) MouseClick();
}

void McListBox::OnDoubleClick(int, int) {
  was_double_click_ = true;
  DbClick();
}

// ---- moving --------------------------------------------------------------------------------------------------------

void McListBox::OnMouseMove(int button, int shift_state, int x, int y) {
  const Ref<Control> keep(this);
  if (!is_mouse_inside_) {
    is_mouse_inside_ = true;
    MouseEnter();
    if (!IsAlive()) return;
  }
  const bool is_dragging = is_left_down_ && (button & mouse::kLeft) != 0;
  UpdatePopup(y);
  if (is_dragging) Drag(shift_state, y);
  if (IsAlive()) MouseMove(button, shift_state, Twips(x), Twips(y));
}

void McListBox::Drag(int shift_state, int y) {
  if (items_.Count() == 0 || visible_rows_ == 0) return;
  if (MultiSelect && (IsHeld(shift_state, shift::kCtrl) || IsHeld(shift_state, shift::kShift))) return;
  if (y < 0) ScrollTo(position_ - 1);
  if (y >= client().height) ScrollTo(position_ + 1);
  const int row_inside = std::clamp(static_cast<int>(std::floor(y / PaintedRowHeight())), 0, visible_rows_ - 1);
  const int row = row_inside + position_;
  if (row >= items_.Count() || row == list_index_) return;
  list_index_ = row;
  if (MultiSelect) {
    SelectFromAnchor(row);
  } else {
    selection_.SetOnly(row);
  }
  Redraw();
  if (!MultiSelect) TellSelection();
}

void McListBox::OnMouseLeave() {
  is_mouse_inside_ = false;
  DropPopup();
  MouseLeave();
}

// ---- keys ----------------------------------------------------------------------------------------------------------

bool McListBox::OnKeyDown(int key_code, int shift_state) {
  key_shift_state_ = shift_state;
  if (IsHeld(shift_state, shift::kAlt)) return false;
  const int row = ListIndex();
  switch (key_code) {
    case key::kUp: GoTo(row - 1, shift_state); return true;
    case key::kDown: GoTo(row + 1, shift_state); return true;
    case key::kHome: GoTo(0, shift_state); return true;
    case key::kEnd: GoTo(items_.Count() - 1, shift_state); return true;
    case key::kPageUp: GoTo(row - visible_rows_, shift_state); return true;
    case key::kPageDown: GoTo(row + visible_rows_, shift_state); return true;
    case key::kEnter: DbClick(); return true;
    default: return false;
  }
}

// The search starts from the first row each time: it never steps through rows of one letter.
void McListBox::OnKeyPress(char32_t character) {
  if (character < U' ') return;
  const char32_t wanted = LowerCodePoint(character);
  for (int row = 0; row < items_.Count(); ++row) {
    size_t at = 0;
    const std::string& text = items_.Row(row);
    if (LowerCodePoint(NextCodePoint(text, at)) == wanted) return GoTo(row, key_shift_state_);
  }
}

void McListBox::GoTo(int row, int shift_state) {
  if (items_.Count() == 0) return;
  const Ref<Control> keep(this);
  const int target = std::clamp(row, 0, items_.Count() - 1);
  if (target == list_index_) return;
  ScrollIntoView(target);
  Press(kKeyButton, shift_state, target, 0);
  if (IsAlive()) MouseClick();
}

void McListBox::OnFocus(bool has_focus) {
  has_focus_ = has_focus;
  if (!has_focus) {
    is_left_down_ = false;
    DropPopup();  // it would stand in front of the window that has the focus now
  }
  Redraw();
}

// ---- the pop-up ----------------------------------------------------------------------------------------------------

void McListBox::DropPopup() {
  if (popup_row_ == kNoPopup) return;
  popup_row_ = kNoPopup;
  HidePopup();
}

void McListBox::UpdatePopup(int y) {
  if (visible_rows_ == 0 || y < 0 || y >= client().height) return DropPopup();
  const int row = static_cast<int>(y / PaintedRowHeight()) + position_;
  if (row >= items_.Count()) return;
  const std::string text = List(row);
  const FontDescription font = PopupFont(row);
  if (MeasureText(text, font).width <= client().width - TextLeft()) return DropPopup();
  if (popup_row_ == row) return;
  ShowRowInPopup(row, text, font);
  popup_row_ = row;
}

// A row whose flag is none is shown as it is measured, in the list's own font.
FontDescription McListBox::PopupFont(int row) const {
  try {
    return RowFont(row);
  } catch (const RuntimeError&) {
    return Font;
  }
}

void McListBox::ShowRowInPopup(int row, const std::string& text, const FontDescription& font) {
  const PixelPoint origin = ScreenPosition();
  const PixelRect screen = ScreenArea();
  const auto height = static_cast<int>(PaintedRowHeight());
  const int room = std::max(screen.right - origin.x - TextLeft(), Scaled(60));
  const int text_width = MeasureText(text, font).width;
  std::vector<std::string> lines{text};
  int width = text_width + 2 * Scaled(5);
  if (text_width > room) {
    // No more lines than the screen can show.
    const auto most = static_cast<size_t>(std::max(screen.height() / std::max(height, 1), 1));
    lines = SplitIntoLines(
        text, room - Scaled(15), false, [&](std::string_view line) { return MeasureText(line, font).width; }, most);
    width = room - Scaled(10);
  }
  // A text that just fits the room is still drawn whole: its box moves in from the screen's edge.
  const int left = std::min(origin.x + TextLeft() + Scaled(2), std::max(screen.right - width, screen.left));
  const int top = origin.y + RowTop(row);
  const int bottom = top + height * static_cast<int>(lines.size());
  const int text_left = Scaled(5);
  const int line_height = height - 2 * Scaled(2);  // centred in it a line stands 2 higher than in its row
  const Color background = BackColor;
  const Color foreground = ForeColor;
  ShowPopup({left, top, left + width, bottom},
            [lines, font, height, text_left, line_height, background, foreground](Canvas& canvas) {
              canvas.Fill({0, 0, canvas.Size().width, canvas.Size().height}, background);
              int line_top = 0;
              for (const std::string& line : lines) {
                canvas.Text(line, {text_left, line_top, canvas.Size().width, line_top + line_height}, font, foreground,
                            TextPlacement::kLeft);
                line_top += height;
              }
            });
}

}  // namespace kestrun
