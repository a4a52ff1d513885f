// Names for files that are not to take the place of another one.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// `path` with the extension behind it, and a number from 2 where such a file is there: "a.exe.part", "a.exe.part2".
[[nodiscard]] std::string UnusedName(const std::string& path, std::string_view extension);

}  // namespace kestrun
