// The selected rows of a list: row numbers from 0, each once, ascending.
#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

namespace kestrun {

class ListSelection {
 public:
  [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] const std::vector<int>& rows() const { return rows_; }
  [[nodiscard]] bool Holds(int row) const { return std::binary_search(rows_.begin(), rows_.end(), row); }

  void Clear() { rows_.clear(); }
  void SetOnly(int row) { rows_.assign(1, row); }
  // All rows from the lower to the higher of the two.
  void SetRange(int one, int other) {
    const int first = std::min(one, other);
    rows_.resize(static_cast<size_t>(std::max(one, other) - first) + 1);
    std::iota(rows_.begin(), rows_.end(), first);
  }
  void Toggle(int row) {
    const auto place = std::lower_bound(rows_.begin(), rows_.end(), row);
    if (place != rows_.end() && *place == row) {
      rows_.erase(place);
    } else {
      rows_.insert(place, row);
    }
  }

 private:
  std::vector<int> rows_;
};

}  // namespace kestrun
