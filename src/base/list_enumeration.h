// For Each over a list that is complete at its start: the body of a loop may add to what it was made from, and take
// away.
#pragma once

#include <utility>
#include <vector>

#include "base/object.h"

namespace kestrun {

// Its items are whatever a Variant can be made from.
template <class Item>
class ListEnumeration final : public Enumeration {
 public:
  explicit ListEnumeration(std::vector<Item> items) : items_(std::move(items)) {}
  bool Next(Variant& item) override {
    if (at_ >= items_.size()) return false;
    item = items_[at_++];
    return true;
  }

 private:
  std::vector<Item> items_;
  size_t at_ = 0;
};

}  // namespace kestrun
