// Drawn numbers for generated samples: the same ones in every run, so that a failure can be seen again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace kestrun {

class SeededDraw {
 public:
  explicit SeededDraw(uint64_t seed) : state_(seed) {}

  // 0 to limit - 1, by a linear congruential generator (Knuth, MMIX).
  uint32_t Below(uint32_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<uint32_t>(state_ >> 33) % limit;
  }
  template <size_t n>
  std::string One(const std::array<const char*, n>& choices) {
    return choices[Below(n)];
  }

 private:
  uint64_t state_;
};

}  // namespace kestrun
