// Bytes that reference-counted objects take with what they own, so that a script's budget can be held against them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kestrun {

// One owner's share of the total. Copying an owner does not copy its share: the copy counts for itself.
class LiveBytes {
 public:
  LiveBytes() = default;
  ~LiveBytes() { Remove(Counted()); }
  LiveBytes(const LiveBytes&) noexcept {}
  LiveBytes& operator=(const LiveBytes&) noexcept { return *this; }

  // The share from now on. The blocks that an owner takes are each passed through Block.
  void Set(size_t bytes) noexcept {
    Remove(Counted());
    units_ = static_cast<uint32_t>(std::min<size_t>((bytes + kUnit - 1) / kUnit, UINT32_MAX));
    Add(Counted());
  }
  void Grow(size_t bytes) noexcept { Set(Counted() + bytes); }

  [[nodiscard]] static size_t Total() noexcept { return total_; }
  static void Add(size_t bytes) noexcept { total_ += bytes; }
  static void Remove(size_t bytes) noexcept { total_ -= bytes; }

  // What the system's allocator takes for a block of this size: its own header, rounded up.
  [[nodiscard]] static constexpr size_t Block(size_t bytes) noexcept {
    if (bytes == 0) return 0;
    return std::max<size_t>(2 * kUnit, (bytes + sizeof(void*) + kUnit - 1) / kUnit * kUnit);
  }
  template <class Vector>
  [[nodiscard]] static size_t BlockOf(const Vector& vector) noexcept {
    return Block(vector.capacity() * sizeof(typename Vector::value_type));
  }

 private:
  static constexpr size_t kUnit = 16;

  [[nodiscard]] size_t Counted() const noexcept { return size_t{units_} * kUnit; }

  inline static size_t total_ = 0;
  uint32_t units_ = 0;
};

}  // namespace kestrun
