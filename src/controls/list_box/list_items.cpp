#include "controls/list_box/list_items.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr std::string_view kSeparator = "<%S%>";
constexpr size_t kTextField = 0;
constexpr size_t kIconField = 1;
constexpr size_t kBoldField = 2;

std::string Join(std::string_view text, int icon, bool bold) {
  constexpr size_t kIconAndBold = 16;
  std::string row;
  row.reserve(text.size() + 2 * kSeparator.size() + kIconAndBold);
  row += text;
  row += kSeparator;
  row += std::to_string(icon);
  row += kSeparator;
  row += BooleanToText(bold);
  return row;
}

// Place and length of a field; error 9 when the row has not so many.
std::pair<size_t, size_t> FieldOf(std::string_view row, size_t field) {
  size_t start = 0;
  for (; field > 0; --field) {
    start = row.find(kSeparator, start);
    if (start == std::string_view::npos) Raise(error::kSubscriptOutOfRange);
    start += kSeparator.size();
  }
  const size_t end = std::min(row.find(kSeparator, start), row.size());
  return {start, end - start};
}

std::string Field(std::string_view row, size_t field) {
  const auto [start, length] = FieldOf(row, field);
  return std::string(row.substr(start, length));
}

// The rows in their new order: folding each once is what comparing costs most.
std::vector<std::string> Sorted(std::vector<std::string> rows, bool descending) {
  std::vector<std::string> keys(rows.size());
  std::transform(rows.begin(), rows.end(), keys.begin(), [](const std::string& row) { return ToLower(row); });
  std::vector<size_t> order(rows.size());
  std::iota(order.begin(), order.end(), size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](size_t left, size_t right) {
    return descending ? keys[right] < keys[left] : keys[left] < keys[right];
  });
  std::vector<std::string> sorted;
  sorted.reserve(rows.size());
  for (const size_t place : order) sorted.push_back(std::move(rows[place]));
  return sorted;
}

}  // namespace

size_t ListItems::Place(int index) const {
  if (index < 0 || index >= Count()) Raise(error::kSubscriptOutOfRange);
  return static_cast<size_t>(index);
}

void ListItems::Add(std::string_view text, int index, int icon, bool bold, Variant data) {
  is_sorted_ = false;
  if (index == -1) {
    rows_.push_back(Join(text, icon, bold));
    AddData(data_count_, std::move(data));
    return;
  }
  const size_t place = Place(index);
  rows_.insert(rows_.begin() + static_cast<ptrdiff_t>(place), Join(text, icon, bold));
  AddData(place, std::move(data));
}

// The values behind the place move up by one, the last first.
void ListItems::AddData(size_t place, Variant data) {
  for (auto behind = data_.end(); behind != data_.begin() && std::prev(behind)->first >= place;) {
    auto moved = data_.extract(std::prev(behind));
    ++moved.key();
    behind = data_.insert(behind, std::move(moved));
  }
  if (!data.Is(VarType::kEmpty)) data_.emplace(place, std::move(data));
  ++data_count_;
}

void ListItems::Remove(int index) { rows_.erase(rows_.begin() + static_cast<ptrdiff_t>(Place(index))); }

void ListItems::Clear() { rows_.clear(); }

std::string ListItems::Text(int index) const { return Field(Row(index), kTextField); }

int ListItems::Icon(int index) const { return ToLong(Field(Row(index), kIconField)); }

bool ListItems::Bold(int index) const { return ToBoolean(Field(Row(index), kBoldField)); }

void ListItems::SetField(int index, size_t field, std::string value) {
  std::string& row = rows_[Place(index)];
  const auto [start, length] = FieldOf(row, field);
  row.replace(start, length, value);
  is_sorted_ = false;
}

void ListItems::SetIcon(int index, int icon) { SetField(index, kIconField, std::to_string(icon)); }

void ListItems::SetBold(int index, bool bold) { SetField(index, kBoldField, BooleanToText(bold)); }

Variant ListItems::Data(int index) const {
  if (index < 0 || static_cast<size_t>(index) >= data_count_) Raise(error::kSubscriptOutOfRange);
  const auto found = data_.find(static_cast<size_t>(index));
  return found == data_.end() ? Variant() : found->second;
}

void ListItems::Sort(int order) {
  if (order != -1 && order != 1) return;
  if (is_sorted_ && sorted_order_ == order) return;
  rows_ = Sorted(std::move(rows_), order == 1);
  is_sorted_ = true;
  sorted_order_ = order;
}

}  // namespace kestrun
