// The program's web space. Its address belongs to the deployment.
#pragma once

#include <string_view>

namespace kestrun {

inline constexpr std::string_view kSite = "https://kestrun.example/";

}  // namespace kestrun
