// Text files that people write with other programs: UTF-8 where they begin with its mark, else the code page.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

// U+FEFF in UTF-8, at the beginning of a file.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// The text of a file's bytes.
[[nodiscard]] std::string DecodeTextFile(std::string_view bytes);
// The bytes of a file with this text: in the code page as long as that holds all of it.
[[nodiscard]] std::string EncodeTextFile(std::string_view text);

}  // namespace kestrun
