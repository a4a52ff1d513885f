// What list boxes and combo boxes have in common: rows of text with a number each, and a current row. ListIndex is -1
// when no row is current; a change of it is a Click.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kestrun {

class ItemListControl : public Control {
 public:
  ItemListControl(Form* form, std::string name, int index);

  Property<int> ListIndex{*this, PropertyId::kListIndex, -1};
  Property<bool> Sorted{*this, PropertyId::kSorted};
  // 0 flat, 1 sunken: how the border looks.
  Property<int> Appearance{*this, PropertyId::kAppearance, 1};

  [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.size()); }
  // Empty when the row does not exist.
  [[nodiscard]] std::string List(int row) const;
  // Error 5 for a row that does not exist, here and below.
  void SetList(int row, std::string_view text);
  [[nodiscard]] int ItemData(int row) const;
  void SetItemData(int row, int data);
  // Another number whenever a row comes, goes or gets another text.
  [[nodiscard]] uint32_t Revision() const { return revision_; }
  // Row that AddItem filled last, -1 when none.
  [[nodiscard]] int NewIndex() const { return new_index_; }

  // Adds in front of a row, at the end for -1, or at its place in a sorted list.
  void AddItem(std::string_view text, int row = -1);
  // Adds many rows, one after the other.
  void AddItems(std::span<const std::string_view> texts);
  void RemoveItem(int row);
  void Clear();

  static const MemberTable kItemListMembers;

 protected:
  struct Row {
    size_t text_begin = 0;
    size_t text_size = 0;
    int data = 0;
    bool selected = false;
    bool marked = false;
  };
  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
  // Error 5 for a row that does not exist.
  [[nodiscard]] Row& RowAt(int row);
  [[nodiscard]] const Row& RowAt(int row) const;
  void PropertyChanged(PropertyId id) override;
  // The current row has changed and exists, or is none.
  virtual void CurrentRowChanged() { Click(); }

 private:
  [[nodiscard]] std::string_view TextOf(const Row& row) const;
  // Puts the text behind all others; those that no row has any more go when they are more than half.
  void StoreText(Row& row, std::string_view text);
  void DropUnusedTexts();
  void RowsChanged();

  std::vector<Row> rows_;
  std::string texts_;  // of all rows, in any order: long lists are filled without an allocation for each row
  size_t unused_text_ = 0;
  int new_index_ = -1;
  uint32_t revision_ = 0;
};

}  // namespace kestrun
