// Private-profile text: sections in square brackets, lines of key=value. Pure functions over the bytes of a file; the
// format is described in docs/formats/profile.md. Both run in time linear in the content.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace kestrun {

// How the bytes of a profile file stand for text, told by the mark at its beginning. Without one it is UTF-8, as
// today's editors save it, when there are bytes above 127 and all of them form UTF-8; else the code page.
enum class ProfileEncoding { kCodePage, kUtf8, kUnmarkedUtf8, kUtf16LittleEndian, kUtf16BigEndian };
[[nodiscard]] ProfileEncoding DetectProfileEncoding(ByteView content);

// The value of the first such key in the first such section, without blanks and quotes around it, as UTF-8 of at most
// `limit` code page bytes. Nothing when there is no such line, or the line has no "=".
[[nodiscard]] std::optional<std::string> FindProfileValue(ByteView content, std::string_view section,
                                                          std::string_view key, size_t limit);

// The content with this value in the place of the present one; all other lines keep their bytes. A code page content
// that would pass for UTF-8 from then on gets the mark of UTF-8 and is turned into it. Nothing when nothing has to
// change, or when section and key form a line under which the value would not be found again.
[[nodiscard]] std::optional<Bytes> WithProfileValue(ByteView content, std::string_view section, std::string_view key,
                                                    std::string_view value);

// The longest beginning of the text that takes no more than `limit` bytes in the code page.
[[nodiscard]] std::string CutToCodePageBytes(std::string_view utf8, size_t limit);

}  // namespace kestrun
