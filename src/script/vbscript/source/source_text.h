// One module's text: places in it are byte offsets; lines and columns count from 1, columns in UTF-16 units.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrun::vbs {

struct SourcePlace {
  int line = 0;
  int column = 0;
};

class SourceText {
 public:
  // UTF-8, with or without its mark, or UTF-16 with one.
  explicit SourceText(std::string_view text);

  [[nodiscard]] std::string_view text() const noexcept { return text_; }
  [[nodiscard]] SourcePlace PlaceOf(uint32_t offset) const;
  // The whole line that holds the offset, without its end.
  [[nodiscard]] std::string LineAt(uint32_t offset) const;

 private:
  [[nodiscard]] size_t LineStart(uint32_t offset) const;

  std::string text_;
};

}  // namespace kestrun::vbs
