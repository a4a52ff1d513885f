// Memory of one module's tree: nodes are made one behind the other and go together.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/live_bytes.h"

namespace kestrun::vbs {

class Arena {
 public:
  template <class Node, class... Arguments>
  Node* Make(Arguments&&... arguments) {
    static_assert(std::is_trivially_destructible_v<Node>);
    return new (Take(sizeof(Node))) Node{std::forward<Arguments>(arguments)...};
  }

  // A lasting copy of a list that was gathered in a vector.
  template <class Item>
  std::span<Item> Keep(const std::vector<Item>& items) {
    static_assert(std::is_trivially_destructible_v<Item>);
    auto* first = static_cast<Item*>(Take(items.size() * sizeof(Item)));
    std::uninitialized_copy(items.begin(), items.end(), first);
    return {first, items.size()};
  }

 private:
  static constexpr size_t kFirstBlock = 512;
  static constexpr size_t kLargestBlock = size_t{64} * 1024;

  void* Take(size_t bytes) {
    bytes = (bytes + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
    if (bytes > left_) {
      block_size_ = std::min(kLargestBlock, 2 * block_size_);
      const size_t size = std::max(bytes, block_size_);
      blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
      bytes_.Grow(LiveBytes::Block(size));
      next_ = blocks_.back().get();
      left_ = size;
    }
    void* const taken = next_;
    next_ += bytes;
    left_ -= bytes;
    return taken;
  }

  LiveBytes bytes_;
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  size_t block_size_ = kFirstBlock / 2;
  std::byte* next_ = nullptr;
  size_t left_ = 0;
};

}  // namespace kestrun::vbs
