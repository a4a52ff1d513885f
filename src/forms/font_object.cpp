#include "forms/font_object.h"

#include "base/convert.h"

namespace kestrun {
namespace {

// Each member is the control's own font property under a shorter name.
Variant Read(Object& object, std::string_view property) {
  return GetMember(static_cast<FontObject&>(object).owner(), property);
}

void Write(Object& object, std::string_view property, const Variant& value) {
  PutMember(static_cast<FontObject&>(object).owner(), property, value);
}

#define KESTRUN_FONT_ROW(name, property, type)                                                            \
  Member {                                                                                                \
    name, MemberKind::kReadWrite, 0, 0, [](Object& object, Arguments) { return Read(object, property); }, \
        [](Object& object, Arguments, const Variant& value) { Write(object, property, value); }, type     \
  }

Control& OwnerOf(Object& object) { return static_cast<FontObject&>(object).owner(); }

// 400 for a regular font and 700 for a bold one. What is nearer to bold becomes bold.
constexpr int kRegularWeight = 400;
constexpr int kBoldWeight = 700;

Variant GetWeight(Object& object, Arguments) { return OwnerOf(object).Font->bold ? kBoldWeight : kRegularWeight; }

void PutWeight(Object& object, Arguments, const Variant& value) {
  PutMember(OwnerOf(object), "FontBold", ToLong(value) > (kRegularWeight + kBoldWeight) / 2);
}

Variant GetCharset(Object& object, Arguments) { return OwnerOf(object).Font->charset; }

int CheckedCharset(const Variant& value) {
  constexpr int kLargestCharset = 255;
  const int charset = ToLong(value);
  if (charset < 0 || charset > kLargestCharset) Raise(error::kInvalidPropertyValue);
  return charset;
}

void PutCharset(Object& object, Arguments, const Variant& value) {
  FontDescription font = OwnerOf(object).Font;
  font.charset = CheckedCharset(value);
  OwnerOf(object).Font = font;
}

constexpr Member kRows[]{
    KESTRUN_FONT_ROW("Name", "FontName", "String"),
    KESTRUN_FONT_ROW("Size", "FontSize", "Double"),
    KESTRUN_FONT_ROW("Bold", "FontBold", "Boolean"),
    KESTRUN_FONT_ROW("Italic", "FontItalic", "Boolean"),
    KESTRUN_FONT_ROW("Underline", "FontUnderline", "Boolean"),
    KESTRUN_FONT_ROW("Strikethrough", "FontStrikethru", "Boolean"),
    {"Weight", MemberKind::kReadWrite, 0, 0, &GetWeight, &PutWeight, "Long"},
    {"Charset", MemberKind::kReadWrite, 0, 0, &GetCharset, &PutCharset, "Long"},
};
constexpr MemberTable kTable{nullptr, kRows};

#undef KESTRUN_FONT_ROW

}  // namespace

double CheckedFontSize(double points) {
  constexpr double kLargest = 2160;
  if (!(points > 0 && points <= kLargest)) Raise(error::kInvalidPropertyValue);
  return points;
}

FontDescription FontOf(Object& object) {
  if (const auto* own = dynamic_cast<const FontObject*>(&object)) return own->owner().Font;
  for (const std::string_view needed : {"Name", "Size"}) {
    if (object.FindMember(needed) == kNoMember) Raise(error::kTypeMismatch);
  }
  const auto is = [&object](std::string_view style) {
    return object.FindMember(style) != kNoMember && ToBoolean(GetMember(object, style));
  };
  FontDescription font;
  font.name = ToText(GetMember(object, "Name"));
  font.size_points = CheckedFontSize(ToDouble(GetMember(object, "Size")));
  font.bold = is("Bold");
  font.italic = is("Italic");
  font.underline = is("Underline");
  font.strikethrough = is("Strikethrough");
  if (object.FindMember("Charset") != kNoMember) font.charset = CheckedCharset(GetMember(object, "Charset"));
  return font;
}

const MemberTable& FontObject::Members() const { return kTable; }

}  // namespace kestrun
