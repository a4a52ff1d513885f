// The program's web space. Its address belongs to the deployment.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

inline constexpr std::string_view kSite = "https://kestrun.example/";

// The address of a page or file there, such as the settings file "MAPS.INI".
[[nodiscard]] inline std::string SiteUrl(std::string_view page) { return std::string(kSite) + std::string(page); }

}  // namespace kestrun
