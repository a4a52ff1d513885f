// The rows of a McListBox: one text for each, with what else belongs to the row joined to it, and the values that were
// given together with the rows.
//
// The two collections are in step only as Add made them: taking a row out and sorting move the rows alone.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/variant.h"

namespace kestrun {

// Positions count from 0. Error 9 for one outside the collection.
class ListItems {
 public:
  static constexpr int kNoIcon = -1;

  [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
  // Puts a row in front of the one at `index`, or behind the last for -1. The value goes to the same place among the
  // values.
  void Add(std::string_view text, int index, int icon, bool bold, Variant data);
  void Remove(int index);
  // The values stay.
  void Clear();
  // Where every row's text was joined: whatever it holds of the separator shifts what follows it.
  [[nodiscard]] std::string Text(int index) const;
  // Error 13 when what stands in the place of the number is none.
  [[nodiscard]] int Icon(int index) const;
  void SetIcon(int index, int icon);
  [[nodiscard]] bool Bold(int index) const;
  void SetBold(int index, bool bold);
  [[nodiscard]] Variant Data(int index) const;
  // The whole joined text.
  [[nodiscard]] const std::string& Row(int index) const { return rows_[Place(index)]; }

  // Order of the whole joined texts without regard to case: ascending for -1, descending for 1; any other number leaves
  // the rows as they are. Equal rows keep their order.
  void Sort(int order);

 private:
  [[nodiscard]] size_t Place(int index) const;
  void SetField(int index, size_t field, std::string value);

  void AddData(size_t place, Variant data);

  std::vector<std::string> rows_;
  // The values that are not empty, by their place among all that were given: a list that is filled again and again
  // without values must not grow with each filling.
  std::map<size_t, Variant> data_;
  size_t data_count_ = 0;
  bool is_sorted_ = false;  // by sorted_order_, and nothing has changed since
  int sorted_order_ = 0;
};

}  // namespace kestrun
