// Private-profile files: sections in square brackets, lines of key=value (docs/formats/profile.md). Reading and writing
// follow the platform's own profile service; the code is ours on every platform. Section and key names compare without
// regard to case, the first match wins.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrun {

// The raw value bytes of a key in a file's content: blanks at both ends trimmed, one pair of matching quotes taken off.
// Nothing when section or key is missing; the empty text when the key stands there without a value. Names are code page
// bytes. Linear in the content.
[[nodiscard]] std::optional<std::string_view> FindProfileValue(std::string_view content, std::string_view section,
                                                               std::string_view key);

// The content with the key set to the value. Untouched lines keep their bytes, their order and their line ends; a new
// key goes behind the last line of its section that is not blank, a new section to the end of the file.
[[nodiscard]] std::string WithProfileValue(std::string_view content, std::string_view section, std::string_view key,
                                           std::string_view value);

// Text as it stands in a profile file: the code page where it can hold the text, UTF-8 where it cannot, so that a
// folder of any name can be stored. Bytes that are valid UTF-8 beyond ASCII read as UTF-8; code page text that would
// look like that is written as UTF-8 too, so that every text comes back as it went in.
[[nodiscard]] std::string EncodeProfileText(std::string_view text);
[[nodiscard]] std::string DecodeProfileText(std::string_view bytes);

// Reads one value of a file; nothing when file, section or key is missing. At most `limit` bytes of the value are
// taken.
[[nodiscard]] std::optional<std::string> ReadProfileString(const std::string& path, std::string_view section,
                                                           std::string_view key, size_t limit);

// Writes one value, creating file and section as needed. The new content takes the old one's place in one step. Raises
// the file layer's errors, the old file being as it was.
void WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace kestrun
