// UTF-8 of the logic to the wide text of Windows and back.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string FromWide(std::wstring_view wide);
// The path with "\" throughout; absolute and longer than the old limit, with the prefix that lifts it.
[[nodiscard]] std::wstring ToWidePath(std::string_view path);
// Control texts have CR LF between lines on Windows; a lone LF or CR becomes one.
[[nodiscard]] std::wstring ToWideLines(std::string_view text);

}  // namespace kestrun
