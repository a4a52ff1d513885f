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

#define KESTRUN_FONT_ROW(name, property)                                                                  \
  Member {                                                                                                \
    name, MemberKind::kReadWrite, 0, 0, [](Object& object, Arguments) { return Read(object, property); }, \
        [](Object& object, Arguments, const Variant& value) { Write(object, property, value); }           \
  }

constexpr Member kRows[]{
    KESTRUN_FONT_ROW("Name", "FontName"),           KESTRUN_FONT_ROW("Size", "FontSize"),
    KESTRUN_FONT_ROW("Bold", "FontBold"),           KESTRUN_FONT_ROW("Italic", "FontItalic"),
    KESTRUN_FONT_ROW("Underline", "FontUnderline"), KESTRUN_FONT_ROW("Strikethrough", "FontStrikethru"),
};
constexpr MemberTable kTable{nullptr, kRows};

#undef KESTRUN_FONT_ROW

}  // namespace

double CheckedFontSize(double points) {
  constexpr int kInvalidPropertyValue = 380;
  constexpr double kLargest = 2160;
  if (!(points > 0 && points <= kLargest)) Raise(kInvalidPropertyValue, "Invalid property value");
  return points;
}

const MemberTable& FontObject::Members() const { return kTable; }

}  // namespace kestrun
