// Amounts of data as people read them.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// "480 KB": kilobytes of 1,024 bytes, a begun one as a whole one.
[[nodiscard]] inline std::string InKilobytes(uint64_t bytes) {
  constexpr uint64_t kKilobyte = 1024;
  return std::to_string((bytes + kKilobyte - 1) / kKilobyte) + " KB";
}

}  // namespace kestrun
