// Which names of members may become paths.
#pragma once

#include <string>
#include <string_view>

namespace kestrun::zip {

// True when the name, joined to a folder, names something inside that folder on every system: no root, drive, UNC or
// device name, no part "..", no stream colon, no control character, no reserved name ("NUL", "com1.txt"), and no part
// that ends in a blank or a dot, which the system would drop. Both separators count. UTF-8.
[[nodiscard]] bool StaysInside(std::string_view member_name);

// "\" and "/" become the separator.
[[nodiscard]] std::string WithSeparators(std::string_view path, char separator);

// "\" when the current folder's path holds one, otherwise "/".
[[nodiscard]] char PathSeparator();

// The path as a folder to join names to: with a separator behind it, unless "\" or "/" is there.
[[nodiscard]] std::string WithTrailingSeparator(std::string path, char separator);

}  // namespace kestrun::zip
