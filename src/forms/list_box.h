// A list of texts, of which one or several can be chosen.
#pragma once

#include "forms/item_list_control.h"
#include "forms/row_badge.h"

namespace kestrun {

class ListBox final : public ItemListControl {
 public:
  using ItemListControl::ItemListControl;

  // 0 one row, 1 several by click, 2 several with Ctrl and Shift.
  Property<int> MultiSelect{*this, PropertyId::kMultiSelect};
  // Width in pixels that can be scrolled to; at most the list's own width shows no scroll bar.
  Property<int> HorizontalExtent{*this, PropertyId::kScrollBars};

  // What the marked row is, such as "plays now": shown in front of the row by a sign, and told to screen readers. Empty
  // for a list whose rows are never marked.
  Property<std::string> MarkMeaning{*this, PropertyId::kStyle};

  // Stand in front of the rows. Set before the list is shown; Refresh shows them anew.
  RowBadges Badges;

  // Error 5 for a row that does not exist.
  [[nodiscard]] bool Selected(int row) const;
  void SetSelected(int row, bool selected);
  [[nodiscard]] int SelCount() const;
  // The one row with the mark, -1 for none. The mark moves with the row and goes with it.
  [[nodiscard]] int MarkedRow() const;
  void MarkRow(int row);
  // The current row's text, empty when there is none.
  [[nodiscard]] std::string Text() const { return List(ListIndex); }

  [[nodiscard]] std::string TypeName() const override { return "ListBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }
};

}  // namespace kestrun
