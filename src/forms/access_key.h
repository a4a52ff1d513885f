// Captions in which "&" marks the access key and "&&" stands for the sign itself.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// The caption as it is read.
[[nodiscard]] std::string WithoutAccessKey(std::string_view caption);

}  // namespace kestrun
