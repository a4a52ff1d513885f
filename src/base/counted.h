// A number with the word for one of a thing or for several.
#pragma once

#include <cstdint>
#include <string>

namespace kestrun {

// "1 map", "0 maps", "2 maps".
[[nodiscard]] inline std::string Counted(uint64_t count, const char* one, const char* several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace kestrun
