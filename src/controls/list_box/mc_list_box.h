// A list of rows with icons, bold rows and gradients, that paints itself in full on each change. Rows are numbered from
// 0. Sizes of properties are pixels at 96 dots per inch and grow with the screen's scale.
//
// Adding rows neither sorts nor paints: a batch ends with Refresh. The values given with the rows are in step with them
// only as AddItem made them (list_items.h).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/list_box/list_items.h"
#include "controls/list_box/list_selection.h"
#include "controls/stored_control.h"
#include "forms/picture.h"
#include "forms/row_badge.h"
#include "forms/user_control.h"

namespace kestrun {

class McListBox final : public UserControl, public StoredControl {
 public:
  static constexpr Color kDefaultBackColor = 0xFFFFFF;
  static constexpr Color kDefaultSelColor = 0xFF8C1A;
  static constexpr Color kDefaultGradientColor = 0xC0C0C0;
  static constexpr int kDefaultRowHeight = 22;
  static constexpr int kBlendedFrame = 1;  // of SelectionStyle

  McListBox(Form* form, std::string name, int index);

  LetProperty<Ref<kestrun::Picture>> Picture{{}, [this] { Changed("Picture"); }};
  LetProperty<Color> SelColor{kDefaultSelColor, [this] { Changed("SelColor"); }};
  LetProperty<Color> SelForeColor{color::kWhite, [this] { Changed("SelForeColor"); }};
  // Icons fill their cell; otherwise they stand in its middle at their own size.
  LetProperty<bool> StrechIcon{false, [this] { Changed("StrechIcon"); }};
  LetProperty<int16_t> Appearance{1, [this] { Changed("Appearance"); }};
  LetProperty<int16_t> BorderStyle{1, [this] { Changed("BorderStyle"); }};
  LetProperty<bool> FullRowSelect{false, [this] { Changed("FullRowSelect"); }};
  // A change selects the current row alone.
  LetProperty<bool> MultiSelect{false, [this] { MultiSelectChanged(); }};
  LetProperty<bool> FocusRectangle{true, [this] { Changed("FocusRectangle"); }};
  LetProperty<bool> ShowIcon{false, [this] { Changed("ShowIcon"); }};
  // -1 ascending, 1 descending, 0 as added; takes effect with the next Refresh.
  LetProperty<int> SortOrder{0, [this] { Changed("SortOrder"); }};
  LetProperty<bool> IconFocus{true, [this] { Changed("IconFocus"); }};
  LetProperty<int> TextAlignment{0, [this] { Changed("TextAlignment"); }};
  LetProperty<bool> GridLines{false, [this] { Changed("GridLines"); }};
  LetProperty<Color> GridColor{color::kButtonFace, [this] { Changed("GridColor"); }};
  // The least height of a row; never lower than a line of text.
  LetProperty<int> RowHeight{kDefaultRowHeight, [this] { RowHeightChanged(); }};
  // Kinds of color_blend.h.
  LetProperty<int> BackGradient{0, [this] { Changed("BackGradient"); }};
  LetProperty<int> SelGradient{0, [this] { Changed("SelGradient"); }};
  LetProperty<Color> BackGradientCol{kDefaultGradientColor, [this] { Changed("BackGradientCol"); }};
  LetProperty<Color> SelGradientCol{color::kWhite, [this] { Changed("SelGradientCol"); }};
  LetProperty<int> SelectionStyle{kBlendedFrame, [this] { Changed("SelectionStyle"); }};
  LetProperty<bool> FlatScrollBar{false, [this] { Changed("FlatScrollBar"); }};
  LetProperty<bool> AutoHideScrollBars{false, [this] { Changed("AutoHideScrollBars"); }};

  Event<> MouseEnter;
  Event<> MouseLeave;
  Event<> MouseClick;
  Event<> SelChange;
  Event<> DbClick;
  // Raised when the list has acted on them, unlike those of other controls. Places in twips. MouseDown comes for keys
  // too, with the button kKeyButton and the row in the place of x.
  Event<int, int, int, int> MouseUp;
  Event<int, int, int, int> MouseMove;
  Event<int, int, int, int> MouseDown;
  static constexpr int kKeyButton = 999;

  // ---- rows. Error 9 for a row that is not there. ----
  [[nodiscard]] int ListCount() const { return items_.Count(); }
  [[nodiscard]] Variant ItemData(int row) const { return items_.Data(row); }
  [[nodiscard]] int ListIcon(int row) const { return items_.Icon(row); }
  void SetListIcon(int row, int icon);
  [[nodiscard]] bool ListBold(int row) const { return items_.Bold(row); }
  void SetListBold(int row, bool bold);
  // Empty for a row that is not there.
  [[nodiscard]] std::string List(int row) const;
  // Always error 424: a text is changed by Remove and AddItem.
  void SetList(int row, const std::string& text);
  // -1 appends, otherwise the row goes in front of that one.
  void AddItem(std::string_view text, int index = -1, int icon = ListItems::kNoIcon, bool bold = false,
               Variant data = {});
  // -1 takes the current row out.
  void Remove(int index = -1);
  // The values given with the rows stay.
  void Clear();
  // Works out the scroll bar, sorts, paints.
  void Refresh();

  // ---- the current row and the selection ----
  // -1 for an empty list. Setting it selects that row alone and brings it into view.
  [[nodiscard]] int ListIndex() const { return items_.Count() == 0 ? -1 : list_index_; }
  void SetListIndex(int row);
  // Text of the current row.
  [[nodiscard]] std::string Text() const { return List(ListIndex()); }
  [[nodiscard]] int SelCount() const { return selection_.Count(); }
  // The n-th selected row from the top, from 0. Error 9 beyond them.
  [[nodiscard]] int SelItem(int n) const;
  void ClearSelection();
  void SelectAll();

  // What an empty list says in the place of its rows; nothing at first. No member of scripts.
  void SetEmptyText(std::string text);
  // Stand at the right end of the rows. Gives those that were there before. No member of scripts.
  RowBadges SetBadges(RowBadges badges);

  // Whose ListImages(number) gives the rows' icons.
  void SetImageList(Ref<Object> images);

  // ---- tools ----
  // Lines no wider than `width` pixels in the list's font (text_lines.h).
  [[nodiscard]] std::vector<std::string> SplitToLines(std::string_view text, int width, bool strip) const;
  [[nodiscard]] bool IsDelim(std::string_view character) const;
  [[nodiscard]] Color BlendColor(Color first, Color second, int alpha) const;
  // The plain colour of any colour, -1 for a value that is none. The palette is not used.
  [[nodiscard]] int TranslateColor(Color color, int palette = 0) const;

  // What a window's designer sees: an empty list shows a sample row.
  void PaintPreview(Canvas& canvas);

  // ---- what the platform calls ----
  void Paint(Canvas& canvas) override;
  void Resized(PixelSize client, int dpi) override;
  void OnMouseDown(int button, int shift_state, int x, int y) override;
  void OnMouseMove(int button, int shift_state, int x, int y) override;
  void OnMouseUp(int button, int shift_state, int x, int y) override;
  void OnDoubleClick(int x, int y) override;
  void OnMouseLeave() override;
  bool OnWheel(int notches, int shift_state) override;
  bool OnKeyDown(int key_code, int shift_state) override;
  void OnKeyPress(char32_t character) override;
  void OnFocus(bool has_focus) override;
  void OnScroll(int position) override;
  [[nodiscard]] ScrollBarState VerticalScrollBar() const override;
  [[nodiscard]] int FrameKind() const override;

  [[nodiscard]] Role AccessibleRole() const override { return Role::kList; }
  [[nodiscard]] int AccessibleChildCount() const override { return items_.Count(); }
  // The text, and behind it the word of the badge and its note.
  [[nodiscard]] std::string AccessibleChildName(int child) const override;
  [[nodiscard]] bool IsAccessibleChildSelected(int child) const override { return selection_.Holds(child); }
  [[nodiscard]] int AccessibleFocusedChild() const override { return ListIndex(); }
  [[nodiscard]] PixelRect AccessibleChildArea(int child) const override;

  void WriteProperties(PropertyBag& bag) const override;
  void ReadProperties(const PropertyBag& bag) override;

  [[nodiscard]] std::string TypeName() const override { return "McListBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }

 protected:
  void PropertyChanged(PropertyId id) override;
  void Disconnect() override;

 private:
  // What one painting works with.
  struct Look;

  void Changed(std::string_view property);
  void MultiSelectChanged();
  void RowHeightChanged();
  void RaiseRowHeight();
  [[nodiscard]] int Scaled(int pixels) const;
  // Rows that fit whole; 0 for a control lower than a row.
  [[nodiscard]] int RowsThatFit() const;
  // Pixels of a row as it is painted, a little more than RowHeight; 0 when none fits.
  [[nodiscard]] double PaintedRowHeight() const;
  [[nodiscard]] int LastPosition() const;
  // Pixels in front of the text.
  [[nodiscard]] int TextLeft() const;
  [[nodiscard]] int RowTop(int row) const;
  void ClampListIndex();
  // Clamps the current row and paints.
  void Redraw();
  void ScrollIntoView(int row);
  void ScrollTo(int position);

  void PaintBackground(Canvas& canvas) const;
  void PaintEmptyText(Canvas& canvas) const;
  void PaintRows(Canvas& canvas) const;
  void PaintRow(Canvas& canvas, const Look& look, int row) const;
  void PaintSelection(Canvas& canvas, const Look& look, int row, int top) const;
  void PaintIcon(Canvas& canvas, const Look& look, int row, int top) const;
  void PaintBadge(Canvas& canvas, const Look& look, int row, int top) const;
  // Pixels that the badges take at the right end of the rows; 0 without badges.
  [[nodiscard]] int BadgeWidth() const;

  void Press(int button, int shift_state, int x, int y);
  void Select(int button, int shift_state, int row);
  void SelectFromAnchor(int row);
  void Drag(int shift_state, int y);
  void GoTo(int row, int shift_state);
  void TellSelection();
  void UpdatePopup(int y);
  void ShowRowInPopup(int row, const std::string& text, const FontDescription& font);
  void DropPopup();
  [[nodiscard]] FontDescription RowFont(int row) const;
  [[nodiscard]] FontDescription PopupFont(int row) const;
  [[nodiscard]] int Twips(int pixels) const;

  ListItems items_;
  ListSelection selection_;
  Ref<Object> images_;
  std::string empty_text_;
  RowBadges badges_;
  int list_index_ = -1;
  int visible_rows_ = 0;
  int position_ = 0;  // first row shown
  bool bar_visible_ = false;
  int told_rows_ = 0;  // how many screen readers know of
  int anchor_ = 0;
  bool has_focus_ = false;
  bool is_mouse_inside_ = false;
  bool is_left_down_ = false;
  bool was_double_click_ = false;
  int key_shift_state_ = 0;
  static constexpr int kNoPopup = -100;
  int popup_row_ = kNoPopup;
};

}  // namespace kestrun
