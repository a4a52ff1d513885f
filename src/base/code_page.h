// The single-byte text of files, wires and the game's memory: encoded and decoded at that edge, UTF-8 everywhere else.
// The default is Windows code page 1252; the Windows platform installs the system's ANSI code page.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kestrun {

class CodePage {
 public:
  virtual ~CodePage() = default;
  // UTF-8 to code page bytes; a character that has no byte becomes "?".
  [[nodiscard]] virtual std::string Encode(std::string_view utf8) const = 0;
  // Code page bytes to UTF-8; never fails.
  [[nodiscard]] virtual std::string Decode(std::string_view bytes) const = 0;
};

// Encode and decode with the installed page.
[[nodiscard]] std::string EncodeText(std::string_view utf8);
[[nodiscard]] std::string DecodeText(std::string_view bytes);

// The first character of the text that the page cannot hold, as UTF-8; nothing when all of it can be stored.
[[nodiscard]] std::optional<std::string> FirstUnencodable(std::string_view utf8);

// Lower case of each single byte of the installed page, for comparing names byte by byte. A letter whose lower case is
// no single byte maps to itself.
[[nodiscard]] const std::array<char, 256>& SingleByteLower();

// Installs a page, null for the default again. The page must outlive its use.
void InstallCodePage(const CodePage* page);

}  // namespace kestrun
