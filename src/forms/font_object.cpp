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

void PutCharset(Object& object, Arguments, const Variant& value) {
  constexpr int kLargestCharset = 255;
  FontDescription font = OwnerOf(object).Font;
  font.charset = ToLong(value);
  if (font.charset < 0 || font.charset > kLargestCharset) Raise(error::kInvalidPropertyValue);
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

const MemberTable& FontObject::Members() const { return kTable; }

}  // namespace kestrun
