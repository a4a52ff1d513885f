// A list of texts, of which one or several can be chosen.
#pragma once

#include "forms/item_list_control.h"

namespace kestrun {

class ListBox final : public ItemListControl {
 public:
  using ItemListControl::ItemListControl;

  // 0 one row, 1 several by click, 2 several with Ctrl and Shift.
  Property<int> MultiSelect{*this, PropertyId::kMultiSelect};
  // Width in pixels that can be scrolled to; at most the list's own width shows no scroll bar.
  Property<int> HorizontalExtent{*this, PropertyId::kScrollBars};

  // Error 5 for a row that does not exist.
  [[nodiscard]] bool Selected(int row) const;
  void SetSelected(int row, bool selected);
  [[nodiscard]] int SelCount() const;
  // The current row's text, empty when there is none.
  [[nodiscard]] std::string Text() const { return List(ListIndex); }

  [[nodiscard]] std::string TypeName() const override { return "ListBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }
};

}  // namespace kestrun
