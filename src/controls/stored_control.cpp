#include "controls/stored_control.h"

#include <array>

#include "base/convert.h"
#include "base/text.h"
#include "forms/font_object.h"

namespace kestrun {
namespace {

struct Style {
  std::string_view word;
  bool FontDescription::*flag;
};

constexpr std::array kStyles{
    Style{"bold", &FontDescription::bold},
    Style{"italic", &FontDescription::italic},
    Style{"underline", &FontDescription::underline},
    Style{"strikethrough", &FontDescription::strikethrough},
};

// Takes the text up to the next separator off the front.
std::string_view NextField(std::string_view& line) {
  const size_t end = line.find(';');
  const std::string_view field = line.substr(0, end);
  line = end == std::string_view::npos ? std::string_view{} : line.substr(end + 1);
  return field;
}

}  // namespace

Variant StoredFont(const FontDescription& font) {
  std::string line = font.name + ";" + ToText(Variant(font.size_points));
  for (const Style& style : kStyles) {
    if (font.*style.flag) line += ";" + std::string(style.word);
  }
  return line;
}

FontDescription FontFrom(const Variant& value) {
  if (value.Is(VarType::kObject)) {
    if (!value.object()) Raise(error::kTypeMismatch);
    return FontOf(*value.object());
  }
  if (!value.Is(VarType::kString)) Raise(error::kTypeMismatch);
  const std::string text = ToText(value);
  std::string_view line = text;
  FontDescription font;
  font.name = NextField(line);
  font.size_points = CheckedFontSize(ToDouble(Variant(NextField(line))));
  while (!line.empty()) {
    const std::string_view word = NextField(line);
    for (const Style& style : kStyles) {
      if (EqualsNoCase(word, style.word)) font.*style.flag = true;
    }
  }
  return font;
}

FontDescription ContainerFont(const Control& control) {
  return control.Container() ? control.Container()->Font.get() : FontDescription{};
}

Variant GetFont(Object& control, Arguments) {
  return MakeRef<FontObject>(Ref<Control>(&static_cast<Control&>(control)));
}

void PutFont(Object& control, Arguments, const Variant& value) {
  static_cast<Control&>(control).Font = FontFrom(value);
}

}  // namespace kestrun
