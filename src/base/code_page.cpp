#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"

namespace kestrun {
namespace {

// Bytes 0x80 to 0x9F of code page 1252. The five unassigned bytes map to the C1 control of the same number, as the
// Windows conversion does.
constexpr std::array<char16_t, 32> kHighControls{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

class Windows1252 final : public CodePage {
 public:
  [[nodiscard]] std::string Encode(std::string_view utf8) const override {
    std::string bytes;
    bytes.reserve(utf8.size());
    for (size_t position = 0; position < utf8.size();) bytes.push_back(EncodeOne(NextCodePoint(utf8, position)));
    return bytes;
  }

  [[nodiscard]] std::string Decode(std::string_view bytes) const override {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
      const auto value = static_cast<unsigned char>(byte);
      AppendUtf8(text, value >= 0x80 && value < 0xA0 ? kHighControls[value - 0x80U] : value);
    }
    return text;
  }

 private:
  static char EncodeOne(char32_t code_point) {
    if (code_point < 0x80 || (code_point >= 0xA0 && code_point < 0x100)) return static_cast<char>(code_point);
    const auto* found = std::find(kHighControls.begin(), kHighControls.end(), code_point);
    if (found == kHighControls.end()) return '?';
    return static_cast<char>(0x80 + std::distance(kHighControls.begin(), found));
  }
};

const CodePage& DefaultPage() {
  static const Windows1252 page;
  return page;
}

const CodePage* installed_page = nullptr;

const CodePage& CurrentPage() { return installed_page ? *installed_page : DefaultPage(); }

}  // namespace

std::string EncodeText(std::string_view utf8) { return CurrentPage().Encode(utf8); }

std::string DecodeText(std::string_view bytes) { return CurrentPage().Decode(bytes); }

std::optional<std::string> FirstUnencodable(std::string_view utf8) {
  for (size_t position = 0; position < utf8.size();) {
    const size_t from = position;
    static_cast<void>(NextCodePoint(utf8, position));
    const std::string_view character = utf8.substr(from, position - from);
    if (DecodeText(EncodeText(character)) != character) return std::string(character);
  }
  return std::nullopt;
}

const std::array<char, 256>& SingleByteLower() {
  static std::array<char, 256> table{};
  static const CodePage* made_for = nullptr;
  if (made_for == &CurrentPage()) return table;
  made_for = &CurrentPage();
  for (size_t at = 0; at < table.size(); ++at) {
    const char byte = static_cast<char>(at);
    const std::string lower = EncodeText(ToLower(DecodeText(std::string_view(&byte, 1))));
    table[at] = lower.size() == 1 && lower[0] != '?' ? lower[0] : byte;
  }
  return table;
}

void InstallCodePage(const CodePage* page) { installed_page = page; }

}  // namespace kestrun
