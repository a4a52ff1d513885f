// Pages and files of the program's web space.
#pragma once

#include <string>
#include <string_view>

#include "base/site_address.h"

namespace kestrun {

// The address of a page or file there, such as the settings file "MAPS.INI".
[[nodiscard]] inline std::string SiteUrl(std::string_view page) { return std::string(kSite) + std::string(page); }

}  // namespace kestrun
