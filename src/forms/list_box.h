// A list of texts. ListIndex is -1 when no row is current; a change of it is a Click.
#pragma once

#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kestrun {

class ListBox final : public Control {
 public:
  using Control::Control;

  Property<int> ListIndex{*this, PropertyId::kListIndex, -1};
  // 0 one row, 1 several by click, 2 several with Ctrl and Shift.
  Property<int> MultiSelect{*this, PropertyId::kMultiSelect};
  Property<bool> Sorted{*this, PropertyId::kSorted};
  // Width in pixels that can be scrolled to; at most the list's own width shows no scroll bar.
  Property<int> HorizontalExtent{*this, PropertyId::kScrollBars};

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.size()); }
  // Empty when the row does not exist.
  [[nodiscard]] std::string List(int row) const;
  // Error 5 for a row that does not exist, here and below.
  void SetList(int row, std::string_view text);
  [[nodiscard]] int ItemData(int row) const;
  void SetItemData(int row, int data);
  [[nodiscard]] bool Selected(int row) const;
  void SetSelected(int row, bool selected);
  [[nodiscard]] int SelCount() const;
  // The current row's text, empty when there is none.
  [[nodiscard]] std::string Text() const { return List(ListIndex); }
  // Row that AddItem filled last, -1 when none.
  [[nodiscard]] int NewIndex() const { return new_index_; }

  // Adds in front of a row, at the end for -1, or at its place in a sorted list.
  void AddItem(std::string_view text, int row = -1);
  void RemoveItem(int row);
  void Clear();

  [[nodiscard]] std::string TypeName() const override { return "ListBox"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override { return FindMember("Text"); }

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  struct Row {
    std::string text;
    int data = 0;
    bool selected = false;
  };
  [[nodiscard]] size_t CheckedRow(int row) const;

  std::vector<Row> rows_;
  int new_index_ = -1;
};

}  // namespace kestrun
